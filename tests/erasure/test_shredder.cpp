// The Eraser's selection rules, and shredding through the real helper.

#include "LoopMount.h"
#include "clean/CleanTestSupport.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/erasure/ShredService.h"

#include <QRandomGenerator>

using namespace CleanTest;

namespace {

// Hears the one report of a shred run, as the Eraser's screen does.
struct ShredReceiver : DeleteFilesProgressProtocol {
    std::optional<QMap<QString, QList<int>>> folders;
    void installFail(const QString &, int) override { folders = ShredService::allFailed(8); }
    void processed(const QString &, qint64, int) override {}
    void finished(bool, const PathMap &result, int) override { folders = result; }
};

// Sends the checked items and waits for the report; the shredDone result.
std::optional<std::pair<qint64, int>> shredToEnd()
{
    auto receiver = std::make_shared<ShredReceiver>();
    ShredService::shred(receiver);
    if (!QTest::qWaitFor([&] { return receiver->folders.has_value(); }, 30000))
        return std::nullopt;
    return ShredService::shredDone(*receiver->folders);
}

QByteArray contentOf(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
}

QMap<QByteArray, int> shredThroughHelper(Peer &helper, const QList<QByteArray> &paths)
{
    QMap<QByteArray, QList<int>> folders;
    for (const QByteArray &p : paths)
        folders.insert(p, {int(folders.size()), 0});
    helper.send(operationCall(Wire::wireFromPaths(folders), qint64(operationType::shredder), 10));
    const auto report = helper.nextSkippingProgress();
    return report ? statuses(*report) : QMap<QByteArray, int>();
}

} // namespace

