#include "cleaner/shell/AppDelegate.h"
#include "cleaner/shell/OpenFilesChannel.h"

#include <QApplication>
#include <QFileInfo>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brenlow"));
    QApplication::setDesktopFileName(QStringLiteral("com.orrimay.Brenlow"));
    // Archives named on the command line, as a file manager's "Open with" names them.
    QStringList archives;
    for (const QString &arg : QApplication::arguments().mid(1)) {
        if (QFileInfo(arg).isFile())
            archives.append(QFileInfo(arg).absoluteFilePath());
    }
    if (!archives.isEmpty() && OpenFilesChannel::handOff(archives))
        return 0; // the running program opens them
    AppDelegate delegate;
    OpenFilesChannel channel([&delegate](const QStringList &paths) { delegate.openFiles(paths); });
    delegate.applicationDidFinishLaunching();
    if (!archives.isEmpty())
        delegate.openFiles(archives);
    return application.exec();
}
