#pragma once

#include "lists/ZLChapterList.h"
#include "lists/ZLListSource.h"

#include <QJsonArray>
#include <QJsonValue>

/// What the forms in JSON share.
namespace ZLJSONValues {

/// The array of this name in the outermost object; absent where there is none.
[[nodiscard]] std::optional<QJsonArray> arrayOf(const ZLListSource& source, const QString& name);

/// A number, or a text that holds one or a time with colons.
[[nodiscard]] std::optional<double> number(const QJsonValue& value);

/// Adds the remark that the chapter with this index, counted from 0, was left out.
void noteUntimed(ZLChapterList& list, qsizetype index);

}
