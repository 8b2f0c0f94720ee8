#pragma once

#include <QString>
#include <QTemporaryDir>
#include <QVariant>
#include <functional>
#include <memory>
#include <optional>

// An isolated world for one test: a profile, a root folder standing in for
// the system, a home, and a resource folder whose Modules list the test may
// write. Every cached table is dropped so the next use reads it afresh.
class TestEnvironment {
public:
    explicit TestEnvironment(const QString &profile = QStringLiteral("linux"));
    // The same with the root made inside `parentFolder` (for trees that the
    // helper may act on, which must lie in the user's real home).
    TestEnvironment(const QString &profile, const QString &parentFolder);
    ~TestEnvironment();

    QString profile() const { return m_profile; }
    QString root() const { return m_root.path(); }
    QString home() const;
    QString resources() const { return m_resources.path(); }

    // Replaces the Modules list with these rows (a QVariantList of dictionaries).
    void writeModules(const QVariant &rows);
    // Copies the edition's own resources of the profile (the default).
    void useShippedResources();
    // Forgets every cached table and environment fact.
    static void resetCaches();

    // A module row with the fields the loader requires.
    static QVariantMap moduleRow(const QString &title, const QVariantList &categories,
                                 const QString &tab = QStringLiteral("Tab"));
    static QVariantMap categoryRow(const QString &title, const QVariant &url = {},
                                   const QVariant &urls = {}, int state = 0,
                                   const QString &type = QStringLiteral("Folder"));

    // Runs work in a forked child; true when the child ended by a fatal stop.
    static bool endsInFatalStop(const std::function<void()> &work);
    // Runs work in a forked child as the unprivileged user "nobody" (when the
    // test runs as root; as itself otherwise) and answers what work answered.
    // Permission rules only bite an unprivileged process.
    static bool asUnprivileged(const std::function<bool()> &work);
    // Whether permission checks apply to asUnprivileged (false when no such user).
    static bool canDropPrivileges();

private:
    QString m_profile;
    QTemporaryDir m_root;
    QTemporaryDir m_resources;
    QByteArray m_oldHome;
};
