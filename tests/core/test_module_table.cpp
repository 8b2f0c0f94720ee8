#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Platform.h"
#include "support/TestEnvironment.h"

#include <QFile>
#include <QtTest>

namespace {

FolderInfoPtr node(int checked, qint64 size = 1, const QString &path = QString(),
                   QList<FolderInfoPtr> children = {})
{
    static int counter = 0;
    const QString p = path.isEmpty() ? QStringLiteral("/n/%1").arg(++counter) : path;
    return FolderInfo::make(0, p, QString(), size, QColor(), !children.isEmpty(),
                            FolderInfo::distantPast(), FolderInfo::urlFromPath(p), false,
                            std::move(children), false, checked, QString());
}

QVariantList oneModule(const QVariantList &categories)
{
    return {TestEnvironment::moduleRow(QStringLiteral("Only"), categories)};
}

} // namespace

class ModuleTable : public QObject {
    Q_OBJECT

private slots:
    void init() { QStandardPaths::setTestModeEnabled(true); }

    void shippedTablesKeepTheFixedIndices_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<QString>("homeUrl");
        QTest::addColumn<QString>("homePath");
        QTest::newRow("linux") << "linux"
                               << "file://~/.cache/"
                               << "/home/user/.cache/";
        QTest::newRow("macos") << "macos"
                               << "file://~/Library/Caches/"
                               << "/Users/" + Platform::userName() + "/Library/Caches/";
    }
    void shippedTablesKeepTheFixedIndices()
    {
        QFETCH(QString, profile);
        QFETCH(QString, homeUrl);
        QFETCH(QString, homePath);
        TestEnvironment env(profile);
        QCOMPARE(AppModuleService::updateModuleURL(homeUrl), "file://" + env.root() + homePath);
        const QStringList titles = {
            "Auto Cleanup", "System Junk", "Photo Cache",         "Mail Trash",     "Trash Bin",
            "iTunes Junk",  "Duplicates",  "Large and Old Files", "Similar Images", "Uninstaller",
            "Eraser",       "Privacy",     "Extensions"};
        const QList<Module> &modules = AppModuleService::appModules();
        QVERIFY(modules.size() >= 13);
        for (int i = 0; i < titles.size(); ++i) {
            QCOMPARE(modules[i].title, titles[i]);
            QVERIFY2(!modules[i].isHeader(), "no heading row among the fixed indices");
        }
        QStringList children;
        for (const Category &c : *modules[0].categories)
            children << c.title;
        QCOMPARE(children, titles.mid(1, 5));
        // Auto Cleanup walks the rows between "Cleanup" and "Tools": modules 1 to 5 at rows n + 2.
        const int start = AppModuleService::rowOfTitle(QStringLiteral("Cleanup"));
        const int end = AppModuleService::rowOfTitle(QStringLiteral("Tools"));
        const QList<int> rows = AppModuleService::leftListRows();
        QCOMPARE(start, 1);
        QCOMPARE(rows.mid(start + 1, end - start - 1), QList<int>({1, 2, 3, 4, 5}));
        QVERIFY(modules[rows[start]].isHeader() && modules[rows[end]].isHeader());
    }

    void categoryFieldsAndUrlForms()
    {
        TestEnvironment env;
        const QVariantMap dictUrl{{"url", "file:///opt/x/"}, {"type", "Special"}, {"checked", 1}};
        QVariantMap typed = TestEnvironment::categoryRow(
            "Typed", dictUrl, QVariantList{"file://~/a/", "~/b/"}, 1, "Mail");
        typed.insert("size", qint64(42));
        QVariantMap bare = TestEnvironment::categoryRow("Bare");
        bare.insert("state", QStringLiteral("not a number"));
        QVariantMap mixed =
            TestEnvironment::categoryRow("Mixed", {}, QVariantList{"file:///a/", dictUrl});
        env.writeModules(oneModule({typed, bare, mixed}));

        const QList<Category> &cats = *AppModuleService::appModules()[0].categories;
        QCOMPARE(cats[0].size, 42);
        QCOMPARE(cats[0].url.url, "file://" + env.root() + "/opt/x/");
        QCOMPARE(cats[0].urls[0].url, "file://" + Platform::homeDirectory() + "/a/");
        QCOMPARE(cats[0].urls[1].url, QStringLiteral("~/b/")); // only "file://~/" expands
        QCOMPARE(cats[1].state, 0);      // a value of the wrong type counts as absent
        QVERIFY(cats[2].urls.isEmpty()); // neither all strings nor all dictionaries

        // The pristine table is a separate load, untouched by changes to the live one.
        AppModuleService::appModules()[0].categories->first().state = 0;
        QCOMPARE(AppModuleService::initAppModules()[0].categories->first().state, 1);
        QCOMPARE(AppModuleService::rowOfTitle("Tools"), 0); // a missing title answers zero
    }

    void configurationFaultsStopTheProgram_data()
    {
        QTest::addColumn<QVariant>("rows");
        QTest::addColumn<QString>("fault");
        const QVariantMap cat = TestEnvironment::categoryRow("C");
        QVariantMap noTitle = TestEnvironment::moduleRow("M", {cat});
        noTitle.remove("title");
        QVariantMap catNoImage = cat;
        catNoImage.remove("image");
        QVariantMap urlNoChecked = TestEnvironment::categoryRow(
            "C", QVariantMap{{"url", "file:///x"}, {"type", "Folder"}});
        QTest::newRow("module without title") << QVariant(QVariantList{noTitle}) << "";
        QTest::newRow("category without image") << QVariant(oneModule({catNoImage})) << "";
        QTest::newRow("url dictionary without checked")
            << QVariant(oneModule({urlNoChecked})) << "";
        QTest::newRow("root not an array") << QVariant(QVariantMap{{"a", 1}}) << "";
        QTest::newRow("damaged file") << QVariant() << "damaged";
        QTest::newRow("missing file") << QVariant() << "missing";
        QTest::newRow("no File Name") << QVariant() << "noname";
    }
    void configurationFaultsStopTheProgram()
    {
        QFETCH(QVariant, rows);
        QFETCH(QString, fault);
        TestEnvironment env;
        const QString modules = env.resources() + "/BrenlowModules.plist";
        if (fault == "damaged") {
            QFile f(modules);
            f.open(QIODevice::WriteOnly | QIODevice::Truncate);
            f.write("<?xml version=\"1.0\"?><plist><array><dict><key>ti");
        } else if (fault == "missing") {
            QFile::remove(modules);
        } else if (fault == "noname") {
            QFile::remove(env.resources() + "/Info.plist");
        } else {
            env.writeModules(rows);
        }
        TestEnvironment::resetCaches();
        QVERIFY(TestEnvironment::endsInFatalStop([] { AppModuleService::appModules(); }));
    }

    void indexFaultsStopTheProgram()
    {
        TestEnvironment env;
        QVariantMap header = TestEnvironment::moduleRow("Tools", {}, "Header");
        header.remove("categories");
        env.writeModules(
            QVariantList{oneModule({TestEnvironment::categoryRow("C")}).first(), header});
        QVERIFY(TestEnvironment::endsInFatalStop(
            [] { AppModuleService::updateState(1, 0, 5, {}, {}); }));
        QVERIFY(TestEnvironment::endsInFatalStop(
            [] { AppModuleService::updateState(1, 9, 0, {}, {}); }));
        QVERIFY(!TestEnvironment::endsInFatalStop(
            [] { AppModuleService::updateState(1, 0, 0, {}, {}); }));
        // A heading row has no categories to add up.
        QVERIFY(!AppModuleService::appModules()[1].categories);
        QVERIFY(TestEnvironment::endsInFatalStop(
            [] { AppModuleService::calculateModuleSizeAndNumber(1); }));
    }

    void parentState_data()
    {
        QTest::addColumn<QList<int>>("states");
        QTest::addColumn<int>("expected");
        QTest::newRow("empty") << QList<int>{} << 0;
        QTest::newRow("one and zero") << QList<int>{1, 0} << -1;
        QTest::newRow("all ones") << QList<int>{1, 1} << 1;
        QTest::newRow("all zeros") << QList<int>{0, 0} << 0;
        QTest::newRow("partly first") << QList<int>{-1, 1, 1} << -1;
        QTest::newRow("partly among zeros") << QList<int>{0, -1, 0} << -1;
        QTest::newRow("ones then partly cancelling") << QList<int>{1, -1} << -1;
    }
    void parentState()
    {
        QFETCH(QList<int>, states);
        QFETCH(int, expected);
        QList<FolderInfoPtr> list;
        for (int s : states)
            list.append(node(s));
        QCOMPARE(AppModuleService::calculateParentState(list), expected);
    }

    void updateStateWalksTwoLevels()
    {
        TestEnvironment env;
        env.writeModules(oneModule({TestEnvironment::categoryRow("C")}));
        Category &c = (*AppModuleService::appModules()[0].categories)[0];
        const FolderInfoPtr grandchild = node(0);
        const FolderInfoPtr deepChild = node(0, 1, QString(), {grandchild});
        c.files = {node(0, 1, QString(), {node(0), node(0)}), node(0),
                   node(0, 1, QString(), {deepChild})};

        // One child checked: its file and the category become partly selected.
        AppModuleService::updateState(1, 0, 0, 0, 1);
        QCOMPARE(c.files[0]->checked, -1);
        QCOMPARE(c.state, -1);
        AppModuleService::updateState(1, 0, 0, 0, -1);
        QCOMPARE(c.files[0]->checked, 1);
        QCOMPARE(c.state, -1);

        // Every file and child; a deeper node is not rolled up.
        AppModuleService::updateState(1, 0, 0, -1, -1);
        QCOMPARE(c.state, 1);
        QCOMPARE(deepChild->checked, 1);
        QCOMPARE(grandchild->checked, 0);

        // Every file, children left as they are.
        AppModuleService::updateState(0, 0, 0, -1, {});
        QCOMPARE(c.state, 0);
        QCOMPARE(c.files[0]->children[0]->checked, 1);
    }

    void moduleSizeAndNumber()
    {
        TestEnvironment env;
        QVariantList rows;
        for (int i = 0; i < 11; ++i)
            rows << TestEnvironment::moduleRow(QStringLiteral("M%1").arg(i),
                                               {TestEnvironment::categoryRow("A", {}, {}, 1),
                                                TestEnvironment::categoryRow("B", {}, {}, 1),
                                                TestEnvironment::categoryRow("Off", {}, {}, 0)});
        env.writeModules(rows);

        const FolderInfoPtr shared = node(1, 100, "/shared");
        const FolderInfoPtr parent = node(-1, 50, "/parent", {node(1, 10), node(0, 20)});
        const FolderInfoPtr ignored = node(1, 1000);
        for (int m : {1, 7}) {
            QList<Category> &cats = *AppModuleService::appModules()[m].categories;
            cats[0].files = {shared, parent};
            cats[1].files = {shared, parent};
            cats[2].files = {ignored};
        }
        // Every checked file and every checked child of a partly selected one.
        QCOMPARE(AppModuleService::calculateModuleSizeAndNumber(1), std::make_pair(220.0, 4));
        // Module 7: one file in two categories counts once; a partly selected
        // parent counts whole on top of its checked children.
        QCOMPARE(AppModuleService::calculateModuleSizeAndNumber(7), std::make_pair(170.0, 4));

        QList<Category> &eraser = *AppModuleService::appModules()[10].categories;
        eraser[0].size = 5;
        eraser[1].size = 6;
        QCOMPARE(AppModuleService::calculateModuleSizeAndNumber(10), std::make_pair(11.0, 3));
    }

    void categoryTotals()
    {
        TestEnvironment env;
        QList<Module> &modules = AppModuleService::appModules();
        QList<qint64> sums(13);
        for (int m = 0; m < 13; ++m) {
            for (Category &c : *modules[m].categories)
                sums[m] += c.size = (m + 1) * 10;
        }
        // Module 0 adds up the five modules Auto Cleanup runs.
        QCOMPARE(CategoryTotals::instanceTotalSize(0),
                 sums[1] + sums[2] + sums[3] + sums[4] + sums[5]);
        modules[6].categories =
            QList<Category>{Category{"D", "i", 70, "d", {}, {}, "Folder", {}, 0, {}, {}}};
        QCOMPARE(CategoryTotals::instanceTotalSize(6), 70);
        QCOMPARE(CategoryTotals::classTotalSize(6), 140);
    }
};

QTEST_GUILESS_MAIN(ModuleTable)
#include "test_module_table.moc"
