#pragma once

#include "export/ZLExporter.h"

/// A list of exporter classes. The process has one, behind ZLExporter; tests make their own.
class ZLExporterRegistry {
public:
    /// Appends the class, without looking for duplicates; the base class is left out.
    void registerExporter(const ZLExporterClass& exporterClass);
    /// The classes in ascending order of their names, compared character by character.
    [[nodiscard]] QList<ZLExporterClass> allExporters() const;

private:
    QList<ZLExporterClass> m_classes;
};
