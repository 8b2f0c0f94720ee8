#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QTemporaryDir>

// Builds folder trees for tests: files of chosen sizes and dates, folders,
// symbolic links, modes, and names of raw bytes.
class TreeBuilder {
public:
    // A temporary folder, or one below the real home of the user running the
    // test (~/.cache/brenlow-tests/XXXXXX, the home from the password
    // database, not $HOME): the privileged helper removes only inside the
    // home of the user who started it.
    enum class Place { Temporary, RealHome };

    TreeBuilder();
    explicit TreeBuilder(Place place);
    explicit TreeBuilder(const QString &existingRoot);
    ~TreeBuilder();

    QString root() const { return m_root; }
    QString path(const QString &relative) const;
    QByteArray pathBytes(const QByteArray &relative) const;

    // Creates parent folders as needed. Returns the absolute path.
    QString file(const QString &relative, qint64 size = 0, const QDateTime &modified = {});
    QByteArray fileBytes(const QByteArray &relative, qint64 size = 0);
    QString folder(const QString &relative);
    QString symlink(const QString &relative, const QString &target);
    void chmod(const QString &relative, int mode);
    // "file://" URL of a path under the root, with a trailing slash for folders.
    QString url(const QString &relative) const;

    // Lets every user walk the tree (a temporary folder starts private).
    void openToAll();
    // Restores write and execute rights below the root so the tree can go.
    static void makeRemovable(const QString &root);
    // Sets or clears the immutable flag of a file; false when the file system
    // or the process cannot (only root may set it).
    static bool setImmutable(const QByteArray &path, bool on);
    // The home of the user running this process, from the password database.
    static QString realHome();
    // Writes data at an absolute path, making its folders; stops the test
    // program when it cannot.
    static QString write(const QString &path, const QByteArray &data);
    // Whether anything is at the path, a link counting as itself.
    static bool exists(const QByteArray &path);
    static bool exists(const QString &path);

private:
    std::unique_ptr<QTemporaryDir> m_dir;
    QString m_root;
    QString m_container; // removed when the last tree in it goes
};
