#include "cleaner/shell/KestalTrashOfferDialog.h"

#include "cleaner/clean/KestalNotificationService.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/shell/UIUtil.h"

#include <QMessageBox>
#include <QPushButton>

void KestalTrashOfferDialog::install()
{
    KestalNotificationService::setDialogInfo(&UIUtil::dialogInfo);
    KestalNotificationService::setFallback([](const QString &title, const QString &text,
                                              std::function<void(bool)> answer) {
        // Not modal: the offer must not hold up whatever the user is doing.
        auto *box = new QMessageBox(QMessageBox::Question, title, title);
        box->setInformativeText(text);
        box->setObjectName(QStringLiteral("trashOffer"));
        box->setAttribute(Qt::WA_DeleteOnClose);
        QPushButton *clean =
            box->addButton(getLocalizedString(QStringLiteral("Clean")), QMessageBox::AcceptRole);
        box->addButton(getLocalizedString(QStringLiteral("Cancel")), QMessageBox::RejectRole);
        box->setDefaultButton(clean);
        QObject::connect(box, &QMessageBox::buttonClicked, box,
                         [clean, answer](QAbstractButton *button) { answer(button == clean); });
        box->show();
    });
}
