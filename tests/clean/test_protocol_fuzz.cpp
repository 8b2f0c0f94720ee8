// The helper and the service read frames from whatever talks to them.
// Damaged, cut, oversized and mistyped frames must not crash them, must not
// stall them, and must not remove anything: a sentinel tree in the caller's
// real home, named by the frames, stays byte for byte as it was.
#include "CleanTestSupport.h"
#include "cleaner/core/FileRemoval.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <pwd.h>

using namespace CleanTest;

namespace {

struct Frame {
    QString name;
    QByteArray bytes;
    bool refused; // must be answered with an error
};

QByteArray cborHead(int major, quint64 n)
{
    QByteArray out;
    if (n < 24)
        return QByteArray(1, char(major << 5 | int(n)));
    out.append(char(major << 5 | 27));
    for (int shift = 56; shift >= 0; shift -= 8)
        out.append(char(n >> shift));
    return out;
}

// Replaces the "@S" that starts a short text or byte string with root,
// rewriting only that string's head: repeated keys, tags and the rest of
// the frame stay exactly as written.
QByteArray placed(const QByteArray &body, const QByteArray &root)
{
    QByteArray out = body;
    for (qsizetype at = out.indexOf("@S"); at > 0; at = out.indexOf("@S", at + root.size())) {
        const uchar head = uchar(out[at - 1]);
        const int major = head >> 5;
        const int length = head & 0x1f;
        if ((major != 2 && major != 3) || length >= 24 || length < 2)
            continue;
        const QByteArray value = root + out.mid(at + 2, length - 2);
        out.replace(at - 1, 1 + length, QByteArray(cborHead(major, quint64(value.size())) + value));
    }
    return out;
}

// The caller's real home, where the helper acts for the caller.
QString realHome()
{
    const passwd *pw = getpwuid(getuid());
    return pw ? QFile::decodeName(pw->pw_dir) : QDir::homePath();
}

} // namespace

