// Every text of the main window fits its widget, in every interface
// language, on every module's overview and through System Junk's scan,
// review, confirmation and log, at the window's smallest size. The test runs
// itself again at 200 % scaling.

#include "ShippedWindow.h"
#include "TestPaths.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/LanguageNotifier.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>

using viewStatus = KestalSuperViewController::viewStatus;

namespace {

constexpr int systemJunk = 1;
const QChar ellipsis(0x2026);

// The labels and buttons on screen whose text does not fit, described.
QStringList clippedTexts(QWidget *top)
{
    QStringList clipped;
    const auto report = [&](const QWidget *w, const QString &text, int needed, int has) {
        if (needed > has)
            clipped << QStringLiteral("%1 \"%2\" needs %3 px, has %4")
                           .arg(QString::fromLatin1(w->metaObject()->className()), text)
                           .arg(needed)
                           .arg(has);
    };
    for (QLabel *label : top->findChildren<QLabel *>()) {
        if (!label->isVisibleTo(top) || label->wordWrap() || label->text().isEmpty())
            continue;
        // A path cut on purpose carries the whole path as its tool tip.
        if (label->text().contains(ellipsis) && !label->toolTip().isEmpty())
            continue;
        int needed = 0;
        for (const QString &line : label->text().split(QLatin1Char('\n')))
            needed = qMax(needed, label->fontMetrics().horizontalAdvance(line));
        report(label, label->text(), needed, label->contentsRect().width() - 2 * label->margin());
    }
    // A button gets at least its natural size: text, icon, padding and frame.
    for (QAbstractButton *button : top->findChildren<QAbstractButton *>()) {
        if (button->isVisibleTo(top) && !button->text().isEmpty())
            report(button, button->text(), button->sizeHint().width(), button->width());
    }
    return clipped;
}

} // namespace

class TextFitTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ShippedWindow> m_world;
    QStringList m_clipped;

    KestalRightBottomViewController *junkBar() const
    {
        return m_world->right()->bottomSwitch()->barOfModule(systemJunk);
    }

    // Checks the window at the smallest size it allows in this state.
    void check(const QString &where)
    {
        QMainWindow *window = m_world->window.get();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        window->resize(window->minimumSize());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        QCoreApplication::processEvents();
        for (const QString &text : clippedTexts(window))
            m_clipped << where + QStringLiteral(": ") + text;
        // Each module's title beside the widest status its row can show.
        KestalLeftTableViewController *left = m_world->root->leftTable();
        const QString detail = KestalLeftTableViewController::widestDetail();
        for (int row = 0; row < left->count(); ++row) {
            if (left->isHeaderRow(row))
                continue;
            const QString title = left->item(row)->text();
            for (const char *style : {"left_list_title_font", "left_list_selected_font"}) {
                const int needed =
                    QFontMetrics(UIInfo::nsFont(QLatin1String(style))).horizontalAdvance(title);
                if (needed > left->titleRect(row, detail).width())
                    m_clipped << QStringLiteral("%1: left list \"%2\" beside \"%3\" needs %4 px")
                                     .arg(where, title, detail)
                                     .arg(needed);
            }
        }
    }

private slots:
    void initTestCase()
    {
        isolateUserSettings();
        qputenv("BRENLOW_SERVICE_PATH",
                QByteArray(BRENLOW_TEST_BINARY_DIR) + "/libexec/brenlow/brenlow-service");
        qputenv("BRENLOW_HELPER_PATH", "/nonexistent/brenlow-helper");
        qputenv("BRENLOW_HELPER_LAUNCHER", "");
    }

    void textsFit_data()
    {
        QTest::addColumn<QString>("language");
        for (const QString &language : SwitchLanguageService::languages)
            QTest::newRow(qPrintable(language)) << language;
    }

    void textsFit()
    {
        QFETCH(QString, language);
        m_world = std::make_unique<ShippedWindow>();
        m_world->home.file(".cache/a-program-with-a-long-name/blob.bin", 40'000'000);
        m_world->home.file(".local/share/xorg/Xorg.0.log.old", 5000);
        m_world->open();
        // Switched on screen, as a user switches it.
        SwitchLanguageService::setUserLanguage(language);
        LanguageNotifier::defaultCenter()->post(nullptr);
        m_clipped.clear();

        const QList<Module> &modules = AppModuleService::appModules();
        for (int module = 0; module < modules.size(); ++module) {
            if (modules[module].isHeader())
                continue;
            m_world->show(module);
            check(modules[module].title + QStringLiteral(" overview"));
        }

        m_world->show(systemJunk);
        QTest::mouseClick(junkBar()->overViewScanBtn(), Qt::LeftButton);
        QTRY_COMPARE(KestalSuperViewController::currentStatus(modules[systemJunk].tab),
                     viewStatus::scandone_NoEmpty);
        check(QStringLiteral("System Junk result"));
        QTest::mouseClick(junkBar()->reviewBtn(), Qt::LeftButton);
        check(QStringLiteral("System Junk review"));

        // The confirmation's buttons take their natural size too.
        QStringList dialog;
        QTimer poll;
        poll.setInterval(5);
        connect(&poll, &QTimer::timeout, this, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (!box || !box->isVisible())
                return;
            poll.stop();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
            dialog = clippedTexts(box);
            box->buttons().constFirst()->click(); // "Confirm", added first
        });
        poll.start();
        QTest::mouseClick(junkBar()->detailViewBtn(), Qt::LeftButton);
        QVERIFY(!poll.isActive());
        m_clipped << dialog;
        QTRY_COMPARE(KestalSuperViewController::currentStatus(modules[systemJunk].tab),
                     viewStatus::cleandone);
        check(QStringLiteral("System Junk clean done"));
        QTest::mouseClick(junkBar()->cleandoneViewBtn(), Qt::LeftButton);
        check(QStringLiteral("System Junk log"));
        m_world.reset();
        QVERIFY2(m_clipped.isEmpty(), qPrintable(m_clipped.join(QLatin1Char('\n'))));
    }

    void textsFitAtTwiceTheScale()
    {
        if (qEnvironmentVariableIsSet("QT_SCALE_FACTOR"))
            QSKIP("this run is the scaled one");
        QProcess child;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2"));
        child.setProcessEnvironment(env);
        child.setProcessChannelMode(QProcess::MergedChannels);
        child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("textsFit")});
        QVERIFY(child.waitForFinished(240000));
        QVERIFY2(child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0,
                 child.readAll().constData());
    }
};

QTEST_MAIN(TextFitTest)
#include "test_text_fit.moc"
