// The allow-list's own rules: the places compiled in, the strict inside test,
// the volumes' trashes, the caller's home, and the log's escapes.

#include "cleaner/core/Platform.h"
#include "helper/AllowList.h"
#include "helper/HelperLog.h"

#include <QTest>
#include <pwd.h>

class TestAllowList : public QObject {
    Q_OBJECT

private slots:
    // The places come from both profiles' lists; home-relative URLs do not.
    void shippedPlaces()
    {
        const QList<QByteArray> &places = AllowList::shippedPlaces();
        for (const char *listed : {"/var/crash", "/var/lib/systemd/coredump", "/Library/Logs",
                                   "/private/var/folders", "/Applications"})
            QVERIFY2(places.contains(listed), listed);
        for (const QString &tree : Platform::languageContainers())
            QVERIFY(places.contains(QFile::encodeName(QStringLiteral("/usr/share/") + tree)));
        for (const QByteArray &place : places) {
            QVERIFY2(place.startsWith('/') && place.size() > 1 && !place.endsWith('/') &&
                         !place.contains('~') && !place.contains('%'),
                     place.constData());
        }
    }

    void strictlyInside_data()
    {
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<QByteArray>("place");
        QTest::addColumn<bool>("inside");
        QTest::newRow("child") << QByteArray("/var/crash/a") << QByteArray("/var/crash") << true;
        QTest::newRow("itself") << QByteArray("/var/crash") << QByteArray("/var/crash") << false;
        QTest::newRow("sibling with the prefix")
            << QByteArray("/var/crashed/a") << QByteArray("/var/crash") << false;
        QTest::newRow("parent") << QByteArray("/var") << QByteArray("/var/crash") << false;
        QTest::newRow("the root is no place") << QByteArray("/etc") << QByteArray("/") << false;
    }

    void strictlyInside()
    {
        QFETCH(QByteArray, path);
        QFETCH(QByteArray, place);
        QFETCH(bool, inside);
        QCOMPARE(AllowList::isStrictlyInside(path, place), inside);
        QCOMPARE(!AllowList({place}, std::nullopt).refusal(path).has_value(), inside);
    }

    void volumeTrashes()
    {
        QCOMPARE(AllowList::volumeTrashes({"/", "/media/My Disk"}, 1000),
                 (QList<QByteArray>{"/.Trash-1000", "/.Trashes", "/media/My Disk/.Trash-1000",
                                    "/media/My Disk/.Trashes"}));
        // A caller nobody could name has no trash of its own.
        QCOMPARE(AllowList::volumeTrashes({"/media/x"}, std::nullopt),
                 (QList<QByteArray>{"/media/x/.Trashes"}));
    }

    // Accounts whose home is no person's allow nothing.
    void homes_data()
    {
        QTest::addColumn<QByteArray>("account");
        QTest::addColumn<bool>("usable");
        QTest::newRow("root") << QByteArray("root") << true;
        QTest::newRow("/nonexistent") << QByteArray("nobody") << false;
        QTest::newRow("/usr/sbin") << QByteArray("daemon") << false;
        QTest::newRow("/bin") << QByteArray("bin") << false;
        QTest::newRow("/dev") << QByteArray("sys") << false;
    }

    void homes()
    {
        QFETCH(QByteArray, account);
        QFETCH(bool, usable);
        const passwd *pw = getpwnam(account.constData());
        if (!pw)
            QSKIP("no such account here");
        const QByteArray home = pw->pw_dir;
        QCOMPARE(AllowList::homeOf(pw->pw_uid), usable ? home : QByteArray());
    }

    void logEscapes_data()
    {
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<QString>("logged");
        QTest::newRow("plain") << QByteArray("/a b/c") << "/a b/c";
        QTest::newRow("accents kept") << QByteArray("/caf\xc3\xa9") << "/caf\u00e9";
        QTest::newRow("new line") << QByteArray("/a\nrefused /etc") << "/a\\x0arefused /etc";
        QTest::newRow("terminal escape") << QByteArray("/a\x1b[2J") << "/a\\x1b[2J";
        QTest::newRow("C1 control") << QByteArray("/a\xc2\x85") << "/a\\x85";
        QTest::newRow("backslash") << QByteArray("/a\\x0a") << "/a\\\\x0a";
        QTest::newRow("not UTF-8")
            << QByteArray("/raw\xff\xc3\xa9\n") << "/raw\\xff\\xc3\\xa9\\x0a";
    }

    void logEscapes()
    {
        QFETCH(QByteArray, path);
        QFETCH(QString, logged);
        QCOMPARE(loggable(path), logged);
    }
};

QTEST_GUILESS_MAIN(TestAllowList)
#include "test_allow_list.moc"
