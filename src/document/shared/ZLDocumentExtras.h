#pragma once

#include "document/shared/ZLDocumentChanges.h"
#include "platform/ZLUndoManager.h"

#include <QHash>
#include <QSet>
#include <QVariantMap>

#include <optional>

/// What became different in the extras of a document. An invalid value stands for a key that is gone.
struct ZLExtrasDifference {
    /// By key; without the notes of chapters.
    QVariantMap values {};
    /// By UUID: all notes of each chapter, an empty dictionary for none.
    QVariantMap notesOfChapters {};

    /// Makes the difference in `extras`, which is all of it as ZLDocumentExtras::values() gives it.
    void applyTo(QVariantMap& extras) const;
};

/// The extras of a document as they were at one moment.
struct ZLExtrasSnapshot {
    /// By key; without the notes of chapters.
    QVariantMap values {};
    /// By UUID.
    QHash<QString, QVariantMap> notesOfChapters {};

    /// All of it, as it stands at the root of the file.
    [[nodiscard]] QVariantMap whole() const;
    /// The reverse. Chapters without a note are left out.
    [[nodiscard]] static ZLExtrasSnapshot of(QVariantMap whole);
};

/// What a document keeps besides its chapters, templates and clock, under keys of its own at the root of its file. Keys
/// that this version does not know are kept as they are.
///
/// Values are those of a property list: QVariantMap, QVariantList, QString, QByteArray, numbers and bool. An invalid
/// value stands for none. A value that stays the same is no change and no step.
class ZLDocumentExtras {
public:
    /// The dictionary of what belongs to single chapters, by their UUID. It is asked for by chapter only.
    static inline const QString ChapterNotesKey = QStringLiteral("ChapterNotes");

    /// Both have to outlive the object.
    ZLDocumentExtras(ZLUndoManager& undoManager, ZLDocumentChanges& changes)
        : m_undoManager(undoManager)
        , m_changes(changes)
    {
    }

    [[nodiscard]] QVariant value(const QString& key) const { return m_values.value(key); }
    /// Sets a value without a step, for what no command of a person brings.
    void keep(const QString& key, const QVariant& value);
    /// Sets a value as an undoable step.
    void change(const QString& key, const QVariant& value);

    [[nodiscard]] QVariant ofChapter(const QString& uuid, const QString& key) const;
    void keepOfChapter(const QString& uuid, const QString& key, const QVariant& value);
    void changeOfChapter(const QString& uuid, const QString& key, const QVariant& value);

    /// All of it, as it stands at the root of the file. Chapters that were deleted keep their notes, for undo may bring
    /// them back.
    [[nodiscard]] QVariantMap values() const { return snapshot().whole(); }
    /// The same, taken without looking at each chapter; it may be put together on another thread.
    [[nodiscard]] ZLExtrasSnapshot snapshot() const { return { m_values, m_ofChapters }; }
    /// Replaces all of it, without a step and without a word.
    void load(const QVariantMap& values);
    /// Replaces all of it as an undoable step.
    void replace(const QVariantMap& values);

    /// What became different since the last call, which is for one caller alone, the journal; absent for nothing.
    [[nodiscard]] std::optional<ZLExtrasDifference> takeDifference();

private:
    void noteChange();
    void noteEverything();

    ZLUndoManager& m_undoManager;
    ZLDocumentChanges& m_changes;
    /// By key; without ChapterNotesKey.
    QVariantMap m_values;
    /// By UUID.
    QHash<QString, QVariantMap> m_ofChapters;
    /// What takeDifference() will tell.
    QSet<QString> m_changedKeys;
    QSet<QString> m_changedChapters;
};
