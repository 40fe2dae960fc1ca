#pragma once

#include <QString>

#include <optional>

class ZLDocumentExtras;

/// What a document keeps of the recording that it follows, so that it is known again after a restart.
struct ZLFollowedRecording {
    /// The name of the program.
    QString recorder {};
    /// What the clock read when the recording began.
    double base = 0.0;
    /// When it began, less its pauses: seconds of the wall clock since 1970.
    double began = 0.0;

    /// Whether the recording of this recorder that began then is the same one.
    [[nodiscard]] bool isSameAs(const QString& otherRecorder, double otherBegan) const;

    [[nodiscard]] static std::optional<ZLFollowedRecording> keptIn(const ZLDocumentExtras& extras);
    void keepIn(ZLDocumentExtras& extras) const;
};

/// The key at the root of a document's file.
namespace ZLFollowingKey {
/// A dictionary: "Recorder", "Base" and "Began".
inline const QString Recording = QStringLiteral("FollowedRecording");
}
