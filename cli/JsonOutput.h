#pragma once

#include "cleaner/core/ModuleTypes.h"

#include <QJsonObject>

// The records as JSON, with their own field names.
class JsonOutput {
public:
    static QJsonObject node(const FolderInfo &node);
    static QJsonObject category(const Category &category);
    static QJsonObject module(const Module &module, int index);
};
