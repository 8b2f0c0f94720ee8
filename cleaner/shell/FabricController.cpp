#include "cleaner/shell/FabricController.h"

#include "cleaner/core/Bundle.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/ModuleTypes.h"
#include "cleaner/core/UserDefaults.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QSysInfo>

namespace {

const QString enabledKey = QStringLiteral("RecordUsageEventsLocally");

SerialQueue &fabricQueue()
{
    static SerialQueue queue(QStringLiteral("fabric"));
    return queue;
}

void appendLine(const QString &path, const QByteArray &line)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Append))
        file.write(line + '\n');
}

} // namespace

const QString FabricEvent::cleanButton = QStringLiteral("CleanButtonEvent");
const QString FabricEvent::scanButton = QStringLiteral("ScanButtonEvent");
const QString FabricEvent::stopScanButton = QStringLiteral("StopScanButtonEvent");
const QString FabricEvent::watchLogButton = QStringLiteral("WatchLogButtonEvent");
const QString FabricEvent::watchGuideButton = QStringLiteral("watchGuideButtonEvent");
const QString FabricEvent::menuButton = QStringLiteral("MenuButtonEvent");
const QString FabricEvent::reviewButton = QStringLiteral("RE-ViewButtonEvent");
const QString FabricEvent::languageButton = QStringLiteral("LanguageEvent");
const QString FabricEvent::shareButton = QStringLiteral("ShareButtonEvent");
const QString FabricEvent::configurationEvent = QStringLiteral("ConfigurationEvent");
const QString FabricEvent::NTFSEvent = QStringLiteral("NTFSEvent");

QString FabricEvent::getCleanButtonName(const Module &module)
{
    return module.title + QStringLiteral(" Clean Button");
}

QString FabricEvent::getScanButtonName(const Module &module)
{
    return module.title + QStringLiteral(" Scan Button");
}

QString FabricEvent::getStopScanName(const Module &module)
{
    return module.title + QStringLiteral(" StopScan Button");
}

QString FabricEvent::getLogButtonName(const Module &module)
{
    return module.title + QStringLiteral(" WatchLog Button");
}

QString FabricEvent::getWatchGuideButton(const Module &module)
{
    return module.title + QStringLiteral(" WatchGuide Button");
}

QString FabricEvent::getMenuButtonName(const Module &module)
{
    return module.title + QStringLiteral(" Menu Button");
}

QString FabricEvent::getReviewButtonName(const Module &module)
{
    return module.title + QStringLiteral(" Review Button");
}

QString FabricEvent::getShareButton(const Module &module, bool isFacebook)
{
    return module.title +
           (isFacebook ? QStringLiteral(" Facebook Button") : QStringLiteral(" Twitter Button"));
}

void FabricController::fabric(const QString &withName, const QString &title)
{
    logEvent(withName, {{QStringLiteral("model"), model()},
                        {QStringLiteral("version"), version()},
                        {QStringLiteral("title"), title}});
}

void FabricController::logEvent(const QString &name, const QVariantMap &attributes)
{
    // The switch and the path are read here, on the main thread, where the
    // settings live; only the write goes to the queue.
    if (!isLocalLogEnabled())
        return;
    QJsonObject record = QJsonObject::fromVariantMap(attributes);
    record.insert(QStringLiteral("event"), name);
    record.insert(QStringLiteral("time"), QDateTime::currentDateTimeUtc().toString(Qt::ISODate));
    const QByteArray line = QJsonDocument(record).toJson(QJsonDocument::Compact);
    fabricQueue().async([path = logPath(), line] { appendLine(path, line); });
}

bool FabricController::isLocalLogEnabled()
{
    return UserDefaults::value(enabledKey).toBool();
}

void FabricController::setLocalLogEnabled(bool enabled)
{
    UserDefaults::setValue(enabledKey, enabled);
    UserDefaults::synchronize();
}

QString FabricController::logPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
           QStringLiteral("/usage-events.log");
}

void FabricController::drain()
{
    fabricQueue().drain();
}

QString FabricController::model()
{
    static const QString name = [] {
        QFile file(QStringLiteral("/sys/class/dmi/id/product_name"));
        const QString read = file.open(QIODevice::ReadOnly)
                                 ? QString::fromUtf8(file.readAll()).trimmed()
                                 : QString();
        return read.isEmpty() ? QSysInfo::currentCpuArchitecture() : read;
    }();
    return name;
}

QString FabricController::version()
{
    const QString value =
        Bundle::objectForInfoDictionaryKey(QStringLiteral("CFBundleShortVersionString")).toString();
    return value.isEmpty() ? QStringLiteral("Get no version information") : value;
}
