// The uninstaller's scan on trees built for both profiles: what an
// application is, which leftovers are its own, and what is never offered.
#include "cleaner/applications/KestalUninstallService.h"
#include "cleaner/applications/ProcessAPI.h"
#include "cleaner/applications/UninstallFolderInfo.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Platform.h"
#include "cleaner/core/PropertyList.h"
#include "cleaner/scan/UninstallService.h"
#include "support/ScanRecorder.h"
#include "support/TestEnvironment.h"
#include "support/TreeBuilder.h"

#include <QFile>
#include <QtTest>
#include <unistd.h>

namespace {

// A tree spelled as lines: "R/path" under the root, "H/path" under the home;
// a path ending in "/" is a folder, "a -> b" a link, "f.desktop=Exec" a
// desktop entry launching Exec ("R/..." and "H/..." expanded), "X.app#id" a
// bundle with that identifier.
void build(const TestEnvironment &env, const QStringList &lines)
{
    TreeBuilder tree(env.root());
    const auto expand = [&](QString p) -> QString {
        if (p.startsWith(QLatin1String("H/")))
            return env.home() + p.mid(1);
        if (p.startsWith(QLatin1String("R/")))
            return env.root() + p.mid(1);
        return p;
    };
    for (const QString &line : lines) {
        const QString relativeHome = env.home().mid(env.root().size() + 1);
        const auto rel = [&](const QString &p) {
            return p.startsWith(QLatin1String("H/")) ? relativeHome + p.mid(1) : p.mid(2);
        };
        if (line.contains(QLatin1String(" -> "))) {
            tree.symlink(rel(line.section(QLatin1String(" -> "), 0, 0)),
                         expand(line.section(QLatin1String(" -> "), 1)));
        } else if (line.contains(QLatin1Char('#'))) {
            const QString bundle = rel(line.section(QLatin1Char('#'), 0, 0));
            tree.file(bundle + QStringLiteral("/Contents/MacOS/tool"), 100);
            QFile plist(tree.path(bundle + QStringLiteral("/Contents/Info.plist")));
            QVERIFY(plist.open(QIODevice::WriteOnly));
            plist.write(PropertyList::toXml(QVariantMap{
                {QStringLiteral("CFBundleIdentifier"), line.section(QLatin1Char('#'), 1)}}));
        } else if (line.contains(QLatin1Char('='))) {
            const QString path = tree.file(rel(line.section(QLatin1Char('='), 0, 0)));
            QFile entry(path);
            QVERIFY(entry.open(QIODevice::WriteOnly));
            const QString exec = expand(line.section(QLatin1Char('='), 1));
            entry.write(exec.isEmpty() ? QByteArray("no group here\n")
                                       : "[Desktop Entry]\nName=Shown\nExec=" +
                                             QFile::encodeName(exec) + " %U\n");
        } else if (line.endsWith(QLatin1Char('/'))) {
            tree.folder(rel(line));
        } else {
            tree.file(rel(line), 10);
        }
    }
}

QStringList relativePaths(const TestEnvironment &env, const QList<QByteArray> &paths)
{
    QStringList out;
    for (const QByteArray &p : paths) {
        const QString path = QFile::decodeName(p);
        out << (path.startsWith(env.home() + QLatin1Char('/'))
                    ? QStringLiteral("H") + path.mid(env.home().size())
                    : QStringLiteral("R") + path.mid(env.root().size()));
    }
    out.sort();
    return out;
}

QStringList filePaths(const TestEnvironment &env, const Category &c)
{
    QList<QByteArray> paths;
    for (const FolderInfoPtr &f : c.files)
        paths << FolderInfo::pathBytes(f->url);
    return relativePaths(env, paths);
}

// Runs module 9's scan through the driver to its end.
QList<Category> scanModule()
{
    KestalUninstallService::registerWithScanDriver();
    return ScanRecorder().scanToEnd(UninstallService::moduleIndex);
}

} // namespace

class TestUninstaller : public QObject {
    Q_OBJECT

private slots:
    void matchesLeftovers_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<QStringList>("tree");
        QTest::addColumn<QString>("app");
        QTest::addColumn<QStringList>("expected");

