#include "cleaner/shell/Workspace.h"

#include <QDesktopServices>

namespace {

Workspace::Opener &opener()
{
    static Workspace::Opener instance;
    return instance;
}

} // namespace

bool Workspace::openURL(const QUrl &url)
{
    if (!url.isValid() || url.isEmpty())
        return false;
    if (opener())
        return opener()(url);
    return QDesktopServices::openUrl(url);
}

void Workspace::setOpenerForTesting(Opener replacement)
{
    opener() = std::move(replacement);
}
