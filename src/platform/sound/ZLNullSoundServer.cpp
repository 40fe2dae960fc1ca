#include "platform/sound/ZLNullSoundServer.h"

namespace {

constexpr int noSoundSystemError = -1;

}

std::unique_ptr<ZLSound> ZLNullSoundServer::sound(const QByteArray&)
{
    return std::make_unique<ZLSilentSound>();
}

ZLOutputReading ZLNullSoundServer::readOutputs()
{
    return { .error = noSoundSystemError };
}
