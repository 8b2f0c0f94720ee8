#pragma once

#include "cleaner/shell/KestalSuperViewController.h"

#include <QVariantMap>

class QLabel;
class QLineEdit;
class QPushButton;

// The small window of the first run: a welcome, and the offer to subscribe
// to the maker's news with an e-mail address.
class KestalFirstLoginViewController : public KestalSuperViewController {
    Q_OBJECT
public:
    explicit KestalFirstLoginViewController(QWidget *parent = nullptr);

    // The address pattern: lower-case letters only, as the service expects.
    static bool isValidAddress(const QString &address);

    void sendEmailAction();
    void homeAction();
    void launchAction();

    QLineEdit *emailField() const { return m_email; }
    QPushButton *sendButton() const { return m_send; }

signals:
    // The service's answer has arrived; "success" holds its verdict.
    void subscriptionAnswered(const QVariantMap &answer);

protected:
    void reloadTexts() override;

private:
    QLabel *m_image;
    QLabel *m_title;
    QLabel *m_text;
    QLineEdit *m_email;
    QPushButton *m_send;
    QPushButton *m_home;
    QPushButton *m_launch;
};
