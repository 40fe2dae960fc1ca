#pragma once

#include "platform/ZLWorkProgress.h"
#include "platform/media/ZLMediaFormat.h"

/// Media files and the chapters in them, whatever their form.
namespace ZLMediaFile {

/// The form of the file, by its first bytes; nothing when none is known. It lives as long as the program.
[[nodiscard]] const ZLMediaFormat* formatOf(const ZLMediaSource& source);

/// Whether this is a media file of a known form, by its first bytes.
[[nodiscard]] bool isMediaFile(const QString& path);

/// What is in the file at `path`. The error names the file.
[[nodiscard]] ZLResult<ZLMediaContents> read(const QString& path);

/// Puts `chapters` in place of those that are in the file at `path`; they rise by their start and are no more than the
/// form can hold. Everything else in the file stays as it is. The result goes to `output`, which may be the same file:
/// that is the old file or the new one at any moment, and with an error the old one. It is not replaced when another
/// program writes to it meanwhile. May run on any thread.
[[nodiscard]] ZLStatus write(
    const QString& path, const ZLMediaChapters& chapters, const QString& output, ZLWorkProgress& progress);

}
