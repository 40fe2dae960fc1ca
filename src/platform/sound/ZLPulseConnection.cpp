#include "platform/sound/ZLPulseConnection.h"

#include "platform/sound/ZLPulseLock.h"

#include <pulse/context.h>
#include <pulse/error.h>
#include <pulse/introspect.h>
#include <pulse/proplist.h>
#include <pulse/subscribe.h>
#include <pulse/thread-mainloop.h>

#include <QLoggingCategory>

#include <chrono>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(pulseConnectionLog, "zelta.platform.sound")

/// A server that the system starts on demand takes its time. No window waits for it, only the beep does.
constexpr int soundPatienceMilliseconds = 1000;

void forgetOperation(pa_operation* operation)
{
    if (operation)
        pa_operation_unref(operation);
}

}

ZLPulseConnection::ZLPulseConnection(Interest interest)
    : m_interest(interest)
    , m_mainloop(pa_threaded_mainloop_new())
{
    if (m_mainloop && pa_threaded_mainloop_start(m_mainloop) != 0)
        pa_threaded_mainloop_free(std::exchange(m_mainloop, nullptr));
}

ZLPulseConnection::~ZLPulseConnection()
{
    if (!m_mainloop)
        return;
    {
        const ZLPulseLock lock(m_mainloop);
        dropContext();
    }
    pa_threaded_mainloop_stop(m_mainloop);
    pa_threaded_mainloop_free(m_mainloop);
}

void ZLPulseConnection::connectToServer()
{
    {
        const std::scoped_lock guard(m_mutex);
        if (m_snapshot.state == State::Connecting || m_snapshot.state == State::Ready)
            return;
        m_snapshot = { .state = State::Connecting };
        m_answerDeadline.setRemainingTime(ZLSoundServer::FirstAnswerMilliseconds);
        m_soundDeadline.setRemainingTime(soundPatienceMilliseconds);
    }
    if (!m_mainloop) {
        publish({ .state = State::Failed, .reading = { .error = PA_ERR_INTERNAL } });
        return;
    }
    const ZLPulseLock lock(m_mainloop);
    dropContext();
    openContext();
}

ZLPulseConnection::Snapshot ZLPulseConnection::snapshot() const
{
    const std::scoped_lock guard(m_mutex);
    return m_snapshot;
}

ZLPulseConnection::Snapshot ZLPulseConnection::answeredSnapshot()
{
    connectToServer();
    std::unique_lock guard(m_mutex);
    const auto isAnswered = [this] { return m_snapshot.state == State::Failed || m_snapshot.isListed; };
    // The program does not wait again for a server that once gave no answer in time.
    if (!m_isSilent) {
        const std::chrono::milliseconds patience(m_answerDeadline.remainingTime());
        m_isSilent = !m_answered.wait_for(guard, patience, isAnswered);
    }
    return m_snapshot;
}

int ZLPulseConnection::remainingPatience() const
{
    const std::scoped_lock guard(m_mutex);
    return m_isSilent ? 0 : int(m_soundDeadline.remainingTime());
}

