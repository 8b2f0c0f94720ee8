#pragma once

#include <QString>

// A configuration fault (a missing resource, a required key absent or of the
// wrong type, an index out of range) ends the program where it is found, so
// that a damaged edition never runs on half a table.
[[noreturn]] void fatalStop(const QString &reason);
