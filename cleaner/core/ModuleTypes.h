#pragma once

#include "cleaner/core/FolderInfo.h"

#include <QImage>
#include <QList>
#include <QString>
#include <optional>

// One root of a category: a file URL string, its scan type, and the check
// state of what is found under it.
struct FolderUrl {
    QString url;
    QString type = QStringLiteral("Folder");
    int checked = 0;
};

struct Feature {
    QString image;
    QString description;
};

// A category of a module: its roots and, after a scan, its file tree. Scans
// work on a copy and store it back on the main thread.
struct Category {
    QString title;
    QString image;
    qint64 size = 0;
    QString description;
    FolderUrl url;
    QList<FolderUrl> urls;
    QString type = QStringLiteral("Folder");
    QList<FolderInfoPtr> files;
    int state = 0;
    std::optional<QImage> realImage;
    std::optional<int> finder;
};

// A row of the module table. A heading row ("Header") has no categories.
struct Module {
    QString title;
    QString image;
    QString tab;
    QString description;
    QList<Feature> features;
    std::optional<QList<Category>> categories;
    // Where a heading row stands in the left list: before this module index.
    std::optional<int> listBefore;

    bool isHeader() const { return tab == QLatin1String("Header"); }
};
