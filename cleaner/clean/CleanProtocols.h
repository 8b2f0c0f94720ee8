#pragma once

#include "cleaner/core/ItemIdentity.h"

#include <QByteArray>
#include <QCborArray>
#include <QCborMap>
#include <QCborValue>
#include <QList>
#include <QMap>
#include <QString>
#include <functional>
#include <optional>

// What a privileged request asks for. The first four are bit flags.
enum class operationType : qint64 {
    delete_ = 1,
    shredder = 2,
    move = 4,
    usb = 8,
    stop = -1,
    start = -2,
};

// The status slot of one path after a privileged request.
enum class errorKind : int {
    success = 1,
    overTime = 2,
    delete_ = 3,
    nocause = 4,
    shredFail = 5,
    moreFail = 6,
    stop = 7,
    getRoot = 8,
};

// A path map: an item's absoluteString to its status-slot array. The last
// element of each array is the slot the helper fills in.
using PathMap = QMap<QString, QList<int>>;
// What the scan saw of each path of a removal request, by raw path bytes. A
// removal without a record for its path is refused.
using IdentityMap = QMap<QByteArray, ItemIdentity>;

// The receiver of the reports of a privileged request.
class DeleteFilesProgressProtocol {
public:
    virtual ~DeleteFilesProgressProtocol() = default;
    virtual void installFail(const QString &error, int moduleIndex) = 0;
    virtual void processed(const QString &url, qint64 size, int moduleIndex) = 0;
    virtual void finished(bool result, const PathMap &folders, int moduleIndex) = 0;
};

// Served by the service; the application calls only operationWithFolders.
// Replies are callbacks, run once.
class XPCServiceProtocol {
public:
    using TextReply = std::function<void(const QString &)>;
    using ValueReply = std::function<void(const QCborValue &)>;
    virtual ~XPCServiceProtocol() = default;
    virtual void bundledHelperVersionWithReply(TextReply reply) = 0;
    // Replies null on success, else {"code": n, "text": reason}.
    virtual void installHelperToolWithReply(ValueReply reply) = 0;
    // There are no endpoints to hand out here: replies null.
    virtual void connectWithModuleIndex(qint64 moduleIndex, ValueReply reply) = 0;
    virtual void disconnect() = 0;
    // `identities` is the wire form of an IdentityMap (empty for announcements).
    virtual void operationWithFolders(const QCborMap &folders, qint64 type, qint64 moduleIndex,
                                      const QCborMap &identities) = 0;
};

// Served by the helper, called by the service. The progress receiver of an
// operation is the caller itself: reports come back on the same channel.
class HelperProtocol {
public:
    using TextReply = std::function<void(const QString &)>;
    using ValueReply = std::function<void(const QCborValue &)>;
    virtual ~HelperProtocol() = default;
    virtual void connectWithEndpointReply(ValueReply reply) = 0;
    virtual void getVersionWithReply(TextReply reply) = 0;
    virtual void uninstall() = 0;
    virtual void exitWithCode(qint64 code) = 0;
    virtual void operationWithFolders(const QCborMap &folders, qint64 type, qint64 moduleIndex,
                                      const QCborMap &identities) = 0;
};

// The selectors of the three interfaces, in slot order, and the wire form of
// a call: a CBOR map {"sel": selector, "args": [...], "id": n}. A call that
// wants an answer carries an id; the answer is {"reply": id, "value": v}. A
// message that cannot be understood is answered with {"error": text} (with
// the id when it could be read).
namespace Wire {
// XPCServiceProtocol
inline constexpr char bundledHelperVersion[] = "bundledHelperVersionWithReply:";
inline constexpr char installHelperTool[] = "installHelperToolWithReply:";
inline constexpr char connectWithModuleIndex[] = "connectWithModuleIndex:withReply:";
inline constexpr char disconnect[] = "disconnect";
inline constexpr char serviceOperation[] = "operationWithFolders:type:moduleIndex:";
// HelperProtocol
inline constexpr char connectWithEndpoint[] = "connectWithEndpointReply:";
inline constexpr char getVersion[] = "getVersionWithReply:";
inline constexpr char uninstall[] = "uninstall";
inline constexpr char exitWithCode[] = "exitWithCode:";
inline constexpr char helperOperation[] = "operationWithFolders:progress:type:moduleIndex:";
// DeleteFilesProgressProtocol
inline constexpr char installFail[] = "installFailWithError:moduleIndex:";
inline constexpr char processed[] = "processedWithUrl:size:moduleIndex:";
inline constexpr char finished[] = "finishedWithResult:folders:moduleIndex:";

// The kinds of argument a selector takes; a call whose arguments differ is malformed.
enum class Arg { Integer, Text, Bytes, Bool, Folders, Identities, Null };

struct Call {
    QString selector;
    QCborArray args;
    std::optional<qint64> id;
};

QCborMap call(const char *selector, const QCborArray &args, std::optional<qint64> id = {});
QCborMap reply(qint64 id, const QCborValue &value);
QCborMap error(const QString &text, std::optional<qint64> id = {});

// Reads a call and checks its arguments against the selector's signature.
// Returns the call, or fills *why and returns nothing.
std::optional<Call> parseCall(const QCborValue &message, QString *why);
// The argument signature of a selector (nothing for an unknown one).
std::optional<QList<Arg>> signature(const QString &selector);

// Path maps travel with raw path bytes as keys, so a name that is not UTF-8
// keeps every byte. The helper works on the bytes themselves.
QMap<QByteArray, QList<int>> wirePaths(const QCborMap &wire);
QCborMap wireFromPaths(const QMap<QByteArray, QList<int>> &paths);

// Identities travel as path bytes to [kind, device, inode]. An entry that
// cannot be read is left out, so its path is refused.
QCborMap identitiesToWire(const IdentityMap &identities);
IdentityMap wireIdentities(const QCborMap &wire);

// The three reports as calls.
QCborMap installFailCall(const QString &error, int moduleIndex);
QCborMap processedCall(const QByteArray &path, qint64 size, int moduleIndex);
QCborMap finishedCall(bool result, const QCborMap &folders, int moduleIndex);

// Runs a checked call on a server; `send` carries the answer of a call with
// a reply. False when the selector is not one of the server's.
using Send = std::function<void(const QCborMap &)>;
bool dispatch(const Call &call, XPCServiceProtocol &server, const Send &send);
bool dispatch(const Call &call, HelperProtocol &server, const Send &send);

// The application's side: path maps keyed by absoluteString. These turn raw
// path bytes into node URLs, so they live with the file tree (WireUrls.cpp in
// the core library) and not in the protocol code the helper links.
QCborMap foldersToWire(const PathMap &folders);
PathMap foldersFromWire(const QCborMap &wire);
// Delivers a report call to a receiver; false when the call is not a report.
bool deliverReport(const Call &call, DeleteFilesProgressProtocol &receiver);
} // namespace Wire
