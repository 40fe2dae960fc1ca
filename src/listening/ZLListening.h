#pragma once

#include "platform/sound/ZLSoundInput.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>

/// Whether listening along hears anything.
enum class ZLListeningState {
    Off,
    NoServer, ///< The system's sound does not answer.
    Missing, ///< The chosen input is not there.
    Opening,
    Silent, ///< For SilenceSeconds now.
    Hearing,
};

/// Listens along: hears the chosen input as long as it is switched on, and tells what it hears, and how loud it is. The
/// sound itself goes on to those who make fingerprints of it and is not kept.
class ZLListening : public QObject {
    Q_OBJECT

public:
    static constexpr double SilenceSeconds = 10.0;
    /// Decibels below the loudest possible sound. What is quieter counts as silence.
    static constexpr double Quietest = -60.0;

    explicit ZLListening(std::unique_ptr<ZLSoundInput> input);

    /// Listens to this source from now on; an empty identifier stands for the default one.
    void listenTo(const QString& source);
    void stop();
    [[nodiscard]] bool isOn() const { return m_source.has_value(); }
    /// What was asked for last; empty for the default source, and while off.
    [[nodiscard]] QString source() const { return m_source.value_or(QString()); }
    /// What people know the source by; its identifier as long as it is missing.
    [[nodiscard]] QString sourceName() const;

    /// Asks for the list of sources, which comes by signal.
    void askForDevices() { m_input->prepare(); }
    [[nodiscard]] QList<ZLInputDevice> devices() const { return m_input->devices(); }

    [[nodiscard]] ZLListeningState state() const { return m_state; }
    /// Of the last tenth of a second, from 0 for Quietest to 1.
    [[nodiscard]] double level() const { return m_level; }
    /// The silence so far counts no more.
    void countSilenceAnew();

Q_SIGNALS:
    void didHear(const ZLHeardBlock& block);
    void stateDidChange();
    void levelDidChange();
    void devicesDidChange();

private:
    void takeBlocks();
    void noteLevel(const ZLHeardBlock& block);
    void noteAbsence();
    void update();

    std::unique_ptr<ZLSoundInput> m_input;
    std::optional<QString> m_source;
    ZLListeningState m_state = ZLListeningState::Off;
    double m_level = 0.0;
    /// Seconds, up to now, without a sound.
    double m_silence = 0.0;
    /// An input that delivers nothing at all is silent too.
    QTimer m_absenceTimer;
};
