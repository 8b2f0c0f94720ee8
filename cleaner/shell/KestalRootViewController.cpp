#include "cleaner/shell/KestalRootViewController.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/shell/FabricController.h"
#include "cleaner/shell/ImageStore.h"
#include "cleaner/shell/KestalLeftTableViewController.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/KestalRightSplitController.h"
#include "cleaner/shell/UIInfo.h"
#include "cleaner/shell/UIUtil.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int logoSide = 32;

} // namespace

KestalRootViewController::KestalRootViewController(QWidget *parent)
    : KestalSuperViewController(parent)
{
    setObjectName(QStringLiteral("root"));

    auto *sidebar = new QWidget(this);
    sidebar->setObjectName(QStringLiteral("sidebar"));
    // As wide as the module list needs in the interface language.
    sidebar->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    sidebar->setAttribute(Qt::WA_StyledBackground);
    sidebar->setStyleSheet(
        QStringLiteral("#sidebar { background: %1; }")
            .arg(UIUtil::cssColor(UIInfo::nsColor(QStringLiteral("left_list_bg_color")))));

    auto *logo = new QLabel(sidebar);
    logo->setFixedSize(logoSide, logoSide);
    logo->setPixmap(ImageStore::pixmap(QStringLiteral("Brenlow"), QSize(logoSide, logoSide),
                                       devicePixelRatioF()));
    m_brand = new QLabel(sidebar);
    UIUtil::setTextAttribute(m_brand, UIInfo::nsMyUI(QStringLiteral("brand_title_font")));
    auto *brandRow = new QHBoxLayout;
    brandRow->setContentsMargins(20, 22, 20, 18);
    brandRow->setSpacing(10);
    brandRow->addWidget(logo);
    brandRow->addWidget(m_brand, 1);

    m_left = new KestalLeftTableViewController(sidebar);
    auto *sideLayout = new QVBoxLayout(sidebar);
    sideLayout->setContentsMargins(0, 0, 0, 12);
    sideLayout->setSpacing(0);
    sideLayout->addLayout(brandRow);
    sideLayout->addWidget(m_left, 1);

    m_right = new KestalRightSplitController(this);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(sidebar);
    layout->addWidget(m_right, 1);

    m_left->selectModule(m_left->moduleOfRow(0));
    m_right->showModule(m_left->moduleOfRow(0));
    connect(m_left, &KestalLeftTableViewController::moduleSelected, this,
            &KestalRootViewController::showModule);
    const QList<Module> &modules = AppModuleService::appModules();
    for (int i = 0; i < modules.size(); ++i) {
        if (auto *bar = m_right->bottomSwitch()->barOfModule(i))
            connect(bar, &KestalRightBottomViewController::moduleRowChanged, m_left,
                    &KestalLeftTableViewController::refreshRow);
    }
    reloadTexts();
}

void KestalRootViewController::showModule(int moduleIndex)
{
    m_right->showModule(moduleIndex);
    FabricController::fabric(
        FabricEvent::menuButton,
        FabricEvent::getMenuButtonName(AppModuleService::appModules().at(moduleIndex)));
}

void KestalRootViewController::reloadTexts()
{
    m_brand->setText(getLocalizedString(QStringLiteral("Brenlow")));
    if (window() != this)
        window()->setWindowTitle(getLocalizedString(QStringLiteral("Brenlow")));
}

QMainWindow *KestalRootViewController::instantiateMainWindow()
{
    auto *window = new QMainWindow;
    window->setObjectName(QStringLiteral("mainWindow"));
    window->setAttribute(Qt::WA_DeleteOnClose, false);
    window->setWindowIcon(ImageStore::icon(QStringLiteral("Brenlow")));
    // No fixed minimum: the window is never smaller than its texts need
    // (the root's minimum size hint), in whatever language.
    window->resize(1080, 680);
    auto *root = new KestalRootViewController(window);
    window->setCentralWidget(root);
    window->setWindowTitle(getLocalizedString(QStringLiteral("Brenlow")));
    return window;
}

QSize KestalRootViewController::minimumSizeHint() const
{
    return KestalSuperViewController::minimumSizeHint().expandedTo(QSize(940, 560));
}

KestalRootViewController *KestalRootViewController::rootOf(QMainWindow *window)
{
    return window ? qobject_cast<KestalRootViewController *>(window->centralWidget()) : nullptr;
}
