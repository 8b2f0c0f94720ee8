#include "cleaner/shell/KestalRightTopShowMessageViewController.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/scan/KestalAutoCleanupService.h"
#include "cleaner/shell/ImageStore.h"
#include "cleaner/shell/UIInfo.h"
#include "cleaner/shell/UIUtil.h"

#include <QCheckBox>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int imageSide = 128;

} // namespace

KestalRightTopShowMessageViewController::KestalRightTopShowMessageViewController(int moduleIndex,
                                                                                 QWidget *parent)
    : KestalSuperViewController(parent), m_moduleIndex(moduleIndex)
{
    setObjectName(AppModuleService::appModules().at(moduleIndex).tab +
                  QStringLiteral(" ShowMessage"));
    m_image = new QLabel(this);
    m_image->setFixedSize(imageSide, imageSide);
    m_title = new QLabel(this);
    UIUtil::setTextAttribute(m_title, UIInfo::nsMyUI(QStringLiteral("scandone_title_font")),
                             Qt::AlignHCenter);
    m_message = new QLabel(this);
    m_message->setWordWrap(true);
    UIUtil::setTextAttribute(m_message, UIInfo::nsMyUI(QStringLiteral("scandone_size_font")),
                             Qt::AlignHCenter);

    // Auto Cleanup names each of its modules with a box: what stays on is cleaned.
    m_children = new QWidget(this);
    auto *boxes = new QVBoxLayout(m_children);
    boxes->setContentsMargins(0, 8, 0, 0);
    if (moduleIndex == 0) {
        for (const Category &c :
             AppModuleService::appModules().at(0).categories.value_or(QList<Category>())) {
            const int child = KestalAutoCleanupService::childModuleIndex(c.title);
            if (child < 0)
                continue;
            auto *box = new QCheckBox(m_children);
            box->setObjectName(QStringLiteral("childBox %1").arg(child));
            m_childBoxes.insert(child, box);
            boxes->addWidget(box);
            connect(box, &QCheckBox::clicked, this,
                    [this, child](bool on) { emit childBoxChanged(child, on ? 1 : 0); });
        }
    }

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(48, 32, 48, 32);
    layout->setSpacing(12);
    layout->addStretch(1);
    layout->addWidget(m_image, 0, Qt::AlignHCenter);
    layout->addSpacing(8);
    layout->addWidget(m_title);
    layout->addWidget(m_message);
    layout->addWidget(m_children, 0, Qt::AlignHCenter);
    layout->addStretch(1);
    updateView();
}

void KestalRightTopShowMessageViewController::changeViewStatus(viewStatus status)
{
    m_status = status;
    m_foundSize = CategoryTotals::instanceTotalSize(m_moduleIndex);
    updateView();
}

void KestalRightTopShowMessageViewController::updateView()
{
    const bool empty = m_status == viewStatus::scandone_Empty;
    m_image->setPixmap(ImageStore::pixmap(empty ? QStringLiteral("ScandoneEmpty")
                                                : QStringLiteral("ScandoneNoEmpty"),
                                          QSize(imageSide, imageSide), devicePixelRatioF()));
    m_title->setText(empty ? getLocalizedString(QStringLiteral("Nothing to Clean"))
                           : getLocalizedString(QStringLiteral("Scan Done")));
    m_message->setText(empty ? getLocalizedString(QStringLiteral("Your disk is tidy here."))
                             : getLocalizedString(QStringLiteral("Found ")) +
                                   byteString(m_foundSize));
    const QList<Category> rows =
        AppModuleService::appModules().at(m_moduleIndex).categories.value_or(QList<Category>());
    for (int n = 0; n < rows.size(); ++n) {
        const int child = KestalAutoCleanupService::childModuleIndex(rows[n].title);
        QCheckBox *box = m_childBoxes.value(child);
        if (!box)
            continue;
        const qint64 size = CategoryTotals::instanceTotalSize(child);
        box->setText(getLocalizedString(rows[n].title) + QStringLiteral("  ") + byteString(size));
        box->setChecked(rows[n].state != 0);
        box->setVisible(!empty && size > 0);
    }
}
