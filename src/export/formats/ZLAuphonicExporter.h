#pragma once

#include "export/ZLExporter.h"

/// Auphonic's chapter list: a line for each enabled chapter with its time in milliseconds, its title and its link in
/// angle brackets. The format is described at https://auphonic.com/help/web/metadata.html#chapter-marks.
class ZLAuphonicExporter final : public ZLExporter {
public:
    [[nodiscard]] static ZLExportFormat format();

    /// Never fails.
    [[nodiscard]] ZLResult<QByteArray> exportedBytes(const ZLExportInput& input) const override;

    [[nodiscard]] QStringList advice(const ZLExportInput& input) const override;
};
