#include "cli/CliEraser.h"

#include "cleaner/clean/CleanProtocols.h"
#include "cleaner/clean/CleanResults.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/erasure/KestalDecompressionService.h"
#include "cleaner/erasure/ShredService.h"
#include "cli/CliCommands.h"
#include "cli/ProgressBar.h"
#include "cli/TerminalText.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTextStream>
#include <cstdio>
#include <termios.h>
#include <unistd.h>

namespace {

// The shred run's reports, handed to the main thread.
class ShredReceiver : public DeleteFilesProgressProtocol {
public:
    explicit ShredReceiver(qint64 total) : m_total(total) {}
    void installFail(const QString &, int) override
    {
        Dispatch::mainAsync([this] { end(ShredService::allFailed(int(errorKind::getRoot))); });
    }
    void processed(const QString &url, qint64 size, int) override
    {
        Dispatch::mainAsync([this, url, size] {
            m_done += size;
            m_bar.update(m_total > 0 ? double(m_done) / double(m_total) : 1.0, m_done, url);
        });
    }
    void finished(bool, const PathMap &folders, int) override
    {
        Dispatch::mainAsync([this, folders] { end(folders); });
    }
    QMap<QString, QList<int>> folders;

private:
    void end(const QMap<QString, QList<int>> &result)
    {
        m_bar.finish();
        folders = result;
        QCoreApplication::exit(0);
    }
    qint64 m_total;
    qint64 m_done = 0;
    ProgressBar m_bar;
};

QString readPasswordFile(const QString &path, bool *ok)
{
    QFile file(path);
    *ok = file.open(QIODevice::ReadOnly);
    QByteArray line = file.readLine();
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    return QString::fromUtf8(line);
}

// The password typed on the terminal without echo, or a line of standard input.
QString askPassword()
{
    termios old{};
    const bool terminal = ::isatty(0) && ::tcgetattr(0, &old) == 0;
    if (terminal) {
        std::fputs("Enter Password : ", stderr);
        termios quiet = old;
        quiet.c_lflag &= ~tcflag_t(ECHO);
        ::tcsetattr(0, TCSANOW, &quiet);
    }
    QTextStream in(stdin);
    const QString password = in.readLine();
    if (terminal) {
        ::tcsetattr(0, TCSANOW, &old);
        std::fputs("\n", stderr);
    }
    return password;
}

} // namespace

int CliEraser::shred(const QByteArrayList &args)
{
    bool yes = false;
    QStringList paths;
    for (const QByteArray &a : args) {
        if (a == "--yes")
            yes = true;
        else if (a.startsWith("--"))
            return CliCommands::usage(
                QStringLiteral("unknown option \"%1\"").arg(TerminalText::escapedBytes(a)));
        else
            paths.append(QDir::current().absoluteFilePath(QFile::decodeName(a)));
    }
    if (paths.isEmpty())
        return CliCommands::usage(QStringLiteral("shred needs at least one PATH"));
    ShredService::reset();
    AppModuleService::categoriesOf(ShredService::moduleIndex).clear();
    for (const QString &path : std::as_const(paths)) {
        const auto [taken, why] = ShredService::addFileOrDict(path);
        if (!taken) {
            std::fprintf(stderr, "brenlow-cli: %s: %s\n",
                         TerminalText::escaped(path).toLocal8Bit().constData(),
                         TerminalText::escaped(why).toLocal8Bit().constData());
            return 1;
        }
    }
    qint64 total = 0;
    int files = int(ShredService::shredFile().size());
    for (const Category &c : AppModuleService::categoriesOf(ShredService::moduleIndex))
        total += c.size;
    for (const QSet<QString> &inFolder : std::as_const(ShredService::shredDict()))
        files += int(inFolder.size()) - 1;
    if (!yes && !CliCommands::confirmed(files, double(total)))
        return 1;

    auto receiver = std::make_shared<ShredReceiver>(total);
    ShredService::shred(receiver);
    QCoreApplication::exec();
    const auto [size, number] = ShredService::shredDone(receiver->folders);
    for (auto it = ShredService::shredFailures().begin(); it != ShredService::shredFailures().end();
         ++it)
        CliCommands::printOut(
            QStringLiteral("not shredded: %1  (%2)")
                .arg(TerminalText::escaped(it.key()), cleanFailureReason(it.value())));
    CliCommands::printOut(
        QStringLiteral("shredded %1 files, %2").arg(number).arg(CliCommands::sizeText(size)));
    return ShredService::shredFailures().isEmpty() ? 0 : 2;
}

