#include "TestEnvironment.h"

#include "TestPaths.h"
#include "TreeBuilder.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/FileRemoval.h"
#include "cleaner/core/Platform.h"
#include "cleaner/core/PropertyList.h"
#include "cleaner/core/SettingInfo.h"
#include "cleaner/privacy/PrivacyService.h"
#include "cleaner/scan/KestalAutoCleanupService.h"
#include "cleaner/scan/KestalService.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <csignal>
#include <cstdio>
#include <grp.h>
#include <pwd.h>
#include <sys/wait.h>
#include <unistd.h>

TestEnvironment::TestEnvironment(const QString &profile) : TestEnvironment(profile, QString()) {}

TestEnvironment::TestEnvironment(const QString &profile, const QString &parentFolder)
    : m_profile(profile),
      m_root(parentFolder.isEmpty() ? QDir::tempPath() + QStringLiteral("/brenlow-root-XXXXXX")
                                    : parentFolder + QStringLiteral("/root-XXXXXX"))
{
    m_oldHome = qgetenv("HOME");
    qputenv("BRENLOW_PLATFORM", profile.toUtf8());
    qputenv("BRENLOW_ROOT", QFile::encodeName(root()));
    qputenv("BRENLOW_RESOURCES", QFile::encodeName(resources()));
    QDir().mkpath(root() + QStringLiteral("/home/user"));
    if (profile == QLatin1String("linux"))
        qputenv("HOME", QFile::encodeName(root() + QStringLiteral("/home/user")));
    useShippedResources();
    resetCaches();
    QDir().mkpath(home());
}

TestEnvironment::~TestEnvironment()
{
    KestalService::reset();
    // Raw-byte names and locked folders are beyond QTemporaryDir's clean-up.
    TreeBuilder::makeRemovable(root());
    FileRemoval::removeItem(QFile::encodeName(root()));
    qputenv("HOME", m_oldHome);
    qunsetenv("BRENLOW_PLATFORM");
    qunsetenv("BRENLOW_ROOT");
    qunsetenv("BRENLOW_RESOURCES");
    resetCaches();
}

QString TestEnvironment::home() const
{
    return Platform::homeDirectory();
}

void TestEnvironment::useShippedResources()
{
    const QString from = QStringLiteral(BRENLOW_TEST_SOURCE_DIR "/resources/") + m_profile;
    for (const QString &name : QDir(from).entryList(QDir::Files)) {
        QFile::remove(resources() + QLatin1Char('/') + name);
        QFile::copy(from + QLatin1Char('/') + name, resources() + QLatin1Char('/') + name);
    }
    // The help pages are read, never written: the shipped folder itself.
    if (QFileInfo::exists(from + QStringLiteral("/help")) &&
        !QFileInfo::exists(resources() + QStringLiteral("/help")))
        QFile::link(from + QStringLiteral("/help"), resources() + QStringLiteral("/help"));
}

void TestEnvironment::writeModules(const QVariant &rows)
{
    TreeBuilder::write(resources() + QStringLiteral("/BrenlowModules.plist"),
                       PropertyList::toXml(rows));
    resetCaches();
}

void TestEnvironment::resetCaches()
{
    KestalService::reset();
    KestalAutoCleanupService::reset();
    Platform::reload();
    AppModuleService::reset();
    SettingInfo::reset();
    PrivacyService::reset();
}

QVariantMap TestEnvironment::moduleRow(const QString &title, const QVariantList &categories,
                                       const QString &tab)
{
    return QVariantMap{{QStringLiteral("title"), title},
                       {QStringLiteral("image"), title},
                       {QStringLiteral("tab"), tab},
                       {QStringLiteral("description"), title},
                       {QStringLiteral("features"), QVariantList()},
                       {QStringLiteral("categories"), categories}};
}

QVariantMap TestEnvironment::categoryRow(const QString &title, const QVariant &url,
                                         const QVariant &urls, int state, const QString &type)
{
    QVariantMap row{{QStringLiteral("title"), title},
                    {QStringLiteral("image"), title},
                    {QStringLiteral("description"), title},
                    {QStringLiteral("state"), state},
                    {QStringLiteral("type"), type}};
    if (url.isValid())
        row.insert(QStringLiteral("url"), url);
    if (urls.isValid())
        row.insert(QStringLiteral("urls"), urls);
    return row;
}

bool TestEnvironment::endsInFatalStop(const std::function<void()> &work)
{
    std::fflush(stdout);
    std::fflush(stderr);
    const pid_t pid = fork();
    if (pid == 0) {
        // Keep the child's abort quiet and from dumping core.
        std::signal(SIGABRT, SIG_DFL);
        work();
        _exit(0);
    }
    int status = 0;
    waitpid(pid, &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT;
}

bool TestEnvironment::canDropPrivileges()
{
    return geteuid() != 0 || getpwnam("nobody") != nullptr;
}

bool TestEnvironment::asUnprivileged(const std::function<bool()> &work)
{
    std::fflush(stdout);
    std::fflush(stderr);
    const pid_t pid = fork();
    if (pid == 0) {
        if (geteuid() == 0) {
            const passwd *pw = getpwnam("nobody");
            if (!pw || setgroups(0, nullptr) != 0 || setgid(pw->pw_gid) != 0 ||
                setuid(pw->pw_uid) != 0)
                _exit(3);
        }
        _exit(work() ? 0 : 1);
    }
    int status = 0;
    waitpid(pid, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}
