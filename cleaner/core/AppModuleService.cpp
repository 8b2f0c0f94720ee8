#include "cleaner/core/AppModuleService.h"

#include "cleaner/core/Bundle.h"
#include "cleaner/core/Fatal.h"
#include "cleaner/core/Platform.h"
#include "cleaner/core/PropertyList.h"

#include <QSet>
#include <memory>

namespace {

struct Tables {
    QString fileName;
    QList<Module> live;
    QList<Module> pristine;
};

std::unique_ptr<Tables> g_tables;

bool isString(const QVariant &v)
{
    return v.typeId() == QMetaType::QString;
}

bool isInteger(const QVariant &v)
{
    return v.typeId() == QMetaType::LongLong || v.typeId() == QMetaType::Int;
}

QString requiredString(const QVariantMap &map, const char *key, const QString &where)
{
    const QVariant v = map.value(QLatin1String(key));
    if (!isString(v))
        fatalStop(where + QStringLiteral(": required key \"") + QLatin1String(key) +
                  QStringLiteral("\" is missing or not a string"));
    return v.toString();
}

QList<Category> parseCategories(const QVariantList &list, const QString &where)
{
    QList<Category> categories;
    for (const QVariant &item : list) {
        if (item.typeId() != QMetaType::QVariantMap)
            fatalStop(where + QStringLiteral(": a category is not a dictionary"));
        const QVariantMap map = item.toMap();
        Category c;
        c.title = requiredString(map, "title", where);
        c.image = requiredString(map, "image", where);
        c.description = requiredString(map, "description", where);
        if (const QVariant v = map.value(QStringLiteral("size")); isInteger(v))
            c.size = v.toLongLong();
        if (const QVariant v = map.value(QStringLiteral("type")); isString(v))
            c.type = v.toString();
        if (const QVariant v = map.value(QStringLiteral("state")); isInteger(v))
            c.state = v.toInt();
        if (const QVariant v = map.value(QStringLiteral("finder")); isInteger(v))
            c.finder = v.toInt();
        c.url = AppModuleService::updateModuleURLFormat(map.value(QStringLiteral("url")));
        c.urls = AppModuleService::updateModuleURLsFormat(map.value(QStringLiteral("urls")));
        categories.append(std::move(c));
    }
    return categories;
}

QList<Module> loadModules()
{
    return AppModuleService::parseModules(Bundle::requiredEditionList(QStringLiteral("Modules")));
}

Tables &tables()
{
    if (!g_tables) {
        auto t = std::make_unique<Tables>();
        const QVariant name = Bundle::objectForInfoDictionaryKey(QStringLiteral("File Name"));
        if (!isString(name) || name.toString().isEmpty())
            fatalStop(QStringLiteral("\"File Name\" is missing from Info.plist in ") +
                      Platform::resourcesPath());
        t->fileName = name.toString();
        g_tables = std::move(t);
        g_tables->live = loadModules();
        g_tables->pristine = loadModules();
    }
    return *g_tables;
}

Category &categoryAt(int moduleIndex, int categoryIndex)
{
    QList<Category> &categories = AppModuleService::categoriesOf(moduleIndex);
    if (categoryIndex < 0 || categoryIndex >= categories.size())
        fatalStop(QStringLiteral("category index %1 out of range in module %2")
                      .arg(categoryIndex)
                      .arg(moduleIndex));
    return categories[categoryIndex];
}

FolderInfoPtr &fileAt(Category &c, int fileIndex)
{
    if (fileIndex < 0 || fileIndex >= c.files.size())
        fatalStop(
            QStringLiteral("file index %1 out of range in \"%2\"").arg(fileIndex).arg(c.title));
    return c.files[fileIndex];
}

// Steps 2 to 5 of a check-state change on category c; the caller rolls up.
void applyState(Category &c, int state, int fileIndex, std::optional<int> childrenIndex)
{
    if (fileIndex == -1) {
        for (const FolderInfoPtr &f : std::as_const(c.files)) {
            if (childrenIndex == -1) {
                for (const FolderInfoPtr &child : std::as_const(f->children))
                    child->checked = state;
            }
            f->checked = state;
        }
        return;
    }
    FolderInfoPtr &file = fileAt(c, fileIndex);
    if (!childrenIndex) {
        file->checked = state;
        return;
    }
    if (*childrenIndex == -1) {
        for (const FolderInfoPtr &child : std::as_const(file->children))
            child->checked = state;
    } else {
        if (*childrenIndex < 0 || *childrenIndex >= file->children.size())
            fatalStop(QStringLiteral("child index %1 out of range").arg(*childrenIndex));
        file->children[*childrenIndex]->checked = state;
    }
    file->checked = AppModuleService::calculateParentState(file->children);
}

qint64 sumOfSizes(int moduleIndex)
{
    qint64 total = 0;
    const QList<Module> &modules = AppModuleService::appModules();
    if (moduleIndex < 0 || moduleIndex >= modules.size())
        return 0;
    for (const Category &c : modules[moduleIndex].categories.value_or(QList<Category>()))
        total += c.size;
    return total;
}

qint64 totalSize(int moduleIndex, bool doubleDuplicates)
{
    if (moduleIndex == 0) {
        // Rows 2 to 6 of the left list: the five modules Auto Cleanup runs.
        qint64 total = 0;
        const QList<int> rows = AppModuleService::leftListRows();
        for (int r = 2; r <= 6 && r < rows.size(); ++r)
            total += sumOfSizes(rows[r]);
        return total;
    }
    const qint64 sum = sumOfSizes(moduleIndex);
    return moduleIndex == 6 && doubleDuplicates ? sum * 2 : sum;
}

} // namespace

