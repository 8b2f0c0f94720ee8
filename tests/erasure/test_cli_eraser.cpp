// brenlow-cli shred and extract, run as a user runs them.

#include "SevenZipTool.h"
#include "clean/CleanTestSupport.h"
#include "support/CliProcess.h"

using namespace CleanTest;

class TestCliEraser : public QObject {
    Q_OBJECT

private slots:
    // Each command's exit status, words and effect on the disk.
    void commands_data()
    {
        QTest::addColumn<QByteArrayList>("args"); // "@" stands for the tree's root
        QTest::addColumn<QByteArray>("input");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QByteArray>("says");
        QTest::addColumn<QStringList>("gone");
        QTest::addColumn<QStringList>("made");
        QTest::newRow("shred a file and a folder")
            << QByteArrayList{"shred", "@/a.txt", "@/dir", "--yes"} << QByteArray() << 0
            << QByteArray("shredded 3 files") << QStringList{"a.txt", "dir"} << QStringList();
        QTest::newRow("shred asks first, no")
            << QByteArrayList{"shred", "@/a.txt"} << QByteArray("n\n") << 1 << QByteArray()
            << QStringList() << QStringList{"a.txt"};
        QTest::newRow("shred a missing path")
            << QByteArrayList{"shred", "@/none", "--yes"} << QByteArray() << 1
            << QByteArray("isn't exist") << QStringList() << QStringList();
        QTest::newRow("shred a link: refused, listed")
            << QByteArrayList{"shred", "@/link", "@/a.txt", "--yes"} << QByteArray() << 2
            << QByteArray("not shredded") << QStringList{"a.txt"} << QStringList{"link"};
        QTest::newRow("extract a rar")
            << QByteArrayList{"extract", "@/s.rar"} << QByteArray() << 0
            << QByteArray("1 entries unpacked") << QStringList() << QStringList{"s/helloworld.txt"};
        QTest::newRow("extract to a folder")
            << QByteArrayList{"extract", "@/s.rar", "--to", "@/there"} << QByteArray() << 0
            << QByteArray() << QStringList() << QStringList{"there/helloworld.txt"};
        QTest::newRow("extract over a full folder")
            << QByteArrayList{"extract", "@/s.rar", "--to", "@/dir"} << QByteArray() << 1
            << QByteArray("not an empty folder") << QStringList() << QStringList();
        QTest::newRow("extract a damaged rar")
            << QByteArrayList{"extract", "@/bad.rar"} << QByteArray() << 2
            << QByteArray("Compress Failed") << QStringList() << QStringList();
        QTest::newRow("extract an encrypted rar, no password")
            << QByteArrayList{"extract", "@/enc.rar"} << QByteArray("\n") << 1
            << QByteArray("password is needed") << QStringList() << QStringList();
        QTest::newRow("extract an encrypted 7z, password file")
            << QByteArrayList{"extract", "@/enc.7z", "--password-file", "@/pw"} << QByteArray() << 0
            << QByteArray("unpacked") << QStringList() << QStringList{"enc/b.txt"};
        QTest::newRow("extract an encrypted 7z, password typed")
            << QByteArrayList{"extract", "@/enc.7z"} << QByteArray("two words\n") << 0
            << QByteArray("unpacked") << QStringList() << QStringList{"enc/b.txt"};
        QTest::newRow("extract a text file")
            << QByteArrayList{"extract", "@/a.txt"} << QByteArray() << 1
            << QByteArray("neither a 7z nor a rar") << QStringList() << QStringList();
    }
    void commands()
    {
        QFETCH(QByteArrayList, args);
        QFETCH(QByteArray, input);
        QFETCH(int, exitCode);
        QFETCH(QByteArray, says);
        QFETCH(QStringList, gone);
        QFETCH(QStringList, made);
        TreeBuilder tree(TreeBuilder::Place::RealHome);
        tree.file(QStringLiteral("a.txt"), 100);
        tree.file(QStringLiteral("dir/b.txt"), 200);
        tree.file(QStringLiteral("dir/c/d.txt"), 300);
        tree.symlink(QStringLiteral("link"), tree.path("dir/b.txt"));
        const QString data = QStringLiteral(BRENLOW_TEST_SOURCE_DIR "/../shared/testdata/rar/");
        QFile::copy(data + "test_read_format_rar5_stored.rar", tree.path("s.rar"));
        QFile::copy(data + "test_read_format_rar5_truncated_huff.rar", tree.path("bad.rar"));
        QFile::copy(data + "test_read_format_rar_encryption_data.rar", tree.path("enc.rar"));
        QFile pw(tree.path("pw"));
        QVERIFY(pw.open(QIODevice::WriteOnly));
        pw.write("two words\n");
        pw.close();
        QVERIFY(sevenZip({"a", "-p", "../enc.7z", "b.txt"}, tree.path("dir"),
                         "two words\ntwo words\n"));

        QByteArrayList argv;
        for (QByteArray a : std::as_const(args))
            argv.append(a.replace("@", QFile::encodeName(tree.root())));
        TestEnvironment env;
        QProcessEnvironment e = QProcessEnvironment::systemEnvironment();
        e.insert(QStringLiteral("BRENLOW_RESOURCES"), env.resources());
        e.insert(QStringLiteral("BRENLOW_HELPER_LAUNCHER"), QString());
        const CliProcess::Result r = CliProcess::run(cliProgram, argv, e, input);
        QVERIFY2(r.exitCode == exitCode, r.err.constData());
        const QByteArray all = r.out + r.err;
        QVERIFY2(all.contains(says), all.constData());
        for (const QString &g : std::as_const(gone))
            QVERIFY2(!existsOnDisk(tree.pathBytes(g.toUtf8())), qPrintable(g));
        for (const QString &m : std::as_const(made))
            QVERIFY2(existsOnDisk(tree.pathBytes(m.toUtf8())), qPrintable(m));
        QVERIFY(existsOnDisk(tree.pathBytes("s.rar")));
    }
};

QTEST_GUILESS_MAIN(TestCliEraser)
#include "test_cli_eraser.moc"
