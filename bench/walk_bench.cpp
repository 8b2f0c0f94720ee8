// Runs one walk of the file tree model over a folder and prints what it
// found, so the benchmark script can time it beside du and find.
//   brenlow-bench-walk getFolderSize DIR
//   brenlow-bench-walk childrenOfDirectory DIR
#include "cleaner/core/FolderInfo.h"
#include "cleaner/core/ModuleTypes.h"

#include <QCoreApplication>
#include <cstdio>
#include <cstring>

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s getFolderSize|childrenOfDirectory DIR\n", argv[0]);
        return 1;
    }
    const QUrl url = FolderInfo::urlFromPath(QByteArray(argv[2]));
    if (std::strcmp(argv[1], "getFolderSize") == 0) {
        std::printf("%lld\n", static_cast<long long>(FolderInfo::getFolderSize(url)));
        return 0;
    }
    if (std::strcmp(argv[1], "childrenOfDirectory") == 0) {
        const FolderUrl root{FolderInfo::absoluteString(url), QStringLiteral("Folder"), 0};
        const ChildrenInfo info = FolderInfo::childrenOfDirectory(root, {});
        std::printf("%lld in %lld entries\n", static_cast<long long>(info.totalSize),
                    static_cast<long long>(info.children.size()));
        return 0;
    }
    std::fprintf(stderr, "unknown walk %s\n", argv[1]);
    return 1;
}
