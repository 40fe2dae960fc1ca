#include "model/ZLStoredValue.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

double leadingNumber(const QString& text)
{
    static const QRegularExpression number(uR"(^\s*[-+]?(\d+\.?\d*|\.\d+)([eE][-+]?\d+)?)"_s);
    return number.match(text.left(400)).captured().trimmed().toDouble();
}

}

double ZLStoredValue::number(const QVariant& value)
{
    return value.typeId() == QMetaType::QString ? leadingNumber(value.toString()) : value.toDouble();
}

bool ZLStoredValue::boolean(const QVariant& value)
{
    if (value.typeId() != QMetaType::QString)
        return value.toBool();
    const QString text = value.toString().trimmed().left(1).toLower();
    return text == "y"_L1 || text == "t"_L1 || leadingNumber(value.toString()) != 0.0;
}

QString ZLStoredValue::text(const QVariant& value)
{
    return value.isNull() ? QString() : value.toString();
}
