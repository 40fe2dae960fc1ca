#pragma once

#include "platform/media/ZLFilePieces.h"
#include "platform/media/ZLMediaContents.h"
#include "platform/media/ZLMediaSource.h"

/// How one form of media file keeps its chapters.
class ZLMediaFormat {
public:
    virtual ~ZLMediaFormat() = default;

    /// Whether the bytes at the beginning of the file are of this form; the name of a file says nothing.
    [[nodiscard]] virtual bool isFormOf(const ZLMediaSource& source) const = 0;

    /// The error is one sentence without the name of the file.
    [[nodiscard]] virtual ZLResult<ZLMediaContents> read(const ZLMediaSource& source) const = 0;

    /// The file with these chapters in place of those that are in it, and with everything else as it is. They rise by
    /// their start, and are no more than the form can hold. The pieces may look at the source while they are written.
    [[nodiscard]] virtual ZLResult<ZLFilePieces> withChapters(
        const ZLMediaSource& source, const ZLMediaChapters& chapters) const = 0;
};