class TestShredder : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_env = std::make_unique<TestEnvironment>();
        ShredService::reset();
        useHelper(QString());
    }
    void cleanup()
    {
        XPCUtil::shutdown();
        ShredService::reset();
        m_env.reset();
    }

    // What the list takes and what it refuses, in the order the user adds.
    void addFileOrDict_data()
    {
        QTest::addColumn<QStringList>("added");
        QTest::addColumn<QString>("refusal"); // of the last one; "" when taken
        const QString same = getLocalizedString(QStringLiteral("shred_sameFile_text"));
        const QString nesting = QStringLiteral("superordinate/subordinate");
        QTest::newRow("file twice") << QStringList{"a/f.txt", "a/f.txt"} << same;
        QTest::newRow("file in an added folder") << QStringList{"a", "a/f.txt"} << same;
        QTest::newRow("folder around a file") << QStringList{"a/f.txt", "a"} << nesting;
        QTest::newRow("folder in an added folder") << QStringList{"a", "a/sub"} << nesting;
        QTest::newRow("names that share a start") << QStringList{"b", "bc"} << nesting;
        QTest::newRow("missing path") << QStringList{"none"} << QStringLiteral(" isn't exist");
        QTest::newRow("two unrelated items") << QStringList{"a/f.txt", "b"} << QString();
    }
    void addFileOrDict()
    {
        QFETCH(QStringList, added);
        QFETCH(QString, refusal);
        TreeBuilder tree;
        tree.file(QStringLiteral("a/f.txt"), 10);
        tree.file(QStringLiteral("a/sub/g.txt"), 20);
        tree.file(QStringLiteral("b/h.txt"), 30);
        tree.folder(QStringLiteral("bc"));
        std::pair<bool, QString> answer;
        for (const QString &item : std::as_const(added))
            answer = ShredService::addFileOrDict(tree.path(item));
        QCOMPARE(answer.first, refusal.isEmpty());
        QVERIFY2(answer.second.contains(refusal), qPrintable(answer.second));
        const QList<Category> &list = AppModuleService::categoriesOf(ShredService::moduleIndex);
        QCOMPARE(list.size(), added.size() - (refusal.isEmpty() ? 0 : 1));
        if (!list.isEmpty()) {
            QCOMPARE(list.first().title, added.first().section('/', -1));
            QCOMPARE(list.first().type, QString(added.first().contains('.') ? "file" : "folder"));
        }
    }

    // A run over files, folders whole and in part, an empty folder, and items
    // the helper refuses: exactly the listed files go, and what stays is listed.
    void shredSelection()
    {
        TreeBuilder tree(TreeBuilder::Place::RealHome);
        const QString single = tree.file(QStringLiteral("single.bin"), 300000);
        tree.file(QStringLiteral("whole/one.txt"), 10);
        tree.file(QStringLiteral("whole/deep/two.txt"), 5000);
        tree.file(QStringLiteral("part/plain.txt"), 100);
        const QString outside = tree.file(QStringLiteral("outside/kept.txt"), 64);
        const QString linked = tree.path(QStringLiteral("part/linked.txt"));
        QVERIFY(::link(QFile::encodeName(outside), QFile::encodeName(linked)) == 0);
        const QString link = tree.symlink(QStringLiteral("link"), outside);
        tree.folder(QStringLiteral("empty"));
        const QString unchecked = tree.file(QStringLiteral("unchecked.txt"), 5);
        const QByteArray outsideBefore = contentOf(outside);

        for (const char *item : {"single.bin", "whole", "part", "link", "empty", "unchecked.txt"})
            QVERIFY(ShredService::addFileOrDict(tree.path(item)).first);
        AppModuleService::categoriesOf(ShredService::moduleIndex).last().state = 0;

        const auto done = shredToEnd();
        QVERIFY(done);
        QCOMPARE(done->second, 4); // single, one, two, plain
        QCOMPARE(done->first, qint64(300000 + 10 + 5000 + 100));
        for (const char *gone : {"single.bin", "whole", "part/plain.txt"})
            QVERIFY2(!existsOnDisk(tree.pathBytes(gone)), gone);
        QCOMPARE(contentOf(outside), outsideBefore);
        QCOMPARE(contentOf(linked), outsideBefore);
        QVERIFY(QFileInfo(link).isSymLink());
        QVERIFY(QFileInfo::exists(unchecked) && QFileInfo(tree.path("empty")).isDir());

        QStringList titles;
        for (const Category &c : AppModuleService::categoriesOf(ShredService::moduleIndex))
            titles.append(c.title + QString::number(c.files.first()->findex));
        QCOMPARE(titles, QStringList({"part0", "link1", "empty2", "unchecked.txt3"}));
        QCOMPARE(ShredService::shredDict().value(tree.path("part")), QSet<QString>{linked});
        const int refused = int(errorKind::shredFail);
        QCOMPARE(ShredService::shredFailures(),
                 (QMap<QString, int>{{linked, refused}, {link, refused}}));
        QVERIFY(!ShredService::shredFile().contains(single));
    }

    // The helper's refusals: nothing but a regular file with one name, and
    // only what the calling user could remove with their own rights.
    void helperRefusals_data()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<bool>("asNobody");
        QTest::addColumn<int>("status");
        const int refused = int(errorKind::shredFail), done = int(errorKind::success);
        QTest::newRow("plain file") << "file" << false << done;
        QTest::newRow("folder") << "folder" << false << refused;
        QTest::newRow("symbolic link") << "link" << false << refused;
        QTest::newRow("FIFO") << "fifo" << false << refused;
        QTest::newRow("device") << "/dev/null" << false << refused;
        QTest::newRow("hard link") << "hardlink" << false << refused;
        QTest::newRow("missing") << "missing" << false << refused;
        QTest::newRow("climbing step") << "../x/file" << false << refused;
        QTest::newRow("system folder") << "/usr/brenlow-no-such-file" << false << refused;
        QTest::newRow("user's own folder") << "open/file" << true << done;
        QTest::newRow("folder the user may not write") << "file" << true << refused;
        QTest::newRow("sticky folder, not the owner") << "sticky/file" << true << refused;
    }
    void helperRefusals()
    {
        QFETCH(QString, item);
        QFETCH(bool, asNobody);
        QFETCH(int, status);
        if (asNobody && (::geteuid() != 0 || !TestEnvironment::canDropPrivileges()))
            QSKIP("needs root and the user nobody to try another user's rights");
        TreeBuilder tree;
        tree.openToAll();
        const QByteArray marker = "content that must survive";
        tree.folder(QStringLiteral("open"));
        tree.folder(QStringLiteral("sticky"));
        // Writable by anyone: a refusal comes from the rule on removal rights.
        for (const char *name : {"file", "open/file", "sticky/file", "other"}) {
            TreeBuilder::write(tree.path(name), marker);
            tree.chmod(QString::fromLatin1(name), 0666);
        }
        tree.folder(QStringLiteral("folder"));
        tree.symlink(QStringLiteral("link"), tree.path("other"));
        QVERIFY(::mkfifo(QFile::encodeName(tree.path("fifo")).constData(), 0600) == 0);
        QVERIFY(::link(QFile::encodeName(tree.path("other")),
                       QFile::encodeName(tree.path("hardlink"))) == 0);
        tree.chmod(QStringLiteral("open"), 0777);
        tree.chmod(QStringLiteral("sticky"), 01777);
        const QString path = item.startsWith('/') ? item : tree.path(item);
        const bool existed = existsOnDisk(QFile::encodeName(path));

        const QStringList drop = {"--reuid=nobody", "--regid=nogroup", "--clear-groups"};
        Peer helper(asNobody ? QStringLiteral("setpriv") : helperProgram,
                    asNobody ? drop + QStringList{helperProgram} : QStringList());
        const QMap<QByteArray, int> answer = shredThroughHelper(helper, {QFile::encodeName(path)});
        QVERIFY2(answer.value(QFile::encodeName(path)) == status, qPrintable(helper.errors()));
        struct stat st;
        const bool present = ::lstat(QFile::encodeName(path).constData(), &st) == 0;
        QCOMPARE(present, existed && status != int(errorKind::success));
        QCOMPARE(contentOf(tree.path("other")), marker);
        if (present && S_ISREG(st.st_mode))
            QCOMPARE(contentOf(path), marker);
    }

    // On a real ext4 file system, the file's bytes cannot be found on the
    // device after the shred. Mounts an image; only when asked to.
    void leavesNoCopyOnTheDevice()
    {
        if (const QString why = LoopMount::unavailable(); !why.isEmpty())
            QSKIP(qPrintable(why));
        LoopMount fs(QStringLiteral("32M"));
        if (!fs.mounted())
            QSKIP("no loop device could be attached here");
        const QByteArray marker =
            "BRENLOW-MARKER-" + QByteArray::number(QRandomGenerator::global()->generate64(), 16);
        const QString file = fs.mountPoint + QStringLiteral("/secret.txt");
        TreeBuilder::write(file, marker.repeated(20000));
        QVERIFY(LoopMount::run(QStringLiteral("sync"), {}));
        QVERIFY(contentOf(fs.image).contains(marker)); // the check can see it

        Peer helper(helperProgram);
        const auto answer = shredThroughHelper(helper, {QFile::encodeName(file)});
        QCOMPARE(answer.value(QFile::encodeName(file)), int(errorKind::success));
        QVERIFY(!QFile::exists(file));
        QVERIFY(fs.unmount());
        QVERIFY(!contentOf(fs.image).contains(marker));
    }

private:
    std::unique_ptr<TestEnvironment> m_env;
};

QTEST_GUILESS_MAIN(TestShredder)
#include "test_shredder.moc"
