#include "cleaner/core/SwitchLanguageService.h"

#include "cleaner/core/Platform.h"
#include "cleaner/core/UserDefaults.h"

#include <QFileInfo>
#include <QTranslator>

namespace {

std::unique_ptr<QTranslator> g_bundle;

// The compiled table of a language, embedded in the program.
QString tablePath(const QString &language)
{
    return QStringLiteral(":/i18n/brenlow_") +
           QString(language).replace(QLatin1Char('-'), QLatin1Char('_')) + QStringLiteral(".qm");
}

void loadBundle(const QString &language)
{
    const QString path = tablePath(language);
    if (!QFileInfo::exists(path))
        return; // a missing table leaves the one in use
    auto translator = std::make_unique<QTranslator>();
    if (translator->load(path))
        g_bundle = std::move(translator);
}

} // namespace

const QString SwitchLanguageService::LocalLanguageKey =
    QStringLiteral("BrenlowSwitchLanguageService");
const QStringList SwitchLanguageService::languages = {
    QStringLiteral("en"), QStringLiteral("ja"), QStringLiteral("es"),
    QStringLiteral("fr"), QStringLiteral("de"), QStringLiteral("zh-Hant")};

QString SwitchLanguageService::mapSystemLanguage(const QString &tag)
{
    for (const char *code : {"en", "ja", "es", "fr", "de"}) {
        if (tag.startsWith(QLatin1String(code)))
            return QLatin1String(code);
    }
    if (tag.startsWith(QLatin1String("zh")))
        return QStringLiteral("zh-Hant");
    return QStringLiteral("en");
}

QString SwitchLanguageService::systemLanguage()
{
    const QStringList preferred = Platform::preferredLanguages();
    return mapSystemLanguage(preferred.isEmpty() ? QString() : preferred.first());
}

void SwitchLanguageService::initUserLanguage()
{
    if (userLanguage().isEmpty()) {
        UserDefaults::setValue(LocalLanguageKey, systemLanguage());
        UserDefaults::synchronize();
    }
    loadBundle(userLanguage());
}

QString SwitchLanguageService::userLanguage()
{
    return UserDefaults::value(LocalLanguageKey).toString();
}

void SwitchLanguageService::setUserLanguage(const QString &language)
{
    if (userLanguage() != language) {
        UserDefaults::setValue(LocalLanguageKey, language);
        UserDefaults::synchronize();
    }
    loadBundle(language);
}

QString SwitchLanguageService::getCurrentLanguage()
{
    const QString stored = userLanguage();
    return stored.isEmpty() ? systemLanguage() : stored;
}

QString SwitchLanguageService::languageMenuName(const QString &language)
{
    if (language == QLatin1String("ja"))
        return QStringLiteral("日本語");
    if (language == QLatin1String("es"))
        return QStringLiteral("Español");
    if (language == QLatin1String("fr"))
        return QStringLiteral("Français");
    if (language == QLatin1String("de"))
        return QStringLiteral("Deutsch");
    if (language == QLatin1String("zh-Hant"))
        return QStringLiteral("繁體中文");
    return QStringLiteral("English");
}

QTranslator *SwitchLanguageService::getBundle()
{
    return g_bundle.get();
}

QString getLocalizedString(const QString &key)
{
    QTranslator *bundle = SwitchLanguageService::getBundle();
    if (!bundle)
        return key;
    const QByteArray utf8 = key.toUtf8();
    const QString text = bundle->translate("English", utf8.constData());
    return text.isEmpty() ? key : text;
}
