#include "cleaner/scan/ApplicationJunkService.h"

#include "cleaner/core/Platform.h"
#include "cleaner/scan/ApplicationJunkFolderInfo.h"

const QStringList ApplicationJunkService::WHILE_LIST = {
    QStringLiteral("ach"),   QStringLiteral("an"),  QStringLiteral("ast"),
    QStringLiteral("ay"),    QStringLiteral("bi"),  QStringLiteral("co"),
    QStringLiteral("fur"),   QStringLiteral("gd"),  QStringLiteral("gn"),
    QStringLiteral("ia"),    QStringLiteral("jv"),  QStringLiteral("ku"),
    QStringLiteral("la"),    QStringLiteral("mi"),  QStringLiteral("md"),
    QStringLiteral("no"),    QStringLiteral("oc"),  QStringLiteral("qu"),
    QStringLiteral("sa"),    QStringLiteral("sd"),  QStringLiteral("se"),
    QStringLiteral("su"),    QStringLiteral("tet"), QStringLiteral("tk_Cyrl"),
    QStringLiteral("tl"),    QStringLiteral("tlh"), QStringLiteral("tt"),
    QStringLiteral("wa"),    QStringLiteral("yi"),  QStringLiteral("zh_CN"),
    QStringLiteral("zh_TW"),
};

QString ApplicationJunkService::APPLICATIONS_PATH()
{
    return FolderInfo::absoluteString(FolderInfo::urlFromPath(Platform::languageResourcesPath()));
}

QLocale ApplicationJunkService::currentLocale()
{
    return QLocale();
}

void ApplicationJunkService::scanMail(Category &c, const Progress &progress,
                                      const ShowPercent &showPercent)
{
    auto [files, size] =
        ApplicationJunkFolderInfo::getMailInfoList(c.url.url, progress, showPercent);
    for (const FolderInfoPtr &f : files)
        f->checked = c.state;
    c.files = std::move(files);
    c.size = size;
}

QString ApplicationJunkService::changeLanguageBriefly(const QString &name)
{
    // Plain substring tests, in this order: a name holding an earlier code
    // takes that code.
    struct Rule {
        const char *code;
        const char *alias; // another text that means the same language
    };
    static constexpr Rule rules[] = {
        {"fr", "French"},  {"de", "German"}, {"it", "Italian"}, {"ja", nullptr}, {"pt", nullptr},
        {"ru", "Russian"}, {"es", nullptr},  {"cy", nullptr},   {"en", "uk"},
    };
    const auto has = [&](const char *text) { return text && name.contains(QLatin1String(text)); };
    if (has("ar"))
        return QStringLiteral("ar");
    if (has("zh"))
        return has("zh_HK")   ? QStringLiteral("hk")
               : has("zh_TW") ? QStringLiteral("tw")
                              : QStringLiteral("cn");
    for (const Rule &rule : rules) {
        if (has(rule.code) || has(rule.alias))
            return QString::fromLatin1(rule.code);
    }
    return name == QLatin1String("ko") ? QStringLiteral("ko") : name;
}