        // An identifier matches itself with a dot after it, never a longer
        // identifier; a plain name matches an entry of exactly that name.
        QTest::newRow("macos identifier")
            << "macos" << QStringList{"R/Applications/Tool.app#com.acme.Tool",
                                      "H/Library/Preferences/com.acme.Tool.plist",
                                      "H/Library/Preferences/com.acme.Tool2.plist",
                                      "H/Library/Application Support/Tool/",
                                      "H/Library/Application Support/Tools/",
                                      "R/Library/LaunchAgents/com.acme.Tool.agent.plist",
                                      "H/Library/Containers/com.acme.Tool/"}
            << "Tool.app"
            << QStringList{"H/Library/Application Support/Tool",
                           "H/Library/Containers/com.acme.Tool",
                           "H/Library/Preferences/com.acme.Tool.plist",
                           "R/Library/LaunchAgents/com.acme.Tool.agent.plist"};
        // Without an identifier the name alone matches; in the shared folder
        // any name holding it does.
        QTest::newRow("macos no identifier, Shared")
            << "macos"
            << QStringList{"R/Applications/Tool.app/Contents/", "H/Library/Tool/",
                           "H/Library/Tool.old/", "R/Users/Shared/MyToolData/",
                           "H/Library/Preferences/tool/"}
            << "Tool.app" << QStringList{"H/Library/Tool", "R/Users/Shared/MyToolData"};
        // An AppImage is known by the desktop entry that launches it; its
        // version is no part of its name, and case does not matter.
        QTest::newRow("linux AppImage")
            << "linux"
            << QStringList{"H/Applications/Obsidian-1.4.16-x86_64.AppImage",
                           "H/.local/share/applications/appimagekit-obsidian.desktop="
                           "H/Applications/Obsidian-1.4.16-x86_64.AppImage",
                           "H/.config/obsidian/", "H/.cache/obsidian-updater/",
                           "H/.local/state/Obsidian"}
            << "Obsidian-1.4.16-x86_64.AppImage"
            << QStringList{"H/.config/obsidian",
                           "H/.local/share/applications/appimagekit-obsidian.desktop",
                           "H/.local/state/Obsidian"};
        // An application folder's own desktop entry gives its identifier.
        QTest::newRow("linux folder with identifier")
            << "linux" << QStringList{"R/opt/tool/bin/tool",
                                      "R/opt/tool/org.acme.Tool.desktop=R/opt/tool/bin/tool",
                                      "H/.var/app/org.acme.Tool/",
                                      "H/.local/share/org.acme.Tool.db",
                                      "H/.config/org.acme.Tool2/",
                                      "H/.config/tool/"}
            << "tool"
            << QStringList{"H/.config/tool", "H/.local/share/org.acme.Tool.db",
                           "H/.var/app/org.acme.Tool"};
        // A broken desktop entry identifies nothing: the name still matches.
        QTest::newRow("linux broken entry")
            << "linux"
            << QStringList{"R/opt/Tool/run", "R/opt/Tool/broken.desktop=", "H/.config/Tool/",
                           "H/.config/broken/"}
            << "Tool" << QStringList{"H/.config/Tool"};
        // A name of one of the places searched never takes that place, which
        // holds every application's files; the same name elsewhere matches.
        QTest::newRow("linux named like a searched folder")
            << "linux"
            << QStringList{"R/opt/autostart/run", "H/.config/autostart/chat.desktop=/usr/bin/chat",
                           "H/.cache/autostart/", "H/.local/share/applications/x.desktop="}
            << "autostart" << QStringList{"H/.cache/autostart"};
        QTest::newRow("macos named like a searched folder")
            << "macos"
            << QStringList{"R/Applications/Preferences.app/Contents/",
                           "H/Library/Preferences/com.acme.Other.plist",
                           "H/Library/Application Support/Preferences/"}
            << "Preferences.app" << QStringList{"H/Library/Application Support/Preferences"};
    }

    void matchesLeftovers()
    {
        QFETCH(QString, profile);
        QFETCH(QStringList, tree);
        QFETCH(QString, app);
        QFETCH(QStringList, expected);
        TestEnvironment env(profile);
        build(env, tree);
        const QStringList folders =
            Platform::isMacOS() ? QStringList{Platform::applicationsPath()}
                                : QStringList{env.home() + "/Applications", env.root() + "/opt"};
        QString folder;
        for (const QString &f : folders)
            if (QFileInfo::exists(f + "/" + app))
                folder = f;
        QVERIFY(!folder.isEmpty());
        const UninstallFolderInfo::PathSet matched =
            UninstallFolderInfo::matchAppInfoList(folder, app);
        QCOMPARE(relativePaths(env, QList<QByteArray>(matched.begin(), matched.end())), expected);
    }

    // The whole scan: one category per application with the application
    // first; black-listed names, Chrome's table, links and package files.
    void scanOffersEachApplicationOnce()
    {
        {
            TestEnvironment env("macos");
            build(env, {"R/Applications/Safari.app/Contents/", "R/Applications/Utilities/",
                        "R/Applications/Google Chrome Beta.app#com.google.Chrome.beta",
                        "H/Library/Preferences/com.google.Chrome.plist",
                        "H/Library/Preferences/com.google.Chrome.beta.plist",
                        "R/Applications/Linked.app#com.acme.Linked", "R/elsewhere/big",
                        "H/Library/Preferences/com.acme.Linked.plist -> R/elsewhere/big"});
            QFile big(env.root() + "/elsewhere/big");
            QVERIFY(big.resize(1 << 20));
            const QList<Category> apps = scanModule();
            QCOMPARE(apps.size(), 2);
            for (const Category &c : apps) {
                QVERIFY(c.title == "Google Chrome Beta" || c.title == "Linked");
                const QStringList paths = filePaths(env, c);
                if (c.title == "Linked") {
                    // The link is listed and sized as itself, not its target.
                    QCOMPARE(paths, (QStringList{"H/Library/Preferences/com.acme.Linked.plist",
                                                 "R/Applications/Linked.app"}));
                    QVERIFY(c.size < 1000);
                    QCOMPARE(FolderInfo::pathBytes(c.files.first()->url),
                             QFile::encodeName(env.root() + "/Applications/Linked.app"));
                } else {
                    // Chrome's fixed table, never its own identifier.
                    QCOMPARE(paths, (QStringList{"H/Library/Preferences/com.google.Chrome.plist",
                                                 "R/Applications/Google Chrome Beta.app"}));
                }
                qint64 sum = 0;
                for (const FolderInfoPtr &f : c.files)
                    sum += f->size;
                QCOMPARE(c.size, sum);
            }
        }
        {
            // What a package manager installed is never offered, nor its files.
            TestEnvironment env("linux");
            build(env, {"R/opt/google/chrome/chrome", "R/opt/Hand/run", "H/.config/Hand/",
                        "H/.local/share/applications/Hand.desktop=R/opt/Hand/run",
                        "R/var/lib/dpkg/info/google-chrome-stable.list"});
            QFile list(env.root() + "/var/lib/dpkg/info/google-chrome-stable.list");
            QVERIFY(list.open(QIODevice::WriteOnly));
            list.write("/.\n/opt\n/opt/google\n/opt/google/chrome\n/opt/google/chrome/chrome\n");
            list.close();
            const QList<Category> apps = scanModule();
            QCOMPARE(apps.size(), 1);
            QCOMPARE(apps.first().title, QStringLiteral("Shown"));
            QCOMPARE(filePaths(env, apps.first()),
                     (QStringList{"H/.config/Hand", "H/.local/share/applications/Hand.desktop",
                                  "R/opt/Hand"}));
        }
    }

    // One application anywhere, as the Trash watch asks for it; a path with
    // a blank is read from its URL form; a vanished item still shows.
    void scanSingleAppAnywhere()
    {
        TestEnvironment env("macos");
        build(env, {"H/.Trash/My Tool.app#com.acme.MyTool",
                    "H/Library/Preferences/com.acme.MyTool.plist"});
        const Category c = KestalUninstallService::scanSingleApp(
            FolderInfo::urlFromPath(env.home() + "/.Trash/My Tool.app"));
        QCOMPARE(filePaths(env, c), (QStringList{"H/.Trash/My Tool.app",
                                                 "H/Library/Preferences/com.acme.MyTool.plist"}));
        QCOMPARE(c.files.first()->findex, 0);
        QVERIFY(c.files.first()->identity.isKnown());
        const FolderInfoPtr gone =
            UninstallFolderInfo::uninstallNode(QFile::encodeName(env.root() + "/gone"), 3);
        QCOMPARE(gone->name, QStringLiteral("no name"));
        QCOMPARE(gone->size, 0);
        QVERIFY(!gone->identity.isKnown());
    }

    void processTable()
    {
        const QList<ProcessInfo> processes = ProcessAPI::list();
        const auto self = std::find_if(processes.begin(), processes.end(),
                                       [](const ProcessInfo &p) { return p.pid == getpid(); });
        QVERIFY(self != processes.end());
        QCOMPARE(self->ppid, int(getppid()));
        QCOMPARE(self->uid, int(getuid()));
        QCOMPARE(self->pgid, int(getpgrp()));
        QCOMPARE(self->status, 2); // running: it is reading the table
        QVERIFY(QCoreApplication::applicationName().startsWith(self->command));
#if defined(__x86_64__)
        QCOMPARE(self->arch, CPU_TYPE_X86_64);
#elif defined(__aarch64__)
        QCOMPARE(self->arch, CPU_TYPE_ARM64);
#endif
        QCOMPARE(ProcessAPI::arch(-5), -1);
        QByteArray header(20, '\0');
        header.replace(0, 4,
                       "\x7f"
                       "ELF");
        header[5] = 2; // big-endian
        header[19] = 21;
        QCOMPARE(ProcessAPI::archOfElfHeader(header), CPU_TYPE_POWERPC64);
    }
};

QTEST_GUILESS_MAIN(TestUninstaller)
#include "test_uninstaller.moc"
