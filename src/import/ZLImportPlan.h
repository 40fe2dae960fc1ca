#pragma once

#include "import/ZLImportSource.h"
#include "model/ZLChapter.h"

/// What a person chooses about an import.
struct ZLImportChoices {
    /// Which of several shows, from 0.
    qsizetype item = 0;
    /// Seconds by which all chapters come later.
    double shift = 0.0;
    bool makesTemplates = false;
};

/// What an import brings, after the choices. Nothing has been changed yet.
struct ZLImportPlan {
    /// In ascending order of time. Those before the start are disabled. They can come into one document, once.
    ZLChapterSequence chapters {};
    /// Whether they come with UUIDs, which others may have too.
    bool haveUuids = false;
    /// Texts without a time that become prepared chapters.
    QStringList templates {};
    /// What was not understood, or has to be known, of the text and of the chosen show.
    QList<ZLListRemark> remarks {};

    /// `choices.item` has to be one of the source's lists. May be called on any thread, and takes its time for a long
    /// list.
    [[nodiscard]] static ZLImportPlan make(const ZLImportSource& source, const ZLImportChoices& choices);

    /// "Line 3: “Mail bag” was not understood."
    [[nodiscard]] static QString remarkText(const ZLListRemark& remark);
};
