#pragma once

#include <QByteArray>
#include <QString>

/// The sounds that come with the program.
namespace ZLSoundResource {

/// The bytes of the sound file with this name, for example "beep.aiff"; empty when there is none.
[[nodiscard]] QByteArray named(const QString& name);

}
