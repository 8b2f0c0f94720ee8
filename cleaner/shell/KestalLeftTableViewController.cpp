#include "cleaner/shell/KestalLeftTableViewController.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/scan/KestalService.h"
#include "cleaner/shell/ImageStore.h"
#include "cleaner/shell/KestalSuperViewController.h"
#include "cleaner/shell/LanguageNotifier.h"
#include "cleaner/shell/UIInfo.h"
#include "cleaner/shell/UIUtil.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyledItemDelegate>

namespace {

constexpr int moduleRowHeight = 38;
constexpr int headerRowHeight = 32;
constexpr int iconSide = 24;
constexpr int sideMargin = 12;
// The row's inset from the list's edges and the gap between title and status.
constexpr int rowInset = 8;
constexpr int statusGap = 8;
constexpr int scrollBarWidth = 8;
constexpr int minimumListWidth = 264;

enum Role { ModuleRole = Qt::UserRole + 1, HeaderRole, DetailRole };

QFont titleFont(bool selected)
{
    return UIInfo::nsFont(selected ? QStringLiteral("left_list_selected_font")
                                   : QStringLiteral("left_list_title_font"));
}

// Where a module row's title goes in a row's rectangle, with this status at its right.
QRect titleRectIn(const QRect &row, const QString &detail)
{
    QRect rect = row.adjusted(rowInset + sideMargin + iconSide + 12, 0, -rowInset - sideMargin, 0);
    if (!detail.isEmpty())
        rect.setRight(rect.right() - statusGap -
                      QFontMetrics(UIInfo::nsFont(QStringLiteral("left_list_detail_font")))
                          .horizontalAdvance(detail));
    return rect;
}

// Paints the rows: a module with its image, title and a short status on the
// right; a heading in small capitals.
class LeftRowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return QSize(option.rect.width(),
                     index.data(HeaderRole).toBool() ? headerRowHeight : moduleRowHeight);
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const QRect rect = option.rect.adjusted(rowInset, 2, -rowInset, -2);
        if (index.data(HeaderRole).toBool()) {
            QFont font = UIInfo::nsFont(QStringLiteral("left_list_header_font"));
            font.setCapitalization(QFont::AllUppercase);
            font.setLetterSpacing(QFont::PercentageSpacing, 108);
            painter->setFont(font);
            painter->setPen(UIInfo::nsColor(QStringLiteral("left_list_header_font")));
            painter->drawText(rect.adjusted(sideMargin - 4, 0, 0, -4),
                              Qt::AlignLeft | Qt::AlignBottom, index.data().toString());
            painter->restore();
            return;
        }
        const bool selected = option.state & QStyle::State_Selected;
        const bool hover = option.state & QStyle::State_MouseOver;
        if (selected || hover) {
            QPainterPath path;
            path.addRoundedRect(rect, 8, 8);
            painter->fillPath(path,
                              UIInfo::nsColor(selected ? QStringLiteral("left_list_selected_color")
                                                       : QStringLiteral("left_list_hover_color")));
        }
        const QRect iconRect(rect.left() + sideMargin, rect.center().y() - iconSide / 2 + 1,
                             iconSide, iconSide);
        const qreal dpr = painter->device()->devicePixelRatioF();
        painter->drawPixmap(iconRect, ImageStore::pixmap(index.data(Qt::DecorationRole).toString(),
                                                         QSize(iconSide, iconSide), dpr));

        const QString detail = index.data(DetailRole).toString();
        if (!detail.isEmpty()) {
            painter->setFont(UIInfo::nsFont(QStringLiteral("left_list_detail_font")));
            painter->setPen(UIInfo::nsColor(selected ? QStringLiteral("left_list_selected_font")
                                                     : QStringLiteral("left_list_detail_font")));
            painter->drawText(titleRectIn(option.rect, QString()).adjusted(0, 2, 0, -2),
                              Qt::AlignRight | Qt::AlignVCenter, detail);
        }
        const QRect textRect = titleRectIn(option.rect, detail).adjusted(0, 2, 0, -2);
        const QFont font = titleFont(selected);
        painter->setFont(font);
        painter->setPen(UIInfo::nsColor(selected ? QStringLiteral("left_list_selected_font")
                                                 : QStringLiteral("left_list_title_font")));
        painter->drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter,
                          QFontMetrics(font).elidedText(index.data().toString(), Qt::ElideRight,
                                                        textRect.width()));
        painter->restore();
    }
};

} // namespace

qint64 KestalLeftTableViewController::currentRow = 0;

