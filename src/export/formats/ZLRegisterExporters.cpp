#include "export/formats/ZLRegisterExporters.h"

#include "export/formats/ZLAuphonicExporter.h"
#include "export/formats/ZLFinalCutExporter.h"
#include "export/formats/ZLHindenburgExporter.h"
#include "export/formats/ZLJSONExporter.h"
#include "export/formats/ZLMarkdownExporter.h"
#include "export/formats/ZLSimpleChaptersExporter.h"
#include "export/formats/ZLTagsExporter.h"
#include "export/formats/ZLYouTubeExporter.h"

// Formats are named here rather than registering themselves in static initialisers: this is a static library, and the
// linker drops an object file that nothing refers to, its initialisers with it.
void ZLRegisterExporters()
{
    static bool isRegistered = false;
    if (std::exchange(isRegistered, true))
        return;
    for (const ZLExporterClass& exporterClass : {
             ZLExporterClass::of<ZLAuphonicExporter>(),
             ZLExporterClass::of<ZLFinalCutExporter>(),
             ZLExporterClass::of<ZLHindenburgExporter>(),
             ZLExporterClass::of<ZLJSONExporter>(),
             ZLExporterClass::of<ZLMarkdownExporter>(),
             ZLExporterClass::of<ZLSimpleChaptersExporter>(),
             ZLExporterClass::of<ZLTagsExporter>(),
             ZLExporterClass::of<ZLYouTubeExporter>(),
         })
        ZLExporter::registerExporter(exporterClass);
}
