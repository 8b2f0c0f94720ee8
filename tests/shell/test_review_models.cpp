// The review's two models over a category read from a real folder tree:
// consistent for Qt's own model checker, a tick redraws its row, its
// children and its parent only, a sort keeps the rows the views hold, and a
// link is shown as a link.

#include "ShellTestSupport.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/FolderInfo.h"
#include "cleaner/core/ModuleTypes.h"
#include "cleaner/shell/ImageStore.h"
#include "cleaner/shell/KestalTopDetailLeftTableView.h"
#include "cleaner/shell/KestalTopDetailRigthOutlineView.h"
#include "support/TreeBuilder.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace {

constexpr int systemJunk = 1;

using Rows = QList<std::pair<int, int>>; // first and last row of each dataChanged

Rows rowsOf(const QSignalSpy &spy)
{
    Rows rows;
    for (const QList<QVariant> &signal : spy)
        rows.append({signal.at(0).toModelIndex().row(), signal.at(1).toModelIndex().row()});
    return rows;
}

QImage imageOf(const QVariant &icon)
{
    return icon.value<QIcon>().pixmap(QSize(16, 16)).toImage();
}

} // namespace

class ReviewModelsTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ShellEnvironment> m_env;
    std::unique_ptr<TreeBuilder> m_tree;
    std::unique_ptr<KestalTopDetailRigthOutlineView> m_files;

    QModelIndex row(const QString &name) const
    {
        return m_files->match(m_files->index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly)
            .value(0);
    }
    Qt::CheckState check(const QModelIndex &index) const
    {
        return index.data(Qt::CheckStateRole).value<Qt::CheckState>();
    }