KestalLeftTableViewController::KestalLeftTableViewController(QWidget *parent)
    : QListWidget(parent), m_rows(AppModuleService::leftListRows())
{
    setObjectName(QStringLiteral("leftTable"));
    setItemDelegate(new LeftRowDelegate(this));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
    setUniformItemSizes(false);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setStyleSheet(QStringLiteral(
        "QListWidget { background: transparent; outline: 0; }"
        "QScrollBar:vertical { background: transparent; width: 8px; margin: 2px; }"
        "QScrollBar::handle:vertical { background: rgba(255, 255, 255, 60); border-radius: 2px;"
        " min-height: 24px; }"
        "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }"
        "QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }"));

    const QList<Module> &modules = AppModuleService::appModules();
    for (int moduleIndex : std::as_const(m_rows)) {
        const Module &module = modules.at(moduleIndex);
        auto *item = new QListWidgetItem(this);
        item->setData(ModuleRole, moduleIndex);
        item->setData(HeaderRole, module.isHeader());
        item->setData(Qt::DecorationRole, module.image);
        // A heading is neither selectable nor reachable by the keyboard.
        item->setFlags(module.isHeader() ? Qt::NoItemFlags
                                         : Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    }
    reloadTexts();
    connect(this, &QListWidget::itemSelectionChanged, this,
            &KestalLeftTableViewController::onSelectionChanged);
    connect(LanguageNotifier::defaultCenter(), &LanguageNotifier::changeLanguage, this,
            &KestalLeftTableViewController::reloadTexts);
}

int KestalLeftTableViewController::rowOfModule(int moduleIndex) const
{
    return int(m_rows.indexOf(moduleIndex));
}

int KestalLeftTableViewController::moduleOfRow(int row) const
{
    return row >= 0 && row < m_rows.size() ? m_rows.at(row) : -1;
}

bool KestalLeftTableViewController::isHeaderRow(int row) const
{
    const QListWidgetItem *it = item(row);
    return it && it->data(HeaderRole).toBool();
}

void KestalLeftTableViewController::selectModule(int moduleIndex)
{
    const int row = rowOfModule(moduleIndex);
    if (row >= 0 && !isHeaderRow(row))
        setCurrentRow(row, QItemSelectionModel::ClearAndSelect);
}

void KestalLeftTableViewController::refreshRow(int moduleIndex)
{
    QListWidgetItem *it = item(rowOfModule(moduleIndex));
    if (!it || it->data(HeaderRole).toBool())
        return;
    QString detail;
    const int scan = KestalService::scanStatus().value(moduleIndex);
    const QString tab = AppModuleService::appModules().at(moduleIndex).tab;
    const auto status = KestalSuperViewController::currentStatus(tab);
    if (scan == 1 && status == KestalSuperViewController::viewStatus::scanning)
        detail =
            QStringLiteral("%1%").arg(int(KestalService::scanningPercent().value(moduleIndex)));
    else if (status == KestalSuperViewController::viewStatus::scandone_NoEmpty)
        detail =
            KestalSuperViewController::byteString(CategoryTotals::instanceTotalSize(moduleIndex));
    it->setData(DetailRole, detail);
}

QString KestalLeftTableViewController::detailOfModule(int moduleIndex) const
{
    const QListWidgetItem *it = item(rowOfModule(moduleIndex));
    return it ? it->data(DetailRole).toString() : QString();
}

void KestalLeftTableViewController::reloadTexts()
{
    const QList<Module> &modules = AppModuleService::appModules();
    for (int row = 0; row < count(); ++row)
        item(row)->setText(getLocalizedString(modules.at(m_rows.at(row)).title));
    // The titles of another language may need another width.
    updateGeometry();
}

QString KestalLeftTableViewController::widestDetail()
{
    QString widest;
    int width = 0;
    const QFontMetrics metrics(UIInfo::nsFont(QStringLiteral("left_list_detail_font")));
    // A percent while scanning, a size after it: the widest of each kind.
    for (const QString &detail :
         {QStringLiteral("100%"), KestalSuperViewController::byteString(999),
          KestalSuperViewController::byteString(Q_INT64_C(999'900'000'000'000))}) {
        if (metrics.horizontalAdvance(detail) > width) {
            width = metrics.horizontalAdvance(detail);
            widest = detail;
        }
    }
    return widest;
}

QRect KestalLeftTableViewController::titleRect(int row, const QString &detail) const
{
    const QListWidgetItem *it = item(row);
    return it ? titleRectIn(visualItemRect(it), detail) : QRect();
}

QSize KestalLeftTableViewController::sizeHint() const
{
    // Every title fits beside the widest status, in the selected row's font too.
    const QString detail = widestDetail();
    int needed = 0;
    for (int row = 0; row < count(); ++row) {
        if (isHeaderRow(row))
            continue;
        const QString title = item(row)->text();
        const int text = qMax(QFontMetrics(titleFont(false)).horizontalAdvance(title),
                              QFontMetrics(titleFont(true)).horizontalAdvance(title));
        needed = qMax(needed, text);
    }
    const int spare =
        minimumListWidth - titleRectIn(QRect(0, 0, minimumListWidth, 1), detail).width();
    return {qMax(minimumListWidth, needed + spare + scrollBarWidth + frameWidth() * 2),
            QListWidget::sizeHint().height()};
}

void KestalLeftTableViewController::onSelectionChanged()
{
    const QList<QListWidgetItem *> selected = selectedItems();
    if (selected.isEmpty())
        return;
    const int moduleIndex = selected.first()->data(ModuleRole).toInt();
    currentRow = moduleIndex;
    emit moduleSelected(moduleIndex);
}
