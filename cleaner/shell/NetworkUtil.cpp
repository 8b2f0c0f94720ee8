#include "cleaner/shell/NetworkUtil.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPointer>

namespace {

QVariantMap errorAnswer(const QString &text)
{
    return {{QStringLiteral("error"), text}};
}

QVariantMap answerOf(QNetworkReply *reply)
{
    const QVariant status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    if (status.isValid() && (status.toInt() < 200 || status.toInt() > 299))
        return errorAnswer(QStringLiteral("Connect Error! ErrorCode:") + status.toString());
    if (reply->error() != QNetworkReply::NoError)
        return errorAnswer(QStringLiteral("Connect Error! Connection Process Error:") +
                           reply->errorString());
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(reply->readAll(), &parseError);
    if (parseError.error != QJsonParseError::NoError || !document.isObject())
        return errorAnswer(QStringLiteral("Connect Error! Parse Error!"));
    return document.object().toVariantMap();
}

} // namespace

void NetworkUtil::ConnectionJSRequest(const QUrl &url, const QString &jsonString, Callback callback,
                                      QObject *delegate)
{
    auto *manager = new QNetworkAccessManager;
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/json"));
    // Qt asks for gzip itself and unpacks the answer; setting the header by
    // hand would turn that unpacking off.
    request.setTransferTimeout(timeoutMs);
    QNetworkReply *reply = manager->post(request, jsonString.toUtf8());
    const bool bounded = delegate != nullptr;
    QPointer<QObject> guard(delegate);
    QObject::connect(reply, &QNetworkReply::finished, manager,
                     [manager, reply, callback = std::move(callback), bounded, guard] {
                         const QVariantMap answer = answerOf(reply);
                         reply->deleteLater();
                         manager->deleteLater();
                         if (callback && (!bounded || guard))
                             callback(answer);
                     });
}
