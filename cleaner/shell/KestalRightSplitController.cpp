#include "cleaner/shell/KestalRightSplitController.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/UIInfo.h"
#include "cleaner/shell/UIUtil.h"

#include <QFrame>
#include <QVBoxLayout>

namespace {

constexpr int bottomBarHeight = 84;

} // namespace

KestalRightSplitController::KestalRightSplitController(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("rightSplit"));
    m_top = new KestalRightTopTabSwitchController(this);
    m_top->setObjectName(QStringLiteral("rightTop"));
    m_bottom = new KestalRightBottomTabSwitchController(this, this);
    m_bottom->setObjectName(QStringLiteral("rightBottom"));
    m_bottom->setFixedHeight(bottomBarHeight);

    auto *line = new QFrame(this);
    line->setFixedHeight(1);
    line->setStyleSheet(
        QStringLiteral("background: %1;")
            .arg(UIUtil::cssColor(UIInfo::nsColor(QStringLiteral("separator_color")))));

    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(
        QStringLiteral("#rightTop { background: %1; } #rightBottom { background: %2; }")
            .arg(UIUtil::cssColor(UIInfo::nsColor(QStringLiteral("right_top_bg_color"))),
                 UIUtil::cssColor(UIInfo::nsColor(QStringLiteral("right_bottom_bg_color")))));

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_top, 1);
    layout->addWidget(line);
    layout->addWidget(m_bottom);
}

void KestalRightSplitController::transitionTopView(const QString &fromNameTab, viewStatus toStatus,
                                                   const QString &toNameTab)
{
    Q_UNUSED(fromNameTab);
    m_top->swap(toNameTab, toStatus);
}

void KestalRightSplitController::transitionBottomView(const QString &fromNameTab,
                                                      viewStatus toStatus, const QString &toNameTab)
{
    Q_UNUSED(fromNameTab);
    const auto &positions = KestalSuperViewController::bottomTabChildrenDict();
    if (!positions.contains(toNameTab))
        return;
    m_bottom->setCurrentIndex(positions.value(toNameTab));
    m_bottom->updateBootomStatus(toStatus, toNameTab);
}

void KestalRightSplitController::showModule(int moduleIndex)
{
    const QString tab = AppModuleService::appModules().at(moduleIndex).tab;
    const viewStatus status = KestalSuperViewController::currentStatus(tab);
    transitionTopView(tab, status, tab);
    transitionBottomView(tab, status, tab);
}
