#pragma once

#include "export/ZLExporter.h"

/// The titles of the enabled chapters on one line for a field of tags, a comma and a blank after each, the last one
/// too.
class ZLTagsExporter final : public ZLExporter {
public:
    [[nodiscard]] static ZLExportFormat format();

    /// Never fails.
    [[nodiscard]] ZLResult<QByteArray> exportedBytes(const ZLExportInput& input) const override;

    [[nodiscard]] QStringList advice(const ZLExportInput& input) const override;
};