QList<Module> &AppModuleService::appModules()
{
    return tables().live;
}

const QList<Module> &AppModuleService::initAppModules()
{
    return tables().pristine;
}

QString AppModuleService::fileName()
{
    return tables().fileName;
}

void AppModuleService::reset()
{
    g_tables.reset();
}

QList<Category> &AppModuleService::categoriesOf(int moduleIndex)
{
    QList<Module> &modules = appModules();
    if (moduleIndex < 0 || moduleIndex >= modules.size())
        fatalStop(QStringLiteral("module index %1 out of range").arg(moduleIndex));
    if (!modules[moduleIndex].categories)
        fatalStop(QStringLiteral("module %1 has no categories").arg(moduleIndex));
    return *modules[moduleIndex].categories;
}

QList<Module> AppModuleService::parseModules(const QVariant &root)
{
    if (root.typeId() != QMetaType::QVariantList)
        fatalStop(QStringLiteral("the module list is not an array"));
    QList<Module> modules;
    const QVariantList rows = root.toList();
    for (int i = 0; i < rows.size(); ++i) {
        const QString where = QStringLiteral("module row %1").arg(i);
        if (rows[i].typeId() != QMetaType::QVariantMap)
            fatalStop(where + QStringLiteral(" is not a dictionary"));
        const QVariantMap map = rows[i].toMap();
        Module m;
        m.title = requiredString(map, "title", where);
        m.image = requiredString(map, "image", where);
        m.tab = requiredString(map, "tab", where);
        m.description = requiredString(map, "description", where);
        const QVariant features = map.value(QStringLiteral("features"));
        if (features.typeId() != QMetaType::QVariantList)
            fatalStop(where +
                      QStringLiteral(": required key \"features\" is missing or not an array"));
        for (const QVariant &f : features.toList()) {
            const QVariantMap fm = f.toMap();
            m.features.append(
                {requiredString(fm, "image", where), requiredString(fm, "description", where)});
        }
        if (map.contains(QStringLiteral("categories")))
            m.categories = parseCategories(map.value(QStringLiteral("categories")).toList(), where);
        if (const QVariant v = map.value(QStringLiteral("listBefore")); isInteger(v))
            m.listBefore = v.toInt();
        modules.append(std::move(m));
    }
    return modules;
}

QString AppModuleService::updateModuleURL(const QString &url)
{
    QString result = url;
    // Absolute system roots live under the root prefix, so a whole system can
    // be stood in by a folder; the home shorthand expands to the user's home.
    const QString root = Platform::root();
    if (!root.isEmpty() && result.startsWith(QLatin1String("file:///")))
        result.insert(7, root);
    result.replace(QStringLiteral("file://~/"),
                   QStringLiteral("file://") + Platform::homeDirectory() + QLatin1Char('/'));
    return result;
}

FolderUrl AppModuleService::updateModuleURLFormat(const QVariant &value)
{
    if (isString(value))
        return FolderUrl{updateModuleURL(value.toString()), QStringLiteral("Folder"), 0};
    if (value.typeId() == QMetaType::QVariantMap) {
        const QVariantMap map = value.toMap();
        for (const char *key : {"url", "type", "checked"}) {
            if (!map.contains(QLatin1String(key)))
                fatalStop(QStringLiteral("a url entry has no \"%1\"").arg(QLatin1String(key)));
        }
        return FolderUrl{updateModuleURL(map.value(QStringLiteral("url")).toString()),
                         map.value(QStringLiteral("type")).toString(),
                         map.value(QStringLiteral("checked")).toInt()};
    }
    return FolderUrl{QString(), QStringLiteral("Folder"), 0};
}

