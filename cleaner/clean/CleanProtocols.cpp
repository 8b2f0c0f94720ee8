#include "cleaner/clean/CleanProtocols.h"

#include <QHash>
#include <limits>

namespace Wire {

namespace {

const QString kSel = QStringLiteral("sel");
const QString kArgs = QStringLiteral("args");
const QString kId = QStringLiteral("id");

bool fitsInt(const QCborValue &v)
{
    return v.isInteger() && v.toInteger() >= std::numeric_limits<int>::min() &&
           v.toInteger() <= std::numeric_limits<int>::max();
}

bool isFolders(const QCborValue &v)
{
    if (!v.isMap())
        return false;
    const QCborMap map = v.toMap();
    for (auto it = map.begin(); it != map.end(); ++it) {
        if (!it.key().isByteArray() || !it.value().isArray() || it.value().toArray().isEmpty())
            return false;
        for (const QCborValue &slot : it.value().toArray()) {
            if (!fitsInt(slot))
                return false;
        }
    }
    return true;
}

bool isIdentity(const QCborValue &v)
{
    const QCborArray a = v.toArray();
    return v.isArray() && a.size() == 3 && fitsInt(a.at(0)) && a.at(1).isInteger() &&
           a.at(2).isInteger();
}

bool isIdentities(const QCborValue &v)
{
    if (!v.isMap())
        return false;
    const QCborMap map = v.toMap();
    for (auto it = map.begin(); it != map.end(); ++it) {
        if (!it.key().isByteArray() || !isIdentity(it.value()))
            return false;
    }
    return true;
}

bool matches(const QCborValue &v, Arg kind)
{
    switch (kind) {
    case Arg::Integer:
        return v.isInteger();
    case Arg::Text:
        return v.isString();
    case Arg::Bytes:
        return v.isByteArray();
    case Arg::Bool:
        return v.isBool();
    case Arg::Folders:
        return isFolders(v);
    case Arg::Identities:
        return isIdentities(v);
    case Arg::Null:
        return v.isNull();
    }
    return false;
}

// Selectors that answer need the caller's id to be answered.
bool wantsReply(const QString &selector)
{
    return selector.endsWith(QLatin1String("Reply:"));
}

QList<int> slotsOf(const QCborValue &value)
{
    QList<int> out;
    for (const QCborValue &v : value.toArray())
        out.append(int(v.toInteger()));
    return out;
}

QCborArray wireSlots(const QList<int> &slotList)
{
    QCborArray out;
    for (int s : slotList)
        out.append(s);
    return out;
}

} // namespace

std::optional<QList<Arg>> signature(const QString &selector)
{
    using A = Arg;
    static const QHash<QString, QList<Arg>> table = {
        {QLatin1String(bundledHelperVersion), {}},
        {QLatin1String(installHelperTool), {}},
        {QLatin1String(connectWithModuleIndex), {A::Integer}},
        {QLatin1String(disconnect), {}},
        {QLatin1String(serviceOperation), {A::Folders, A::Integer, A::Integer, A::Identities}},
        {QLatin1String(connectWithEndpoint), {}},
        {QLatin1String(getVersion), {}},
        {QLatin1String(uninstall), {}},
        {QLatin1String(exitWithCode), {A::Integer}},
        {QLatin1String(helperOperation),
         {A::Folders, A::Null, A::Integer, A::Integer, A::Identities}},
        {QLatin1String(installFail), {A::Text, A::Integer}},
        {QLatin1String(processed), {A::Bytes, A::Integer, A::Integer}},
        {QLatin1String(finished), {A::Bool, A::Folders, A::Integer}},
    };
    const auto it = table.constFind(selector);
    if (it == table.constEnd())
        return std::nullopt;
    return *it;
}

QCborMap call(const char *selector, const QCborArray &args, std::optional<qint64> id)
{
    QCborMap m{{kSel, QString::fromLatin1(selector)}, {kArgs, args}};
    if (id)
        m.insert(kId, *id);
    return m;
}

QCborMap reply(qint64 id, const QCborValue &value)
{
    return QCborMap{{QStringLiteral("reply"), id}, {QStringLiteral("value"), value}};
}

QCborMap error(const QString &text, std::optional<qint64> id)
{
    QCborMap m{{QStringLiteral("error"), text}};
    if (id)
        m.insert(kId, *id);
    return m;
}

std::optional<Call> parseCall(const QCborValue &message, QString *why)
{
    const auto fail = [why](const QString &text) {
        *why = text;
        return std::nullopt;
    };
    if (!message.isMap())
        return fail(QStringLiteral("a message must be a map"));
    const QCborMap m = message.toMap();
    Call c;
    if (m.contains(kId)) {
        if (!m.value(kId).isInteger())
            return fail(QStringLiteral("the id must be an integer"));
        c.id = m.value(kId).toInteger();
    }
    if (!m.value(kSel).isString())
        return fail(QStringLiteral("no selector"));
    c.selector = m.value(kSel).toString();
    const auto sig = signature(c.selector);
    if (!sig)
        return fail(QStringLiteral("unknown selector \"%1\"").arg(c.selector));
    if (!m.value(kArgs).isArray())
        return fail(QStringLiteral("%1: no argument array").arg(c.selector));
    c.args = m.value(kArgs).toArray();
    if (c.args.size() != sig->size())
        return fail(QStringLiteral("%1: %2 arguments, %3 expected")
                        .arg(c.selector)
                        .arg(c.args.size())
                        .arg(sig->size()));
    for (qsizetype i = 0; i < sig->size(); ++i) {
        if (!matches(c.args.at(i), sig->at(i)))
            return fail(
                QStringLiteral("%1: argument %2 has the wrong type").arg(c.selector).arg(i));
    }
    if (wantsReply(c.selector) && !c.id)
        return fail(QStringLiteral("%1: a call with a reply needs an id").arg(c.selector));
    return c;
}

QMap<QByteArray, QList<int>> wirePaths(const QCborMap &wire)
{
    QMap<QByteArray, QList<int>> paths;
    for (auto it = wire.begin(); it != wire.end(); ++it)
        paths.insert(it.key().toByteArray(), slotsOf(it.value()));
    return paths;
}

QCborMap wireFromPaths(const QMap<QByteArray, QList<int>> &paths)
{
    QCborMap wire;
    for (auto it = paths.begin(); it != paths.end(); ++it)
        wire.insert(QCborValue(it.key()), wireSlots(it.value()));
    return wire;
}

QCborMap identitiesToWire(const IdentityMap &identities)
{
    QCborMap wire;
    for (auto it = identities.begin(); it != identities.end(); ++it)
        wire.insert(QCborValue(it.key()),
                    QCborArray{int(it->kind), qint64(it->device), qint64(it->inode)});
    return wire;
}

IdentityMap wireIdentities(const QCborMap &wire)
{
    IdentityMap identities;
    for (auto it = wire.begin(); it != wire.end(); ++it) {
        if (!it.key().isByteArray() || !isIdentity(it.value()))
            continue;
        const QCborArray a = it.value().toArray();
        const int kind = int(a.at(0).toInteger());
        if (kind < int(ItemIdentity::Kind::File) || kind > int(ItemIdentity::Kind::Other))
            continue;
        identities.insert(it.key().toByteArray(),
                          ItemIdentity{ItemIdentity::Kind(kind), quint64(a.at(1).toInteger()),
                                       quint64(a.at(2).toInteger())});
    }
    return identities;
}

QCborMap installFailCall(const QString &error, int moduleIndex)
{
    return call(installFail, {error, moduleIndex});
}

QCborMap processedCall(const QByteArray &path, qint64 size, int moduleIndex)
{
    return call(processed, {path, size, moduleIndex});
}

QCborMap finishedCall(bool result, const QCborMap &folders, int moduleIndex)
{
    return call(finished, {result, folders, moduleIndex});
}

bool dispatch(const Call &c, XPCServiceProtocol &server, const Send &send)
{
    const QString &s = c.selector;
    const qint64 id = c.id.value_or(0);
    const auto answer = [send, id](const QCborValue &v) { send(reply(id, v)); };
    if (s == QLatin1String(bundledHelperVersion))
        server.bundledHelperVersionWithReply([answer](const QString &v) { answer(v); });
    else if (s == QLatin1String(installHelperTool))
        server.installHelperToolWithReply(answer);
    else if (s == QLatin1String(connectWithModuleIndex))
        server.connectWithModuleIndex(c.args.at(0).toInteger(), answer);
    else if (s == QLatin1String(disconnect))
        server.disconnect();
    else if (s == QLatin1String(serviceOperation))
        server.operationWithFolders(c.args.at(0).toMap(), c.args.at(1).toInteger(),
                                    c.args.at(2).toInteger(), c.args.at(3).toMap());
    else
        return false;
    return true;
}

bool dispatch(const Call &c, HelperProtocol &server, const Send &send)
{
    const QString &s = c.selector;
    const qint64 id = c.id.value_or(0);
    const auto answer = [send, id](const QCborValue &v) { send(reply(id, v)); };
    if (s == QLatin1String(connectWithEndpoint))
        server.connectWithEndpointReply(answer);
    else if (s == QLatin1String(getVersion))
        server.getVersionWithReply([answer](const QString &v) { answer(v); });
    else if (s == QLatin1String(uninstall))
        server.uninstall();
    else if (s == QLatin1String(exitWithCode))
        server.exitWithCode(c.args.at(0).toInteger());
    else if (s == QLatin1String(helperOperation))
        server.operationWithFolders(c.args.at(0).toMap(), c.args.at(2).toInteger(),
                                    c.args.at(3).toInteger(), c.args.at(4).toMap());
    else
        return false;
    return true;
}

} // namespace Wire
