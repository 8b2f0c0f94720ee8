#include "SafetyProperty.h"

#include "CleanTestSupport.h"
#include "SafetyTree.h"
#include "cleaner/core/FileRemoval.h"
#include "cleaner/core/Platform.h"

#include <QLocale>
#include <pwd.h>

using namespace CleanTest;

namespace SafetyProperty {
namespace {

// Entries of the locale and manual trees that stay whatever the selection:
// English, the C locale, the alias file, the manual sections themselves.
const QList<QByteArray> keptLanguageEntries = {"en", "en@quot", "C.UTF-8", "man1", "man5", "man8"};
const QList<QByteArray> junkLanguages = {"de", "fr",    "it",       "ja", "pt_BR",
                                         "es", "zh_CN", "sr@latin", "nl", "ru"};

QByteArray trimmed(QByteArray path)
{
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    return path;
}

QByteArray pathOf(const FolderInfoPtr &node)
{
    return trimmed(FolderInfo::pathBytes(node->url));
}

bool isAtOrBelow(const QByteArray &path, const QByteArray &top)
{
    return path == top || path.startsWith(QByteArray(top + '/'));
}

// A path fit for a failure message: odd bytes and newlines escaped.
QByteArray shown(const QByteArray &path)
{
    return path.toPercentEncoding("/ ._-@");
}

// A failure message about a path; lives to the end of the statement.
QByteArray said(const char *what, const QByteArray &path)
{
    return QByteArray(what) + shown(path);
}

// One item the plan took, and whether its clean counted it as removed.
struct Planned {
    QByteArray path;
    bool reportedRemoved = false;
};

class Case {
public:
    Case(quint32 seed, const Options &options, std::unique_ptr<Peer> &helper)
        : options(options), rng(seed), helper(helper), area(areaParent()), tree(rng)
    {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    }
    ~Case()
    {
        // Immutable and locked entries would outlive the clean-up. Root passes
        // locks, so it only clears the flags it knows of, unless a failure
        // came before they were found.
        if (geteuid() != 0 || (!tree.immutable.isEmpty() && before.isEmpty()))
            SafetyArea::unlock(area.path());
        for (const QByteArray &path : std::as_const(immutablePaths))
            SafetyArea::clearImmutable(path);
        if (env) // before the environment's own clean-up walks it more slowly
            FileRemoval::removeItem(QFile::encodeName(env->root()));
        env.reset();
    }

    void run()
    {
        QVERIFY2(!area.path().isEmpty(),
                 QByteArray("no test area in the real home: " + areaParent()).constData());
        env.emplace(QStringLiteral("linux"), QFile::decodeName(area.path()));
        home = QFile::encodeName(env->home());
        root = QFile::encodeName(env->root());
        outside = area.path() + "/outside";
        buildTrees();
        writeModules();
        scan();
        if (QTest::currentTestFailed())
            return;
        select();
        swapAFolder();
        before = snapshot(QFile::decodeName(area.path()));
        findImmutable();
        viaPipeline = !options.directHelper || rng.bounded(2) == 0;
        if (viaPipeline)
            cleanThroughPipeline();
        else
            cleanThroughHelper();
        if (!QTest::currentTestFailed())
            verify();
    }

