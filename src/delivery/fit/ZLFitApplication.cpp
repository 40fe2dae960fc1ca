#include "delivery/fit/ZLFitApplication.h"

#include "delivery/fit/ZLKeptFits.h"
#include "document/ZLChapterDocument.h"
#include "document/shared/ZLChapterMoves.h"
#include "model/ZLChapterManager.h"

namespace {

const QString fitActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Fit to Finished File"));

struct ZLChapterPlace {
    ZLChapterPointer chapter;
    double time = 0.0;
    bool isEnabled = true;
};

void exchangePlaces(ZLChapterDocument& document, const QList<ZLChapterPlace>& places)
{
    Q_EMIT document.typing().typedTextShouldBeCommitted();
    const ZLUndoGroup group(document.undoManager());
    QList<ZLChapterPlace> before;
    before.reserve(places.size());
    for (const ZLChapterPlace& wanted : places) {
        before.append({ wanted.chapter, wanted.chapter->timeStamp(), wanted.chapter->isEnabled() });
        wanted.chapter->setTimeStamp(wanted.time);
        wanted.chapter->setEnabled(wanted.isEnabled);
    }
    document.undoManager().registerStep([&document, before] { exchangePlaces(document, before); });
    document.undoManager().setActionName(fitActionName);
    document.chapterManager().sortChapters();
    document.noteChange({ ZLDocumentChange::Times | ZLDocumentChange::EnabledStates });
}

/// What later fits have to know of the chapter.
void takeNotes(ZLDocumentExtras& extras, const ZLFittedChapter& found)
{
    const QString& uuid = found.mark.chapter->uuid();
    ZLChapterMoves::add(extras, uuid, found.newTime() - found.oldTime());
    const bool isUntickedByFit = found.mark.isWanted && !found.isInFile();
    extras.changeOfChapter(uuid, ZLFitNotes::UntickedKey, isUntickedByFit ? QVariant(true) : QVariant());
}

}

void ZLFitApplication::apply(ZLChapterDocument& document, const ZLFit& fit, const QString& identifier)
{
    const ZLUndoGroup group(document.undoManager());
    QList<ZLChapterPlace> places;
    for (const ZLFittedChapter& found : fit.chapters) {
        takeNotes(document.extras(), found);
        places.append({ found.mark.chapter, found.newTime(), found.isEnabledThere() });
    }
    ZLKeptFits::follow(document.extras(), identifier);
    exchangePlaces(document, places);
}

ZLDocumentContents ZLFitApplication::contentsOf(const ZLFit& fit)
{
    ZLDocumentContents contents { {}, fit.alignment.fileLength, {} };
    ZLChapterManager sorted;
    for (const ZLChapterPointer& chapter : fit.fittedChapters())
        sorted.addChapter(chapter);
    for (const ZLChapterPointer& chapter : sorted.allChapters())
        contents.chapters.append(chapter->dictionaryRepresentation());
    return contents;
}
