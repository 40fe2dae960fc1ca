#pragma once

#include "document/shared/ZLDocumentExtras.h"
#include "model/ZLChapter.h"

#include <QList>

/// A chapter and the moment of the show that it is about.
struct ZLShowMark {
    ZLChapterPointer chapter {};
    /// Seconds on the recording clock: the chapter's time less the moves since it was set.
    double showTime = 0.0;
    /// Whether it is to be in exports: it is ticked, or nobody but a fit has unticked it.
    bool isWanted = true;
};

/// Marks in the order of the show.
using ZLShowMarks = QList<ZLShowMark>;

namespace ZLFitNotes {

/// Of a chapter: a fit has unticked it, since the finished file has nothing of it.
inline const QString UntickedKey = QStringLiteral("UntickedByFit");

[[nodiscard]] ZLShowMarks marksOf(const ZLChapterSequence& chapters, const ZLDocumentExtras& extras);
/// The same with the extras of a document's file.
[[nodiscard]] ZLShowMarks marksOf(const ZLChapterSequence& chapters, const QVariantMap& extras);

}
