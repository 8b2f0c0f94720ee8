// The Eraser's entry points into the privileged helper. They live with the
// clean pipeline, which owns the connection, so the erasure code stays free of it.
#include "cleaner/clean/XPCUtil.h"
#include "cleaner/erasure/ShredService.h"

void ShredService::sendToHelper(const QMap<QString, QList<int>> &folder,
                                std::shared_ptr<DeleteFilesProgressProtocol> delegate)
{
    XPCUtil::instance()->operation(folder, std::move(delegate), qint64(operationType::shredder),
                                   moduleIndex);
}

void ShredService::reportNothing(const std::shared_ptr<DeleteFilesProgressProtocol> &delegate)
{
    if (delegate)
        delegate->finished(true, {}, moduleIndex);
}
