#pragma once

#include "export/ZLExporter.h"

/// A JSON array with one object for each enabled chapter: its number from 1, its start time in seconds as a
/// single-precision value with millisecond steps, and its title with the language "und".
class ZLJSONExporter final : public ZLExporter {
public:
    [[nodiscard]] static ZLExportFormat format();

    /// Never fails. The text is compact: no blanks, no line feeds.
    [[nodiscard]] ZLResult<QByteArray> exportedBytes(const ZLExportInput& input) const override;

    [[nodiscard]] QStringList advice(const ZLExportInput& input) const override;
};
