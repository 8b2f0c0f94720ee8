#pragma once

#include <QByteArray>
#include <QString>

// One line of the helper's log, on standard error.
void logLine(const QString &text);

// A path as it can stand in a log line: control characters, and every byte of
// a name that is not UTF-8 above 127, become escapes, so a name cannot forge
// or hide lines of the log.
QString loggable(const QByteArray &path);
