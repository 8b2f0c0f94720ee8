#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>
#include <optional>

class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

// Told when the decompression window has finished with its archive.
class DecompressionSignleViewDelete {
public:
    virtual ~DecompressionSignleViewDelete() = default;
    virtual void decompressionFinished() = 0;
};

// The window that unpacks one 7z or rar archive beside itself: a progress
// bar, or a password field when a rar archive is protected. It closes when
// the archive is unpacked, and after the failure dialog.
class DeconpressViewController : public QWidget {
    Q_OBJECT
public:
    explicit DeconpressViewController(QWidget *parent = nullptr);

    // The archive of the window; a new one replaces it.
    static std::optional<QString> decompressionFiles;
    static DecompressionSignleViewDelete *delegate;
    // The one window, made on first need (as the storyboard's controller is).
    static DeconpressViewController *shared();
    // Hands archives to the window and shows it; the last one counts.
    static void openFiles(const QStringList &paths);

    std::optional<QString> passcode;

    // true: the password field and "Enter Password :"; false: the bar and
    // "Decompression Progress :".
    void setView(bool isPassword);
    bool isPassword() const;
    // Starts on the archive, or asks for its password first.
    void viewDidAppear();
    // The password field's button.
    void doneAction();
    // A step of the extraction, on the main thread: -1.0 failed, 1.0 done.
    void progress(const QString &info, double value);
    // Whether an archive is being unpacked.
    bool busy() const { return m_busy; }

    QProgressBar *progressBar() const { return m_bar; }
    QLineEdit *passwordField() const { return m_field; }
    QPushButton *doneButton() const { return m_done; }
    QLabel *titleLabel() const { return m_title; }

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void finish();
    void failed(const QString &question, const QString &text);

    QLabel *m_title;
    QProgressBar *m_bar;
    QLineEdit *m_field;
    QPushButton *m_done;
    bool m_busy = false;
};