private slots:
    void initTestCase() { isolateUserSettings(); }

    // User Cache lists a real tree: "bundle" with its entries as children
    // (as some modules list them), a plain folder, files, and a link to a folder.
    void init()
    {
        m_env = std::make_unique<ShellEnvironment>();
        m_tree = std::make_unique<TreeBuilder>();
        m_tree->file("cache/bundle/a", 10);
        m_tree->file("cache/bundle/b", 20);
        m_tree->file("cache/bundle/c", 30);
        m_tree->file("cache/folder/deep/x", 4000);
        m_tree->file("cache/small.txt", 5);
        m_tree->file("cache/large.bin", 90000);
        m_tree->symlink("cache/pointer", m_tree->path("cache/folder"));
        const auto urlOf = [this](const QString &path) {
            return FolderUrl{
                FolderInfo::absoluteString(FolderInfo::urlFromPath(m_tree->path(path))), {}, 1};
        };
        ChildrenInfo listed = FolderInfo::childrenOfDirectory(urlOf("cache"), nullptr);
        for (const FolderInfoPtr &file : std::as_const(listed.children)) {
            if (file->name == "bundle")
                file->children =
                    FolderInfo::childrenOfDirectory(urlOf("cache/bundle"), nullptr).children;
        }
        Category &c = AppModuleService::categoriesOf(systemJunk)[0];
        c.files = listed.children;
        c.size = listed.totalSize;
        c.state = 1;
        m_files = std::make_unique<KestalTopDetailRigthOutlineView>(systemJunk);
        new QAbstractItemModelTester(
            m_files.get(), QAbstractItemModelTester::FailureReportingMode::QtTest, m_files.get());
        m_files->reloadData(0);
    }

    void cleanup()
    {
        m_files.reset();
        m_tree.reset();
        m_env.reset();
        AppModuleService::reset();
    }

    void aTickRedrawsItsRowItsChildrenAndItsParent_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("child"); // -1: the file's own box
        QTest::addColumn<int>("changes");
        QTest::addColumn<Qt::CheckState>("fileAfter");
        QTest::newRow("a file") << "small.txt" << -1 << 1 << Qt::Unchecked;
        QTest::newRow("a file with children") << "bundle" << -1 << 2 << Qt::Unchecked;
        QTest::newRow("a child") << "bundle" << 1 << 2 << Qt::PartiallyChecked;
    }
    void aTickRedrawsItsRowItsChildrenAndItsParent()
    {
        QFETCH(QString, file);
        QFETCH(int, child);
        QFETCH(int, changes);
        QFETCH(Qt::CheckState, fileAfter);
        const QModelIndex fileRow = row(file);
        const QModelIndex target = child < 0 ? fileRow : m_files->index(child, 0, fileRow);
        QSignalSpy changed(m_files.get(), &QAbstractItemModel::dataChanged);
        QSignalSpy layout(m_files.get(), &QAbstractItemModel::layoutChanged);
        QSignalSpy reset(m_files.get(), &QAbstractItemModel::modelReset);
        QSignalSpy told(m_files.get(), &KestalTopDetailRigthOutlineView::fileStateChanged);

        QVERIFY(m_files->setData(target, Qt::Unchecked, Qt::CheckStateRole));
        QCOMPARE(changed.size(), changes);
        QCOMPARE(layout.size() + reset.size(), 0);
        QCOMPARE(told.size(), 1);
        // Each signal names one row, or the children of the file.
        const int children = m_files->rowCount(fileRow);
        for (const auto &[first, last] : rowsOf(changed))
            QVERIFY((first == last) || (first == 0 && last == children - 1));
        QCOMPARE(check(fileRow), fileAfter);
        QCOMPARE(check(target), Qt::Unchecked);
        for (int i = 0; i < children; ++i)
            QCOMPARE(check(m_files->index(i, 0, fileRow)),
                     child < 0 || i == child ? Qt::Unchecked : Qt::Checked);
        // The table took the change: the category is mixed now.
        QCOMPARE(AppModuleService::categoriesOf(systemJunk)[0].state, -1);
    }

    void theCategoryRowAndSelectAll()
    {
        KestalTopDetailLeftTableView categories(systemJunk);
        QAbstractItemModelTester tester(&categories,
                                        QAbstractItemModelTester::FailureReportingMode::QtTest);
        QSignalSpy rowChanged(&categories, &QAbstractItemModel::dataChanged);
        categories.categoryChanged(0);
        QCOMPARE(rowsOf(rowChanged), (Rows{{categories.rowOf(0), categories.rowOf(0)}}));

        QSignalSpy filesChanged(m_files.get(), &QAbstractItemModel::dataChanged);
        QVERIFY(categories.setData(categories.index(categories.rowOf(0), 0), Qt::Unchecked,
                                   Qt::CheckStateRole));
        m_files->checksChanged();
        // One signal for the files, one for the children of the one file that has any.
        QCOMPARE(rowsOf(filesChanged),
                 (Rows{{0, m_files->rowCount() - 1}, {0, m_files->rowCount(row("bundle")) - 1}}));
        for (int r = 0; r < m_files->rowCount(); ++r)
            QCOMPARE(check(m_files->index(r, 0)), Qt::Unchecked);
        QCOMPARE(check(m_files->index(0, 0, row("bundle"))), Qt::Unchecked);
    }

    void sortingKeepsTheRowsTheViewsHold()
    {
        // Largest first until the user chooses.
        QCOMPARE(m_files->index(0, 0).data().toString(), QString("large.bin"));
        const QPersistentModelIndex held = row("bundle");
        const QPersistentModelIndex child = m_files->index(2, 0, held);
        const QString childName = child.data().toString();
        QSignalSpy reset(m_files.get(), &QAbstractItemModel::modelReset);
        m_files->sort("ascending", "name");
        QCOMPARE(reset.size(), 0);
        QCOMPARE(held.data().toString(), QString("bundle"));
        QCOMPARE(held.row(), 0);
        QCOMPARE(child.data().toString(), childName);
        m_files->sort(KestalTopDetailRigthOutlineView::sizeColumn, Qt::DescendingOrder);
        QCOMPARE(m_files->index(0, 0).data().toString(), QString("large.bin"));
        QCOMPARE(held.data().toString(), QString("bundle"));

        // Ticked files together, first when descending.
        m_files->setData(row("small.txt"), Qt::Unchecked, Qt::CheckStateRole);
        m_files->sort("descending", "selection");
        QCOMPARE(m_files->index(m_files->rowCount() - 1, 0).data().toString(),
                 QString("small.txt"));
    }

    void aLinkIsShownAsALink()
    {
        const QModelIndex link = row("pointer");
        QVERIFY(link.isValid());
        // Never what it points to: no folder, no children, not the folder's size.
        QCOMPARE(m_files->rowCount(link), 0);
        QVERIFY(!m_files->fileAt(link)->isFolder);
        QVERIFY(m_files->fileAt(link)->size < 4000);
        QCOMPARE(link.data(Qt::ToolTipRole).toString(),
                 m_tree->path("cache/pointer") + " \u2192 " + m_tree->path("cache/folder"));
        const QImage linkIcon = imageOf(link.data(Qt::DecorationRole));
        QVERIFY(!linkIcon.isNull());
        QVERIFY(linkIcon != imageOf(row("folder").data(Qt::DecorationRole)));
        QVERIFY(linkIcon != imageOf(row("small.txt").data(Qt::DecorationRole)));
        QCOMPARE(row("small.txt").data(Qt::ToolTipRole).toString(),
                 m_tree->path("cache/small.txt"));
    }

    // A clean took the files out of the table while the review still
    // showed them: a tick touches nothing stale and the list is read again.
    void aStaleTickIsRefused()
    {
        const QModelIndex bundle = row("bundle");
        AppModuleService::categoriesOf(systemJunk)[0].files.clear();
        QSignalSpy reset(m_files.get(), &QAbstractItemModel::modelReset);
        QVERIFY(!m_files->setData(bundle, Qt::Unchecked, Qt::CheckStateRole));
        QCOMPARE(reset.size(), 1);
        QVERIFY(m_files->isEmptyList());
        QCOMPARE(m_files->index(0, 0).data().toString(), QString("Empty"));
        QVERIFY(!(m_files->flags(m_files->index(0, 0)) & Qt::ItemIsUserCheckable));
    }
};

QTEST_MAIN(ReviewModelsTest)
#include "test_review_models.moc"
