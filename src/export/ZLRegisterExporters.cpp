#include "export/ZLRegisterExporters.h"

#include "export/ZLSimpleChaptersExporter.h"

// Formats are named here rather than registering themselves in static initialisers: this is a static library, and the
// linker drops an object file that nothing refers to, its initialisers with it.
void ZLRegisterExporters()
{
    [[maybe_unused]] static const bool isRegistered = [] {
        ZLExporter::registerExporter(ZLExporterClass::of<ZLSimpleChaptersExporter>());
        return true;
    }();
}
