#pragma once

#include <QHash>
#include <QString>
#include <QWidget>
#include <utility>

// The base of every module screen: the states a module moves through, the
// shared maps that say which child shows which state, and the reload of
// texts when the interface language changes. All of it lives on the main
// thread.
class KestalSuperViewController : public QWidget {
    Q_OBJECT
public:
    enum class viewStatus {
        overview = 0,
        scanning,
        scandone_Empty,
        scandone_NoEmpty,
        detail,
        cleanning,
        cleandone,
        showLog
    };

    // The kinds of top child a module has; a module's states share them.
    enum class TopChild { overviewAndScan = 0, showMessage, detail, cleaningAndLog, count };

    // A state's child position and the suffix of its key (" Overview").
    static std::pair<int, QString> viewStatusDict(viewStatus status);
    static TopChild topChildOf(viewStatus status);

    // The state of each module by tab name, kept while the module is off screen.
    static QHash<QString, viewStatus> &viewCurrentStatusDict();
    static viewStatus currentStatus(const QString &tab);
    // Tab name + suffix to the position of the top child that shows that state.
    static const QHash<QString, int> &tabChildrenDict();
    // Tab name to the position of the module's bottom bar.
    static const QHash<QString, int> &bottomTabChildrenDict();
    // Forgets every state and the computed maps (tests, a new module table).
    static void reset();

    explicit KestalSuperViewController(QWidget *parent = nullptr);

    // "Found 12.3 MB" style sizes, in the interface language.
    static QString byteString(qint64 size);

    // Opens the program's small message window over this screen.
    void showAlert(const QString &info, bool isWarnning = false);

protected:
    // Sets every text of the screen again; runs on each change of language.
    virtual void reloadTexts() {}
};
