#include "cleaner/privacy/PrivacyService.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/Fatal.h"
#include "cleaner/core/Platform.h"
#include "cleaner/scan/KestalService.h"

#include <QFileInfo>
#include <memory>

namespace {

struct Paths {
    QString chromeHistory, chromeCookie, chromeLogin, chromeAuto, chromeLocalStore;
    QString firefoxHistory, firefoxCookies, firefoxLogin, firefoxAuto, firefoxLocalStore;
    QString safariHistory, safariDownload, safariLocalStore;
};

std::unique_ptr<Paths> g_paths;

// Chrome keeps one "Default" profile. On Linux, Google Chrome's folder is
// used when it is there, else Chromium's (the browser Debian ships).
QString linuxChromeProfile(const QString &config)
{
    for (const char *browser : {"/google-chrome", "/chromium"}) {
        if (QFileInfo(config + QLatin1String(browser)).isDir())
            return config + QLatin1String(browser) + QStringLiteral("/Default");
    }
    return config + QStringLiteral("/google-chrome/Default");
}

Paths makePaths()
{
    Paths p;
    const QString home = Platform::homeDirectory();
    QString chrome;
    if (Platform::isMacOS()) {
        chrome = home + QStringLiteral("/Library/Application Support/Google/Chrome/Default");
        p.chromeCookie = chrome + QStringLiteral("/cookies");
        p.chromeLogin = chrome + QStringLiteral("/login Data");
        p.safariHistory = home + QStringLiteral("/Library/Safari/History.db");
        p.safariDownload = home + QStringLiteral("/Library/Safari/Downloads.plist");
        p.safariLocalStore =
            home + QStringLiteral("/Library/Safari/LocalStorage/StorageTracker.db");
    } else {
        chrome = linuxChromeProfile(home + QStringLiteral("/.config"));
        // Newer versions move the cookie store into "Network".
        const QString moved = chrome + QStringLiteral("/Network/Cookies");
        p.chromeCookie = QFileInfo::exists(moved) ? moved : chrome + QStringLiteral("/Cookies");
        p.chromeLogin = chrome + QStringLiteral("/Login Data");
    }
    p.chromeHistory = chrome + QStringLiteral("/History");
    p.chromeAuto = chrome + QStringLiteral("/Web Data");
    p.chromeLocalStore = chrome + QStringLiteral("/Local Storage");

    const QString firefox = PrivacyFolderInfo::getFireFoxPath();
    p.firefoxHistory = firefox + QStringLiteral("places.sqlite");
    p.firefoxCookies = firefox + QStringLiteral("cookies.sqlite");
    p.firefoxLogin = firefox + QStringLiteral("logins.json");
    p.firefoxAuto = firefox + QStringLiteral("formhistory.sqlite");
    p.firefoxLocalStore = firefox + QStringLiteral("/storage/default");
    return p;
}

const Paths &paths()
{
    if (!g_paths)
        g_paths = std::make_unique<Paths>(makePaths());
    return *g_paths;
}

// The module's category ci; the module list must hold it.
Category &category(int ci)
{
    const QList<Module> &modules = AppModuleService::appModules();
    if (modules.size() <= PrivacyService::moduleIndex ||
        modules[PrivacyService::moduleIndex].categories.value_or(QList<Category>()).size() <= ci)
        fatalStop(QStringLiteral("the privacy module has no category %1").arg(ci));
    return AppModuleService::categoriesOf(PrivacyService::moduleIndex)[ci];
}

} // namespace

const QString &PrivacyService::chromeHistoryPath()
{
    return paths().chromeHistory;
}
const QString &PrivacyService::chromeCookiePath()
{
    return paths().chromeCookie;
}
const QString &PrivacyService::chromeLoginPath()
{
    return paths().chromeLogin;
}
const QString &PrivacyService::chromeAutoPath()
{
    return paths().chromeAuto;
}
const QString &PrivacyService::chromeLocalStorePath()
{
    return paths().chromeLocalStore;
}
const QString &PrivacyService::firefoxHistoryPath()
{
    return paths().firefoxHistory;
}
const QString &PrivacyService::firefoxCookiesPath()
{
    return paths().firefoxCookies;
}
const QString &PrivacyService::firefoxLoginPath()
{
    return paths().firefoxLogin;
}
const QString &PrivacyService::firefoxAutoPath()
{
    return paths().firefoxAuto;
}
const QString &PrivacyService::firefoxLocalStorePath()
{
    return paths().firefoxLocalStore;
}
const QString &PrivacyService::safariHistoryPath()
{
    return paths().safariHistory;
}
const QString &PrivacyService::safariDownloadPath()
{
    return paths().safariDownload;
}
const QString &PrivacyService::safariLocalStorePath()
{
    return paths().safariLocalStore;
}

