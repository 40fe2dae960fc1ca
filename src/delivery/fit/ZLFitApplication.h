#pragma once

#include "delivery/fit/ZLFit.h"
#include "document/ZLDocumentFile.h"

class ZLChapterDocument;

/// Puts chapters at the places that a fit found for them.
namespace ZLFitApplication {

/// Moves the chapters of the document itself, as one undoable step. What the finished file has nothing of is unticked,
/// and ticked again by a later fit to a file that has it. Dates and the clock stay, so that the show can go on.
/// `identifier` is that of the kept fit, which the chapters follow from now on.
void apply(ZLChapterDocument& document, const ZLFit& fit, const QString& identifier);

/// What a document of the finished file has: the chapters at their places there, and its length as the recorded time.
[[nodiscard]] ZLDocumentContents contentsOf(const ZLFit& fit);

}
