#pragma once

#include "document/ZLDocumentFile.h"

/// An audio file as the contents of a document: its chapters, and its length as the recorded time.
namespace ZLMediaImport {

/// The names that files of the known forms have, as a file dialog wants them.
inline const QString NamePatterns =
    QStringLiteral("*.mp3 *.m4a *.m4b *.mp4 *.ogg *.oga *.opus *.flac *.wav *.bwf *.rf64");

/// Whether a person would call the file an audio file, by its name or its first bytes. Not every such file can be read.
[[nodiscard]] bool isAudioFile(const QString& path);

[[nodiscard]] ZLResult<ZLDocumentContents> read(const QString& audioPath);

}
