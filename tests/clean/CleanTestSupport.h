#pragma once

// Shared pieces of the clean tests: the programs under test, a peer process
// spoken to in frames, a recorded clean run, and random trees for the
// property test. Header only: each test executable includes what it uses.

#include "cleaner/clean/CleanResults.h"
#include "cleaner/clean/KestalCleanManager.h"
#include "cleaner/clean/KestalModuleCleanService.h"
#include "cleaner/clean/MessageChannel.h"
#include "cleaner/clean/XPCUtil.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/PropertyList.h"
#include "cleaner/scan/KestalService.h"
#include "support/TestEnvironment.h"
#include "support/TreeBuilder.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>
#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace CleanTest {

// The build (or the copy the unprivileged user runs from).
inline QString bin()
{
    const QString fromEnvironment = qEnvironmentVariable("BRENLOW_TEST_BIN");
    return fromEnvironment.isEmpty() ? QStringLiteral(BRENLOW_TEST_BINARY_DIR) : fromEnvironment;
}
inline QString helperProgram()
{
    return bin() + QStringLiteral("/libexec/brenlow/brenlow-helper");
}
inline QString serviceProgram()
{
    return bin() + QStringLiteral("/libexec/brenlow/brenlow-service");
}
inline QString cliProgram()
{
    return bin() + QStringLiteral("/cli/brenlow-cli");
}

// Where the service finds its helper and how it starts it; a fresh service
// is started by the next request.
inline void useHelper(const QString &launcher, const QString &helper = helperProgram())
{
    XPCUtil::shutdown();
    KestalModuleCleanService::reset();
    qputenv("BRENLOW_SERVICE_PATH", QFile::encodeName(serviceProgram()));
    qputenv("BRENLOW_HELPER_PATH", QFile::encodeName(helper));
    qputenv("BRENLOW_HELPER_LAUNCHER", launcher.toLocal8Bit());
}

// A program spoken to in frames over its standard input and output.
class Peer {
public:
    explicit Peer(const QString &program, const QStringList &args = {})
    {
        process.start(program, args);
        process.waitForStarted();
    }
    ~Peer()
    {
        process.closeWriteChannel();
        if (!process.waitForFinished(5000))
            process.kill();
        process.waitForFinished(1000);
    }
    void send(const QCborMap &message) { process.write(FrameDecoder::encode(message)); }
    void sendRaw(const QByteArray &bytes) { process.write(bytes); }

    // The next message, waiting for it as long as the program lives.
    std::optional<QCborMap> next(int timeoutMs = 20000)
    {
        (void)QTest::qWaitFor(
            [&] {
                pump();
                return !queue.isEmpty() || process.state() == QProcess::NotRunning;
            },
            timeoutMs);
        pump();
        if (queue.isEmpty())
            return std::nullopt;
        return queue.takeFirst();
    }
    // The next message that is not a per-path progress report.
    std::optional<QCborMap> nextSkippingProgress()
    {
        for (;;) {
            auto m = next();
            if (!m || m->value(QStringLiteral("sel")).toString() != QLatin1String(Wire::processed))
                return m;
        }
    }
    QString errors()
    {
        m_errors += QString::fromLocal8Bit(process.readAllStandardError());
        return m_errors;
    }

    QProcess process;

private:
    void pump()
    {
        for (const FrameDecoder::Item &item : decoder.feed(process.readAllStandardOutput()))
            queue.append(item.message ? item.message->toMap()
                                      : QCborMap{{QStringLiteral("undecodable"), item.error}});
    }
    FrameDecoder decoder;
    QList<QCborMap> queue;
    QString m_errors;
};

// The reports of one clean, as a screen would receive them.
struct CleanRun {
    struct Report {
        bool result;
        int ci, status, number;
        qint64 size;
    };
    QList<Report> reports;
    bool finished = false;
    int status = 0;

    void start(int module)
    {
        KestalCleanRecorder::handleClean(module);
        auto recorder = std::make_shared<KestalCleanRecorder>(
            module, [this](bool result, int ci, int status, int number, qint64 size) {
                reports.append({result, ci, status, number, size});
                if (ci == -1) {
                    finished = true;
                    this->status = status;
                }
            });
        KestalModuleCleanService::analysisModule(module, recorder);
    }
};

// Writes the edition's Info.plist and a one-module table whose categories
// have these roots (file URLs), and loads them.
inline void writeModule(TestEnvironment &env, const QList<QStringList> &categoryRoots)
{
    QFile info(env.resources() + QStringLiteral("/Info.plist"));
    info.open(QIODevice::WriteOnly | QIODevice::Truncate);
    info.write(
        PropertyList::toXml(QVariantMap{{QStringLiteral("File Name"), QStringLiteral("Brenlow")}}));
    info.close();
    QVariantList categories;
    for (qsizetype i = 0; i < categoryRoots.size(); ++i)
        categories.append(TestEnvironment::categoryRow(QStringLiteral("C%1").arg(i), {},
                                                       QVariant(categoryRoots[i]), 1));
    env.writeModules(QVariantList{TestEnvironment::moduleRow(QStringLiteral("Test"), categories)});
}

