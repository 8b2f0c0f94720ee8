#pragma once

#include <QObject>
#include <QUrl>
#include <QVariantMap>
#include <functional>

// One JSON request to a web service. The answer reaches the callback on the
// main thread as a dictionary: the service's own JSON object, or the single
// key "error" with what went wrong.
class NetworkUtil {
public:
    using Callback = std::function<void(const QVariantMap &answer)>;
    static constexpr int timeoutMs = 10000;

    // POSTs `jsonString` to `url`. `delegate`, when given, bounds the
    // request's life: its destruction cancels the callback.
    static void ConnectionJSRequest(const QUrl &url, const QString &jsonString, Callback callback,
                                    QObject *delegate = nullptr);
};
