#include "cleaner/erasure/ArchiveBackEnd.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

using Result = ArchiveExtractor::Result;

bool isRar(const QString &archive)
{
    return QFileInfo(archive).suffix().contains(QLatin1String("rar"), Qt::CaseInsensitive) ||
           QFileInfo(archive).fileName().contains(QLatin1String(".rar"), Qt::CaseInsensitive);
}

QString program(const QStringList &names)
{
    for (const QString &n : names) {
        const QString found = QStandardPaths::findExecutable(n);
        if (!found.isEmpty())
            return found;
    }
    return QString();
}

// The last percentage a program printed, as a fraction.
void reportPercent(const QByteArray &output, const ArchiveExtractor::Progress &progress)
{
    static const QRegularExpression percent(QStringLiteral("(\\d{1,3})%"));
    QRegularExpressionMatchIterator it = percent.globalMatch(QString::fromLatin1(output));
    int last = -1;
    while (it.hasNext())
        last = it.next().captured(1).toInt();
    if (last >= 0 && progress)
        progress(std::min(100, last) / 100.0);
}

// 7-Zip: the password on standard input, answered to its question.
std::pair<int, QString> run7z(const QStringList &cmd, const QString &password,
                              const ArchiveExtractor::Progress &progress)
{
    QProcess p;
    p.setProcessChannelMode(QProcess::SeparateChannels);
    p.start(cmd.first(), cmd.mid(1));
    if (!p.waitForStarted())
        return {-1, p.errorString()};
    p.write(password.toUtf8() + '\n');
    p.closeWriteChannel();
    QByteArray errors;
    while (!p.waitForFinished(200)) {
        reportPercent(p.readAllStandardOutput(), progress);
        errors += p.readAllStandardError();
    }
    errors += p.readAllStandardError();
    return {p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1,
            QString::fromLocal8Bit(errors)};
}

// unar asks for a password only on a terminal: it runs on a pseudo terminal
// whose other end answers each question with the password.
std::pair<int, QString> runOnTerminal(const QStringList &cmd, const QString &password,
                                      const ArchiveExtractor::Progress &progress)
{
    const int master = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (master < 0 || ::grantpt(master) != 0 || ::unlockpt(master) != 0)
        return {-1, QStringLiteral("no pseudo terminal")};
    const QByteArray slaveName = ::ptsname(master);
    QList<QByteArray> args;
    for (const QString &a : cmd)
        args.append(QFile::encodeName(a));
    std::vector<char *> argv;
    for (QByteArray &a : args)
        argv.push_back(a.data());
    argv.push_back(nullptr);
    const pid_t pid = ::fork();
    if (pid == 0) {
        ::setsid();
        const int slave = ::open(slaveName.constData(), O_RDWR);
        if (slave < 0)
            ::_exit(127);
        ::ioctl(slave, TIOCSCTTY, 0);
        ::dup2(slave, 0);
        ::dup2(slave, 1);
        ::dup2(slave, 2);
        ::execv(argv[0], argv.data());
        ::_exit(127);
    }
    if (pid < 0) {
        ::close(master);
        return {-1, QStringLiteral("cannot start %1").arg(cmd.first())};
    }
    QByteArray output;
    const QByteArray answer = password.toUtf8() + '\n';
    qsizetype asked = 0;
    for (;;) {
        pollfd fd{master, POLLIN, 0};
        if (::poll(&fd, 1, 200) > 0) {
            char buffer[4096];
            const ssize_t n = ::read(master, buffer, sizeof buffer);
            if (n <= 0)
                break; // the terminal closed: the program ended
            output.append(buffer, n);
            reportPercent(QByteArray(buffer, n), progress);
            // Each question gets the password once.
            for (qsizetype at = output.indexOf("Password", asked); at >= 0;
                 at = output.indexOf("Password", asked)) {
                asked = at + 8;
                if (::write(master, answer.constData(), size_t(answer.size())) < 0)
                    break;
            }
        }
        int status;
        if (::waitpid(pid, &status, WNOHANG) == pid) {
            ::close(master);
            return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, QString::fromLocal8Bit(output)};
        }
    }
    ::close(master);
    int status = 0;
    ::waitpid(pid, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, QString::fromLocal8Bit(output)};
}

} // namespace

