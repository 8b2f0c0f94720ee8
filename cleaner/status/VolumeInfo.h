#pragma once

#include "cleaner/core/Volumes.h"

#include <QList>
#include <QString>
#include <optional>

enum class FileTypeName {
    Apps,
    Music,
    Movie,
    Picture,
    Mail,
    IOS,
    iCloud,
    iTunes,
    Document,
    Other,
    Available,
    Calculating
};

struct FileType {
    FileTypeName name = FileTypeName::Other;
    qint64 bytes = 0;
    double percent = 0;
};

struct FileDistribution {
    qint64 capacity = 0;
    qint64 available = 0;
    QList<FileType> distribution;
};

// A mounted file system as the dashboard shows it: its name, type, icon
// name, capacity and the space left to the user.
class VolumeInfo {
public:
    std::optional<QString> name;
    std::optional<QString> volumeType;
    std::optional<QString> image; // an icon name the screens resolve
    qint64 capacity = 0;
    qint64 available = 0;
    bool removable = false;
    std::optional<FileDistribution> fileDistribution;
    bool isLocal = true;
    bool startCalculating = false;
    int calculateModule = 0;
    QString path; // where it is mounted

    // The volume of a mount; nullopt when its sizes cannot be read.
    static std::optional<VolumeInfo> fromVolume(const MountedVolume &volume);
    // The file systems a user stores files on, the system's own first:
    // no kernel or memory file systems, no read-only package images, no
    // snapshots, and each file system once however often it is mounted.
    static QList<VolumeInfo> mountedVolumes();
    // Whether a mount is one a user expects to see (see mountedVolumes).
    static bool isUserVolume(const MountedVolume &volume);
    // The volumes the last mountedVolumes() call found.
    static QList<VolumeInfo> volumes;
};