int CliEraser::extract(const QByteArrayList &args)
{
    QString archive, passwordFile, to;
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QByteArray &a = args[i];
        if ((a == "--password-file" || a == "--to") && i + 1 < args.size())
            (a == "--to" ? to : passwordFile) = QFile::decodeName(args[++i]);
        else if (a.startsWith("--") || !archive.isEmpty())
            return CliCommands::usage(
                QStringLiteral("unexpected \"%1\"").arg(TerminalText::escapedBytes(a)));
        else
            archive = QDir::current().absoluteFilePath(QFile::decodeName(a));
    }
    if (archive.isEmpty())
        return CliCommands::usage(QStringLiteral("extract needs an ARCHIVE"));
    const QString shown = TerminalText::escaped(archive);
    if (!QFileInfo(archive).isFile())
        return CliCommands::usage(QStringLiteral("%1 isn't exist").arg(shown));
    if (!KestalDecompressionService::isSevenZip(archive) &&
        !KestalDecompressionService::isRar(archive))
        return CliCommands::usage(
            QStringLiteral("%1 is neither a 7z nor a rar archive").arg(shown));
    QString target = to.isEmpty() ? KestalDecompressionService::targetFolder(archive)
                                  : QDir::current().absoluteFilePath(to);
    // Into a folder of the user's choice only when nothing in it could be overwritten.
    if (!to.isEmpty() && QFileInfo::exists(target) &&
        (!QFileInfo(target).isDir() || !QDir(target).isEmpty(QDir::AllEntries | QDir::Hidden |
                                                             QDir::System | QDir::NoDotAndDotDot)))
        return CliCommands::usage(QStringLiteral("%1 exists and is not an empty folder")
                                      .arg(TerminalText::escaped(target)));

    QString password;
    if (!passwordFile.isEmpty()) {
        bool ok = false;
        password = readPasswordFile(passwordFile, &ok);
        if (!ok)
            return CliCommands::usage(
                QStringLiteral("cannot read %1").arg(TerminalText::escaped(passwordFile)));
    }
    const double archiveSize = double(QFileInfo(archive).size());
    const auto unpack = [&archive, &target, archiveSize](const QString &withPassword) {
        ProgressBar bar;
        const auto outcome = KestalDecompressionService::extract(
            archive, target, withPassword, [&bar, &archive, archiveSize](double fraction) {
                bar.update(fraction, qint64(fraction * archiveSize), archive);
                return true;
            });
        bar.finish();
        return outcome;
    };
    // The extraction asks whether the archive is encrypted before it writes anything, so the
    // password is asked for only after that one check says so.
    auto outcome = unpack(password);
    if (outcome.result == ArchiveExtractor::Result::NeedsPassword && passwordFile.isEmpty())
        outcome = unpack(askPassword());
    const QString line = KestalDecompressionService::describe(outcome);
    if (outcome.result != ArchiveExtractor::Result::Done) {
        const QString failed = getLocalizedString(KestalDecompressionService::isRar(archive)
                                                      ? QStringLiteral("Compress Failed")
                                                      : QStringLiteral("Decompress Failed"));
        std::fprintf(stderr, "brenlow-cli: %s: %s\n", failed.toLocal8Bit().constData(),
                     TerminalText::escaped(line).toLocal8Bit().constData());
        return outcome.result == ArchiveExtractor::Result::NeedsPassword ? 1 : 2;
    }
    CliCommands::printOut(QStringLiteral("%1 into %2").arg(line, TerminalText::escaped(target)));
    return 0;
}
