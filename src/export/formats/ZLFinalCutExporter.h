#pragma once

#include "export/ZLExporter.h"

/// A Final Cut Pro X project (FCPXML 1.3) with one clip as long as the recording and a marker for each chapter from the
/// start on. Disabled chapters become plain markers; the option makes plain markers of all.
class ZLFinalCutExporter final : public ZLExporter {
public:
    [[nodiscard]] static ZLExportFormat format();

    /// Never fails. The project is called like the chosen file, unescaped: an ampersand in the file's name gives a file
    /// that XML readers refuse.
    [[nodiscard]] ZLResult<QByteArray> exportedBytes(const ZLExportInput& input) const override;

    [[nodiscard]] QStringList advice(const ZLExportInput& input) const override;
};
