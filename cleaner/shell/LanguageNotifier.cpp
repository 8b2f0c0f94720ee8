#include "cleaner/shell/LanguageNotifier.h"

LanguageNotifier *LanguageNotifier::defaultCenter()
{
    static LanguageNotifier center;
    return &center;
}
