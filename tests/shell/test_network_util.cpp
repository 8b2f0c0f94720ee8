#include "ShellTestSupport.h"
#include "cleaner/shell/KestalFirstLoginViewController.h"
#include "cleaner/shell/NetworkUtil.h"

#include <QJsonDocument>
#include <QLineEdit>
#include <QTcpServer>
#include <QTcpSocket>

namespace {

// A one-shot HTTP server on loopback that records each request and gives
// the answer it was told.
class LoopbackServer : public QObject {
public:
    struct Request {
        QByteArray method;
        QHash<QByteArray, QByteArray> headers;
        QByteArray body;
    };

    LoopbackServer(int status, QByteArray body) : m_status(status), m_body(std::move(body))
    {
        m_server.listen(QHostAddress::LocalHost);
        connect(&m_server, &QTcpServer::newConnection, this, [this] {
            QTcpSocket *socket = m_server.nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { read(socket); });
        });
    }

    QUrl url() const
    {
        return QUrl(QStringLiteral("http://127.0.0.1:%1/subscribe").arg(m_server.serverPort()));
    }

    QList<Request> requests;

private:
    void read(QTcpSocket *socket)
    {
        QByteArray &buffer = m_buffers[socket];
        buffer += socket->readAll();
        const qsizetype end = buffer.indexOf("\r\n\r\n");
        if (end < 0)
            return;
        Request request;
        const QList<QByteArray> lines = buffer.left(end).split('\n');
        request.method = lines.first().split(' ').first();
        for (const QByteArray &line : lines.mid(1)) {
            const qsizetype colon = line.indexOf(':');
            request.headers.insert(line.left(colon).trimmed().toLower(),
                                   line.mid(colon + 1).trimmed());
        }
        const qsizetype length = request.headers.value("content-length").toLongLong();
        if (buffer.size() < end + 4 + length)
            return;
        request.body = buffer.mid(end + 4, length);
        requests.append(request);
        socket->write("HTTP/1.1 " + QByteArray::number(m_status) +
                      " X\r\nContent-Type: application/json\r\n"
                      "Content-Length: " +
                      QByteArray::number(m_body.size()) + "\r\nConnection: close\r\n\r\n" + m_body);
        socket->disconnectFromHost();
    }

    QTcpServer m_server;
    int m_status;
    QByteArray m_body;
    QHash<QTcpSocket *, QByteArray> m_buffers;
};

QVariantMap requestAndWait(const QUrl &url, const QString &json)
{
    QVariantMap answer;
    bool done = false;
    NetworkUtil::ConnectionJSRequest(url, json, [&](const QVariantMap &a) {
        answer = a;
        done = true;
    });
    if (!QTest::qWaitFor([&] { return done; }, 12000))
        return {{"timeout", true}};
    return answer;
}

} // namespace

class NetworkUtilTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { isolateUserSettings(); }

    // A bad status, an answer that is no JSON object, or no server at all
    // (status 0) reach the caller as an error text.
    void failuresBecomeAnErrorText_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("error");
        QTest::newRow("bad status") << 500 << QByteArray("{}") << "Connect Error! ErrorCode:500";
        QTest::newRow("no JSON") << 200 << QByteArray("<html>") << "Connect Error! Parse Error!";
        QTest::newRow("JSON but no object")
            << 200 << QByteArray("[1]") << "Connect Error! Parse Error!";
        QTest::newRow("no server")
            << 0 << QByteArray() << "Connect Error! Connection Process Error:";
    }

    void failuresBecomeAnErrorText()
    {
        QFETCH(int, status);
        QFETCH(QByteArray, body);
        QFETCH(QString, error);
        LoopbackServer server(status, body);
        QUrl url = server.url();
        if (status == 0) { // a port nothing listens on any more
            QTcpServer closed;
            QVERIFY(closed.listen(QHostAddress::LocalHost));
            url.setPort(closed.serverPort());
        }
        const QVariantMap answer = requestAndWait(url, "{}");
        if (status == 0)
            QVERIFY2(answer.value("error").toString().startsWith(error), qPrintable(error));
        else
            QCOMPARE(answer, (QVariantMap{{"error", error}}));
    }

    void firstRunWindowSubscribes()
    {
        ShellEnvironment env;
        LoopbackServer server(200, R"({"success": true, "id": 7})");
        env.writeResource("BrenlowSetting",
                          QVariantMap{{"sendEmail_link", server.url().toString()}});
        KestalFirstLoginViewController window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));

        // Empty, then badly formed: nothing is sent.
        for (const QString &address : {QString(), QString("Jane@Example.com")}) {
            window.emailField()->setText(address);
            auto refused = answerNextMessageBox("OK");
            QTest::mouseClick(window.sendButton(), Qt::LeftButton);
            QCOMPARE(refused->title, QString("ERROR"));
        }
        QVERIFY(window.sendButton()->isEnabled());

        QSignalSpy answered(&window, &KestalFirstLoginViewController::subscriptionAnswered);
        window.emailField()->setText("jane@example.com");
        auto seen = answerNextMessageBox("OK");
        QTest::mouseClick(window.sendButton(), Qt::LeftButton);
        QCOMPARE(seen->title, QString("Success"));
        QVERIFY(!window.sendButton()->isEnabled());
        QVERIFY(answered.wait(12000));
        QCOMPARE(answered.first().first().toMap().value("id").toInt(), 7);
        QCOMPARE(server.requests.size(), 1);
        const auto &request = server.requests.first();
        QCOMPARE(request.method, QByteArray("POST"));
        QCOMPARE(request.headers.value("content-type"), QByteArray("application/json"));
        QCOMPARE(QJsonDocument::fromJson(request.body).toVariant().toMap(),
                 (QVariantMap{{"email", "jane@example.com"}}));
    }
};

QTEST_MAIN(NetworkUtilTest)
#include "test_network_util.moc"
