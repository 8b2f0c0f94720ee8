#pragma once

// An isolated world with the shipped resources, a recorder in place of the
// web browser, and answers to the modal message boxes the screens open.
#include "cleaner/core/PropertyList.h"
#include "cleaner/core/SettingInfo.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/core/UserDefaults.h"
#include "cleaner/shell/AppDelegate.h"
#include "cleaner/shell/KestalLeftTableViewController.h"
#include "cleaner/shell/KestalSuperViewController.h"
#include "cleaner/shell/UIInfo.h"
#include "cleaner/shell/Workspace.h"
#include "support/TestEnvironment.h"

#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest>
#include <memory>

// A home of its own for the whole run, with the user settings opened there
// before any test changes the home.
inline void isolateUserSettings()
{
    static QTemporaryDir home;
    qputenv("HOME", QFile::encodeName(home.path()));
    QStandardPaths::setTestModeEnabled(true);
    UserDefaults::value(QStringLiteral("HasLaunchedOnce"));
}

class ShellEnvironment : public TestEnvironment {
public:
    explicit ShellEnvironment(const QString &profile = QStringLiteral("linux"))
        : TestEnvironment(profile)
    {
        QStandardPaths::setTestModeEnabled(true);
        for (const char *key :
             {"HasLaunchedOnce", "BrenlowSwitchLanguageService", "RecordUsageEventsLocally"})
            UserDefaults::remove(QLatin1String(key));
        resetShell();
        Workspace::setOpenerForTesting([this](const QUrl &url) {
            opened.append(url);
            return true;
        });
    }

    ~ShellEnvironment()
    {
        Workspace::setOpenerForTesting({});
        AppDelegate::showMainWindow = true;
        SwitchLanguageService::setUserLanguage(QStringLiteral("en"));
        UserDefaults::remove(SwitchLanguageService::LocalLanguageKey);
        resetShell();
    }

    static void resetShell()
    {
        UIInfo::reset();
        SettingInfo::reset();
        KestalSuperViewController::reset();
        KestalLeftTableViewController::currentRow = 0;
    }

    // Replaces a resource of the edition with a property list of these values.
    void writeResource(const QString &name, const QVariant &value)
    {
        QFile file(resources() + QLatin1Char('/') + name + QStringLiteral(".plist"));
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(PropertyList::toXml(value));
        file.close();
        resetShell();
    }

    QList<QUrl> opened;
};

struct MessageBoxSeen {
    QString title;
    QString informative;
    bool shown = false;
};

// Acts on the next modal window of this type, polling from the event loop of
// its own exec().
template <class Dialog, class Act> void answerNextModal(Act act)
{
    auto *poll = new QTimer;
    poll->setInterval(5);
    QObject::connect(poll, &QTimer::timeout, poll, [poll, act] {
        if (auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget())) {
            poll->deleteLater();
            act(dialog);
        }
    });
    poll->start();
}

// Answers the next modal message box by pressing the button with this text.
inline std::shared_ptr<MessageBoxSeen> answerNextMessageBox(const QString &button)
{
    auto seen = std::make_shared<MessageBoxSeen>();
    answerNextModal<QMessageBox>([seen, button](QMessageBox *box) {
        seen->shown = true;
        seen->title = box->text();
        seen->informative = box->informativeText();
        for (QAbstractButton *b : box->buttons()) {
            if (b->text() == button) {
                b->click();
                return;
            }
        }
        box->reject(); // no such button: end the box so that the test fails, not hangs
    });
    return seen;
}
