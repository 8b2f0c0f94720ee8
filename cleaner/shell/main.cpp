#include "cleaner/shell/AppDelegate.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brenlow"));
    QApplication::setDesktopFileName(QStringLiteral("com.orrimay.Brenlow"));
    AppDelegate delegate;
    delegate.applicationDidFinishLaunching();
    return application.exec();
}
