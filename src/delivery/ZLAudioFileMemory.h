#pragma once

#include <QStringList>

/// The audio files that a document had to do with last.
struct ZLRememberedAudio {
    QStringList paths {};
    /// Seconds.
    double shift = 0.0;

    bool operator==(const ZLRememberedAudio&) const = default;
};

/// Remembers them by the path of the document, in the user's state folder: a document that is handed on says nothing of
/// the disk on which it was made, and its file has no entry that other readers do not know. Losing it costs nothing but
/// comfort, so failures are not reported.
class ZLAudioFileMemory {
public:
    static constexpr qsizetype MostDocuments = 100;

    /// Names of the lists in the state folder.
    static inline const QString WrittenFiles = QStringLiteral("audio-files.json");
    static inline const QString FittedFiles = QStringLiteral("fitted-files.json");

    ZLAudioFileMemory(const QString& stateFolder, const QString& listName);

    /// Nothing for a document of which nothing is known, or without a path.
    [[nodiscard]] ZLRememberedAudio recall(const QString& documentPath) const;
    void remember(const QString& documentPath, const ZLRememberedAudio& audio) const;

private:
    QString m_stateFolder;
    QString m_path;
};
