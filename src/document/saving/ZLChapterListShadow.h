#pragma once

#include "document/saving/ZLJournalChange.h"
#include "model/ZLChapter.h"

#include <QList>

/// Remembers how a list of chapters read last, and tells what became different since.
class ZLChapterListShadow {
public:
    /// The one run of chapters that has to be replaced to come from the former state to this one; absent when nothing
    /// differs. From here on the list is remembered as it is now.
    [[nodiscard]] std::optional<ZLJournalSplice> differenceTo(const ZLChapterSequence& chapters);

private:
    /// Copies share the texts with the chapter, so that comparing them is quick.
    struct Entry {
        double timeStamp;
        bool isEnabled;
        QString title;
        QString link;
        QString tags;
        QDateTime realDate;
        QString uuid;

        [[nodiscard]] static Entry of(const ZLChapter& chapter);
        [[nodiscard]] bool matches(const ZLChapter& chapter) const;
    };

    QList<Entry> m_entries;
};
