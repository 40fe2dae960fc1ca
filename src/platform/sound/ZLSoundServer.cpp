#include "platform/sound/ZLSoundServer.h"

#include "platform/sound/ZLPulseSoundServer.h"

#include <cstdio>

std::unique_ptr<ZLSoundServer> ZLSoundServer::create()
{
    return std::make_unique<ZLPulseSoundServer>();
}

std::optional<QList<ZLOutputDevice>> ZLSoundServer::outputDevices()
{
    // The lines on standard error are fixed texts of the log.
    const ZLOutputReading reading = readOutputs();
    if (reading.error != 0) {
        std::fprintf(stderr, "AudioObjectGetPropertyData (kAudioHardwarePropertyDevices) failed: %d\n", reading.error);
        return std::nullopt;
    }
    QList<ZLOutputDevice> devices;
    for (const ZLOutputDevice& output : reading.outputs) {
        if (!output.id.isEmpty() && !output.name.isEmpty())
            devices.append(output);
        else
            std::fprintf(stderr, "AudioObjectGetPropertyData (kAudioDevicePropertyDeviceNameCFString) failed: %d\n", 0);
    }
    return devices;
}