    // How the case cleaned, for the failure message.
    QByteArray summary() const
    {
        return QByteArray(viaPipeline ? "cleaned through the pipeline" : "cleaned by the helper") +
               (swapped.isEmpty() ? QByteArray(", no swap")
                                  : ", swapped " + shown(swapped.mid(area.path().size())));
    }

private:
    void buildTrees()
    {
        tree.setBuildingOutside(true);
        tree.populate(outside, 0);
        tree.setBuildingOutside(false);
        static const QList<QByteArray> homeFolders = {
            "/.cache",   "/junk", "/logs", "/Downloads/partial", "/.local/share/Trash/files",
            "/Documents"};
        for (const QByteArray &folder : homeFolders)
            tree.populate(home + folder, folder == "/.cache" ? 0 : 1);
        const QByteArray info = tree.folder(home + "/.local/share/Trash/info");
        for (int i = 0, n = int(rng.bounded(3)); i < n; ++i)
            tree.file(info + '/' + tree.oddName(i) + ".trashinfo");
        const QByteArray backups = tree.folder(home + "/.local/share/MobileSync/Backup");
        for (int i = 0, n = int(rng.bounded(3)); i < n; ++i) {
            const QByteArray backup = backups + "/device" + QByteArray::number(i);
            tree.populate(backup, 1);
            if (rng.bounded(3))
                tree.file(backup + "/Info.plist", true);
        }
        for (const char *folder : {"/var/crash", "/var/cache/apt/archives", "/usr/share/doc"})
            tree.populate(root + folder, 2);
        buildLanguages();
        if (options.lockSome) {
            for (const QByteArray &folder : homeFolders) {
                if (rng.bounded(3) == 0)
                    ::chmod(QByteArray(home + folder).constData(), 0555);
            }
        }
        tree.makeSomeImmutable();
    }

    // Translations of a language: a few message catalogues.
    void catalogues(const QByteArray &folder)
    {
        const QByteArray messages = tree.folder(folder + "/LC_MESSAGES");
        for (int i = 0, n = 1 + int(rng.bounded(2)); i < n; ++i)
            tree.file(messages + "/app" + QByteArray::number(i) + ".mo", true);
    }

    void buildLanguages()
    {
        const QByteArray locale = root + "/usr/share/locale";
        const QByteArray man = root + "/usr/share/man";
        for (const char *kept : {"en", "en@quot", "C.UTF-8"}) {
            if (rng.bounded(3))
                catalogues(locale + '/' + kept);
        }
        tree.file(locale + "/locale.alias", true);
        for (const char *section : {"man1", "man5", "man8"}) {
            if (rng.bounded(2))
                tree.file(tree.folder(man + '/' + section) + "/page.1.gz", true);
        }
        for (const QByteArray &language : junkLanguages) {
            switch (rng.bounded(10)) {
            case 0:
            case 1:
                catalogues(locale + '/' + language);
                if (rng.bounded(3) == 0)
                    tree.populate(locale + '/' + language + "/extra", 1);
                break;
            case 2:
                tree.folder(man + '/' + language + "/man1");
                tree.file(man + '/' + language + "/man1/page.1.gz");
                break;
            case 3: // a language that is a link elsewhere is not a folder of the tree
                ::symlink(outside.constData(), QByteArray(locale + '/' + language).constData());
                break;
            default:
                break;
            }
        }
    }

    void writeModules()
    {
        const auto state = [this] { return int(rng.bounded(4) == 0); };
        const QStringList noUrls;
        const QVariantList categories = {
            TestEnvironment::categoryRow("User Cache", {}, QStringList{"file://~/.cache/"}, state(),
                                         "App_Cache"),
            TestEnvironment::categoryRow("Junk", {},
                                         QStringList{"file://~/junk/", "file://~/logs/"}, state()),
            TestEnvironment::categoryRow("Partial Downloads", "file://~/Downloads/partial/", {},
                                         state()),
            TestEnvironment::categoryRow("Language Files", {}, {}, state(), "Localization"),
            TestEnvironment::categoryRow("Trash", {},
                                         QStringList{"file://~/.local/share/Trash/files/",
                                                     "file://~/.local/share/Trash/info/"},
                                         state()),
            TestEnvironment::categoryRow("Device Backups",
                                         "file://~/.local/share/MobileSync/Backup/", {}, state(),
                                         "iTunes"),
            TestEnvironment::categoryRow(
                "Packages", {},
                QStringList{"file:///var/cache/apt/archives/", "file:///var/crash/"}, state(),
                "System_Cache")};
        env->writeModules(QVariantList{TestEnvironment::moduleRow("Safety", categories)});
        // The languages the user keeps; reading the Modules list forgot any earlier choice.
        Platform::setPreferredLanguagesForTesting({QStringLiteral("en-US")});
    }

