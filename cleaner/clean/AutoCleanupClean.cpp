#include "cleaner/clean/AutoCleanupClean.h"

#include "cleaner/clean/CleanResults.h"
#include "cleaner/clean/KestalModuleCleanService.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/scan/KestalAutoCleanupService.h"

#include <QSemaphore>

namespace {

// Passes a child's reports on, and opens the gate when its run has ended,
// so that the serial queue starts the next child only then.
class GatedClean : public KestalCleanProtocol {
public:
    GatedClean(std::shared_ptr<KestalCleanProtocol> inner, std::shared_ptr<QSemaphore> gate)
        : m_inner(std::move(inner)), m_gate(std::move(gate))
    {}

    void done(bool result, int ci, int status, int number, qint64 size) override
    {
        m_inner->done(result, ci, status, number, size);
        if (ci == -1)
            m_gate->release();
    }

private:
    std::shared_ptr<KestalCleanProtocol> m_inner;
    std::shared_ptr<QSemaphore> m_gate;
};

} // namespace

QList<AutoCleanupClean::Child> AutoCleanupClean::cleanableChildren()
{
    QList<Child> children;
    const qsizetype moduleCount = AppModuleService::appModules().size();
    const QList<Category> &rows = AppModuleService::categoriesOf(0);
    for (int row = 0; row < rows.size(); ++row) {
        const int module = KestalAutoCleanupService::childModuleIndex(rows[row].title);
        if (module < 0 || module >= moduleCount || rows[row].state == 0 ||
            AppModuleService::calculateModuleSizeAndNumber(module).second == 0)
            continue;
        children.append({row, module});
    }
    return children;
}

void AutoCleanupClean::cleanChildren(SerialQueue &queue, const QList<Child> &children,
                                     const ChildEnded &ended)
{
    for (const Child &child : children) {
        KestalCleanRecorder::handleClean(child.module);
        auto recorder = std::make_shared<KestalCleanRecorder>(
            child.module, [ended, child](bool, int ci, int status, int number, qint64 size) {
                if (ci == -1 && ended)
                    ended(child, status, number, size);
            });
        queue.async([module = child.module, recorder] {
            auto gate = std::make_shared<QSemaphore>();
            KestalModuleCleanService::analysisModule(module,
                                                     std::make_shared<GatedClean>(recorder, gate));
            gate->acquire();
        });
    }
}
