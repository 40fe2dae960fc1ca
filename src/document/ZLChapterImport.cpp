#include "document/ZLChapterImport.h"

#include "document/ZLChapterDocument.h"

#include <QSet>

#include <algorithm>
#include <cmath>
#include <functional>

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

/// `change` as an undoable step, which `inverse` takes back.
void changeList(ZLChapterDocument& document, const std::function<void(ZLChapterManager&)>& change,
    const ZLUndoManager::Step& inverse)
{
    const ZLUndoGroup group(document.undoManager());
    ZLChapterManager& manager = document.chapterManager();
    const int formerRow = document.selectedRow();
    const ZLChapterPointer selected = manager.chapterAtIndex(formerRow);
    document.undoManager().registerStep(inverse);
    document.undoManager().setActionName(importActionName);
    change(manager);
    selectChapter(document, selected, formerRow);
    document.noteChange({ ZLDocumentChange::Rows });
}

void exchangeChapters(ZLChapterDocument& document, const ZLChapterSequence& chapters)
{
    Q_EMIT document.typing().typedTextShouldBeCommitted();
    const ZLChapterSequence former = document.chapterManager().allChapters();
    const auto exchange = [&chapters](ZLChapterManager& manager) {
        manager.setChapters(chapters);
        manager.sortChapters();
    };
    changeList(document, exchange, [&document, former] { exchangeChapters(document, former); });
}

void takeOut(ZLChapterDocument& document, const ZLChapterSequence& chapters);

void takeIn(ZLChapterDocument& document, const ZLChapterSequence& chapters)
{
    Q_EMIT document.typing().typedTextShouldBeCommitted();
    changeList(
        document, [&chapters](ZLChapterManager& manager) { manager.exchangeChapters({}, chapters); },
        [&document, chapters] { takeOut(document, chapters); });
}

void takeOut(ZLChapterDocument& document, const ZLChapterSequence& chapters)
{
    Q_EMIT document.typing().typedTextShouldBeCommitted();
    changeList(
        document, [&chapters](ZLChapterManager& manager) { manager.exchangeChapters(chapters, {}); },
        [&document, chapters] { takeIn(document, chapters); });
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
    QSet<QString> wanted;
    QSet<QString> taken;
    for (const ZLChapterPointer& chapter : added)
        wanted.insert(chapter->uuid());
    for (const ZLChapterPointer& chapter : present) {
        if (wanted.contains(chapter->uuid()))
            taken.insert(chapter->uuid());
    }
    for (const ZLChapterPointer& chapter : added) {
        if (taken.contains(chapter->uuid()))
            chapter->setUuid(ZLChapter::generateUUID());
        taken.insert(chapter->uuid());
    }
}

bool ZLChapterImport::haveUuids(const QList<ZLListedChapter>& listed)
{
    return std::ranges::any_of(listed, [](const ZLListedChapter& one) { return !one.uuid.isEmpty(); });
}

qsizetype ZLChapterImport::importChapters(
    ZLChapterDocument& document, const QList<ZLListedChapter>& chapters, Way way, double shift)
{
    return importMade(document, chaptersFrom(chapters, shift), haveUuids(chapters), way);
}

qsizetype ZLChapterImport::importMade(
    ZLChapterDocument& document, const ZLChapterSequence& added, bool haveUuids, Way way)
{
    if (added.isEmpty())
        return 0;
    // Chapters whose list knows no UUIDs have new ones. Also where they take the place of the others: those come back
    // with Undo.
    if (haveUuids)
        makeUnique(added, document.chapterManager().allChapters());
    if (way == Way::Add)
        takeIn(document, added);
    else
        exchangeChapters(document, added);
    return added.size();
}
