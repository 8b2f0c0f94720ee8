#pragma once

#include "cleaner/core/SwitchLanguageService.h"

#include <QTranslator>

// The Eraser's and the archive window's texts: their own table of the
// translations first, then the program's common one.
inline QString erasureText(const QString &key)
{
    if (QTranslator *bundle = SwitchLanguageService::getBundle()) {
        const QString text = bundle->translate("Eraser", key.toUtf8().constData());
        if (!text.isEmpty())
            return text;
    }
    return getLocalizedString(key);
}