    void scan()
    {
        KestalService::scan(0, nullptr, nullptr, nullptr);
        QVERIFY(waitClosely([] { return KestalService::scanStatus().value(0) == -1; }, 30000));
        for (const Category &c : AppModuleService::categoriesOf(0)) {
            if (c.type != QLatin1String("Localization"))
                continue;
            for (const FolderInfoPtr &container : c.files) {
                for (const FolderInfoPtr &language : container->children) {
                    const QByteArray name = pathOf(language).mid(pathOf(container).size() + 1);
                    QVERIFY2(!keptLanguageEntries.contains(name),
                             said("a kept language is listed: ", pathOf(language)).constData());
                }
            }
        }
    }

    // Ticks random parts the ways the screens and the command line do, and
    // records what the clean may therefore remove.
    void select()
    {
        QList<Category> &categories = AppModuleService::categoriesOf(0);
        for (int ci = 0; ci < categories.size(); ++ci) {
            const QList<FolderInfoPtr> files = categories[ci].files;
            if (files.isEmpty())
                continue;
            const quint32 how = rng.bounded(5);
            if (how == 1)
                AppModuleService::updateState(1, 0, ci, -1, std::nullopt);
            else if (how == 2)
                AppModuleService::updateState(1, 0, ci, -1, -1);
            for (int fi = 0; how > 2 && fi < files.size(); ++fi) {
                const quint32 choice = rng.bounded(4);
                if (choice == 1)
                    AppModuleService::updateState(1, 0, ci, fi, std::nullopt);
                else if (choice == 2)
                    AppModuleService::updateState(1, 0, ci, fi, -1);
                for (int k = 0; choice == 3 && k < files[fi]->children.size(); ++k) {
                    if (rng.bounded(2))
                        AppModuleService::updateState(1, 0, ci, fi, k);
                }
            }
            // Second thoughts: one node or child unticked again, or the whole box.
            const int fi = int(rng.bounded(quint32(files.size())));
            const qsizetype children = files[fi]->children.size();
            if (rng.bounded(4) == 0)
                AppModuleService::updateState(0, 0, ci, fi,
                                              children && rng.bounded(2)
                                                  ? std::optional<int>(rng.bounded(int(children)))
                                                  : std::nullopt);
            if (rng.bounded(12) == 0)
                AppModuleService::updateState(0, 0, ci, std::nullopt, std::nullopt);
        }
        for (const Category &c : std::as_const(categories)) {
            // A Language Files node is a container: its rule chose its children, and
            // only they may go, never the folder that holds them.
            const bool containers = c.type == QLatin1String("Localization");
            for (const FolderInfoPtr &node : c.state == 0 ? QList<FolderInfoPtr>() : c.files) {
                if (node->checked == 1 && !containers)
                    selection.insert(pathOf(node));
                for (const FolderInfoPtr &child : node->children) {
                    if ((node->checked == 1 && containers) ||
                        (node->checked == -1 && child->checked == 1))
                        selection.insert(pathOf(child));
                }
            }
        }
    }

    // Between the scan and the clean, a listed folder, one of its ancestors
    // or a container becomes a link to a folder elsewhere holding the same
    // entries.
    void swapAFolder()
    {
        if (rng.bounded(3) != 0)
            return;
        QSet<QByteArray> found;
        for (const Category &c : AppModuleService::categoriesOf(0)) {
            QList<FolderInfoPtr> nodes = c.files;
            for (const FolderInfoPtr &node : c.files)
                nodes += node->children;
            for (const FolderInfoPtr &node : std::as_const(nodes)) {
                struct stat st;
                QByteArray path = pathOf(node);
                if (lstat(path.constData(), &st) != 0 || !S_ISDIR(st.st_mode))
                    path = path.left(path.lastIndexOf('/'));
                for (; path.startsWith(QByteArray(area.path() + '/'));
                     path = path.left(path.lastIndexOf('/')))
                    found.insert(path);
            }
        }
        QList<QByteArray> candidates(found.begin(), found.end());
        std::sort(candidates.begin(), candidates.end());
        if (candidates.isEmpty())
            return;
        const QByteArray folder = candidates[int(rng.bounded(quint32(candidates.size())))];
        const QByteArray moved = outside + "/swapped";
        if (::rename(folder.constData(), moved.constData()) != 0)
            return; // a locked parent, when unprivileged
        QVERIFY(::symlink(moved.constData(), folder.constData()) == 0);
        swapped = folder;
    }

