#pragma once

#include <QString>

// The numbers of a failed helper installation (the words are the clean
// manager's). Starting the helper through the launcher is the installation
// here, so each way the launcher can fail is given one of these numbers.
namespace InstallFailure {
// The program to start (the service, or the helper) is not there.
inline constexpr int missingProgram = 1000;
inline constexpr int denied = 1020;
inline constexpr int cancelled = 1021;
inline constexpr int cannotPrompt = 1022;
inline constexpr int unknown = 1023;

// The number for a launcher (pkexec, sudo, ...) that ended with this status
// and these error lines before the helper answered.
int fromLauncher(const QString &launcher, int exitCode, const QString &errorText);
// The number for a launcher program that could not be started at all.
int launcherNotStarted(const QString &launcher);
} // namespace InstallFailure
