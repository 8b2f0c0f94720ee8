#include "ShellTestSupport.h"
#include "cleaner/shell/KestalFirstLoginViewController.h"
#include "cleaner/shell/KestalRootViewController.h"
#include "cleaner/shell/UIUtil.h"

#include <QMainWindow>

class UIInfoTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { isolateUserSettings(); }

    // Which values a style holds follows from the words in its name.
    void substringRulesDecideWhatAStyleHolds()
    {
        ShellEnvironment env;
        const QVariantMap all{
            {"name", "DejaVu Sans"},
            {"red", 10},
            {"alpha", 0.5},
            {"size", 14.5},
            {"weight", 600},
            {"bblue", 60},
            {"balpha", 0.25},
            {"colors", QVariantList{QVariantList{1, 2, 3, 1.0}, QVariantList{4, 5, 6, 0.5}}}};
        env.writeResource("BrenlowUI", QVariantMap{{"title_font", all},
                                                   {"fill_color", all},
                                                   {"ok_button", all},
                                                   {"ok_button_font", all},
                                                   {"bg_gradual", all}});

        const MyUI font = UIInfo::nsMyUI("title_font");
        QCOMPARE(font.name, QString("DejaVu Sans"));
        QCOMPARE(font.size, 14.5);
        QCOMPARE(font.weight, 600);
        QCOMPARE(font.red, 10.0);
        QCOMPARE(font.bblue, 0.0);
        QVERIFY(font.gradual.isEmpty());

        const MyUI color = UIInfo::nsMyUI("fill_color");
        QCOMPARE(color.name, QString("Arial")); // not a font style: the name is not read
        QCOMPARE(color.size, 0.0);
        // Opacity as it is, not divided by 255.
        QVERIFY(qAbs(UIInfo::nsColor("fill_color").alphaF() - 0.5f) < 0.001f);

        QCOMPARE(UIInfo::nsMyUI("ok_button").red, 0.0); // neither "color" nor "font"
        QCOMPARE(UIInfo::nsMyUI("ok_button").balpha, 0.25);
        const MyUI fontButton = UIInfo::nsMyUI("ok_button_font");
        QCOMPARE(fontButton.red, 10.0);
        QCOMPARE(fontButton.bblue, 60.0);

        const QList<QColor> stops = UIInfo::nsGradualColor("bg_gradual");
        QCOMPARE(stops.size(), 2);
        QCOMPARE(stops[1].blue(), 6);
        QVERIFY(qAbs(stops[1].alphaF() - 0.5f) < 0.001f);
    }

    void faultsOfTheStyleListStopTheProgram()
    {
        ShellEnvironment env;
        QVERIFY(TestEnvironment::endsInFatalStop([] { UIInfo::nsMyUI("no_such_style"); }));

        env.writeResource(
            "BrenlowUI",
            QVariantMap{
                {"short_gradual", QVariantMap{{"colors", QVariantList{QVariantList{1, 2, 3}}}}}});
        QVERIFY(TestEnvironment::endsInFatalStop([] { UIInfo::AllUIs(); }));

        env.writeResource("BrenlowUI", QVariantList{1, 2});
        QVERIFY(TestEnvironment::endsInFatalStop([] { UIInfo::AllUIs(); }));

        QFile::remove(env.resources() + "/BrenlowUI.plist");
        UIInfo::reset();
        QVERIFY(TestEnvironment::endsInFatalStop([] { UIInfo::AllUIs(); }));
    }

    // Every style a screen asks for is in the shipped list of each profile:
    // a missing one would stop the program on the way to the first window.
    void shippedListsCarryEveryStyleTheScreensUse_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::newRow("linux") << "linux";
        QTest::newRow("macos") << "macos";
    }

    void shippedListsCarryEveryStyleTheScreensUse()
    {
        QFETCH(QString, profile);
        ShellEnvironment env(profile);
        std::unique_ptr<QMainWindow> window(KestalRootViewController::instantiateMainWindow());
        window->show();
        KestalFirstLoginViewController firstLogin;
        firstLogin.show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    }

    // Escape answers a confirmation with Cancel, whatever has the focus.
    void escapeCancelsAConfirmation()
    {
        ShellEnvironment env;
        auto *escape = new QTimer;
        escape->setInterval(5);
        connect(escape, &QTimer::timeout, escape, [escape] {
            if (QWidget *box = QApplication::activeModalWidget()) {
                QTest::keyClick(box, Qt::Key_Escape);
                escape->deleteLater();
            }
        });
        escape->start();
        QVERIFY(!UIUtil::dialogOKCancel("Confirmation", "Are you sure?"));
    }
};

QTEST_MAIN(UIInfoTest)
#include "test_ui_info.moc"
