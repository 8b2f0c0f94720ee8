#pragma once

#include <QString>
#include <QVariantMap>

struct Module;

// The names of the usage events, and the titles of the button events: the
// module's title and a fixed ending.
class FabricEvent {
public:
    static const QString cleanButton;
    static const QString scanButton;
    static const QString stopScanButton;
    static const QString watchLogButton;
    static const QString watchGuideButton;
    static const QString menuButton;
    static const QString reviewButton;
    static const QString languageButton;
    static const QString shareButton;
    static const QString configurationEvent;
    static const QString NTFSEvent;

    static QString getCleanButtonName(const Module &module);
    static QString getScanButtonName(const Module &module);
    static QString getStopScanName(const Module &module);
    static QString getLogButtonName(const Module &module);
    static QString getWatchGuideButton(const Module &module);
    static QString getMenuButtonName(const Module &module);
    static QString getReviewButtonName(const Module &module);
    static QString getShareButton(const Module &module, bool isFacebook);
};

// Usage events. They never leave the machine: when the user has switched the
// event log on (it is off by default), each event is appended as one JSON
// line to a file in the program's data folder; otherwise it is dropped.
// Writing runs on the serial queue "fabric", so it never holds up a screen.
class FabricController {
public:
    static void fabric(const QString &withName, const QString &title);
    // An event with attributes of its own (the first launch gives "model").
    static void logEvent(const QString &name, const QVariantMap &attributes);

    static bool isLocalLogEnabled();
    static void setLocalLogEnabled(bool enabled);
    static QString logPath();
    // Waits until every event posted so far is written.
    static void drain();

    // The machine's model name, as the firmware reports it.
    static QString model();
    // "CFBundleShortVersionString" of the edition, or "Get no version information".
    static QString version();
};
