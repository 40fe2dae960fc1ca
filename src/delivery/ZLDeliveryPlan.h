#pragma once

#include "model/ZLChapter.h"
#include "platform/ZLResult.h"
#include "platform/media/ZLMediaContents.h"

/// What writing a document's chapters into one audio file will do. Nothing has been written yet.
struct ZLDeliveryPlan {
    QString audioPath {};
    /// The file as it is.
    ZLMediaContents now {};
    ZLMediaChapters toCome {};
    /// What a person should know before, one sentence each.
    QStringList findings {};

    /// The enabled ones of `chapters`, each `shift` seconds later, for the audio file at `audioPath`.
    [[nodiscard]] static ZLResult<ZLDeliveryPlan> make(
        const ZLChapterSequence& chapters, const QString& audioPath, double shift);

    /// The same for a file of which it is known what is in it.
    [[nodiscard]] static ZLDeliveryPlan make(
        const ZLChapterSequence& chapters, const QString& audioPath, const ZLMediaContents& contents, double shift);

    /// The part of the file's path that a person calls it by.
    [[nodiscard]] QString fileName() const;
};
