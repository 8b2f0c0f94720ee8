#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Platform.h"
#include "cleaner/finders/FinderScans.h"
#include "cleaner/finders/KestalLargeAndOldFileServices.h"
#include "cleaner/finders/LargeAndOldFileService.h"
#include "support/ScanRecorder.h"
#include "support/TestEnvironment.h"

#include <QFile>
#include <QtTest>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

using L = KestalLargeAndOldFileServices;
constexpr int module = L::moduleIndex;

// A sparse file of this size, last changed `age` seconds ago, under the home.
QString place(const QString &relative, qint64 size, qint64 age)
{
    const QString path = Platform::homeDirectory() + '/' + relative;
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly) || !f.resize(size))
        qFatal("cannot make %s", qPrintable(path));
    f.close();
    const time_t when = time(nullptr) - time_t(age);
    const struct timespec times[2] = {{when, 0}, {when, 0}};
    utimensat(AT_FDCWD, QFile::encodeName(path).constData(), times, 0);
    return path;
}

QList<Category> scanHome()
{
    return ScanRecorder().scanToEnd(module);
}

// The categories' file names below the home, one list a category.
QList<QStringList> namesOf(const QList<Category> &categories)
{
    const int home = int(Platform::homeDirectory().size()) + 1;
    QList<QStringList> names;
    for (int kind = L::Over100M; kind <= L::LessThanMonth; ++kind) {
        QStringList list;
        for (const FolderInfoPtr &f : categories[kind].files)
            list << QFile::decodeName(FolderInfo::pathBytes(f->url)).mid(home);
        list.sort();
        names << list;
    }
    return names;
}

constexpr qint64 day = 86400;

} // namespace

class LargeAndOld : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { FinderScans::registerAll(); }

    // One walk of the home sorts by both size and age, each border strict;
    // the library folder, hidden folders, what lies inside a zip and
    // folders themselves are never listed.
    void oneWalkFillsFourCategories()
    {
        TestEnvironment env;
        place("exactly100", L::over100M, 0);
        place("over100", L::over100M + 1, 0);
        place("exactly5", L::over5M, 0);
        place("old/big", 200000000, 2 * 365 * day);
        place("month/almost", 10, 30 * day - 120);
        place("month/past", 10, 30 * day + 120);
        place("snap/app/huge", 200000000, 3 * 365 * day);
        place("pack.zip", 10, 0);
        place("archive.zip/inside", 200000000, 0);
        place(".hidden/old", 10, 400 * day);
        const QList<Category> categories = scanHome();
        QCOMPARE(namesOf(categories),
                 (QList<QStringList>{
                     {"old/big", "over100"}, {"exactly100"}, {"old/big"}, {"month/past"}}));
        QCOMPARE(categories[L::Over100M].size, 200000000 + L::over100M + 1);
        // The large old file is one node, counted once in each category.
        const FolderInfoPtr inSize = categories[L::Over100M].files.first()->size == 200000000
                                         ? categories[L::Over100M].files.first()
                                         : categories[L::Over100M].files.last();
        QCOMPARE(inSize.get(), categories[L::LessThanYear].files.first().get());
        QCOMPARE(categories[L::LessThanYear].size, qint64(200000000));
        // Ticking the shared node in one category ticks it in the other.
        AppModuleService::largeAndOldFileUpdateState(1, module, L::Over100M, inSize->findex,
                                                     std::nullopt);
        QCOMPARE(AppModuleService::categoriesOf(module)[L::LessThanYear].files.first()->checked, 1);
    }

    // The age borders are strict: a file changed exactly a month (a year)
    // before the reference is not in that category.
    void binBordersAreStrict()
    {
        QList<Category> categories(4);
        const QDateTime now = QDateTime::currentDateTime();
        const QDateTime yearAgo = now.addSecs(-L::yearSeconds);
        const QDateTime monthAgo = now.addSecs(-L::monthSeconds);
        const auto node = [](const QDateTime &date) {
            return FolderInfo::make(0, "f", {}, 10, {}, false, date, {}, false, {}, false, 0, {});
        };
        L::bin(categories, node(monthAgo), yearAgo, monthAgo);
        L::bin(categories, node(yearAgo), yearAgo, monthAgo);
        QCOMPARE(categories[L::LessThanMonth].files.size(), 1);
        QCOMPARE(categories[L::LessThanMonth].files.first()->date, yearAgo);
        QCOMPARE(categories[L::LessThanYear].files.size(), 0);
    }

    // After a clean the files that went are dropped; a blank in a name
    // survives, an escaped non-ASCII name counts as gone.
    void filterInfoListAfterAClean()
    {
        TestEnvironment env;
        place("gone", 10, 400 * day);
        place("with blank", 10, 400 * day);
        place("caf\u00e9", 10, 400 * day);
        place("kept", L::over5M + 1, 400 * day);
        scanHome();
        QFile::remove(Platform::homeDirectory() + "/gone");
        L::filterInfoList();
        QCOMPARE(namesOf(AppModuleService::categoriesOf(module)),
                 (QList<QStringList>{{}, {"kept"}, {"kept", "with blank"}, {}}));
    }

    void unreadableHomeGivesEmptyCategories()
    {
        TestEnvironment env;
        place("old", 10, 400 * day);
        ::chmod(QFile::encodeName(Platform::homeDirectory()).constData(), 0);
        bool empty = true;
        if (TestEnvironment::canDropPrivileges()) {
            KestalService::scanStatus();
            const QList<Category> categories = AppModuleService::categoriesOf(module);
            empty = TestEnvironment::asUnprivileged([&] {
                const QList<Category> found = L::getLargeAndOldFileInfoList(
                    categories, {}, {}, &LargeAndOldFileService::largeAndOldFileFilter);
                for (const Category &c : found) {
                    if (!c.files.isEmpty())
                        return false;
                }
                return found.size() == 4;
            });
        }
        ::chmod(QFile::encodeName(Platform::homeDirectory()).constData(), 0755);
        if (!TestEnvironment::canDropPrivileges())
            QSKIP("no unprivileged user to run as");
        QVERIFY(empty);
    }
};

QTEST_GUILESS_MAIN(LargeAndOld)
#include "test_largeandold.moc"
