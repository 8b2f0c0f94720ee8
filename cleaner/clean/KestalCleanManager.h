#pragma once

#include "cleaner/clean/CleanProtocols.h"
#include "cleaner/clean/KestalCleanProtocol.h"

#include <QHash>
#include <QMap>
#include <memory>

// The accounting of one run of a module clean: what went in process, what
// was handed to the helper, and the merge of the helper's reports into the
// plan and the screen's totals. Every access happens under
// KestalModuleCleanService::lock(), so a report is merged after the tallies
// of its own category were written, and never while another merge runs.
class KestalCleanManager : public DeleteFilesProgressProtocol,
                           public std::enable_shared_from_this<KestalCleanManager> {
public:
    int moduleIndex;
    int cleanDone = 0;
    std::shared_ptr<KestalCleanProtocol> cleanController;
    QMap<int, qint64> ciSize;
    QMap<int, int> ciFileNumber;
    QMap<int, qint64> helpToolCiSize;
    QMap<int, int> helpToolCiFileNumber;
    QHash<QString, qint64> helpToolPathSize;
    // The categories of the run's plan, counted when the run starts.
    int categoryCount = 0;
    bool startClean = false;
    bool stopFinish = false;

    KestalCleanManager(int moduleIndex, std::shared_ptr<KestalCleanProtocol> controller);

    void processed(const QString &url, qint64 size, int moduleIndex) override;
    void finished(bool result, const PathMap &folders, int moduleIndex) override;
    void installFail(const QString &error, int moduleIndex) override;

    // In-process and helper tallies summed over every category.
    std::pair<int, qint64> totals(bool withHelper) const;
    // The words for an install failure number (given as text).
    static QString installFailureText(const QString &error);

private:
    void drainModelHelpTool();
    bool isClosed() const;
};