    // The paths of the snapshot that hold an immutable inode.
    void findImmutable()
    {
        if (tree.immutable.isEmpty())
            return;
        for (auto it = before.begin(); it != before.end(); ++it) {
            struct stat st;
            const QByteArray path = area.path() + it.key();
            if (lstat(path.constData(), &st) == 0 &&
                tree.immutable.contains({st.st_dev, st.st_ino}))
                immutablePaths.append(path);
        }
    }

    // The planned items, in process first and then through the service and
    // the helper for what the process may not remove.
    void cleanThroughPipeline()
    {
        CleanRun run;
        QVERIFY(run.cleanToEnd(0));
        collectPlan({});
    }

    // The plan, built by a clean stopped before its first item, handed whole
    // to a helper started directly.
    void cleanThroughHelper()
    {
        CleanRun planning;
        QVERIFY(planning.cleanToEnd(0, true));
        PathMap request;
        IdentityMap identities; // what the scan saw, as the pipeline sends it
        for (const cleanCategory &c : KestalModuleCleanService::cleanInfoDict().value(0)) {
            for (const cleanFolder &entry : c.folders) {
                if (entry.children.isEmpty())
                    request.insert(entry.key, {c.ci, entry.finder, 0});
                for (const cleanFolder &child : entry.children)
                    request.insert(child.key, {c.ci, entry.finder, child.finder, 0});
                for (const cleanFolder &item :
                     entry.children.isEmpty() ? QList{entry} : entry.children) {
                    if (item.identity.isKnown())
                        identities.insert(item.path, item.identity);
                }
            }
        }
        QMap<QByteArray, int> statuses;
        if (!request.isEmpty()) {
            if (!helper || helper->process.state() != QProcess::Running)
                helper = std::make_unique<Peer>(helperProgram);
            helper->send(Wire::call(Wire::helperOperation,
                                    {Wire::foldersToWire(request), QCborValue(QCborValue::Null),
                                     qint64(operationType::delete_), 0,
                                     Wire::identitiesToWire(identities)}));
            const auto report = helper->nextSkippingProgress();
            QVERIFY2(report, qPrintable(helper->errors()));
            QCOMPARE(report->value(QStringLiteral("sel")).toString(),
                     QLatin1String(Wire::finished));
            const auto paths =
                Wire::wirePaths(report->value(QStringLiteral("args")).toArray().at(1).toMap());
            for (auto it = paths.begin(); it != paths.end(); ++it)
                statuses.insert(trimmed(it.key()), it.value().last());
        }
        collectPlan(statuses);
    }

    // Every item of the plan with the status its clean gave it: the plan's own,
    // or the helper's report where one is given.
    void collectPlan(const QMap<QByteArray, int> &reported)
    {
        for (const cleanCategory &c : KestalModuleCleanService::cleanInfoDict().value(0)) {
            for (const cleanFolder &entry : c.folders) {
                const QList<cleanFolder> items =
                    entry.children.isEmpty() ? QList<cleanFolder>{entry} : entry.children;
                for (const cleanFolder &item : items) {
                    const QByteArray path = trimmed(item.path);
                    const int status = reported.isEmpty() ? item.status : reported.value(path);
                    planned.append({path, status == 1 || status == 999});
                }
            }
        }
    }

    bool holdsImmutable(const QByteArray &item) const
    {
        return std::any_of(immutablePaths.begin(), immutablePaths.end(),
                           [&](const QByteArray &p) { return isAtOrBelow(p, item); });
    }

