#include "document/ui/ZLWindowStateStore.h"

#include <QDir>
#include <QSettings>

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
    const QString configured = qEnvironmentVariable("XDG_STATE_HOME");
    // The XDG rules ask for relative folders to be ignored.
    const QString folder = QDir::isAbsolutePath(configured) ? configured : QDir::homePath() + "/.local/state"_L1;
    return folder + "/zelta/window.ini"_L1;
}

std::optional<ZLWindowState> ZLWindowStateStore::load() const
{
    const QSettings file(m_path, QSettings::IniFormat);
    if (!file.contains(geometryKey))
        return std::nullopt;
    return ZLWindowState {
        .geometry = file.value(geometryKey).toByteArray(),
        .panels = file.value(panelsKey).toByteArray(),
        .titleShare = file.value(titleShareKey).toDouble(),
    };
}

void ZLWindowStateStore::save(const ZLWindowState& state) const
{
    QSettings file(m_path, QSettings::IniFormat);
    file.setValue(geometryKey, state.geometry);
    file.setValue(panelsKey, state.panels);
    file.setValue(titleShareKey, state.titleShare);
}
