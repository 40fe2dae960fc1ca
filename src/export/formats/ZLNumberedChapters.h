#pragma once

#include "export/ZLExporter.h"

#include <functional>
#include <optional>

/// Chapters of an export as a part of a sentence, by their numbers in the table.
namespace ZLNumberedChapters {

/// Which of them are looked at.
enum class Which { Enabled, All };

/// "chapter 4", "chapters 4 and 7", "chapters 4, 7 and 9", "chapters 4, 7, 9 and 12 more".
[[nodiscard]] QString text(const QList<qsizetype>& numbers);

/// The chapters for which `isMeant` holds; absent when there are none.
[[nodiscard]] std::optional<QString> that(
    const ZLExportInput& input, const std::function<bool(const ZLChapter&)>& isMeant, Which which = Which::Enabled);

}
