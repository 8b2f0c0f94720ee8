#include "cleaner/shell/KestalRightSplitController.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/UIInfo.h"
#include "cleaner/shell/UIUtil.h"

#include <QFrame>
#include <QVBoxLayout>

namespace {

constexpr int bottomBarHeight = 84;

void fill(QWidget *widget, const QColor &color)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, color);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
}

} // namespace

KestalRightSplitController::KestalRightSplitController(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("rightSplit"));
    m_top = new KestalRightTopTabSwitchController(this);
    m_top->setObjectName(QStringLiteral("rightTop"));
    m_bottom = new KestalRightBottomTabSwitchController(this, this);
    m_bottom->setObjectName(QStringLiteral("rightBottom"));
    m_bottom->setFixedHeight(bottomBarHeight);

    // Plain palettes, not style sheets: a sheet on this ancestor of every
    // module's screens would put each of their widgets through the slow
    // style-sheet style, and the window would take twice as long to appear.
    auto *line = new QFrame(this);
    line->setFixedHeight(1);
    fill(line, UIInfo::nsColor(QStringLiteral("separator_color")));
    fill(m_top, UIInfo::nsColor(QStringLiteral("right_top_bg_color")));
    fill(m_bottom, UIInfo::nsColor(QStringLiteral("right_bottom_bg_color")));

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
