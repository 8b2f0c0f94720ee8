#pragma once

#include <QtGlobal>

// The screen side of a clean. `done` arrives on whatever thread the clean
// runs on; a screen moves itself to the main queue. A `ci` of -1 speaks of
// the whole module. Implementations must not wait on the clean pipeline.
class KestalCleanProtocol {
public:
    virtual ~KestalCleanProtocol() = default;
    virtual void done(bool result, int ci, int status, int number, qint64 size) = 0;
    virtual void installErrorAndDeleteFile(qint64 size) { Q_UNUSED(size); }
};