class TestProtocolFuzz : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> sentinel;
    QStringList created; // folders of the real home this test made, deepest first
    QMap<QByteArray, QByteArray> sentinelBefore;
    QList<Frame> corpus;  // refused- and any- files, sentinel paths in place
    QList<Frame> endings; // end- files
    QByteArrayList seeds; // bodies the mutator starts from
    qint64 pingId = 1000000000000;

    QByteArray root() const { return QFile::encodeName(sentinel->path()); }

    // A reply from the program proves it alive and reading; messages before
    // it (reports, replies to fuzzed calls) are passed over.
    bool answersPing(Peer &peer, const QString &program)
    {
        const qint64 id = ++pingId;
        peer.send(Wire::call(program == QLatin1String("helper") ? Wire::getVersion
                                                                : Wire::bundledHelperVersion,
                             {}, id));
        while (const std::optional<QCborMap> m = peer.next()) {
            if (m->value(QStringLiteral("reply")).toInteger(-1) == id)
                return true;
        }
        return false;
    }

    bool answersWithError(Peer &peer)
    {
        while (const std::optional<QCborMap> m = peer.next()) {
            if (m->contains(QStringLiteral("error")))
                return true;
        }
        return false;
    }

    // The program ended on its own and normally (its input has closed).
    static bool ended(Peer &peer)
    {
        if (peer.process.state() != QProcess::NotRunning && !peer.process.waitForFinished(20000))
            return false;
        return peer.process.exitStatus() == QProcess::NormalExit && peer.process.exitCode() == 0;
    }

    static std::unique_ptr<Peer> start(const QString &program)
    {
        if (program == QLatin1String("helper"))
            return std::make_unique<Peer>(helperProgram);
        return std::make_unique<Peer>(serviceProgram, serviceArgs);
    }

    // Frames made at run time from the seeds: bits flipped, bytes replaced,
    // inserted, cut and repeated, two seeds spliced. Each keeps a true length.
    QList<Frame> mutated(quint32 seed, int count) const
    {
        QRandomGenerator rng(seed);
        static const char interesting[] = {
            0x00,       0x01,       0x17,       0x18,       0x1b,       0x1f,
            0x3b,       0x5f,       0x7f,       char(0x80), char(0x9f), char(0xa1),
            char(0xbf), char(0xc2), char(0xf7), char(0xfb), char(0xff)};
        QList<Frame> out;
        for (int i = 0; i < count; ++i) {
            QByteArray body = seeds[int(rng.bounded(quint32(seeds.size())))];
            const int steps = 1 + int(rng.bounded(4));
            for (int s = 0; s < steps && !body.isEmpty(); ++s) {
                const qsizetype at = qsizetype(rng.bounded(quint32(body.size())));
                switch (rng.bounded(7)) {
                case 0:
                    body[at] = char(body[at] ^ (1 << rng.bounded(8)));
                    break;
                case 1:
                    body[at] = interesting[rng.bounded(quint32(sizeof interesting))];
                    break;
                case 2:
                    body.insert(at, char(rng.bounded(256)));
                    break;
                case 3:
                    body.truncate(at);
                    break;
                case 4:
                    body.remove(at, 1 + qsizetype(rng.bounded(8)));
                    break;
                case 5:
                    body.insert(at, body.mid(at, 1 + qsizetype(rng.bounded(16))));
                    break;
                default:
                    body = body.left(at) + seeds[int(rng.bounded(quint32(seeds.size())))].mid(at);
                    break;
                }
            }
            out.append(
                {QStringLiteral("mutation %1 of seed %2").arg(i).arg(seed), framed(body), false});
        }
        return out;
    }

    // Nesting far deeper than any reader should follow, and a large map.
    QList<Frame> generated() const
    {
        QCborMap many;
        for (int i = 0; i < 5000; ++i)
            many.insert(
                QCborValue(QByteArray("/nonexistent-brenlow-fuzz/" + QByteArray::number(i))),
                QCborArray{0, i, 0});
        const QCborMap wide =
            Wire::call(Wire::helperOperation, {many, QCborValue(QCborValue::Null), 1, 1});
        return {
            {"arrays nested 200000 deep", framed(QByteArray(200000, '\x81') + '\0'), true},
            {"maps nested 100000 deep", framed(QByteArray("\xa1\x00", 2).repeated(100000) + '\0'),
             true},
            {"tags nested 100000 deep", framed(QByteArray(100000, '\xc6') + '\0'), true},
            {"open arrays 100000 deep", framed(QByteArray(100000, '\x9f')), true},
            {"5000 paths in one request", framed(wide.toCborValue().toCbor()), false},
            {"a request without its id",
             framed(Wire::call(Wire::getVersion, {}).toCborValue().toCbor()), true},
        };
    }

    void survives(const QString &program)
    {
        std::unique_ptr<Peer> peer = start(program);
        QVERIFY2(answersPing(*peer, program), "no answer at the start");
        QList<Frame> frames = corpus + generated() + mutated(program.size(), 150);
        for (const Frame &f : std::as_const(frames)) {
            peer->process.write(f.bytes);
            if (f.refused)
                QVERIFY2(answersWithError(*peer), qPrintable("no error for " + f.name));
            QVERIFY2(answersPing(*peer, program),
                     qPrintable(
                         QStringLiteral("%1 stalled or ended after %2 (%3)")
                             .arg(program, f.name, QString::fromLatin1(f.bytes.left(64).toHex()))));
        }
        peer->process.closeWriteChannel();
        QVERIFY(ended(*peer));
    }

