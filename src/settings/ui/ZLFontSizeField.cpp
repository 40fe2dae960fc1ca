#include "settings/ui/ZLFontSizeField.h"

QString ZLFontSizeField::textFromValue(double value) const
{
    return locale().toString(value, 'f', QLocale::FloatingPointShortest);
}
