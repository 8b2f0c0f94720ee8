#pragma once

#include "helper/MountTable.h"

#include <QByteArray>
#include <optional>
#include <sys/types.h>

// The helper's `usb` operation: mounts an NTFS volume that is mounted now
// for writing, with the system's NTFS driver (the kernel's ntfs3, else
// ntfs-3g), owned by the user who asked. It acts on nothing but a volume
// mounted exactly at the path given whose device holds NTFS, and refuses a
// volume that Windows left dirty or hibernated. Each outcome is an
// NtfsStatus number.
class NtfsSwitch {
public:
    explicit NtfsSwitch(std::optional<uid_t> caller);
    int makeWritable(const QByteArray &mountPoint) const;

    // The writing driver to use: "ntfs3" when the kernel has it, else
    // "ntfs-3g" when installed, else empty.
    static QByteArray driver();

private:
    // Mounts the device of `was` at its mount point with the type and
    // options; the mount the table then shows there, if it is that device.
    static std::optional<MountEntry> mount(const QByteArray &type, const QByteArray &options,
                                           const MountEntry &was);

    std::optional<uid_t> m_caller;
};
