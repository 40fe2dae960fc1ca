#pragma once

#include "export/ZLExporter.h"

#include <QStringList>

/// What the destination of an export will not like. It changes nothing of what is written: the user is told before the
/// file is, and decides.
namespace ZLExportAdvice {

/// One sentence for each rule of the format's destination that the export breaks; empty when there is nothing to tell.
/// Chapters are counted as in the table, from 1 and with the disabled ones.
[[nodiscard]] QStringList lines(const QString& formatName, const ZLExportInput& input);

/// The same for a format that may have further rules of its own.
[[nodiscard]] QStringList lines(const ZLExporterClass& exporterClass, const ZLExportInput& input);

/// The names of the formats that the rules speak of.
[[nodiscard]] QStringList formatsWithRules();

}
