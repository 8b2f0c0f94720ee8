#include "cli/CliUsage.h"

#include "cleaner/clean/CleanProtocols.h"
#include "cleaner/clean/MessageChannel.h"
#include "cleaner/clean/XPCUtil.h"
#include "cleaner/core/Bundle.h"
#include "cli/TerminalText.h"

#include <QFileInfo>
#include <QProcess>
#include <cstdio>

namespace {

struct Command {
    const char *name;
    const char *synopsis;
    const char *description;
    const char *optionHelp;   // the command's own options, one line each
    QByteArrayList options;   // the options it knows
    QByteArrayList withValue; // those of them that take the next argument
};

const QList<Command> &commands()
{
    static const QList<Command> table = {
        {"modules",
         "modules [--json]",
         "Lists the modules with their index and title; either names a MODULE.",
         "",
         {"--json"},
         {}},
        {"scan",
         "scan MODULE [--path DIR] [--min-size KIB] [--threshold N] [--json]",
         "Scans a module and lists what it found, by category, with sizes.",
         "  --path DIR        the folder the duplicate or similar image finder searches\n"
         "  --min-size KIB    the smallest file the duplicate finder compares\n"
         "  --threshold N     how different similar images may be (Similar Images)\n",
         {"--json", "--path", "--min-size", "--threshold"},
         {"--path", "--min-size", "--threshold"}},
        {"clean",
         "clean MODULE [--select default|all|PATH...] [--yes] [--json]",
         "Scans a module, applies the selection, asks, and removes exactly the\n"
         "selected items.",
         "  --select default  keep the scan's own selection (the default)\n"
         "  --select all      select everything the scan listed\n"
         "  --select PATH...  select exactly these listed items; for Privacy,\n"
         "                    BROWSER/GROUP or BROWSER/GROUP/RECORD-INDEX\n"
         "  --yes             remove without asking\n"
         "  --path DIR        the folder the duplicate or similar image finder searches\n"
         "  --min-size KIB    the smallest file the duplicate finder compares\n"
         "  --threshold N     how different similar images may be (Similar Images)\n",
         {"--json", "--yes", "--select", "--path", "--min-size", "--threshold"},
         {"--path", "--min-size", "--threshold"}},
        {"status",
         "status [--json] [--watch SECONDS]",
         "Prints CPU, memory, disk, battery and network figures.",
         "  --watch SECONDS   report again every SECONDS (1 to 86400) until stopped\n",
         {"--json", "--watch"},
         {"--watch"}},
        {"shred",
         "shred PATH... [--yes]",
         "Overwrites the files with random data and removes them, through the helper.",
         "  --yes             shred without asking\n",
         {"--yes"},
         {}},
        {"extract",
         "extract ARCHIVE [--password-file FILE] [--to DIR]",
         "Unpacks a 7z or rar archive into a new folder beside it, or into DIR.",
         "  --password-file FILE  read the password from FILE\n"
         "  --to DIR              unpack into DIR, which must be absent or empty\n",
         {"--password-file", "--to"},
         {"--password-file", "--to"}},
        {"extensions",
         "extensions toggle PATH",
         "Switches a listed extension off or on by moving it, through the helper.",
         "",
         {},
         {}},
    };
    return table;
}

const Command *find(const QByteArray &name)
{
    for (const Command &c : commands()) {
        if (name == c.name)
            return &c;
    }
    return nullptr;
}

const char exitStatus[] = "Exit status:\n"
                          "  0  done\n"
                          "  1  bad usage or input (with a one-line reason)\n"
                          "  2  some items could not be removed\n";

// One request to a freshly started service, answered within a few seconds.
QString askService(const QString &path, const char *selector)
{
    QProcess service;
    service.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const QString name = Bundle::objectForInfoDictionaryKey(QStringLiteral("File Name")).toString();
    service.start(path, {QStringLiteral("--name"), XPCUtil::serviceIdentifier(name)});
    if (!service.waitForStarted(5000))
        return {};
    service.write(FrameDecoder::encode(Wire::call(selector, {}, 1)));
    FrameDecoder decoder;
    QString answer;
    while (answer.isEmpty() && service.waitForReadyRead(5000)) {
        for (const FrameDecoder::Item &item : decoder.feed(service.readAllStandardOutput())) {
            if (item.message && item.message->toMap().value(QStringLiteral("reply")) == 1)
                answer = item.message->toMap().value(QStringLiteral("value")).toString();
        }
    }
    service.closeWriteChannel();
    if (!service.waitForFinished(5000))
        service.kill();
    return answer;
}

} // namespace

QString CliUsage::help(const QByteArray &command)
{
    if (const Command *c = find(command)) {
        return QStringLiteral("Usage: brenlow-cli %1\n\n%2\n\nOptions:\n%3"
                              "  --json            print JSON records instead of text\n"
                              "  -h, --help        show this help and exit\n\n%4")
            .arg(QLatin1String(c->synopsis), QLatin1String(c->description),
                 QLatin1String(c->optionHelp), QLatin1String(exitStatus));
    }
    QString text = QStringLiteral("Usage: brenlow-cli COMMAND [OPTION]...\n"
                                  "       brenlow-cli --help | --version\n\n"
                                  "Finds and removes junk files, duplicates and browser traces.\n"
                                  "MODULE is an index or a title from `brenlow-cli modules`.\n\n"
                                  "Commands:\n");
    for (const Command &c : commands())
        text += QStringLiteral("  %1\n").arg(QLatin1String(c.synopsis));
    text += QStringLiteral("\nOptions:\n"
                           "  -h, --help        show this help (or a command's) and exit\n"
                           "  -V, --version     show the version and exit\n\n") +
            QLatin1String(exitStatus) +
            QStringLiteral("\nRun `brenlow-cli COMMAND --help` for a command's options.\n");
    return text;
}

bool CliUsage::asksForHelp(const QByteArrayList &arguments)
{
    return arguments.contains("--help") || arguments.contains("-h");
}

QString CliUsage::unknownOption(const QByteArray &command, const QByteArrayList &args)
{
    const Command *c = find(command);
    if (!c)
        return {};
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QByteArray &a = args[i];
        if (a == "--")
            break; // what follows are names, whatever they start with
        if (c->withValue.contains(a)) {
            ++i; // its value may start with "-"
        } else if (a.startsWith('-') && a.size() > 1 && !c->options.contains(a)) {
            return TerminalText::escapedBytes(a);
        }
    }
    return {};
}

int CliUsage::version()
{
    std::printf("brenlow-cli %s\n", BRENLOW_VERSION);
    const QString service = QFileInfo(XPCUtil::servicePath()).canonicalFilePath();
    QProcess run;
    if (!service.isEmpty())
        run.start(service, {QStringLiteral("--version")});
    if (service.isEmpty() || !run.waitForFinished(5000) || run.exitCode() != 0) {
        std::printf("brenlow-service: cannot be started from %s\n",
                    qPrintable(TerminalText::escaped(XPCUtil::servicePath())));
        return 0;
    }
    std::printf("%s %s\n", run.readAllStandardOutput().trimmed().constData(),
                qPrintable(TerminalText::escaped(service)));
    // The service answers the version of the helper it would start; an
    // empty answer means it found none.
    const QString helper = askService(service, Wire::bundledHelperVersion);
    std::printf("brenlow-helper %s\n",
                helper.isEmpty() ? "not found" : qPrintable(TerminalText::escaped(helper)));
    return 0;
}
