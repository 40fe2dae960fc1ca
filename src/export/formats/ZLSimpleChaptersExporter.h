#pragma once

#include "export/ZLExporter.h"

/// Podlove Simple Chapters 1.2: one `psc:chapters` element with one empty element per enabled chapter, a line each.
/// The format is described at https://podlove.org/simple-chapters/.
class ZLSimpleChaptersExporter final : public ZLExporter {
public:
    [[nodiscard]] static ZLExportFormat format();

    /// Never fails. A text with characters that XML forbids gives a file that XML readers refuse.
    [[nodiscard]] ZLResult<QByteArray> exportedBytes(const ZLExportInput& input) const override;

    [[nodiscard]] QStringList advice(const ZLExportInput& input) const override;
};