void ZLPulseConnection::openContext()
{
    pa_proplist* properties = pa_proplist_new();
    pa_proplist_sets(properties, PA_PROP_APPLICATION_ID, "org.zelta.Zelta");
    m_context = pa_context_new_with_proplist(pa_threaded_mainloop_get_api(m_mainloop), "Zelta", properties);
    pa_proplist_free(properties);
    const auto stateDidChange = [](pa_context*, void* self) {
        static_cast<ZLPulseConnection*>(self)->contextStateDidChange();
    };
    pa_context_set_state_callback(m_context, stateDidChange, this);
    qCDebug(pulseConnectionLog, "connecting to the sound server");
    // Starting a server would block until it runs; where none is running, the desktop wants none.
    if (pa_context_connect(m_context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0)
        publish({ .state = State::Failed, .reading = { .error = pa_context_errno(m_context) } });
}

void ZLPulseConnection::dropContext()
{
    if (!m_context)
        return;
    pa_context_set_state_callback(m_context, nullptr, nullptr);
    pa_context_set_subscribe_callback(m_context, nullptr, nullptr);
    pa_context_disconnect(m_context);
    pa_context_unref(std::exchange(m_context, nullptr));
}

void ZLPulseConnection::contextStateDidChange()
{
    const pa_context_state_t state = pa_context_get_state(m_context);
    if (state == PA_CONTEXT_READY) {
        contextIsReady();
    } else if (!PA_CONTEXT_IS_GOOD(state)) {
        const int error = pa_context_errno(m_context);
        qCInfo(pulseConnectionLog, "no sound server: %s", pa_strerror(error));
        publish({ .state = State::Failed, .reading = { .error = error } });
    }
}

void ZLPulseConnection::contextIsReady()
{
    m_outputsBeingListed.clear();
    m_inputsBeingListed = {};
    publish({ .state = State::Ready });
    const auto listDidChange = [](pa_context*, pa_subscription_event_type_t, uint32_t, void* self) {
        static_cast<ZLPulseConnection*>(self)->askForList();
    };
    pa_context_set_subscribe_callback(m_context, listDidChange, this);
    // Which source is the default one is a matter of the server's.
    const auto matters = m_interest == Interest::Outputs
        ? PA_SUBSCRIPTION_MASK_SINK
        : pa_subscription_mask_t(PA_SUBSCRIPTION_MASK_SOURCE | PA_SUBSCRIPTION_MASK_SERVER);
    // Subscribed before asked, so that what changes in between is announced.
    forgetOperation(pa_context_subscribe(m_context, matters, nullptr, nullptr));
    askForList();
}

void ZLPulseConnection::askForList()
{
    if (m_interest == Interest::Outputs)
        askForOutputs();
    else
        askForInputs();
}

void ZLPulseConnection::askForOutputs()
{
    const auto outputWasListed = [](pa_context*, const pa_sink_info* output, int end, void* self) {
        static_cast<ZLPulseConnection*>(self)->outputWasListed(output, end);
    };
    forgetOperation(pa_context_get_sink_info_list(m_context, outputWasListed, this));
}

void ZLPulseConnection::outputWasListed(const pa_sink_info* output, int end)
{
    if (end == 0) {
        m_outputsBeingListed.append({ QString::fromUtf8(output->name), QString::fromUtf8(output->description) });
        return;
    }
    ZLOutputReading reading { .outputs = std::exchange(m_outputsBeingListed, {}) };
    if (end < 0)
        reading = { .error = pa_context_errno(m_context) };
    publish({ .state = State::Ready, .isListed = true, .reading = std::move(reading) });
}

void ZLPulseConnection::askForInputs()
{
    const auto serverWasTold = [](pa_context*, const pa_server_info* server, void* self) {
        // A server without any source has no default one.
        if (server)
            static_cast<ZLPulseConnection*>(self)->m_inputsBeingListed.defaultId =
                QString::fromUtf8(server->default_source_name);
    };
    forgetOperation(pa_context_get_server_info(m_context, serverWasTold, this));
    const auto inputWasListed = [](pa_context*, const pa_source_info* input, int end, void* self) {
        static_cast<ZLPulseConnection*>(self)->inputWasListed(input, end);
    };
    forgetOperation(pa_context_get_source_info_list(m_context, inputWasListed, this));
}

void ZLPulseConnection::inputWasListed(const pa_source_info* input, int end)
{
    if (end == 0) {
        m_inputsBeingListed.devices.append({ QString::fromUtf8(input->name), QString::fromUtf8(input->description),
            input->monitor_of_sink != PA_INVALID_INDEX });
        return;
    }
    publish({ .state = State::Ready, .isListed = end > 0, .inputs = std::exchange(m_inputsBeingListed, {}) });
}

void ZLPulseConnection::publish(const Snapshot& snapshot)
{
    {
        const std::scoped_lock guard(m_mutex);
        const bool wasUnanswered = m_snapshot.state == State::Connecting && m_soundDeadline.hasExpired();
        m_isSilent = snapshot.state == State::Failed && (m_isSilent || wasUnanswered);
        m_snapshot = snapshot;
    }
    m_answered.notify_all();
    Q_EMIT didChange();
}
