#pragma once

#include "cleaner/core/FolderInfo.h"
#include "cleaner/core/Services.h"

#include <QList>
#include <QPair>
#include <QStringList>
#include <functional>

// The uninstaller's scan, module 9: one category per application, holding
// the application and the leftovers it keeps elsewhere. The lists stay in
// this layer, which needs the black list first (the language scan); the scan
// itself is built with the rest of the applications feature
// (cleaner/applications/UninstallService.cpp), which no code here calls.
class UninstallService : public Services {
public:
    // Application folder names that are never offered (and never searched for
    // language junk): the system's own applications and this program itself.
    // Compared exactly, on the whole name.
    static const QStringList BLACK_LIST;
    // Identifier fragments: a name holding one is matched as an identifier
    // with something after a dot; others by their exact name.
    static const QStringList WHITE_LIST;
    static constexpr int moduleIndex = 9;

    // Application path and the paths matched to it, in the order found.
    using AppMatches = QList<QPair<QString, QList<QByteArray>>>;

    static void scan(const Progress &progress, const ShowPercent &showPercent,
                     std::function<void()> done);
    // Sizes every application in parallel; the bookkeeping runs on the main thread.
    static void origainData(const AppMatches &appMatchFile, const Progress &progress,
                            const ShowPercent &showPercent, std::function<void()> done);
};
