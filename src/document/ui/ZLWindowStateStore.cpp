#include "document/ui/ZLWindowStateStore.h"

#include "platform/ZLStateFolder.h"
#include "settings/ZLSettingsFile.h"

using namespace Qt::StringLiterals;

namespace {

const QString geometryKey = QStringLiteral("window/geometry");
const QString panelsKey = QStringLiteral("window/panels");
const QString titleShareKey = QStringLiteral("window/titleShare");

}

ZLWindowStateStore::ZLWindowStateStore(const QString& path)
    : m_path(path)
{
}

QString ZLWindowStateStore::standardPath()
{
    return ZLStateFolder::path() + "/window.ini"_L1;
}

std::optional<ZLWindowState> ZLWindowStateStore::load() const
{
    const ZLSettingsFile file(m_path, ZLFileLinks::Refuse);
    if (!file.value(geometryKey).isValid())
        return std::nullopt;
    return ZLWindowState {
        .geometry = file.value(geometryKey).toByteArray(),
        .panels = file.value(panelsKey).toByteArray(),
        .titleShare = file.value(titleShareKey).toDouble(),
    };
}

void ZLWindowStateStore::save(const ZLWindowState& state) const
{
    ZLSettingsFile file(m_path, ZLFileLinks::Refuse);
    file.setValues(
        { { geometryKey, state.geometry }, { panelsKey, state.panels }, { titleShareKey, state.titleShare } });
}