private slots:
    void initTestCase()
    {
        qputenv("BRENLOW_HELPER_PATH", QFile::encodeName(helperProgram));
        qputenv("BRENLOW_HELPER_LAUNCHER", ""); // the helper runs directly
        const QString parent = realHome() + QStringLiteral("/.cache/brenlow-tests");
        for (const QString &folder : QStringList{realHome() + "/.cache", parent}) {
            if (!QFileInfo::exists(folder))
                created.prepend(folder);
        }
        QVERIFY(QDir().mkpath(parent));
        sentinel = std::make_unique<QTemporaryDir>(parent + QStringLiteral("/fuzz-XXXXXX"));
        QVERIFY(sentinel->isValid());
        TreeBuilder tree(sentinel->path());
        tree.file("a.txt", 100);
        tree.file("dir/b.bin", 2000);
        tree.file("dir/sub/c", 30);
        tree.fileBytes("raw\xff name", 7);
        tree.file("keep/x", 5);
        sentinelBefore = snapshot(sentinel->path());

        const QDir dir(QStringLiteral(BRENLOW_TEST_SOURCE_DIR "/tests/clean/fuzz-corpus"));
        for (const QString &name : dir.entryList({"*.cbor", "*.frame"}, QDir::Files)) {
            QFile file(dir.filePath(name));
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QByteArray data = file.readAll();
            const bool raw = name.endsWith(QLatin1String(".frame"));
            const QByteArray bytes = raw ? data : framed(placed(data, root()));
            if (name.startsWith(QLatin1String("end-")))
                endings.append({name, bytes, true});
            else
                corpus.append({name, bytes, name.startsWith(QLatin1String("refused-"))});
            // No seed may name the sentinel, or end a program on purpose.
            if (!raw && !data.contains("@S") && !data.contains("exitWithCode") &&
                !data.contains("uninstall"))
                seeds.append(data);
        }
        QVERIFY(corpus.size() > 50);
        QVERIFY(!endings.isEmpty());
        const QCborMap decoys{{QByteArray("/nonexistent-brenlow-fuzz/a"), QCborArray{0, 0, 0}},
                              {QByteArray("/nonexistent-brenlow-fuzz/b c"), QCborArray{0, 1, 0}}};
        for (const QCborMap &call :
             {Wire::call(Wire::helperOperation, {decoys, QCborValue(QCborValue::Null), 1, 1}),
              Wire::call(Wire::serviceOperation, {decoys, 1, 1}),
              Wire::call(Wire::getVersion, {}, 7), Wire::call(Wire::bundledHelperVersion, {}, 8),
              Wire::call(Wire::connectWithModuleIndex, {3}, 9)})
            seeds.append(call.toCborValue().toCbor());
    }

    // Checked after every test function, whether it passed or not.
    void cleanup() { QCOMPARE(snapshot(sentinel->path()), sentinelBefore); }

    void cleanupTestCase()
    {
        // Names of raw bytes are beyond QTemporaryDir's own removal.
        FileRemoval::removeItem(root());
        sentinel.reset();
        for (const QString &folder : std::as_const(created))
            QDir().rmdir(folder); // only if nothing else was put there since
    }

    void programSurvivesEveryFrame_data()
    {
        QTest::addColumn<QString>("program");
        QTest::newRow("helper") << QStringLiteral("helper");
        QTest::newRow("service") << QStringLiteral("service");
    }
    void programSurvivesEveryFrame()
    {
        QFETCH(QString, program);
        survives(program);
    }

    // A stream that ends inside a frame: an error, then a clean exit.
    void programReportsACutStream_data() { programSurvivesEveryFrame_data(); }
    void programReportsACutStream()
    {
        QFETCH(QString, program);
        for (const Frame &f : std::as_const(endings)) {
            std::unique_ptr<Peer> peer = start(program);
            QVERIFY(answersPing(*peer, program));
            peer->process.write(f.bytes);
            peer->process.closeWriteChannel();
            QVERIFY2(answersWithError(*peer), qPrintable("no error for " + f.name));
            QVERIFY2(ended(*peer), qPrintable(f.name));
        }
    }
};

QTEST_GUILESS_MAIN(TestProtocolFuzz)
#include "test_protocol_fuzz.moc"
