#include "listening/ZLListening.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// From 0 for the quietest that counts to 1.
double levelOf(const std::vector<float>& samples)
{
    double energy = 0.0;
    for (const float sample : samples)
        energy += double(sample) * double(sample);
    if (!(energy > 0.0) || !std::isfinite(energy))
        return 0.0;
    const double decibels = 10.0 * std::log10(energy / double(samples.size()));
    return std::clamp(1.0 - decibels / ZLListening::Quietest, 0.0, 1.0);
}

}

ZLListening::ZLListening(std::unique_ptr<ZLSoundInput> input)
    : m_input(std::move(input))
{
    m_absenceTimer.setSingleShot(true);
    m_absenceTimer.setInterval(int(SilenceSeconds * 1000.0));
    connect(&m_absenceTimer, &QTimer::timeout, this, &ZLListening::noteAbsence);
    connect(m_input.get(), &ZLSoundInput::didHear, this, &ZLListening::takeBlocks);
    connect(m_input.get(), &ZLSoundInput::stateDidChange, this, &ZLListening::update);
    connect(m_input.get(), &ZLSoundInput::devicesDidChange, this, &ZLListening::devicesDidChange);
}

void ZLListening::listenTo(const QString& source)
{
    if (m_source == source)
        return;
    m_source = source;
    m_silence = 0.0;
    m_absenceTimer.start();
    m_input->listenTo(source);
    update();
}

void ZLListening::stop()
{
    m_source.reset();
    m_input->stop();
    m_absenceTimer.stop();
    m_level = 0.0;
    update();
}

QString ZLListening::sourceName() const
{
    const auto devices = m_input->devices();
    const auto device = std::ranges::find(devices, source(), &ZLInputDevice::id);
    if (device != devices.cend())
        return device->name;
    return source().isEmpty() ? tr("the default input") : source();
}

void ZLListening::countSilenceAnew()
{
    m_silence = 0.0;
    if (isOn())
        m_absenceTimer.start();
    update();
}

void ZLListening::takeBlocks()
{
    const auto blocks = m_input->takeBlocks();
    for (const ZLHeardBlock& block : blocks) {
        noteLevel(block);
        Q_EMIT didHear(block);
    }
    if (blocks.empty())
        return;
    m_absenceTimer.start();
    Q_EMIT levelDidChange();
    update();
}

void ZLListening::noteLevel(const ZLHeardBlock& block)
{
    m_level = levelOf(block.samples);
    m_silence = m_level > 0.0 ? 0.0 : m_silence + double(block.samples.size()) / ZLSoundInput::SamplesPerSecond;
}

void ZLListening::noteAbsence()
{
    m_silence = SilenceSeconds;
    update();
}

void ZLListening::update()
{
    using Input = ZLSoundInput::State;
    ZLListeningState state = ZLListeningState::Off;
    switch (m_input->state()) {
    case Input::Off:
        break;
    case Input::NoServer:
        state = ZLListeningState::NoServer;
        break;
    case Input::Missing:
        state = ZLListeningState::Missing;
        break;
    case Input::Opening:
        state = ZLListeningState::Opening;
        break;
    case Input::Hearing:
        state = m_silence >= SilenceSeconds ? ZLListeningState::Silent : ZLListeningState::Hearing;
        break;
    }
    if (state != ZLListeningState::Silent && state != ZLListeningState::Hearing) {
        m_level = 0.0;
        m_silence = 0.0;
    }
    if (std::exchange(m_state, state) != state)
        Q_EMIT stateDidChange();
}
