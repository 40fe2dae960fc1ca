#include "platform/sound/ZLPulseSoundServer.h"

#include "platform/sound/ZLPulseSound.h"

#include <QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(pulseSoundLog, "zelta.platform.sound")

/// For an answer that has not come; the sound system's own codes are positive.
constexpr int noAnswerError = -1;

}

ZLPulseSoundServer::ZLPulseSoundServer() = default;

bool ZLPulseSoundServer::isReachable()
{
    return connection()->answeredSnapshot().state == ZLPulseConnection::State::Ready;
}

std::unique_ptr<ZLSound> ZLPulseSoundServer::sound(const QByteArray& file)
{
    ZLResult<ZLSoundSamples> samples = ZLSoundSamples::decode(file);
    if (samples)
        return std::make_unique<ZLPulseSound>(connection(), std::move(samples).value());
    qCWarning(pulseSoundLog, "%s", qUtf8Printable(samples.error().message));
    return std::make_unique<ZLSilentSound>();
}

ZLOutputReading ZLPulseSoundServer::readOutputs()
{
    const ZLPulseConnection::Snapshot snapshot = connection()->answeredSnapshot();
    if (!snapshot.isListed && snapshot.reading.error == 0)
        return { .error = noAnswerError };
    return snapshot.reading;
}

const std::shared_ptr<ZLPulseConnection>& ZLPulseSoundServer::connection()
{
    if (!m_connection) {
        m_connection = std::make_shared<ZLPulseConnection>();
        connect(m_connection.get(), &ZLPulseConnection::didChange, this, &ZLPulseSoundServer::announceChange,
            Qt::QueuedConnection);
    }
    return m_connection;
}

void ZLPulseSoundServer::announceChange()
{
    const ZLPulseConnection::Snapshot snapshot = m_connection->snapshot();
    // An attempt that is on its way changes nothing yet. Who asks again when told so must not be told for that.
    if (snapshot.state == ZLPulseConnection::State::Connecting)
        return;
    if (snapshot.state == ZLPulseConnection::State::Ready && !snapshot.isListed)
        return;
    std::optional<QList<ZLOutputDevice>> outputs;
    if (snapshot.reading.error == 0)
        outputs = snapshot.reading.outputs;
    if (std::exchange(m_announced, outputs) != outputs)
        Q_EMIT outputDevicesDidChange();
}
