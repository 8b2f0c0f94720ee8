#pragma once

#include <QObject>

// The "changeLanguage" notification: posted after the interface language
// changed, so that every screen reloads its texts.
class LanguageNotifier : public QObject {
    Q_OBJECT
public:
    static LanguageNotifier *defaultCenter();
    void post(QObject *object) { emit changeLanguage(object); }

signals:
    void changeLanguage(QObject *object);
};
