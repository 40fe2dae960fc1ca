#include "export/ZLExporterRegistry.h"

#include <algorithm>

void ZLExporterRegistry::registerExporter(const ZLExporterClass& exporterClass)
{
    if (exporterClass == ZLExporterClass::of<ZLExporter>())
        return;
    m_classes.append(exporterClass);
}

QList<ZLExporterClass> ZLExporterRegistry::allExporters() const
{
    QList<ZLExporterClass> sorted = m_classes;
    std::ranges::stable_sort(sorted, [](const ZLExporterClass& left, const ZLExporterClass& right) {
        return left.format().name.compare(right.format().name, Qt::CaseSensitive) < 0;
    });
    return sorted;
}
