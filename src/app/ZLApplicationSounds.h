#pragma once

#include "platform/sound/ZLSoundServer.h"

#include <functional>
#include <memory>

/// The program's own sounds and the system's sound server, which plays them and knows the outputs.
class ZLApplicationSounds {
public:
    explicit ZLApplicationSounds(std::unique_ptr<ZLSoundServer> server = ZLSoundServer::create());

    [[nodiscard]] ZLSoundServer& server() { return *m_server; }

    /// Makes the sound with a name for a document; valid as long as this object lives. The bytes come from the program
    /// itself and the connection stays open, so nothing but the output's own latency lies between a press and the beep.
    [[nodiscard]] std::function<std::unique_ptr<ZLSound>(const QString& name)> soundNamed();

    /// Makes a sound of the bytes of a sound file; valid as long as this object lives.
    [[nodiscard]] std::function<std::unique_ptr<ZLSound>(const QByteArray& file)> soundMaker();

    /// Connects to the sound server if recordings start with a beep. To be called when settings can be read.
    void prepareForRecording();

private:
    std::unique_ptr<ZLSoundServer> m_server;
};
