#pragma once

#include "export/ZLExporter.h"

/// The lines of a YouTube description that become chapters: a short time, the title and the link in angle brackets.
/// What YouTube asks of them is told at https://support.google.com/youtube/answer/9884579.
class ZLYouTubeExporter final : public ZLExporter {
public:
    [[nodiscard]] static ZLExportFormat format();

    /// Never fails.
    [[nodiscard]] ZLResult<QByteArray> exportedBytes(const ZLExportInput& input) const override;

    [[nodiscard]] QStringList advice(const ZLExportInput& input) const override;

    /// "05:09" in the first hour, "01:05:09" after it; without a sign.
    [[nodiscard]] static QString timeStringForChapter(const ZLChapter& chapter);
};
