#include "ShellTestSupport.h"
#include "cleaner/shell/KestalFirstLoginViewController.h"
#include "cleaner/shell/KestalRootViewController.h"
#include "cleaner/shell/UIUtil.h"

#include <QLabel>
#include <QMainWindow>

class UIInfoTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { isolateUserSettings(); }

    void substringRulesDecideWhatAStyleHolds()
    {
        ShellEnvironment env;
        const QVariantMap all{
            {"red", 10},
            {"green", 20},
            {"blue", 30},
            {"alpha", 0.5},
            {"size", 14.5},
            {"weight", 600},
            {"bred", 40},
            {"bgreen", 50},
            {"bblue", 60},
            {"balpha", 0.25},
            {"colors", QVariantList{QVariantList{1, 2, 3, 1.0}, QVariantList{4, 5, 6, 0.5}}}};
        QVariantMap named = all;
        named.insert("name", "DejaVu Sans");
        env.writeResource("BrenlowUI", QVariantMap{{"title_font", all},
                                                   {"named_font", named},
                                                   {"fill_color", named},
                                                   {"ok_button", all},
                                                   {"ok_button_font", named},
                                                   {"bg_gradual", all}});

        const MyUI font = UIInfo::nsMyUI("title_font");
        QCOMPARE(font.name, QString("Times-Roman")); // a font style without a name
        QCOMPARE(font.size, 14.5);
        QCOMPARE(font.weight, 600);
        QCOMPARE(font.red, 10.0);
        QCOMPARE(font.bred, 0.0);
        QVERIFY(font.gradual.isEmpty());
        QCOMPARE(UIInfo::nsMyUI("named_font").name, QString("DejaVu Sans"));

        const MyUI color = UIInfo::nsMyUI("fill_color");
        QCOMPARE(color.name, QString("Arial")); // not a font style: the name is not read
        QCOMPARE(color.size, 0.0);
        QCOMPARE(color.blue, 30.0);
        const QColor c = UIInfo::nsColor("fill_color");
        QCOMPARE(c.red(), 10);
        QVERIFY(qAbs(c.alphaF() - 0.5f) < 0.001f); // opacity as it is, not divided by 255

        const MyUI button = UIInfo::nsMyUI("ok_button");
        QCOMPARE(button.red, 0.0); // neither "color" nor "font" in the name
        QCOMPARE(button.balpha, 0.25);
        const MyUI fontButton = UIInfo::nsMyUI("ok_button_font");
        QCOMPARE(fontButton.red, 10.0);
        QCOMPARE(fontButton.bblue, 60.0);
        QCOMPARE(fontButton.size, 14.5);

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
        QVERIFY(UIInfo::nsFont("module_title_font").pointSizeF() >
                UIInfo::nsFont("module_description_font").pointSizeF());
    }

    void dialogs()
    {
        ShellEnvironment env;
        auto seen = answerNextMessageBox("Confirm");
        QVERIFY(UIUtil::dialogOKCancel("Confirmation", "Are you sure?"));
        QCOMPARE(seen->buttons, (QStringList{"Confirm", "Cancel"}));

        // Escape is the cancel button, whatever has the focus.
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

        seen = answerNextMessageBox("OK");
        UIUtil::dialogInfo("ERROR", "The email address can't be empty!");
        QCOMPARE(seen->buttons, QStringList{"OK"});
    }

    void buttonAndTextStyles()
    {
        ShellEnvironment env;
        QLabel label;
        const MyUI &ui = UIInfo::nsMyUI("module_title_font");
        UIUtil::setTextAttribute(&label, ui, Qt::AlignRight, QString("Title"));
        QCOMPARE(label.font().pointSizeF(), ui.size);
        QCOMPARE(label.palette().color(QPalette::WindowText), UIInfo::textColor(ui));

        UIUtil::setTextAttribute(&label, "Found 12 MB", ui, Qt::red, 6, 5);
        QVERIFY(label.text().startsWith("Found <span"));
        QVERIFY(label.text().contains(">12 MB</span>"));
    }
};

QTEST_MAIN(UIInfoTest)
#include "test_ui_info.moc"