// Every entry below a folder, by raw relative path: a digest of a file's
// bytes, "dir" for a folder, "link:" and the target for a link.
inline void snapshotInto(const QByteArray &root, const QByteArray &relative,
                         QMap<QByteArray, QByteArray> &out)
{
    DIR *dir = opendir(QByteArray(root + relative).constData());
    if (!dir)
        return;
    while (const dirent *ent = readdir(dir)) {
        const QByteArray name(ent->d_name);
        if (name == "." || name == "..")
            continue;
        const QByteArray rel = relative + '/' + name;
        const QByteArray full = root + rel;
        struct stat st;
        if (lstat(full.constData(), &st) != 0)
            continue;
        if (S_ISLNK(st.st_mode)) {
            char target[4096];
            const ssize_t n = readlink(full.constData(), target, sizeof target);
            out.insert(rel, "link:" + QByteArray(target, n > 0 ? n : 0));
        } else if (S_ISDIR(st.st_mode)) {
            out.insert(rel, "dir");
            snapshotInto(root, rel, out);
        } else {
            QByteArray data;
            const int fd = ::open(full.constData(), O_RDONLY);
            char buffer[65536];
            for (ssize_t n; fd >= 0 && (n = ::read(fd, buffer, sizeof buffer)) > 0;)
                data.append(buffer, n);
            if (fd >= 0)
                ::close(fd);
            out.insert(rel, QCryptographicHash::hash(data, QCryptographicHash::Md5));
        }
    }
    closedir(dir);
}

inline QMap<QByteArray, QByteArray> snapshot(const QString &root)
{
    QMap<QByteArray, QByteArray> out;
    snapshotInto(QFile::encodeName(root), QByteArray(), out);
    return out;
}

inline bool existsOnDisk(const QByteArray &path)
{
    struct stat st;
    return lstat(path.constData(), &st) == 0;
}

// A random tree in several categories, loaded into module 0 as a scan would
// leave it, a random selection of whole nodes, partly selected folders and
// nothing, and the checks that after a clean exactly the selection is gone.
class RandomClean {
public:
    explicit RandomClean(quint32 seed) : rng(seed) {}
    // Names of raw bytes are beyond the tree builder's own unlocking.
    ~RandomClean() { unlock(QFile::encodeName(tree.root())); }

    // One whole round: a tree, a selection, a clean of module 0, the checks.
    static void cleanAndVerify(quint32 seed, bool lockSome)
    {
        TestEnvironment env;
        RandomClean random(seed);
        random.build(env, lockSome);
        random.select();
        CleanRun run;
        run.start(0);
        QTRY_VERIFY_WITH_TIMEOUT(run.finished, 20000);
        QCOMPARE(run.status, 999);
        random.verify();
    }

    // `lockSome`: some folders lose their write right, so what is in them
    // needs the helper.
    void build(TestEnvironment &env, bool lockSome)
    {
        const int categories = 1 + int(rng.bounded(3));
        QList<QStringList> roots;
        for (int ci = 0; ci < categories; ++ci) {
            const QString root = tree.folder(QStringLiteral("c%1").arg(ci));
            roots.append({FolderInfo::absoluteString(FolderInfo::urlFromPath(root))});
            const int entries = int(rng.bounded(6));
            for (int e = 0; e < entries; ++e) {
                const QByteArray name = QByteArray("c") + QByteArray::number(ci) + '/' + nameFor(e);
                if (rng.bounded(2) == 0) {
                    tree.fileBytes(name, rng.bounded(3000));
                    continue;
                }
                ::mkdir(tree.pathBytes(name).constData(), 0755);
                const int children = int(rng.bounded(5));
                for (int k = 0; k < children; ++k) {
                    const QByteArray child = name + '/' + nameFor(k);
                    if (rng.bounded(3) == 0) {
                        ::mkdir(tree.pathBytes(child).constData(), 0755);
                        tree.fileBytes(child + "/inner", rng.bounded(2000));
                    } else {
                        tree.fileBytes(child, rng.bounded(2000));
                    }
                }
                if (lockSome && rng.bounded(3) == 0)
                    ::chmod(tree.pathBytes(name).constData(), 0555);
            }
            if (lockSome && rng.bounded(2) == 0)
                ::chmod(tree.pathBytes("c" + QByteArray::number(ci)).constData(), 0555);
        }
        writeModule(env, roots);
        before = snapshot(tree.root());
        load(categories);
    }

