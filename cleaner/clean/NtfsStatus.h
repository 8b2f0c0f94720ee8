#pragma once

// The status slot of a volume in a `usb` request (the NTFS switch), as the
// helper fills it. 1 is errorKind's success; the refusals have numbers of
// their own, above errorKind's, so that a screen can say why.
enum class NtfsStatus : int {
    writable = 1,     // mounted for writing now (or was already)
    notMounted = 20,  // no volume is mounted at that path now
    notNtfs = 21,     // what is mounted there is no NTFS volume
    dirty = 22,       // marked dirty: Windows did not close it cleanly
    hibernated = 23,  // Windows hibernated on it (or Fast Startup did)
    noDriver = 24,    // no NTFS driver that writes is installed
    busy = 25,        // in use: it could not be unmounted
    mountFailed = 26, // the driver refused; it was mounted again as before
};
