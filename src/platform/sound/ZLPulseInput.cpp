#include "platform/sound/ZLPulseInput.h"

#include <algorithm>
#include <utility>

ZLPulseInput::ZLPulseInput()
{
    m_retryTimer.setInterval(RetryInterval);
    connect(&m_retryTimer, &QTimer::timeout, this, &ZLPulseInput::retry);
}

void ZLPulseInput::prepare()
{
    if (!m_connection) {
        m_connection = std::make_shared<ZLPulseConnection>(ZLPulseConnection::Interest::Inputs);
        connect(m_connection.get(), &ZLPulseConnection::didChange, this, &ZLPulseInput::follow, Qt::QueuedConnection);
    }
    m_connection->connectToServer();
}

void ZLPulseInput::listenTo(const QString& id)
{
    prepare();
    m_wantedId = id;
    m_hasFailed = false;
    follow();
}

void ZLPulseInput::stop()
{
    m_wantedId.reset();
    m_stream.reset();
    m_retryTimer.stop();
    setState(State::Off);
}

std::vector<ZLHeardBlock> ZLPulseInput::takeBlocks()
{
    return m_stream ? m_stream->takeBlocks() : std::vector<ZLHeardBlock>();
}

void ZLPulseInput::follow()
{
    const ZLPulseConnection::Snapshot snapshot = m_connection->snapshot();
    followDevices(snapshot);
    if (!m_wantedId)
        return;
    if (snapshot.state == ZLPulseConnection::State::Failed) {
        m_stream.reset();
        m_retryTimer.start();
        setState(State::NoServer);
    } else if (!snapshot.isListed) {
        setState(m_state == State::NoServer ? State::NoServer : State::Opening);
    } else {
        openIfThere(snapshot.inputs);
    }
}

void ZLPulseInput::followDevices(const ZLPulseConnection::Snapshot& snapshot)
{
    // An attempt that is on its way changes nothing yet.
    if (snapshot.state != ZLPulseConnection::State::Failed && !snapshot.isListed)
        return;
    if (std::exchange(m_devices, snapshot.inputs.devices) != snapshot.inputs.devices)
        Q_EMIT devicesDidChange();
}

void ZLPulseInput::openIfThere(const ZLInputReading& inputs)
{
    const QString id = m_wantedId->isEmpty() ? inputs.defaultId : *m_wantedId;
    const bool isThere = std::ranges::find(inputs.devices, id, &ZLInputDevice::id) != inputs.devices.cend();
    if (!isThere) {
        m_stream.reset();
        m_hasFailed = false;
        setState(State::Missing);
    } else if (!m_hasFailed && (!m_stream || m_openId != id)) {
        open(id);
    }
}

void ZLPulseInput::open(const QString& id)
{
    m_openId = id;
    m_stream = std::make_unique<ZLPulseInputStream>(m_connection);
    // One that was replaced meanwhile has nothing to tell any more.
    const auto ifCurrent = [this, stream = m_stream.get()](void (ZLPulseInput::*note)()) {
        return [this, stream, note] {
            if (m_stream.get() == stream)
                (this->*note)();
        };
    };
    connect(
        m_stream.get(), &ZLPulseInputStream::didHear, this, ifCurrent(&ZLPulseInput::noteSound), Qt::QueuedConnection);
    connect(m_stream.get(), &ZLPulseInputStream::didFail, this, ifCurrent(&ZLPulseInput::noteFailure),
        Qt::QueuedConnection);
    setState(State::Opening);
    if (!m_stream->open(id))
        noteFailure();
}

void ZLPulseInput::noteFailure()
{
    m_stream.reset();
    m_hasFailed = true;
    m_retryTimer.start();
    if (m_state != State::NoServer)
        setState(State::Missing);
}

void ZLPulseInput::noteSound()
{
    m_retryTimer.stop();
    setState(State::Hearing);
    Q_EMIT didHear();
}

void ZLPulseInput::retry()
{
    m_hasFailed = false;
    m_connection->connectToServer();
    follow();
}

void ZLPulseInput::setState(State state)
{
    if (std::exchange(m_state, state) != state)
        Q_EMIT stateDidChange();
}
