#include "resources/sounds/ZLSoundResource.h"

#include <QFile>

using namespace Qt::StringLiterals;

// A static library's resources have to be asked for; the macro only works outside of namespaces.
static void registerSounds()
{
    Q_INIT_RESOURCE(sounds);
}

QByteArray ZLSoundResource::named(const QString& name)
{
    registerSounds();
    QFile file(u":/sounds/"_s + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