    void select()
    {
        QList<Category> &categories = AppModuleService::categoriesOf(0);
        for (int ci = 0; ci < categories.size(); ++ci) {
            for (int fi = 0; fi < categories[ci].files.size(); ++fi) {
                const FolderInfoPtr node = categories[ci].files[fi];
                const quint32 choice = rng.bounded(3);
                if (choice == 1)
                    AppModuleService::updateState(1, 0, ci, fi, std::nullopt);
                for (int k = 0; choice == 2 && k < node->children.size(); ++k) {
                    if (rng.bounded(2) == 0)
                        AppModuleService::updateState(1, 0, ci, fi, k);
                }
            }
            categories[ci].state = AppModuleService::calculateParentState(categories[ci].files);
            // What the plan will take: whole nodes, and checked children of partly checked ones.
            for (const FolderInfoPtr &node : std::as_const(categories[ci].files)) {
                QList<FolderInfoPtr> taken;
                if (node->checked == 1)
                    taken.append(node);
                for (const FolderInfoPtr &child :
                     node->checked == -1 ? node->children : QList<FolderInfoPtr>()) {
                    if (child->checked == 1)
                        taken.append(child);
                }
                for (const FolderInfoPtr &t : taken) {
                    selected.append(FolderInfo::pathBytes(t->url));
                    perCategory[ci].first += 1;
                    perCategory[ci].second += t->size;
                }
            }
        }
    }

    // Checks the disk, the module's tree and the clean's bookkeeping.
    void verify() const
    {
        const QByteArray root = QFile::encodeName(tree.root());
        for (const QByteArray &path : selected)
            QVERIFY2(!existsOnDisk(path), path.constData());
        QMap<QByteArray, QByteArray> expected;
        for (auto it = before.begin(); it != before.end(); ++it) {
            const QByteArray full = root + it.key();
            const bool gone =
                std::any_of(selected.begin(), selected.end(), [&](const QByteArray &s) {
                    return full == s || full.startsWith(QByteArray(s + '/'));
                });
            if (!gone)
                expected.insert(it.key(), it.value());
        }
        QCOMPARE(snapshot(tree.root()), expected);

        int number = 0;
        qint64 size = 0;
        const QList<Category> &categories = AppModuleService::categoriesOf(0);
        for (int ci = 0; ci < categories.size(); ++ci) {
            qint64 categorySize = 0;
            for (int fi = 0; fi < categories[ci].files.size(); ++fi) {
                const FolderInfoPtr &node = categories[ci].files[fi];
                QCOMPARE(node->findex, fi);
                QVERIFY(existsOnDisk(FolderInfo::pathBytes(node->url)));
                for (const FolderInfoPtr &child : node->children)
                    QVERIFY(existsOnDisk(FolderInfo::pathBytes(child->url)));
                categorySize += node->size;
            }
            QCOMPARE(categories[ci].size, categorySize);
            const auto [count, bytes] = perCategory.value(ci);
            QCOMPARE(KestalService::cleanningCompletedStatus().value(0).value(ci),
                     (CleanTriple{999, count, bytes}));
            number += count;
            size += bytes;
        }
        QCOMPARE(KestalService::cleanTotalSizeAndNumber().value(0), std::make_pair(size, number));
    }

    QRandomGenerator rng;
    TreeBuilder tree;
    QList<QByteArray> selected;
    QMap<int, std::pair<int, qint64>> perCategory;
    QMap<QByteArray, QByteArray> before;

private:
    static void unlock(const QByteArray &folder)
    {
        ::chmod(folder.constData(), 0755);
        DIR *dir = opendir(folder.constData());
        while (const dirent *ent = dir ? readdir(dir) : nullptr) {
            struct stat st;
            const QByteArray path = folder + '/' + ent->d_name;
            if (qstrcmp(ent->d_name, ".") && qstrcmp(ent->d_name, "..") &&
                lstat(path.constData(), &st) == 0 && S_ISDIR(st.st_mode))
                unlock(path);
        }
        if (dir)
            closedir(dir);
    }

    // Plain names, names with blanks and accents, and bytes that are not UTF-8.
    QByteArray nameFor(int i)
    {
        static const QList<QByteArray> names = {"a",           "b c", "caf\xc3\xa9",
                                                "raw\xff\xfe", "%41", "x y%20z"};
        return names[int(rng.bounded(quint32(names.size())))] + QByteArray::number(i);
    }

    void load(int categories)
    {
        QList<Category> &cats = AppModuleService::categoriesOf(0);
        for (int ci = 0; ci < categories; ++ci) {
            QList<QByteArray> names;
            const QByteArray folder = tree.pathBytes("c" + QByteArray::number(ci));
            DIR *dir = opendir(folder.constData());
            while (const dirent *ent = dir ? readdir(dir) : nullptr) {
                if (qstrcmp(ent->d_name, ".") && qstrcmp(ent->d_name, ".."))
                    names.append(ent->d_name);
            }
            if (dir)
                closedir(dir);
            std::sort(names.begin(), names.end());
            QList<FolderInfoPtr> files;
            qint64 size = 0;
            for (const QByteArray &name : names) {
                const FolderUrl url{
                    FolderInfo::absoluteString(FolderInfo::urlFromPath(folder + '/' + name))};
                FolderInfoPtr node = FolderInfo::folderInfo(url, true, {});
                node->findex = int(files.size());
                size += node->size;
                files.append(node);
            }
            cats[ci].files = files;
            cats[ci].size = size;
            cats[ci].state = 0;
        }
    }
};

} // namespace CleanTest
