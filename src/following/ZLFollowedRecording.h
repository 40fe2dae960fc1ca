#pragma once

#include <QString>

#include <optional>

class ZLDocumentExtras;

/// What a document keeps of the recording that it follows, so that it is known again after a restart, and of the files
/// that the recorder makes.
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
    /// Adds the file, which is first seen at `reading` of the clock, to those of the document. The first one that is
    /// kept of a recording begins with it, at `base`, also where it was joined late. The same file again is not added.
    static void keepFile(ZLDocumentExtras& extras, const QString& path, double base, double reading);
};

/// The keys at the root of a document's file.
namespace ZLFollowingKey {
/// A dictionary: "Recorder", "Base" and "Began".
inline const QString Recording = QStringLiteral("FollowedRecording");
/// An array of dictionaries: "Path" and "Reading".
inline const QString Files = QStringLiteral("RecorderFiles");
}
