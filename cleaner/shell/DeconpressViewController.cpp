#include "cleaner/shell/DeconpressViewController.h"

#include "cleaner/core/Dispatch.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/erasure/KestalDecompressionService.h"
#include "cleaner/shell/UIUtil.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

std::optional<QString> DeconpressViewController::decompressionFiles;
DecompressionSignleViewDelete *DeconpressViewController::delegate = nullptr;

namespace {

constexpr int kBarSteps = 1000;

QPointer<DeconpressViewController> &sharedWindow()
{
    static QPointer<DeconpressViewController> w;
    return w;
}

} // namespace

DeconpressViewController::DeconpressViewController(QWidget *parent) : QWidget(parent, Qt::Window)
{
    setObjectName(QStringLiteral("DecompressWindowController"));
    setWindowTitle(getLocalizedString(QStringLiteral("Decompression")));
    m_title = new QLabel(this);
    m_bar = new QProgressBar(this);
    m_bar->setRange(0, kBarSteps);
    m_bar->setTextVisible(false);
    m_field = new QLineEdit(this);
    m_field->setEchoMode(QLineEdit::Password);
    m_done = new QPushButton(getLocalizedString(QStringLiteral("Done")), this);
    m_done->setDefault(true);
    connect(m_done, &QPushButton::clicked, this, &DeconpressViewController::doneAction);
    connect(m_field, &QLineEdit::returnPressed, this, &DeconpressViewController::doneAction);

    auto *fieldRow = new QHBoxLayout;
    fieldRow->addWidget(m_field, 1);
    fieldRow->addWidget(m_done);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 20, 24, 24);
    layout->addWidget(m_title);
    layout->addWidget(m_bar);
    layout->addLayout(fieldRow);
    setFixedSize(420, 120);
    setView(false);
}

DeconpressViewController *DeconpressViewController::shared()
{
    if (!sharedWindow())
        sharedWindow() = new DeconpressViewController;
    return sharedWindow();
}

void DeconpressViewController::openFiles(const QStringList &paths)
{
    if (paths.isEmpty())
        return;
    // One archive at a time: a later one replaces the path.
    decompressionFiles = paths.last();
    DeconpressViewController *w = shared();
    if (w->isVisible() && !w->m_busy) {
        w->passcode.reset();
        w->viewDidAppear();
    }
    w->show();
    w->raise();
    w->activateWindow();
}

void DeconpressViewController::setView(bool isPassword)
{
    m_title->setText(getLocalizedString(isPassword ? QStringLiteral("Enter Password :")
                                                   : QStringLiteral("Decompression Progress :")));
    m_bar->setVisible(!isPassword);
    m_field->setVisible(isPassword);
    m_done->setVisible(isPassword);
    if (isPassword)
        m_field->setFocus();
}

bool DeconpressViewController::isPassword() const
{
    return m_field->isVisibleTo(this);
}

void DeconpressViewController::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_busy)
        viewDidAppear();
}

void DeconpressViewController::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    // The next archive starts clean.
    if (!m_busy) {
        decompressionFiles.reset();
        passcode.reset();
    }
}

void DeconpressViewController::viewDidAppear()
{
    setView(false);
    m_bar->setValue(0);
    if (!decompressionFiles || decompressionFiles->isEmpty() || m_busy)
        return;
    const QString path = *decompressionFiles;
    const bool sevenZip = KestalDecompressionService::isSevenZip(path);
    if (!sevenZip && !KestalDecompressionService::isRar(path))
        return; // not a kind opened here: the empty bar stays
    if (!sevenZip && !passcode && KestalDecompressionService::isPasswordProtected(path)) {
        setView(true);
        return;
    }
    m_busy = true;
    const QString target = KestalDecompressionService::targetFolder(path);
    const QString password = passcode.value_or(QString());
    QPointer<DeconpressViewController> self(this);
    const auto onMain = [self](const QString &info, double value) {
        Dispatch::mainAsync([self, info, value] {
            if (self)
                self->progress(info, value);
        });
    };
    if (!sevenZip) {
        Dispatch::globalAsync(
            [=] { KestalDecompressionService::uncompressionRAR(password, path, target, onMain); });
        return;
    }
    // 7z: no password state; a failure shows the reader's own words.
    Dispatch::globalAsync([=] {
        const auto outcome =
            KestalDecompressionService::extract(path, target, QString(), [onMain](double f) {
                if (f < 1.0)
                    onMain(QString(), f);
                return true;
            });
        const bool done = outcome.result == ArchiveExtractor::Result::Done;
        const QString text = KestalDecompressionService::describe(outcome);
        Dispatch::mainAsync([self, done, text] {
            if (!self)
                return;
            if (done)
                self->progress(QString(), 1.0);
            else
                self->failed(getLocalizedString(QStringLiteral("Decompress Failed")), text);
        });
    });
}

void DeconpressViewController::doneAction()
{
    passcode = m_field->text();
    m_field->clear();
    viewDidAppear();
}

void DeconpressViewController::progress(const QString &info, double value)
{
    Q_UNUSED(info);
    if (value == -1.0)
        failed(getLocalizedString(QStringLiteral("Compress Failed")), QString());
    else if (value == 1.0)
        finish();
    else
        m_bar->setValue(int(value * kBarSteps));
}

void DeconpressViewController::failed(const QString &question, const QString &text)
{
    m_busy = false;
    UIUtil::dialogOKCancel(question, text);
    finish();
}

void DeconpressViewController::finish()
{
    m_busy = false;
    m_bar->setValue(kBarSteps);
    if (delegate)
        delegate->decompressionFinished();
    close();
}