    void verify()
    {
        for (const Planned &item : std::as_const(planned))
            QVERIFY2(selection.contains(item.path),
                     said("planned unselected: ", item.path).constData());

        // Nothing outside the selection changed, the link of a swap included.
        const QMap<QByteArray, QByteArray> after = snapshot(QFile::decodeName(area.path()));
        for (auto it = before.begin(); it != before.end(); ++it) {
            const QByteArray path = area.path() + it.key();
            const bool mayGo =
                std::any_of(selection.begin(), selection.end(),
                            [&](const QByteArray &s) { return isAtOrBelow(path, s); });
            if (!after.contains(it.key()))
                QVERIFY2(mayGo, said("removed beyond the selection: ", path).constData());
            else
                QVERIFY2(after.value(it.key()) == it.value(), said("changed: ", path).constData());
        }
        for (auto it = after.begin(); it != after.end(); ++it)
            QVERIFY2(before.contains(it.key()),
                     said("appeared: ", area.path() + it.key()).constData());

        // What counts as removed is gone; as root, every selected item is,
        // unless it holds an immutable file or a swap moved it elsewhere.
        QSet<QByteArray> removed;
        for (const Planned &item : std::as_const(planned)) {
            QVERIFY2(!item.reportedRemoved || !existsOnDisk(item.path),
                     said("counted as removed but present: ", item.path).constData());
            if (item.reportedRemoved)
                removed.insert(item.path);
        }
        for (const QByteArray &item : std::as_const(selection)) {
            if (geteuid() != 0 || (!swapped.isEmpty() && isAtOrBelow(item, swapped)) ||
                holdsImmutable(item))
                continue;
            QVERIFY2(!existsOnDisk(item), said("selected but left: ", item).constData());
            QVERIFY2(removed.contains(item), said("removed but not counted: ", item).constData());
        }

        // The module's tree no longer lists what went.
        for (const Category &c :
             viaPipeline ? AppModuleService::categoriesOf(0) : QList<Category>()) {
            for (const FolderInfoPtr &node : c.files) {
                QVERIFY2(!removed.contains(pathOf(node)),
                         said("still listed: ", pathOf(node)).constData());
                for (const FolderInfoPtr &child : node->children)
                    QVERIFY2(!removed.contains(pathOf(child)),
                             said("still listed: ", pathOf(child)).constData());
            }
        }
    }

    Options options;
    QRandomGenerator rng;
    std::unique_ptr<Peer> &helper; // started on first need, shared by the cases of a run
    SafetyArea area;
    std::optional<TestEnvironment> env;
    SafetyTree tree;
    QByteArray home, root, outside;
    QSet<QByteArray> selection;
    QByteArray swapped;
    QMap<QByteArray, QByteArray> before;
    QList<QByteArray> immutablePaths;
    QList<Planned> planned;
    bool viaPipeline = true;
};

} // namespace

QByteArray areaParent()
{
    const passwd *pw = getpwuid(geteuid());
    if (!pw || !pw->pw_dir || pw->pw_dir[0] != '/')
        return {};
    return QByteArray(pw->pw_dir) + "/.cache/brenlow-tests";
}

int rounds(quint32 first, int count, const Options &options)
{
    bool single = false;
    const quint32 seed = qEnvironmentVariable("BRENLOW_SAFETY_SEED").toUInt(&single);
    if (single) {
        first = seed;
        count = 1;
    } else {
        if (qEnvironmentVariableIsSet("BRENLOW_SAFETY_FIRST"))
            first = qEnvironmentVariable("BRENLOW_SAFETY_FIRST").toUInt();
        if (qEnvironmentVariableIsSet("BRENLOW_SAFETY_CASES"))
            count = qEnvironmentVariableIntValue("BRENLOW_SAFETY_CASES");
    }
    std::unique_ptr<Peer> helper;
    for (int i = 0; i < count; ++i) {
        Case one(first + quint32(i), options, helper);
        one.run();
        if (QTest::currentTestFailed()) {
            QTest::qFail(qPrintable(QStringLiteral("failed with seed %1, %2 "
                                                   "(BRENLOW_SAFETY_SEED=%1 runs it alone)")
                                        .arg(first + quint32(i))
                                        .arg(QString::fromLatin1(one.summary()))),
                         __FILE__, __LINE__);
            return i + 1;
        }
    }
    return count;
}

} // namespace SafetyProperty
