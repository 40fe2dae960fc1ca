#pragma once

#include "export/ZLExporter.h"

/// A bullet list in Markdown: the titles of the enabled chapters, linked where there is a link. The option puts the
/// time in front of each.
class ZLMarkdownExporter final : public ZLExporter {
public:
    [[nodiscard]] static ZLExportFormat format();

    /// Never fails. Texts are written as they stand, so characters that mean something in Markdown mean it here too.
    [[nodiscard]] ZLResult<QByteArray> exportedBytes(const ZLExportInput& input) const override;

    [[nodiscard]] QStringList advice(const ZLExportInput& input) const override;

    /// "00:05:09": always with hours, without a sign.
    [[nodiscard]] static QString timeStringForChapter(const ZLChapter& chapter);
};
