#pragma once

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/FolderInfo.h"
#include "cleaner/scan/KestalService.h"

#include <QStringList>
#include <QTest>
#include <memory>

// Records what a scan posts to the main queue. The record lives on the heap,
// shared with the callbacks, so a callback that arrives after a test ended
// early writes into it instead of into a dead stack frame.
class ScanRecorder {
public:
    struct Record {
        QStringList paths;
        qint64 bytes = 0;
        float percent = 0;
        int percentPosts = 0;
    };

    Progress progress() const
    {
        return [r = m_record](const QString &path, qint64 size) {
            r->paths << path;
            r->bytes += size;
        };
    }
    ShowPercent showPercent() const
    {
        return [r = m_record](float step) {
            r->percent += step;
            ++r->percentPosts;
        };
    }
    const Record &operator*() const { return *m_record; }
    const Record *operator->() const { return m_record.get(); }

    // Runs a module's scan through the driver to its end, with this record
    // hearing it; the program stops when the scan does not end in time.
    QList<Category> scanToEnd(int module, int timeoutMs = 60000) const
    {
        bool finished = false;
        KestalService::scan(module, progress(), showPercent(), [&](int) { finished = true; });
        if (!QTest::qWaitFor([&] { return finished; }, timeoutMs))
            qFatal("the scan of module %d did not end", module);
        return AppModuleService::categoriesOf(module);
    }

private:
    std::shared_ptr<Record> m_record = std::make_shared<Record>();
};
