#include "app/ZLApplicationSounds.h"

#include "resources/sounds/ZLSoundResource.h"
#include "settings/ZLSettingsManager.h"

#include <utility>

ZLApplicationSounds::ZLApplicationSounds(std::unique_ptr<ZLSoundServer> server)
    : m_server(std::move(server))
{
}

std::function<std::unique_ptr<ZLSound>(const QString& name)> ZLApplicationSounds::soundNamed()
{
    return [this](const QString& name) { return m_server->sound(ZLSoundResource::named(name)); };
}

std::function<std::unique_ptr<ZLSound>(const QByteArray& file)> ZLApplicationSounds::soundMaker()
{
    return [this](const QByteArray& file) { return m_server->sound(file); };
}

void ZLApplicationSounds::prepareForRecording()
{
    if (ZLSettingsManager::playSoundBeforeRecording())
        m_server->prepare();
}
