#pragma once

// Shared pieces of the clean tests: the programs, a peer spoken to in frames,
// a recorded clean run, and snapshots of folder trees.

#include "TestPaths.h"
#include "cleaner/clean/CleanResults.h"
#include "cleaner/clean/KestalModuleCleanService.h"
#include "cleaner/clean/MessageChannel.h"
#include "cleaner/clean/XPCUtil.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/PropertyList.h"
#include "cleaner/scan/KestalService.h"
#include "support/TestEnvironment.h"
#include "support/TreeBuilder.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>
#include <QTimer>
#include <QtEndian>
#include <algorithm>
#include <fcntl.h>
#include <ftw.h>
#include <sys/stat.h>
#include <unistd.h>

namespace CleanTest {

// The build (or the copy the unprivileged user runs from) and its programs.
inline const QString bin =
    qEnvironmentVariable("BRENLOW_TEST_BIN", QStringLiteral(BRENLOW_TEST_BINARY_DIR));
inline const QString helperProgram = bin + QStringLiteral("/libexec/brenlow/brenlow-helper");
inline const QString serviceProgram = bin + QStringLiteral("/libexec/brenlow/brenlow-service");
inline const QString cliProgram = bin + QStringLiteral("/bin/brenlow-cli");
inline const QStringList serviceArgs{QStringLiteral("--name"),
                                     QStringLiteral("com.orrimay.Brenlow.XPCService")};

// Where the next service started finds its helper and how it starts it.
inline void useHelper(const QString &launcher, const QString &helper = helperProgram)
{
    XPCUtil::shutdown();
    KestalModuleCleanService::reset();
    qputenv("BRENLOW_SERVICE_PATH", QFile::encodeName(serviceProgram));
    qputenv("BRENLOW_HELPER_PATH", QFile::encodeName(helper));
    qputenv("BRENLOW_HELPER_LAUNCHER", launcher.toLocal8Bit());
}

// A shell script standing in for a program that misbehaves (a service, a
// launcher); its path.
inline QString shellProgram(TreeBuilder &tree, const QString &name, const QByteArray &body,
                            QFile::Permissions mode = QFile::ReadOwner | QFile::WriteOwner |
                                                      QFile::ExeOwner)
{
    QFile script(tree.file(name));
    script.open(QIODevice::WriteOnly | QIODevice::Truncate);
    script.write("#!/bin/sh\n" + body + '\n');
    script.close();
    script.setPermissions(mode);
    return script.fileName();
}

// A body behind its four-byte length, as the programs read frames; the body
// need not be valid CBOR.
inline QByteArray framed(const QByteArray &body)
{
    QByteArray prefix(4, Qt::Uninitialized);
    qToBigEndian<quint32>(quint32(body.size()), prefix.data());
    return prefix + body;
}

// A program spoken to in frames over its standard input and output.
class Peer {
public:
    // `ownSession`: the program runs without our terminal, as a desktop
    // program does.
    explicit Peer(const QString &program, const QStringList &args = {}, bool ownSession = false,
                  const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment())
    {
        process.setProcessEnvironment(environment);
        if (ownSession)
            process.setChildProcessModifier([] { ::setsid(); });
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

    // The next message, waiting for it as long as the program lives.
    std::optional<QCborMap> next()
    {
        (void)QTest::qWaitFor(
            [&] {
                pump();
                return !queue.isEmpty() || process.state() == QProcess::NotRunning;
            },
            20000);
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
    // The next finished report, passing over every other message.
    std::optional<QCborMap> nextFinished()
    {
        for (;;) {
            auto m = next();
            if (!m || m->value(QStringLiteral("sel")).toString() == QLatin1String(Wire::finished))
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

// A helper operation whose folders, type, module and identities are given.
inline QCborMap operationCall(const QCborValue &folders, qint64 type, qint64 module = 0,
                              const IdentityMap &identities = {})
{
    return Wire::call(Wire::helperOperation, {folders, QCborValue(QCborValue::Null), type, module,
                                              Wire::identitiesToWire(identities)});
}

// What a scan would record of the item at a path now.
inline ItemIdentity identityNow(const QByteArray &path)
{
    struct stat st;
    return lstat(path.constData(), &st) == 0 ? ItemIdentity::fromStat(st) : ItemIdentity();
}

// A removal of module 3 for these paths, each with what is there now as its
// scan record.
inline QCborMap deleteCall(const QList<QByteArray> &paths,
                           qint64 type = qint64(operationType::delete_))
{
    QMap<QByteArray, QList<int>> folders;
    IdentityMap identities;
    int finder = 0;
    for (const QByteArray &p : paths) {
        folders.insert(p, {0, finder++, 0});
        if (identityNow(p).isKnown())
            identities.insert(p, identityNow(p));
    }
    return operationCall(Wire::wireFromPaths(folders), type, 3, identities);
}

// The status slots of a finished report, by path.
inline QMap<QByteArray, int> statuses(const QCborMap &report)
{
    QMap<QByteArray, int> out;
    const auto paths =
        Wire::wirePaths(report.value(QStringLiteral("args")).toArray().at(1).toMap());
    for (auto it = paths.begin(); it != paths.end(); ++it)
        out.insert(it.key(), it.value().last());
    return out;
}

// Waits until a condition holds, serving the main loop the while without
// qWaitFor's pauses: a clean hands each change of the tree to the main
// thread and waits for it, and a 10 ms pause per hand-over would dominate.
template <typename Predicate> bool waitClosely(Predicate condition, int timeoutMs)
{
    const QDeadlineTimer deadline(timeoutMs);
    QTimer tick; // wakes the loop to look at the condition again
    tick.start(1);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

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

    // Cleans the module and waits for the end of the clean; `stopFirst`
    // asks for the stop before the clean begins.
    bool cleanToEnd(int module, bool stopFirst = false)
    {
        KestalCleanRecorder::handleClean(module);
        KestalModuleCleanService::setStop(module, stopFirst);
        auto recorder = std::make_shared<KestalCleanRecorder>(
            module, [this](bool result, int ci, int status, int number, qint64 size) {
                reports.append({result, ci, status, number, size});
                if (ci == -1) {
                    finished = true;
                    this->status = status;
                }
            });
        KestalModuleCleanService::analysisModule(module, recorder);
        return waitClosely([this] { return finished; }, 20000);
    }
};

template <typename Path> QString urlOf(const Path &path)
{
    return FolderInfo::absoluteString(FolderInfo::urlFromPath(path));
}

// Appends the walked node at path to a category, as a scan would list it.
template <typename Path>
FolderInfoPtr appendNode(Category &category, const Path &path, bool withChildren)
{
    FolderInfoPtr node = FolderInfo::folderInfo(FolderUrl{urlOf(path)}, withChildren, {});
    node->findex = int(category.files.size());
    category.files.append(node);
    category.size += node->size;
    return node;
}

// The environment brenlow-cli runs in: a sandboxed home and system root,
// the Linux profile with these resources, and this helper launcher.
inline QProcessEnvironment cliEnvironment(const TreeBuilder &sandbox, const QString &resources,
                                          const QString &launcher)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), sandbox.path(QStringLiteral("home")));
    environment.insert(QStringLiteral("BRENLOW_ROOT"), sandbox.path(QStringLiteral("root")));
    environment.insert(QStringLiteral("BRENLOW_PLATFORM"), QStringLiteral("linux"));
    environment.insert(QStringLiteral("BRENLOW_RESOURCES"), resources);
    environment.insert(QStringLiteral("BRENLOW_HELPER_LAUNCHER"), launcher);
    return environment;
}

inline void writeInfo(TestEnvironment &env, const QString &key)
{
    QFile info(env.resources() + QStringLiteral("/Info.plist"));
    info.open(QIODevice::WriteOnly | QIODevice::Truncate);
    info.write(PropertyList::toXml(QVariantMap{{key, QStringLiteral("Brenlow")}}));
}

// Writes the edition's Info.plist and a one-module table with a category
// for each root folder, and loads them.
inline void writeModule(TestEnvironment &env, const QStringList &rootFolders)
{
    writeInfo(env, QStringLiteral("File Name"));
    QVariantList categories;
    for (qsizetype i = 0; i < rootFolders.size(); ++i)
        categories.append(TestEnvironment::categoryRow(
            QStringLiteral("C%1").arg(i), {}, QVariant(QStringList{urlOf(rootFolders[i])}), 1));
    env.writeModules(QVariantList{TestEnvironment::moduleRow(QStringLiteral("Test"), categories)});
}

// Every entry below a folder, by raw relative path: its mode bits, then a
// digest of a file's bytes, "dir" for a folder, "link:" and the target for a link.
inline QMap<QByteArray, QByteArray> snapshot(const QString &root)
{
    static QMap<QByteArray, QByteArray> out;
    static qsizetype prefix;
    out.clear();
    const QByteArray top = QFile::encodeName(root);
    prefix = top.size();
    const auto visit = [](const char *path, const struct stat *st, int, FTW *ftw) {
        QByteArray value = "dir";
        if (S_ISLNK(st->st_mode)) {
            char target[4096];
            value = "link:" + QByteArray(target, qMax<ssize_t>(0, readlink(path, target, 4096)));
        } else if (!S_ISDIR(st->st_mode)) {
            QFile file; // opened by its raw path: names need not be valid text
            file.open(::open(path, O_RDONLY), QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
            value = QCryptographicHash::hash(file.readAll(), QCryptographicHash::Md5);
        }
        if (ftw->level > 0)
            out.insert(QByteArray(path).mid(prefix),
                       QByteArray::number(st->st_mode & 07777, 8) + ' ' + value);
        return 0;
    };
    nftw(top.constData(), visit, 16, FTW_PHYS);
    return out;
}

// A snapshot of the tree at root less the removed paths (and what lies below
// them) and the program's own settings, which every run may write.
inline QMap<QByteArray, QByteArray> without(QMap<QByteArray, QByteArray> tree, const QString &root,
                                            const QByteArrayList &removed = {})
{
    const QByteArray top = QFile::encodeName(root);
    tree.removeIf([&](const auto &it) {
        const QByteArray full = top + it.key();
        return it.key().startsWith("/home/.config") ||
               std::any_of(removed.begin(), removed.end(), [&](const QByteArray &gone) {
                   return full == gone || full.startsWith(QByteArray(gone + '/'));
               });
    });
    return tree;
}

inline bool existsOnDisk(const QByteArray &path)
{
    struct stat st;
    return lstat(path.constData(), &st) == 0;
}

} // namespace CleanTest
