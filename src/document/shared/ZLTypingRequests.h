#pragma once

#include "model/ZLChapter.h"

#include <QModelIndex>
#include <QObject>

/// What a document asks of its window while a text is being typed there.
class ZLTypingRequests : public QObject {
    Q_OBJECT

Q_SIGNALS:
    /// A chapter is about to come or go: what is being typed should be written now, as a step of its own.
    void typedTextShouldBeCommitted();
    /// The chapter of this row is about to go: a time that is being typed there has no chapter any more.
    void chapterIsAboutToGo(int row);
    /// The cell should be scrolled into view and opened for typing, with its text selected.
    void wantsEditing(const QModelIndex& index);
    /// What was typed as the time of this chapter is none.
    void invalidTimestampEntered(const ZLChapterPointer& chapter, const QString& text);
};
