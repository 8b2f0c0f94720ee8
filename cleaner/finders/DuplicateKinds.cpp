// The review's kinds of duplicate groups, the renumbering after a clean, and
// the configuration's check.
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/Platform.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/finders/DuplicateFolderInfo.h"
#include "cleaner/finders/DuplicateService.h"

#include <QRegularExpression>

namespace {

using Kind = DuplicateService::duplicateKind;

struct KindTest {
    Kind kind;
    QStringList texts;
};

// First match wins. The shared MIME database of Linux words its types as
// "MPEG-4 video", "Matroska video", "PNG image", "FLAC audio", "PDF document",
// "OpenDocument spreadsheet": the generic word of each is added there.
const QList<KindTest> &kindTable()
{
    static const QList<KindTest> table = [] {
        const bool freedesktop = !Platform::isMacOS();
        QList<KindTest> t{
            {Kind::video, {QStringLiteral("MPEG-4"), QStringLiteral("movie")}},
            {Kind::image,
             {QStringLiteral("Portable Network Graphics image"), QStringLiteral("JPEG"),
              QStringLiteral("Graphics Interchange Format"), QStringLiteral("PNG")}},
            {Kind::music, {QStringLiteral("Waveform"), QStringLiteral("MP3")}},
            {Kind::documents, {QStringLiteral("Pages Publication"), QStringLiteral("Document")}}};
        if (freedesktop) {
            t[0].texts << QStringLiteral("video");
            t[1].texts << QStringLiteral("image");
            t[2].texts << QStringLiteral("audio");
            t[3].texts << QStringLiteral("spreadsheet") << QStringLiteral("presentation");
        }
        return t;
    }();
    return table;
}

QList<Category> ofKind(const QList<Category> &categories, Kind kind)
{
    if (kind == Kind::all)
        return categories;
    QList<Category> found;
    for (const Category &c : categories) {
        if (DuplicateService::kindOfType(c.type) == kind)
            found.append(c);
    }
    return found;
}

} // namespace

DuplicateService::duplicateKind DuplicateService::kindOfType(const QString &typeDescription)
{
    for (const KindTest &test : kindTable()) {
        for (const QString &text : test.texts) {
            if (typeDescription.contains(text, Qt::CaseInsensitive))
                return test.kind;
        }
    }
    return duplicateKind::other;
}

void DuplicateService::fasterFilterFile(const Done &done)
{
    const QList<Category> categories = AppModuleService::categoriesOf(moduleIndex);
    Dispatch::globalAsync([categories, done] {
        QMap<duplicateKind, QList<Category>> kinds;
        for (const Category &c : categories)
            kinds[kindOfType(c.type)].append(c);
        Dispatch::mainAsync([kinds, categories, done] {
            for (const auto &[kind, label] : duplicateId()) {
                Q_UNUSED(label);
                if (kind == duplicateKind::all)
                    continue;
                const QList<Category> list = kinds.value(kind);
                duplicateKindCategory()[kind] =
                    list.isEmpty() ? QList<Category>{DuplicateFolderInfo::emptyCategory()} : list;
            }
            duplicateKindCategory()[duplicateKind::all] = categories;
            if (done)
                done();
        });
    });
}

void DuplicateService::filterFile(duplicateKind kind)
{
    const QList<Category> found = ofKind(AppModuleService::categoriesOf(moduleIndex), kind);
    duplicateKindCategory()[kind] =
        found.isEmpty() ? QList<Category>{DuplicateFolderInfo::emptyCategory()} : found;
}

void DuplicateService::updateCategory()
{
    QList<Category> &categories = AppModuleService::categoriesOf(moduleIndex);
    for (int i = 0; i < categories.size(); ++i) {
        Category &c = categories[i];
        c.finder = i;
        c.size = c.files.isEmpty() ? 0 : c.files.size() * c.files.first()->size;
    }
}

bool DuplicateService::isPurnInt(const QString &text, qint64 *value)
{
    static const QRegularExpression integer(QStringLiteral("^\\s*([+-]?[0-9]+)\\s*$"));
    const QRegularExpressionMatch match = integer.match(text);
    if (!match.hasMatch())
        return false;
    bool fits = false;
    const qint64 number = match.captured(1).toLongLong(&fits);
    if (value)
        *value = fits ? number : 0;
    return true;
}

bool DuplicateService::saveConfiguration(const QString &text)
{
    qint64 value = 0;
    if (!isPurnInt(text, &value))
        return false;
    size = value;
    return true;
}

QString DuplicateService::notIntegerMessage()
{
    return getLocalizedString(QStringLiteral("The number entered can only be an integer"));
}
