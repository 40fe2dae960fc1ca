#include "app/ZLApplication.h"

#include "export/ZLRegisterExporters.h"
#include "settings/ZLSettingsManager.h"

#include <utility>

namespace {

/// For the initialiser list: the defaults have to stand before the first member reads a setting.
ZLDocumentControllerSetup afterRegistering(ZLDocumentControllerSetup setup, float systemFontSize)
{
    ZLSettingsManager::registerDefaults(systemFontSize);
    ZLRegisterExporters();
    return setup;
}

}

ZLApplication::ZLApplication(ZLDocumentControllerSetup setup, float systemFontSize)
    : m_documentController(afterRegistering(std::move(setup), systemFontSize))
{
}
