#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

// The small window the whole program uses to tell of a warning or a piece
// of information. The caller sets `isWarnning` and `desc`, then opens it.
class KestalWarnningAndErrorViewController : public QDialog {
    Q_OBJECT
public:
    static bool isWarnning;
    static QString desc;

    explicit KestalWarnningAndErrorViewController(QWidget *parent = nullptr);

    // Opens the window with the class-wide message; it deletes itself on close.
    static KestalWarnningAndErrorViewController *open(QWidget *parent);

    QLabel *titleLabel() const { return m_title; }
    QLabel *descriptionLabel() const { return m_description; }
    QPushButton *okButton() const { return m_ok; }

    void okAction() { accept(); }

protected:
    void showEvent(QShowEvent *event) override;

private:
    // Sets every widget from the class-wide flag and text.
    void viewWillAppear();

    QLabel *m_image;
    QLabel *m_title;
    QLabel *m_description;
    QPushButton *m_ok;
};
