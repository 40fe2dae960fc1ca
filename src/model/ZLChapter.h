#pragma once

#include "model/ZLChapterRecord.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QVarLengthArray>
#include <QVariantMap>

#include <memory>
#include <optional>
#include <utility>

class ZLChapter;
class ZLChapterObserver;

/// Chapters are compared by identity: two of them are the same only if they are the same object.
using ZLChapterPointer = std::shared_ptr<ZLChapter>;
Q_DECLARE_TYPEINFO(ZLChapterPointer, Q_RELOCATABLE_TYPE);
using ZLChapterSequence = QList<ZLChapterPointer>;

/// One chapter mark on a recording clock.
class ZLChapter {
public:
    /// An enabled chapter at 0 s with empty texts, no known date and a new UUID.
    ZLChapter();

    /// Takes each entry as found. A missing "Enabled" reads false, missing texts and dates read null, a missing "UUID"
    /// is replaced by a new one.
    explicit ZLChapter(const QVariantMap& dictionaryRepresentation);
    explicit ZLChapter(const ZLArchivedDictionary& dictionaryRepresentation);
    /// Says what `record` does, which stays as it is when the chapter changes.
    explicit ZLChapter(const ZLChapterSnapshot::value_type& record);
    Q_DISABLE_COPY_MOVE(ZLChapter)
    ~ZLChapter() = default;

    /// See ZLChapterRecord.
    [[nodiscard]] QVariantMap dictionaryRepresentation() const { return m_record->dictionaryRepresentation(); }
    [[nodiscard]] ZLArchivedDictionary archivedRepresentation() const { return m_record->archivedRepresentation(); }
    /// What the chapter says at this moment. It does not change with the chapter.
    [[nodiscard]] QExplicitlySharedDataPointer<const ZLChapterRecord> record() const { return m_record; }
    /// Whether the chapter says what `record` does, see ZLChapterRecord::isSameAs().
    [[nodiscard]] bool isAsIn(const ZLChapterRecord& record) const;

    /// Position on the recording clock in seconds; negative before the recording's start.
    [[nodiscard]] double timeStamp() const { return m_record->timeStamp; }
    void setTimeStamp(double seconds);

    /// Whether the chapter takes part in exports.
    [[nodiscard]] bool isEnabled() const { return m_record->isEnabled; }
    void setEnabled(bool enabled);

    /// Texts may be null (absent) or empty, which is told apart when the chapter is stored.
    [[nodiscard]] const QString& title() const { return m_record->title; }
    void setTitle(const QString& title);
    [[nodiscard]] const QString& link() const { return m_record->link; }
    void setLink(const QString& link);
    [[nodiscard]] const QString& tags() const { return m_record->tags; }
    void setTags(const QString& tags);

    /// Wall-clock moment at which the chapter was set: distantPast() when it is not known, null when absent.
    [[nodiscard]] const QDateTime& realDate() const { return m_record->realDate; }
    void setRealDate(const QDateTime& date);
    /// The date as it was read, while it is what no QDateTime says. realDate() is then near to it, or distantPast()
    /// when it is too far away, and what is stored is this.
    [[nodiscard]] const std::optional<ZLArchivedDate>& dateAsRead() const { return m_record->dateAsRead; }
    /// Moves the date, later for positive `seconds`.
    void moveDate(double seconds);

    [[nodiscard]] const QString& uuid() const { return m_record->uuid; }
    void setUuid(const QString& uuid);

    /// "01:02:05.500": truncated to milliseconds, with a leading "-" before the recording's start.
    [[nodiscard]] QString timeString() const;

    /// "00:01:05": whole seconds from this chapter to `seconds` on the same clock. There is no sign: callers ask for
    /// later points only; an earlier one reads as no time at all.
    [[nodiscard]] QString durationToTimestamp(double seconds) const;
    [[nodiscard]] QString durationToNextChapter(const ZLChapter& next) const;

    /// `observer` hears of every change from now on. Added twice, it has to be removed twice.
    void addObserver(ZLChapterObserver& observer) { m_observers.append(&observer); }
    void removeObserver(ZLChapterObserver& observer) { m_observers.removeOne(&observer); }

    /// A random UUID in upper-case hexadecimal digits with hyphens.
    [[nodiscard]] static QString generateUUID();

    /// 1 January of the year 1 in the Julian calendar, UTC: stands for a moment that is not known.
    [[nodiscard]] static QDateTime distantPast();

private:
    /// A dictionary that can be asked for its value(key).
    template <typename Dictionary>
    ZLChapter(std::in_place_t, const Dictionary& dictionary);

    /// The record, to be changed: one that is in a snapshot stays there as it is.
    [[nodiscard]] ZLChapterRecord& recordToChange();
    void setDateAsRead(const ZLArchivedDate& date);
    void noteChange() const;

    QExplicitlySharedDataPointer<ZLChapterRecord> m_record { new ZLChapterRecord };

    /// One for each place in a list. As a rule a chapter stands in one list.
    QVarLengthArray<ZLChapterObserver*, 1> m_observers;
};
