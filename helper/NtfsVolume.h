#pragma once

#include <QByteArray>

// What the helper reads of an NTFS volume itself before it lets a driver
// write to it: the boot sector's signature, the dirty flag of the $Volume
// record, and the hibernation file's signature.
class NtfsVolume {
public:
    enum class State { Clean, Dirty, NotNtfs, Unreadable };
    // Reads the boot sector and the $Volume record of a block device (or of
    // an image file).
    static State inspect(const QByteArray &device);
    // Whether the volume mounted at mountPoint holds a hibernation file that
    // Windows would resume from ("hibr" at its start, in either case).
    static bool hibernated(const QByteArray &mountPoint);
};
