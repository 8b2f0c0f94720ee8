#include "cleaner/shell/KestalSuperViewController.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/ByteCount.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/shell/KestalWarnningAndErrorViewController.h"
#include "cleaner/shell/LanguageNotifier.h"

#include <optional>

namespace {

struct Maps {
    QHash<QString, KestalSuperViewController::viewStatus> current;
    std::optional<QHash<QString, int>> tabChildren;
    std::optional<QHash<QString, int>> bottomTabChildren;
};

Maps &maps()
{
    static Maps instance;
    return instance;
}

constexpr KestalSuperViewController::viewStatus allStatuses[] = {
    KestalSuperViewController::viewStatus::overview,
    KestalSuperViewController::viewStatus::scanning,
    KestalSuperViewController::viewStatus::scandone_Empty,
    KestalSuperViewController::viewStatus::scandone_NoEmpty,
    KestalSuperViewController::viewStatus::detail,
    KestalSuperViewController::viewStatus::cleanning,
    KestalSuperViewController::viewStatus::cleandone,
    KestalSuperViewController::viewStatus::showLog};

} // namespace

KestalSuperViewController::KestalSuperViewController(QWidget *parent) : QWidget(parent)
{
    connect(LanguageNotifier::defaultCenter(), &LanguageNotifier::changeLanguage, this,
            [this] { reloadTexts(); });
}

std::pair<int, QString> KestalSuperViewController::viewStatusDict(viewStatus status)
{
    switch (status) {
    case viewStatus::overview:
        return {0, QStringLiteral(" Overview")};
    case viewStatus::scanning:
        return {1, QStringLiteral(" Scanning")};
    case viewStatus::scandone_Empty:
        return {3, QStringLiteral(" ScandoneEmpty")};
    case viewStatus::scandone_NoEmpty:
        return {2, QStringLiteral(" ScandoneNoEmpty")};
    case viewStatus::detail:
        return {4, QStringLiteral(" Detail")};
    case viewStatus::cleanning:
        return {5, QStringLiteral(" Cleanning")};
    case viewStatus::cleandone:
        return {6, QStringLiteral(" Cleandone")};
    case viewStatus::showLog:
        return {7, QStringLiteral(" ShowLog")};
    }
    return {0, QStringLiteral(" Overview")};
}

KestalSuperViewController::TopChild KestalSuperViewController::topChildOf(viewStatus status)
{
    switch (status) {
    case viewStatus::overview:
    case viewStatus::scanning:
        return TopChild::overviewAndScan;
    case viewStatus::scandone_Empty:
    case viewStatus::scandone_NoEmpty:
        return TopChild::showMessage;
    case viewStatus::detail:
        return TopChild::detail;
    case viewStatus::cleanning:
    case viewStatus::cleandone:
    case viewStatus::showLog:
        return TopChild::cleaningAndLog;
    }
    return TopChild::overviewAndScan;
}

QHash<QString, KestalSuperViewController::viewStatus> &
KestalSuperViewController::viewCurrentStatusDict()
{
    return maps().current;
}

KestalSuperViewController::viewStatus KestalSuperViewController::currentStatus(const QString &tab)
{
    return maps().current.value(tab, viewStatus::overview);
}

const QHash<QString, int> &KestalSuperViewController::tabChildrenDict()
{
    auto &cached = maps().tabChildren;
    if (!cached) {
        QHash<QString, int> dict;
        const QList<Module> &modules = AppModuleService::appModules();
        int base = 0;
        for (const Module &module : modules) {
            if (module.isHeader())
                continue;
            for (viewStatus status : allStatuses)
                dict.insert(module.tab + viewStatusDict(status).second,
                            base + int(topChildOf(status)));
            base += int(TopChild::count);
        }
        cached = std::move(dict);
    }
    return *cached;
}

const QHash<QString, int> &KestalSuperViewController::bottomTabChildrenDict()
{
    auto &cached = maps().bottomTabChildren;
    if (!cached) {
        QHash<QString, int> dict;
        int position = 0;
        for (const Module &module : AppModuleService::appModules()) {
            if (!module.isHeader())
                dict.insert(module.tab, position++);
        }
        cached = std::move(dict);
    }
    return *cached;
}

void KestalSuperViewController::reset()
{
    maps() = Maps();
}

QString KestalSuperViewController::byteString(qint64 size)
{
    return ByteCount::string(size);
}

void KestalSuperViewController::showAlert(const QString &info, bool isWarnning)
{
    KestalWarnningAndErrorViewController::desc = info;
    KestalWarnningAndErrorViewController::isWarnning = isWarnning;
    KestalWarnningAndErrorViewController::open(window());
}
