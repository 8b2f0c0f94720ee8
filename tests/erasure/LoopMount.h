#pragma once

// A small ext4 file system in an image file, mounted through a loop device
// for the life of the object and unmounted when it goes, pass or fail. It
// changes the machine, so it is made only when BRENLOW_PRIVILEGE_TESTS=1.

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <unistd.h>

class LoopMount {
public:
    // Why no file system can be mounted here; empty when one can.
    static QString unavailable()
    {
        if (qgetenv("BRENLOW_PRIVILEGE_TESTS") != "1" || ::geteuid() != 0 ||
            !QFile::exists(QStringLiteral("/dev/loop-control")))
            return QStringLiteral("needs BRENLOW_PRIVILEGE_TESTS=1, root and loop devices");
        return QString();
    }

    // `size` as truncate takes it ("32M").
    explicit LoopMount(const QString &size)
        : image(m_dir.filePath(QStringLiteral("fs.img"))),
          mountPoint(m_dir.filePath(QStringLiteral("mnt")))
    {
        m_mounted =
            QDir().mkpath(mountPoint) &&
            run(QStringLiteral("truncate"), {QStringLiteral("-s"), size, image}) &&
            run(QStringLiteral("mkfs.ext4"), {QStringLiteral("-q"), QStringLiteral("-F"), image}) &&
            run(QStringLiteral("mount"),
                {QStringLiteral("-o"), QStringLiteral("loop"), image, mountPoint});
    }
    ~LoopMount() { unmount(); }
    bool mounted() const { return m_mounted; }
    bool unmount()
    {
        if (m_mounted)
            m_mounted = !run(QStringLiteral("umount"), {mountPoint});
        return !m_mounted;
    }

    static bool run(const QString &program, const QStringList &args)
    {
        QProcess p;
        p.start(program, args);
        return p.waitForFinished(60000) && p.exitStatus() == QProcess::NormalExit &&
               p.exitCode() == 0;
    }

private:
    QTemporaryDir m_dir;

public:
    const QString image;
    const QString mountPoint;

private:
    bool m_mounted = false;
};
