#pragma once

#include "document/saving/journal/ZLJournalDifference.h"
#include "model/ZLChapterManager.h"

#include <QObject>

/// Remembers how a list of chapters read last, and tells what became different since. It follows the rows that come and
/// go, so that a new chapter costs the same whatever the length of the list; only after a chapter itself became
/// different it compares them all.
class ZLChapterListShadow : public QObject {
    Q_OBJECT

public:
    /// Nothing is remembered at first. `chapters` has to outlive the shadow.
    explicit ZLChapterListShadow(const ZLChapterManager& chapters);
    ~ZLChapterListShadow() override;

    /// The one run of chapters that has to be replaced to come from the former state to this one; absent when nothing
    /// differs. From here on the list is remembered as it is now.
    [[nodiscard]] std::optional<ZLChapterListDifference> takeDifference();

private:
    void noteInsertion(qsizetype index);
    void noteRemoval(qsizetype index);
    void noteReplacement(qsizetype sameAtFront, qsizetype sameAtBack);
    /// Makes the next comparison begin at both ends of the list.
    void doubtEverything();

    const ZLChapterManager& m_manager;
    /// What the chapters said. The record of a chapter that has not changed is the same one, which is seen at once.
    ZLChapterSnapshot m_entries;
    /// How many chapters at the front and at the back were not touched, as long as no chapter changed by itself.
    qsizetype m_sameAtFront = 0;
    qsizetype m_sameAtBack = 0;
    quint64 m_changesSeen = 0;
};
