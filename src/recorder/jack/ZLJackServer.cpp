#include "recorder/jack/ZLJackServer.h"

#include <QLoggingCategory>

#include <jack/jack.h>
#include <jack/transport.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <utility>

using namespace std::chrono_literals;

namespace {

Q_LOGGING_CATEGORY(jackLog, "zelta.recorder.jack")

constexpr std::chrono::milliseconds lookPause = 40ms;
constexpr std::chrono::milliseconds searchPause = 1s;
/// A server whose time stands for so long hangs.
constexpr std::chrono::milliseconds longestStandstill = 3s;
/// To leave the server properly takes a few milliseconds. One that hangs is left behind with its thread.
constexpr std::chrono::milliseconds leavePatience = 20ms;

}

/// What both threads and JACK's own share.
struct ZLJackServer::Line {
    std::mutex mutex;
    std::condition_variable changed;
    bool isOver = false;
    std::optional<bool> wishToRoll;
    std::atomic<bool> isShutDown = false;

    /// Returns early when there is something to do, and false when the work is to end.
    bool pause(std::chrono::milliseconds time)
    {
        std::unique_lock lock(mutex);
        changed.wait_for(lock, time, [this] { return isOver || wishToRoll; });
        return !isOver;
    }

    std::optional<bool> takeWish()
    {
        const std::lock_guard lock(mutex);
        return std::exchange(wishToRoll, std::nullopt);
    }

    template <typename Change>
    void change(const Change& carryOut)
    {
        {
            const std::lock_guard lock(mutex);
            carryOut();
        }
        changed.notify_all();
    }
};

namespace {

struct ClientEnd {
    void operator()(jack_client_t* client) const { jack_client_close(client); }
};
using Client = std::unique_ptr<jack_client_t, ClientEnd>;

/// Null where no server runs.
Client clientOfServer(std::atomic<bool>& isShutDown)
{
    isShutDown = false;
    Client client(jack_client_open("Zelta", JackNoStartServer, nullptr));
    // It comes on a thread of JACK.
    const auto shutDown = [](void* flag) { *static_cast<std::atomic<bool>*>(flag) = true; };
    if (!client)
        return client;
    jack_on_shutdown(client.get(), shutDown, &isShutDown);
    // The time of PipeWire stands until a client takes part. Without a callback this costs JACK's own server nothing.
    jack_activate(client.get());
    return client;
}

ZLJackTransport lookAt(const jack_client_t* client)
{
    jack_position_t position {};
    const jack_transport_state_t state = jack_transport_query(client, &position);
    return { state == JackTransportRolling, position.frame, double(position.frame_rate), position.usecs };
}

void roll(jack_client_t* client, bool isToRoll)
{
    if (isToRoll)
        jack_transport_start(client);
    else
        jack_transport_stop(client);
}

/// Whether the time of the server stands.
class Standstill {
public:
    [[nodiscard]] bool isTooLong(quint64 microseconds)
    {
        const auto now = std::chrono::steady_clock::now();
        if (microseconds != m_microseconds)
            m_since = now;
        m_microseconds = microseconds;
        return now - m_since > longestStandstill;
    }

private:
    quint64 m_microseconds = 0;
    std::chrono::steady_clock::time_point m_since = std::chrono::steady_clock::now();
};

/// Until the server goes, or hangs, or the work is to end. It may be gone already.
template <typename Line, typename Teller>
void serve(jack_client_t* client, Line& line, const Teller& tellTransport)
{
    Standstill standstill;
    do {
        if (const std::optional<bool> wish = line.takeWish())
            roll(client, *wish);
        const ZLJackTransport transport = lookAt(client);
        if (standstill.isTooLong(transport.microseconds))
            return;
        tellTransport(transport);
    } while (line.pause(lookPause) && !line.isShutDown);
}

}

ZLJackServer::ZLJackServer()
    : m_line(std::make_shared<Line>())
    , m_work(leavePatience)
{
    // JACK writes to standard error by itself.
    jack_set_error_function([](const char* text) { qCDebug(jackLog, "%s", text); });
    jack_set_info_function([](const char* text) { qCDebug(jackLog, "%s", text); });
    m_work.start([this, line = m_line](const ZLDiskWork::Teller& tell) {
        do {
            if (const Client client = clientOfServer(line->isShutDown)) {
                tell([this] { Q_EMIT didFind(); });
                serve(client.get(), *line, [this, &tell](const ZLJackTransport& transport) {
                    tell([this, transport] { Q_EMIT didLook(transport); });
                });
            }
            tell([this] { Q_EMIT didMiss(); });
            line->takeWish();
        } while (line->pause(searchPause));
    });
}

ZLJackServer::~ZLJackServer()
{
    m_line->change([this] { m_line->isOver = true; });
}

void ZLJackServer::startTransport()
{
    m_line->change([this] { m_line->wishToRoll = true; });
}

void ZLJackServer::stopTransport()
{
    m_line->change([this] { m_line->wishToRoll = false; });
}

quint64 ZLJackServer::microseconds()
{
    return jack_get_time();
}
