#include "platform/sound/ZLPulseSound.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>
#include <utility>

using namespace std::chrono_literals;

namespace {

/// An output may sleep, and a wireless one takes a while to wake up.
constexpr int wakingUpMilliseconds = 3000;

bool isOutputMissing(const ZLOutputReading& reading, const QString& identifier)
{
    if (reading.error != 0)
        return false;
    const auto hasIdentifier = [&identifier](const ZLOutputDevice& output) { return output.id == identifier; };
    return identifier.isEmpty() ? reading.outputs.isEmpty()
                                : std::none_of(reading.outputs.begin(), reading.outputs.end(), hasIdentifier);
}

}

ZLPulseSound::ZLPulseSound(std::shared_ptr<ZLPulseConnection> connection, ZLSoundSamples samples)
    : m_connection(std::move(connection))
    , m_samples(std::move(samples))
{
    // Queued, because the connection speaks with its lock held.
    connect(m_connection.get(), &ZLPulseConnection::didChange, this, &ZLPulseSound::proceed, Qt::QueuedConnection);
    m_endTimer.setSingleShot(true);
    m_endTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_endTimer, &QTimer::timeout, this, &ZLPulseSound::endIsDue);
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, [this] { finish(false); });
}

void ZLPulseSound::play()
{
    if (m_isPlaying)
        return;
    m_isPlaying = true;
    m_isDrained = false;
    m_connection->connectToServer();
    m_patience.start(m_connection->remainingPatience());
    proceed();
}

void ZLPulseSound::proceed()
{
    if (!m_isPlaying || m_stream)
        return;
    const ZLPulseConnection::Snapshot snapshot = m_connection->snapshot();
    // Asked for by name, an output that is not there would be replaced by the default one on some systems.
    const bool isUnplayable = snapshot.state == ZLPulseConnection::State::Failed
        || (snapshot.isListed && isOutputMissing(snapshot.reading, playbackDeviceIdentifier()));
    if (isUnplayable)
        finish(false);
    else if (snapshot.isListed)
        openStream(playbackDeviceIdentifier());
}

void ZLPulseSound::openStream(const QString& deviceIdentifier)
{
    m_patience.start(wakingUpMilliseconds + m_samples.milliseconds());
    m_stream = std::make_unique<ZLPulseStream>(m_connection, m_samples);
    connect(m_stream.get(), &ZLPulseStream::didProgress, this, &ZLPulseSound::expectEnd, Qt::QueuedConnection);
    connect(m_stream.get(), &ZLPulseStream::didDrain, this, &ZLPulseSound::streamDidDrain, Qt::QueuedConnection);
    const auto fail = [this] { finish(false); };
    connect(m_stream.get(), &ZLPulseStream::didFail, this, fail, Qt::QueuedConnection);
    if (!m_stream->open(deviceIdentifier))
        finish(false);
}

void ZLPulseSound::expectEnd()
{
    if (!m_stream)
        return;
    const auto remaining = m_stream->remainingTime();
    const bool isBegun = m_isDrained || m_stream->isHeard();
    if (isBegun && remaining)
        m_endTimer.start(std::chrono::ceil<std::chrono::milliseconds>(*remaining));
}

void ZLPulseSound::endIsDue()
{
    const auto remaining = m_stream->remainingTime();
    if (!remaining || *remaining < 1ms)
        finish(true);
    else
        expectEnd();
}

void ZLPulseSound::streamDidDrain()
{
    m_isDrained = true;
    if (!m_endTimer.isActive())
        finish(true);
}

void ZLPulseSound::finish(bool finished)
{
    if (!m_isPlaying)
        return;
    m_isPlaying = false;
    m_patience.stop();
    m_endTimer.stop();
    m_stream.reset();
    // What the stream still had to say is not about the next one.
    QCoreApplication::removePostedEvents(this, QEvent::MetaCall);
    Q_EMIT didFinishPlaying(finished);
}
