#include "document/ZLChapterImport.h"

#include "document/ZLChapterDocument.h"

#include <QSet>

#include <algorithm>
#include <cmath>

namespace {

const QString importActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Import Chapters"));

/// `wanted`, or the row that took its place.
void selectChapter(ZLChapterDocument& document, const ZLChapterPointer& wanted, int formerRow)
{
    ZLChapterManager& chapters = document.chapterManager();
    const int lastRow = int(chapters.count()) - 1;
    const int row = int(chapters.indexOfChapter(wanted).value_or(std::clamp(formerRow, 0, std::max(lastRow, 0))));
    document.selectionModel().setCurrentIndex(
        document.tableModel().index(row, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void exchangeChapters(ZLChapterDocument& document, const ZLChapterSequence& chapters)
{
    Q_EMIT document.typing().typedTextShouldBeCommitted();
    const ZLUndoGroup group(document.undoManager());
    ZLChapterManager& manager = document.chapterManager();
    const ZLChapterSequence former = manager.allChapters();
    const int formerRow = document.selectedRow();
    const ZLChapterPointer selected = manager.chapterAtIndex(formerRow);
    document.undoManager().registerStep([&document, former] { exchangeChapters(document, former); });
    document.undoManager().setActionName(importActionName);
    manager.setChapters(chapters);
    manager.sortChapters();
    selectChapter(document, selected, formerRow);
    document.noteChange({ ZLDocumentChange::Rows });
}

/// Empty, not absent: a stored chapter ends at its first absent entry.
QString orEmpty(const QString& text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

void takeWhatOnlyADocumentTells(ZLChapter& chapter, const ZLListedChapter& listed)
{
    chapter.setTags(orEmpty(listed.tags));
    if (listed.date.isValid())
        chapter.setRealDate(listed.date);
    if (!listed.uuid.isEmpty())
        chapter.setUuid(listed.uuid);
}

}

ZLChapterSequence ZLChapterImport::chaptersFrom(const QList<ZLListedChapter>& listed, double shift)
{
    ZLChapterSequence chapters;
    chapters.reserve(listed.size());
    for (const ZLListedChapter& one : listed) {
        const double time = one.start + shift;
        if (!std::isfinite(time))
            continue;
        const auto chapter = std::make_shared<ZLChapter>();
        chapter->setTimeStamp(time);
        chapter->setEnabled(one.isEnabled && !(time < 0.0));
        takeWhatOnlyADocumentTells(*chapter, one);
        chapter->setTitle(orEmpty(one.title));
        chapter->setLink(orEmpty(one.link));
        chapters.append(chapter);
    }
    return chapters;
}

void ZLChapterImport::makeUnique(const ZLChapterSequence& added, const ZLChapterSequence& present)
{
    QSet<QString> known;
    for (const ZLChapterPointer& chapter : present)
        known.insert(chapter->uuid());
    for (const ZLChapterPointer& chapter : added) {
        if (known.contains(chapter->uuid()))
            chapter->setUuid(ZLChapter::generateUUID());
        known.insert(chapter->uuid());
    }
}

qsizetype ZLChapterImport::importChapters(
    ZLChapterDocument& document, const QList<ZLListedChapter>& chapters, Way way, double shift)
{
    const ZLChapterSequence added = chaptersFrom(chapters, shift);
    if (added.isEmpty())
        return 0;
    // Also where they take the place of the others: those come back with Undo.
    const ZLChapterSequence present = document.chapterManager().allChapters();
    makeUnique(added, present);
    exchangeChapters(document, way == Way::Add ? present + added : added);
    return added.size();
}
