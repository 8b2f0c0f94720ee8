// The privacy module over large generated browser stores: the read of all
// three browsers, and the clean of a whole group or of single records.
//   brenlow-bench-privacy scan
//   brenlow-bench-privacy whole
//   brenlow-bench-privacy rows N
// HOME names the home that holds the stores. Prints "ms=... records=...
// rss_kib=..." (peak resident memory of the process).
#include "cleaner/core/AppModuleService.h"
#include "cleaner/privacy/PrivacyService.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <cstdio>
#include <sys/resource.h>

namespace {

QList<Category> &browsers()
{
    return AppModuleService::categoriesOf(PrivacyService::moduleIndex);
}

int read()
{
    PrivacyService::updateModule(PrivacyFolderInfo::getChromeInfoList({}),
                                 QStringLiteral("chrome"));
    PrivacyService::updateModule(PrivacyFolderInfo::getFireFoxInfoList({}),
                                 QStringLiteral("firefox"));
    PrivacyService::updateModule(PrivacyFolderInfo::getSafariInfoList({}),
                                 QStringLiteral("safari"));
    int records = 0;
    for (const Category &c : browsers())
        for (const FolderInfoPtr &g : c.files)
            records += int(g->children.size());
    return records;
}

// Ticks the visit group of each browser whole, or its first n records.
int tickVisits(int n)
{
    int ticked = 0;
    for (int ci = 0; ci < 2; ++ci) {
        const FolderInfoPtr visits = browsers()[ci].files.value(0);
        if (!visits)
            continue;
        if (n < 0) {
            AppModuleService::updateState(1, PrivacyService::moduleIndex, ci, 0, -1);
            ticked += int(visits->children.size());
            continue;
        }
        for (int k = 0; k < n && k < visits->children.size(); ++k, ++ticked)
            visits->children[k]->checked = 1;
        visits->checked = -1;
        browsers()[ci].state = -1;
    }
    return ticked;
}

long peakKiB()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QString mode = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    QElapsedTimer timer;
    if (mode == QLatin1String("scan")) {
        timer.start();
        const int records = read();
        std::printf("ms=%lld records=%d rss_kib=%ld\n", timer.elapsed(), records, peakKiB());
        return 0;
    }
    if (mode != QLatin1String("whole") && mode != QLatin1String("rows")) {
        std::fprintf(stderr, "usage: brenlow-bench-privacy scan|whole|rows N\n");
        return 1;
    }
    read();
    const int ticked =
        tickVisits(mode == QLatin1String("whole") ? -1 : (argc > 2 ? atoi(argv[2]) : 1000));
    timer.start();
    const int cleaned =
        PrivacyService::cleanChrome(0).second + PrivacyService::cleanFirefox(1).second;
    std::printf("ms=%lld records=%d ticked=%d rss_kib=%ld\n", timer.elapsed(), cleaned, ticked,
                peakKiB());
    return 0;
}