const QString &PrivacyService::defaultName()
{
    static const QString text = QStringLiteral("The file is damaged and cannot be viewed");
    return text;
}

QString PrivacyService::firefoxProfilesFolder()
{
    const QString home = Platform::homeDirectory();
    if (Platform::isMacOS())
        return home + QStringLiteral("/Library/Application Support/Firefox/profiles");
    // Firefox makes a new account's profiles under the XDG config folder and
    // keeps the older place where it already exists.
    const QString legacy = home + QStringLiteral("/.mozilla/firefox");
    return QFileInfo(legacy).isDir() ? legacy : home + QStringLiteral("/.config/mozilla/firefox");
}

void PrivacyService::reset()
{
    g_paths.reset();
}

void PrivacyService::scan(Progress progress, ShowPercent showPercent, std::function<void()> done)
{
    const auto percent = [showPercent](float step) {
        if (showPercent)
            Dispatch::mainAsync([showPercent, step] { showPercent(step); });
    };
    percent(0);
    const BrowserGroups chrome = PrivacyFolderInfo::getChromeInfoList(progress);
    percent(1.0f / 3.0f);
    const BrowserGroups firefox = PrivacyFolderInfo::getFireFoxInfoList(progress);
    percent(1.0f / 3.0f);
    const BrowserGroups safari = PrivacyFolderInfo::getSafariInfoList(progress);
    percent(1.0f / 3.0f);
    // The module's table lives on the main thread: what a former scan left
    // is cleared there, just before the new groups are filed.
    Dispatch::mainAsync([chrome, firefox, safari, done] {
        for (int ci = 0; ci < 3; ++ci)
            category(ci).files.clear();
        updateModule(chrome, QStringLiteral("chrome"));
        updateModule(firefox, QStringLiteral("firefox"));
        updateModule(safari, QStringLiteral("safari"));
        if (const QPointer<DispatchTimer> timer = KestalService::scanTimer().take(moduleIndex))
            timer->invalidate();
        if (done)
            done();
    });
}

void PrivacyService::updateModule(const BrowserGroups &dic, const QString &kind)
{
    int ci = -1;
    if (kind == QLatin1String("chrome"))
        ci = 0;
    else if (kind == QLatin1String("firefox"))
        ci = 1;
    else if (kind == QLatin1String("safari"))
        ci = 2;
    if (ci < 0)
        return;
    Category &c = category(ci);
    qint64 total = 0;
    for (int k = 0; k < bowserListCount; ++k) {
        const FolderInfoPtr group = dic.value(BowserList(k));
        if (!group)
            continue;
        c.files.append(group);
        total += group->size;
    }
    for (int i = 0; i < c.files.size(); ++i)
        c.files[i]->findex = i;
    c.size = total;
}

std::pair<qint64, int> PrivacyService::selectedRecords()
{
    qint64 size = 0;
    int number = 0;
    for (const Category &browser : AppModuleService::categoriesOf(moduleIndex)) {
        for (const FolderInfoPtr &group : browser.files) {
            if (group->checked != 1 && group->checked != -1)
                continue;
            for (const FolderInfoPtr &record : group->children) {
                if (group->checked == 1 || record->checked == 1) {
                    size += record->size;
                    ++number;
                }
            }
        }
    }
    return {size, number};
}

void PrivacyService::registerWithScanDriver()
{
    KestalService::setModuleScan(moduleIndex, [](Progress progress, ShowPercent showPercent,
                                                 std::function<void()> finished) {
        scan(std::move(progress), std::move(showPercent), std::move(finished));
    });
}
