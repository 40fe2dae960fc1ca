#include "document/shared/ZLDocumentExtras.h"

#include <utility>

namespace {

void set(QVariantMap& map, const QString& key, const QVariant& value)
{
    if (value.isValid())
        map.insert(key, value);
    else
        map.remove(key);
}

}

void ZLExtrasDifference::applyTo(QVariantMap& extras) const
{
    for (auto entry = values.cbegin(); entry != values.cend(); ++entry)
        set(extras, entry.key(), entry.value());
    if (notesOfChapters.isEmpty())
        return;
    QVariantMap notes = extras.take(ZLDocumentExtras::ChapterNotesKey).toMap();
    for (auto chapter = notesOfChapters.cbegin(); chapter != notesOfChapters.cend(); ++chapter)
        set(notes, chapter.key(), chapter.value().toMap().isEmpty() ? QVariant() : chapter.value());
    if (!notes.isEmpty())
        extras.insert(ZLDocumentExtras::ChapterNotesKey, notes);
}

void ZLDocumentExtras::keep(const QString& key, const QVariant& value)
{
    Q_ASSERT(key != ChapterNotesKey);
    if (m_values.value(key) == value)
        return;
    set(m_values, key, value);
    m_changedKeys.insert(key);
    noteChange();
}

void ZLDocumentExtras::change(const QString& key, const QVariant& value)
{
    const QVariant former = this->value(key);
    if (former == value)
        return;
    const ZLUndoGroup group(m_undoManager);
    m_undoManager.registerStep([this, key, former] { change(key, former); });
    keep(key, value);
}

QVariant ZLDocumentExtras::ofChapter(const QString& uuid, const QString& key) const
{
    const auto notes = m_ofChapters.constFind(uuid);
    return notes == m_ofChapters.cend() ? QVariant() : notes->value(key);
}

void ZLDocumentExtras::keepOfChapter(const QString& uuid, const QString& key, const QVariant& value)
{
    if (ofChapter(uuid, key) == value)
        return;
    QVariantMap& notes = m_ofChapters[uuid];
    set(notes, key, value);
    if (notes.isEmpty())
        m_ofChapters.remove(uuid);
    m_changedChapters.insert(uuid);
    noteChange();
}

void ZLDocumentExtras::changeOfChapter(const QString& uuid, const QString& key, const QVariant& value)
{
    const QVariant former = ofChapter(uuid, key);
    if (former == value)
        return;
    const ZLUndoGroup group(m_undoManager);
    m_undoManager.registerStep([this, uuid, key, former] { changeOfChapter(uuid, key, former); });
    keepOfChapter(uuid, key, value);
}

QVariantMap ZLExtrasSnapshot::whole() const
{
    QVariantMap entries = values;
    if (notesOfChapters.isEmpty())
        return entries;
    QVariantMap notes;
    for (auto chapter = notesOfChapters.cbegin(); chapter != notesOfChapters.cend(); ++chapter)
        notes.insert(chapter.key(), chapter.value());
    entries.insert(ZLDocumentExtras::ChapterNotesKey, notes);
    return entries;
}

ZLExtrasSnapshot ZLExtrasSnapshot::of(QVariantMap whole)
{
    const QVariantMap notes = whole.take(ZLDocumentExtras::ChapterNotesKey).toMap();
    ZLExtrasSnapshot snapshot { .values = std::move(whole) };
    for (auto chapter = notes.cbegin(); chapter != notes.cend(); ++chapter) {
        if (const QVariantMap ofChapter = chapter.value().toMap(); !ofChapter.isEmpty())
            snapshot.notesOfChapters.insert(chapter.key(), ofChapter);
    }
    return snapshot;
}

void ZLDocumentExtras::load(const QVariantMap& values)
{
    noteEverything();
    auto loaded = ZLExtrasSnapshot::of(values);
    m_values = std::move(loaded.values);
    m_ofChapters = std::move(loaded.notesOfChapters);
    noteEverything();
}

void ZLDocumentExtras::replace(const QVariantMap& values)
{
    const QVariantMap former = this->values();
    if (former == values)
        return;
    const ZLUndoGroup group(m_undoManager);
    m_undoManager.registerStep([this, former] { replace(former); });
    load(values);
    noteChange();
}

std::optional<ZLExtrasDifference> ZLDocumentExtras::takeDifference()
{
    if (m_changedKeys.isEmpty() && m_changedChapters.isEmpty())
        return std::nullopt;
    ZLExtrasDifference difference;
    for (const QString& key : std::exchange(m_changedKeys, {}))
        difference.values.insert(key, m_values.value(key));
    for (const QString& uuid : std::exchange(m_changedChapters, {}))
        difference.notesOfChapters.insert(uuid, m_ofChapters.value(uuid));
    return difference;
}

void ZLDocumentExtras::noteChange()
{
    m_changes.note(ZLDocumentChange::Extras | ZLDocumentChange::Contents);
}

void ZLDocumentExtras::noteEverything()
{
    for (auto entry = m_values.cbegin(); entry != m_values.cend(); ++entry)
        m_changedKeys.insert(entry.key());
    for (auto chapter = m_ofChapters.cbegin(); chapter != m_ofChapters.cend(); ++chapter)
        m_changedChapters.insert(chapter.key());
}
