#include "platform/osc/ZLOSCInPort.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

constexpr int messagesPerTurn = 32;
/// A turn also ends after this time, because what a message sets off may be slow.
constexpr double secondsPerTurn = 0.005;

}

ZLOSCInPort::ZLOSCInPort(
    QString label, QObject* parent, ZLOSCConnectedNetworks::Source networks, std::shared_ptr<const ZLHostClock> clock)
    : QObject(parent)
    , m_label(std::move(label))
    , m_clock(clock)
{
    const auto postWake = [this] { QMetaObject::invokeMethod(this, &ZLOSCInPort::wake, Qt::QueuedConnection); };
    m_receiver = std::make_unique<ZLOSCReceiver>(
        m_reception, postWake, ZLOSCConnectedNetworks(std::move(networks), clock), clock);
    m_receiver->moveToThread(&m_thread);
    m_deliveryTimer.setSingleShot(true);
    connect(&m_deliveryTimer, &QTimer::timeout, this, &ZLOSCInPort::deliverInTurn);
    m_thread.setObjectName(u"osc-input"_s);
    m_thread.start();
}

ZLOSCInPort::~ZLOSCInPort()
{
    // The socket has to go on the thread it lives on.
    runOnReceiver([this] { m_receiver->close(); });
    m_thread.quit();
    m_thread.wait();
}

void ZLOSCInPort::setFilter(Filter filter)
{
    runOnReceiver([&] { m_receiver->setFilter(std::move(filter)); });
}

void ZLOSCInPort::setAccessPolicy(const ZLOSCAccessPolicy& policy)
{
    runOnReceiver([&] { m_receiver->setAccessPolicy(policy); });
}

ZLStatus ZLOSCInPort::bind(ZLOSCPortRange range)
{
    m_port = 0;
    m_failure.clear();
    runOnReceiver([&] {
        const ZLResult<quint16> bound = m_receiver->bind(range);
        m_port = bound ? bound.value() : 0;
        m_failure = bound ? QString() : bound.error().message;
    });
    const ZLStatus status = m_port != 0 ? ZLStatus(ZLDone()) : ZLStatus(ZLError { m_failure });
    Q_EMIT portDidChange();
    return status;
}

void ZLOSCInPort::close()
{
    runOnReceiver([this] { m_receiver->close(); });
    m_port = 0;
    m_failure.clear();
    Q_EMIT portDidChange();
}

/// Delivers at once, but only once before the timer: the event loop handles posted events until there are no more, so a
/// flood could hold it if each delivery let the next event be posted.
void ZLOSCInPort::wake()
{
    m_deliveryTimer.start(0);
    deliver();
}

void ZLOSCInPort::deliverInTurn()
{
    m_reception.wakePosted = false;
    deliver();
}

void ZLOSCInPort::deliver()
{
    const QPointer<ZLOSCInPort> self(this);
    deliverMessages();
    if (self)
        deliverSamples();
}

void ZLOSCInPort::deliverMessages()
{
    const QPointer<ZLOSCInPort> self(this);
    const double begin = m_clock->now();
    int count = 0;
    // At least one, also on a computer that was busy for the whole turn: nothing would come back to it.
    do {
        const std::optional<ZLOSCReceivedMessage> received = m_reception.messages.take();
        if (!received)
            return;
        // Before the signal, because what it sets off may run an event loop of its own, in which messages go on.
        if (!m_reception.messages.isEmpty())
            m_deliveryTimer.start(0);
        Q_EMIT messageReceived(*received);
        if (!self)
            return;
    } while (++count < messagesPerTurn && m_clock->now() - begin < secondsPerTurn);
}

void ZLOSCInPort::deliverSamples()
{
    const QPointer<ZLOSCInPort> self(this);
    while (self) {
        const std::optional<ZLOSCDroppedDatagram> dropped = m_reception.samples.take();
        if (!dropped)
            return;
        Q_EMIT datagramDropped(*dropped);
    }
}

/// Waits for the receiving thread, which never waits for the main thread and looks for orders after a few datagrams.
void ZLOSCInPort::runOnReceiver(const std::function<void()>& order)
{
    QMetaObject::invokeMethod(m_receiver.get(), order, Qt::BlockingQueuedConnection);
}
