#pragma once

#include "export/ZLExporter.h"

/// A document of the tests as it stands in a file: {"duration", "option", "fileBaseName", "chapters": [{"timeStamp",
/// "enabled", "title", "link"}]}. A title or link that is null is absent.
namespace ZLExportCase {

[[nodiscard]] ZLExportInput inputFromJson(const QByteArray& json);

/// The class of this name, from the process-wide list.
[[nodiscard]] ZLExporterClass exporterClass(const QString& name);

[[nodiscard]] ZLChapterPointer chapter(double seconds, const QString& title = QStringLiteral(""),
    const QString& link = QStringLiteral(""), bool isEnabled = true);

/// What the format writes of these chapters; a failure of the test where it writes nothing.
[[nodiscard]] QByteArray exported(const QString& formatName, const ZLExportInput& input);

}
