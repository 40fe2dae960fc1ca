#pragma once

#include <QJsonValue>

#include <optional>

/// What is left in OBS Studio's own notes for later: how long its encoder holds the frames back. Who joins a recording
/// after its pauses cannot measure it. It stands with the profile, on whose settings it depends.
struct ZLOBSDelayNote {
    double encoderDelay = 0.0;
    /// When the frames of that recording were at zero, in seconds since 1970: tells the recording from others.
    double zeroOfFrames = 0.0;

    /// The name under which OBS keeps it.
    static constexpr auto Slot = "zelta";
    /// nullopt where there is none, or where it makes no sense.
    [[nodiscard]] static std::optional<ZLOBSDelayNote> read(const QJsonValue& value);
    [[nodiscard]] QJsonValue value() const;
    /// Whether a recording whose frames were at zero then is the same one.
    [[nodiscard]] bool isOfRecording(double itsZeroOfFrames) const;
};
