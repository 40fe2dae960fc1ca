#include "platform/ZLSound.h"

std::unique_ptr<ZLSound> ZLSound::soundNamed(const QString& name)
{
    Q_UNUSED(name);
    return std::make_unique<ZLSilentSound>();
}

void ZLSilentSound::play()
{
    Q_EMIT didFinishPlaying(false);
}