QStringList ArchiveBackEnd::command(const QString &archive, const QString &into)
{
    if (isRar(archive)) {
        const QString unar = program({QStringLiteral("unar")});
        if (unar.isEmpty())
            return {};
        // -D: no folder of its own; -k skip: no resource-fork files.
        return {unar,
                QStringLiteral("-D"),
                QStringLiteral("-k"),
                QStringLiteral("skip"),
                QStringLiteral("-o"),
                into,
                QStringLiteral("--"),
                archive};
    }
    const QString sevenZip = program({QStringLiteral("7zz"), QStringLiteral("7z")});
    if (sevenZip.isEmpty())
        return {};
    return {sevenZip,
            QStringLiteral("x"),
            QStringLiteral("-y"),
            QStringLiteral("-bsp1"),
            QStringLiteral("-bso0"),
            QStringLiteral("-o") + into,
            QStringLiteral("--"),
            archive};
}

QString ArchiveBackEnd::sanitize(const QString &folder)
{
    QString first;
    const QByteArray root = QFile::encodeName(folder);
    QDirIterator it(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        const QByteArray bytes = QFile::encodeName(path);
        struct stat st;
        if (::lstat(bytes.constData(), &st) != 0)
            continue;
        const QByteArray name = bytes.mid(root.size() + 1);
        QString why;
        if (S_ISLNK(st.st_mode)) {
            char target[4096];
            const ssize_t n = ::readlink(bytes.constData(), target, sizeof target);
            why = ArchiveExtractor::linkRefusal(name, QByteArray(target, std::max<ssize_t>(0, n)));
        } else if (!S_ISREG(st.st_mode) && !S_ISDIR(st.st_mode))
            why = QStringLiteral("a device, FIFO or socket");
        if (why.isEmpty())
            continue;
        ::unlink(bytes.constData());
        if (first.isEmpty())
            first = QFile::decodeName(name) + QStringLiteral(": ") + why;
    }
    return first;
}

ArchiveExtractor::Outcome ArchiveBackEnd::extract(const QString &archive, const QString &target,
                                                  const QString &password,
                                                  const ArchiveExtractor::Progress &progress)
{
    const ArchiveExtractor::Listing listing = ArchiveExtractor::inspect(archive);
    if (!listing.refusal.isEmpty())
        return {Result::Unsafe, listing.refusal, 0};
    QTemporaryDir staging(target + QStringLiteral("/.unpacking-XXXXXX"));
    const QStringList cmd = command(archive, staging.path());
    if (!staging.isValid() || cmd.isEmpty())
        return {Result::Failed, QStringLiteral("no program to unpack encrypted entries"), 0};
    const auto [code, output] =
        isRar(archive) ? runOnTerminal(cmd, password, progress) : run7z(cmd, password, progress);
    const QString refused = sanitize(staging.path());
    // Whatever was unpacked moves up into the target, nothing over anything.
    int entries = 0;
    const QDir from(staging.path());
    for (const QString &name :
         from.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot)) {
        const QByteArray source = QFile::encodeName(from.filePath(name));
        const QByteArray dest = QFile::encodeName(target + QLatin1Char('/') + name);
        if (::renameat2(AT_FDCWD, source.constData(), AT_FDCWD, dest.constData(),
                        RENAME_NOREPLACE) == 0)
            ++entries;
    }
    if (code != 0) {
        const bool wrong = output.contains(QLatin1String("Wrong password"), Qt::CaseInsensitive) ||
                           output.contains(QLatin1String("password"), Qt::CaseInsensitive);
        return {wrong ? Result::WrongPassword : Result::Damaged, output.trimmed().section('\n', -1),
                entries};
    }
    if (!refused.isEmpty())
        return {Result::Unsafe, refused, entries};
    return {Result::Done, QString(), entries};
}
