#include "lists/forms/ZLJSONValues.h"

#include "lists/ZLListTime.h"

#include <QCoreApplication>
#include <QJsonObject>

namespace {

struct ValueTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLJSONValues)
};

}

std::optional<QJsonArray> ZLJSONValues::arrayOf(const ZLListSource& source, const QString& name)
{
    if (!source.json() || !source.json()->isObject())
        return std::nullopt;
    const QJsonValue value = source.json()->object().value(name);
    return value.isArray() ? std::optional(value.toArray()) : std::nullopt;
}

std::optional<double> ZLJSONValues::number(const QJsonValue& value)
{
    if (value.isDouble())
        return value.toDouble();
    return ZLListTime::fromClock(QString(value.toString()).trimmed(), 1);
}

void ZLJSONValues::noteUntimed(ZLChapterList& list, qsizetype index)
{
    list.remarks.append({ 0, ValueTexts::tr("Chapter %1 has no time and was left out.").arg(index + 1) });
}
