#pragma once

#include <QByteArray>
#include <QtGlobal>

// The safety property of a clean, case by case: a random tree in the user's
// real home (so the real helper may act on it), scanned for real through a
// Modules list of plain folders, Language Files containers and typed
// categories; a random selection; sometimes a folder swapped for a link to
// another place between the scan and the clean; a clean in process or
// through the real helper; and the check that every path outside the
// selection is unchanged byte for byte, and that what was selected is gone
// or reported as a failure.
namespace SafetyProperty {

struct Options {
    // Some folders lose their write right, so their items need the helper
    // (meaningful only for an unprivileged test process).
    bool lockSome = false;
    // Whether a case may hand its plan to a helper started directly; false
    // keeps every case on the clean pipeline.
    bool directHelper = true;
};

// Runs `count` cases from seed `first`; BRENLOW_SAFETY_SEED runs that one seed
// instead, BRENLOW_SAFETY_FIRST and BRENLOW_SAFETY_CASES set the first seed
// and the count. The first failure fails the running test with its seed.
// Returns the number of cases run.
int rounds(quint32 first, int count, const Options &options);

// Where the cases build their trees: `.cache/brenlow-tests` in the real home
// of the process's user (never $HOME, which tests move). Empty when that
// home cannot hold it.
QByteArray areaParent();

} // namespace SafetyProperty
