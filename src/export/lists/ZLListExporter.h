#pragma once

#include "export/ZLExporter.h"
#include "lists/ZLListForm.h"

/// One of the further formats: a list of chapters of another program, see ZLListForms. These stand beside the registry
/// of the exporters, and are asked for files and written in the same way.
class ZLListExporter final : public ZLExporter {
public:
    explicit ZLListExporter(ZLListForm form);

    /// All of them, in the order of the menu.
    [[nodiscard]] static QList<ZLExporterClass> allForms();

    /// Never fails. Only enabled chapters from the start on are written.
    [[nodiscard]] ZLResult<QByteArray> exportedBytes(const ZLExportInput& input) const override;
    [[nodiscard]] QStringList advice(const ZLExportInput& input) const override;

private:
    ZLListForm m_form;
};