QList<FolderUrl> AppModuleService::updateModuleURLsFormat(const QVariant &value)
{
    QList<FolderUrl> result;
    if (value.typeId() != QMetaType::QVariantList)
        return result;
    const QVariantList list = value.toList();
    const bool allStrings = std::all_of(list.begin(), list.end(), isString);
    const bool allMaps = std::all_of(list.begin(), list.end(), [](const QVariant &v) {
        return v.typeId() == QMetaType::QVariantMap;
    });
    if (allStrings) {
        for (const QVariant &v : list)
            result.append(FolderUrl{updateModuleURL(v.toString()), QStringLiteral("Folder"), 0});
    } else if (allMaps) {
        for (const QVariant &v : list)
            result.append(updateModuleURLFormat(v));
    }
    return result;
}

int AppModuleService::calculateParentState(const QList<FolderInfoPtr> &files)
{
    if (files.isEmpty())
        return 0;
    int sum = 0;
    bool partly = false;
    for (const FolderInfoPtr &f : files) {
        if (f->checked == -1)
            partly = true;
        else
            sum += f->checked;
    }
    if (partly)
        return -1;
    if (sum == 0)
        return 0;
    return sum == files.size() ? 1 : -1;
}

void AppModuleService::updateState(int state, int moduleIndex, int categoryIndex,
                                   std::optional<int> fileIndex, std::optional<int> childrenIndex)
{
    Category &c = categoryAt(moduleIndex, categoryIndex);
    if (!fileIndex) {
        c.state = state;
        return;
    }
    applyState(c, state, *fileIndex, childrenIndex);
    c.state = calculateParentState(c.files);
}

void AppModuleService::largeAndOldFileUpdateState(int state, int moduleIndex, int categoryIndex,
                                                  std::optional<int> fileIndex,
                                                  std::optional<int> childrenIndex)
{
    Category &c = categoryAt(moduleIndex, categoryIndex);
    if (!fileIndex) {
        c.state = state;
        return;
    }
    int position = *fileIndex;
    if (position != -1) {
        // The file is named by its identity: the first one with that findex.
        position = 0;
        for (int i = 0; i < c.files.size(); ++i) {
            if (c.files[i]->findex == *fileIndex) {
                position = i;
                break;
            }
        }
    }
    applyState(c, state, position, childrenIndex);
    // The category shown is a view on another: the first category's `finder`
    // names the one whose state is recomputed.
    QList<Category> &categories = categoriesOf(moduleIndex);
    if (categories.isEmpty())
        return;
    const int target = categories.first().finder.value_or(0);
    Category &shown = categoryAt(moduleIndex, target);
    shown.state = calculateParentState(shown.files);
}

std::pair<double, int> AppModuleService::calculateModuleSizeAndNumber(int moduleIndex)
{
    const QList<Category> &categories = categoriesOf(moduleIndex);
    double size = 0;
    int number = 0;
    if (moduleIndex == 10) {
        for (const Category &c : categories)
            size += double(c.size);
        return {size, int(categories.size())};
    }
    QSet<QString> counted;
    const bool guarded = moduleIndex == 7;
    for (const Category &c : categories) {
        if (c.state == 0)
            continue;
        for (const FolderInfoPtr &f : c.files) {
            if (f->checked == -1) {
                for (const FolderInfoPtr &child : f->children) {
                    if (child->checked == 1) {
                        ++number;
                        size += double(child->size);
                    }
                }
                // Module 7 counts a partly selected parent whole, on top of its
                // checked children, once across categories.
                if (guarded && !counted.contains(f->absoluteString())) {
                    ++number;
                    size += double(f->size);
                    counted.insert(f->absoluteString());
                }
            } else if (f->checked == 1) {
                if (guarded) {
                    if (counted.contains(f->absoluteString()))
                        continue;
                    counted.insert(f->absoluteString());
                }
                ++number;
                size += double(f->size);
            }
        }
    }
    return {size, number};
}

int AppModuleService::indexOfTitle(const QString &title)
{
    const QList<Module> &modules = appModules();
    for (int i = 0; i < modules.size(); ++i) {
        if (modules[i].title == title)
            return i;
    }
    return 0;
}

QList<int> AppModuleService::leftListRows()
{
    const QList<Module> &modules = appModules();
    QList<int> rows;
    for (int i = 0; i < modules.size(); ++i) {
        for (int h = 0; h < modules.size(); ++h) {
            if (modules[h].isHeader() && modules[h].listBefore == i)
                rows.append(h);
        }
        if (!(modules[i].isHeader() && modules[i].listBefore))
            rows.append(i);
    }
    return rows;
}

int AppModuleService::rowOfTitle(const QString &title)
{
    const QList<Module> &modules = appModules();
    const QList<int> rows = leftListRows();
    for (int r = 0; r < rows.size(); ++r) {
        if (modules[rows[r]].title == title)
            return r;
    }
    return 0;
}

qint64 CategoryTotals::classTotalSize(int moduleIndex)
{
    return totalSize(moduleIndex, true);
}

qint64 CategoryTotals::instanceTotalSize(int moduleIndex)
{
    return totalSize(moduleIndex, false);
}
