#pragma once

#include "model/ZLChapter.h"
#include "model/ZLChapterObserver.h"
#include "model/ZLChapterOrder.h"

#include <QObject>

#include <optional>

/// The ordered list of chapters behind every table: a document's chapters, sorted by time, or its templates in the
/// user's own order. Chapters of equal time keep the order in which they came.
///
/// The order is restored only when it was broken: a chapter that changes its time tells the lists in which it stands,
/// and their next list operation or ordered read moves it, or sorts when more than one changed. A snapshot shares the
/// list's storage, so reading costs no copy.
class ZLChapterManager : public QObject, private ZLChapterObserver {
    Q_OBJECT

public:
    explicit ZLChapterManager(QObject* parent = nullptr);
    /// One chapter per dictionary of either form, in the given order, then sorted. An entry that is no dictionary reads
    /// as an empty one.
    explicit ZLChapterManager(const QVariantList& dictionaries, QObject* parent = nullptr);
    ~ZLChapterManager() override;

    /// Replaces the contents as the constructor with dictionaries fills them.
    void loadChapters(const QVariantList& dictionaries);

    /// The dictionaries of all chapters in list order.
    [[nodiscard]] QVariantList chaptersForSaving();
    /// What all chapters say at this moment, in list order. That takes little time, and the snapshot may be made into
    /// dictionaries on another thread.
    [[nodiscard]] ZLChapterSnapshot snapshot();

    void addChapter(ZLChapterPointer chapter);
    /// Takes many chapters out and others in at once, each behind those of its time, without chaptersDidChange(). A
    /// chapter that stays is not looked at, as far as the others all come before or behind it.
    void exchangeChapters(const ZLChapterSequence& removed, const ZLChapterSequence& added);
    /// Every chapter comes later by `seconds`, which leaves them in their order.
    void moveTimes(double seconds);
    /// `index` from 0 to count(); any other is refused with a warning and changes nothing. With sorting on it only
    /// matters among chapters of equal time.
    void insertChapterAtIndex(ZLChapterPointer chapter, qsizetype index);
    /// An index outside of the list is refused with a warning and changes nothing.
    void removeChapterAtIndex(qsizetype index);
    /// Removes every entry that is this very object; nothing happens to the list when there is none.
    void removeChapter(ZLChapterPointer chapter);
    /// Removes the last entry; refused with a warning on an empty list.
    void removeLastChapter();

    /// Null for an index outside of the list.
    [[nodiscard]] ZLChapterPointer chapterAtIndex(qsizetype index);
    /// Null for an empty list.
    [[nodiscard]] ZLChapterPointer lastChapter();
    /// Position of this very object; absent when it is not in the list.
    [[nodiscard]] std::optional<qsizetype> indexOfChapter(const ZLChapterPointer& chapter);
    /// A snapshot in list order, without a copy.
    [[nodiscard]] ZLChapterSequence allChapters();
    [[nodiscard]] qsizetype count() const { return m_chapters.size(); }
    /// The first chapter in the current order with exactly this UUID, or null.
    [[nodiscard]] ZLChapterPointer chapterWithUUID(const QString& uuid) const;

    /// Restores the order if it was broken; does nothing when sorting is off.
    void sortChapters();

    /// The sequence as it stands, without restoring its order.
    [[nodiscard]] const ZLChapterSequence& chapters() const { return m_chapters; }
    /// Replaces the sequence without sorting it and without chaptersDidChange().
    void setChapters(const ZLChapterSequence& chapters);

    /// Grows whenever a chapter of this list becomes different. While it stays, the list differs from its former state
    /// only by what the signals about its rows said.
    [[nodiscard]] quint64 changeCount() const { return m_changeCount; }

    [[nodiscard]] bool wantsSortedChapters() const { return m_wantsSortedChapters; }
    void setWantsSortedChapters(bool wanted);

Q_SIGNALS:
    /// A chapter was added, inserted or removed through one of the operations above: the outside may be told.
    void chaptersDidChange();

    /// What exactly happens to the rows, for the tables that show them.
    void willInsertChapterAtIndex(qsizetype index);
    void didInsertChapterAtIndex(qsizetype index);
    void willRemoveChapterAtIndex(qsizetype index);
    void didRemoveChapterAtIndex(qsizetype index);
    /// One chapter goes to another place: it stands at `to` when this is done.
    void willMoveChapter(qsizetype from, qsizetype to);
    void didMoveChapter(qsizetype from, qsizetype to);
    /// Several do.
    void willReorderChapters();
    /// `previousOrder` is the sequence before the order was restored.
    void didReorderChapters(const ZLChapterSequence& previousOrder);
    void willReplaceChapters();
    /// So many chapters at both ends are the same objects as before.
    void didReplaceChapters(qsizetype sameAtFront, qsizetype sameAtBack);

private:
    void chapterDidChangeTime(const ZLChapter& chapter, double formerTime) override;
    void chapterDidChange(const ZLChapter& chapter) override;

    void insertInOrder(const ZLChapterPointer& chapter, qsizetype wantedIndex);
    void takeChapterAt(qsizetype index);
    /// How many chapters at both ends stay when one list takes the place of another one.
    struct SameEnds {
        qsizetype atFront = 0;
        qsizetype atBack = 0;
    };
    [[nodiscard]] SameEnds sameEndsAs(const ZLChapterSequence& chapters) const;
    SameEnds adoptChapters(const ZLChapterSequence& chapters);
    [[nodiscard]] bool isInOrderBetween(const SameEnds& ends) const;
    SameEnds takeOut(const ZLChapterSequence& chapters);
    SameEnds takeIn(ZLChapterSequence chapters);
    /// Puts the chapters from `first` on, which are in order themselves, among those before.
    SameEnds mergeChaptersFrom(qsizetype first);
    /// Asks the processor for what moveTimes() reads and copies soon: a long list lies all over the memory.
    void fetchAhead(qsizetype index) const;
    void releaseChapters();
    void moveChapter(ZLChapterOrder::Move move);

    ZLChapterSequence m_chapters;
    bool m_wantsSortedChapters = true;
    ZLChapterOrder m_order;
    quint64 m_changeCount = 0;
};
