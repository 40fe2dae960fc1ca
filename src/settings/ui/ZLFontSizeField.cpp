#include "settings/ui/ZLFontSizeField.h"

QString ZLFontSizeField::textFromValue(double value) const
{
    return locale().toString(value, 'f', QLocale::FloatingPointShortest);
}

QSize ZLFontSizeField::sizeHint() const
{
    // The base class measures the texts of the two ends of its range, which have no fraction.
    const QString fraction = locale().toString(0.88, 'f', decimals()).mid(1);
    return QDoubleSpinBox::sizeHint() + QSize(fontMetrics().horizontalAdvance(fraction), 0);
}
