#include "cleaner/clean/InstallFailure.h"

#include <QFileInfo>

namespace InstallFailure {

int fromLauncher(const QString &launcher, int exitCode, const QString &errorText)
{
    const QString name = QFileInfo(launcher).fileName();
    const auto says = [&errorText](const char *text) {
        return errorText.contains(QLatin1String(text), Qt::CaseInsensitive);
    };
    if (name == QLatin1String("pkexec")) {
        if (exitCode == 126 || says("Request dismissed"))
            return cancelled;
        // No agent to ask through, or no authority to ask at all.
        if (says("authentication agent") || says("Error getting authority") ||
            says("Refusing to render service"))
            return cannotPrompt;
        if (says("Not authorized"))
            return denied;
        if (exitCode == 127 && says("Cannot run program"))
            return missingProgram;
        return unknown;
    }
    if (name == QLatin1String("sudo")) {
        if (says("a password is required") || says("a terminal is required"))
            return cannotPrompt;
        if (says("not in the sudoers") || says("is not allowed to") ||
            says("not allowed to execute") || says("incorrect password"))
            return denied;
        if (says("command not found"))
            return missingProgram;
        return unknown;
    }
    return unknown;
}

int launcherNotStarted(const QString &launcher)
{
    // Without its launcher the helper cannot ask for rights at all.
    return launcher.isEmpty() ? missingProgram : cannotPrompt;
}

} // namespace InstallFailure
