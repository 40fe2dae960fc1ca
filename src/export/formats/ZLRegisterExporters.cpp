#include "export/formats/ZLRegisterExporters.h"

#include "export/formats/ZLAuphonicExporter.h"
#include "export/formats/ZLFinalCutExporter.h"
#include "export/formats/ZLHindenburgExporter.h"
#include "export/formats/ZLJSONExporter.h"
#include "export/formats/ZLMarkdownExporter.h"
#include "export/formats/ZLSimpleChaptersExporter.h"
#include "export/formats/ZLTagsExporter.h"
#include "export/formats/ZLYouTubeExporter.h"

namespace {

template <typename... Exporters>
bool registerExporters()
{
    (ZLExporter::registerExporter(ZLExporterClass::of<Exporters>()), ...);
    return true;
}

}

// Formats are named here rather than registering themselves in static initialisers: this is a static library, and the
// linker drops an object file that nothing refers to, its initialisers with it.
void ZLRegisterExporters()
{
    [[maybe_unused]] static const bool isRegistered =
        registerExporters<ZLAuphonicExporter, ZLFinalCutExporter, ZLHindenburgExporter, ZLJSONExporter,
            ZLMarkdownExporter, ZLSimpleChaptersExporter, ZLTagsExporter, ZLYouTubeExporter>();
}
