// The file tree's entry points into the privileged helper. They live with the
// clean pipeline, which owns the connection, so the core stays free of it.
#include "cleaner/clean/XPCUtil.h"
#include "cleaner/core/FolderInfo.h"

namespace {

constexpr int kEraserModule = 10;
constexpr int kExtensionsModule = 12;

void send(const QList<QUrl> &urls, std::shared_ptr<DeleteFilesProgressProtocol> delegate,
          operationType type, int moduleIndex)
{
    PathMap folder;
    for (const QUrl &url : urls)
        folder.insert(FolderInfo::absoluteString(url), {0}); // one status slot each
    XPCUtil::instance()->operation(folder, std::move(delegate), qint64(type), moduleIndex);
}

} // namespace

void FolderInfo::helperToolShredFiles(const QList<QUrl> &urls,
                                      std::shared_ptr<DeleteFilesProgressProtocol> delegate)
{
    send(urls, std::move(delegate), operationType::shredder, kEraserModule);
}

void FolderInfo::helperToolMoveFiles(const QList<QUrl> &urls,
                                     std::shared_ptr<DeleteFilesProgressProtocol> delegate)
{
    send(urls, std::move(delegate), operationType::move, kExtensionsModule);
}
