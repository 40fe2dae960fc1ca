#pragma once

#include "commands/ZLRemoteActions.h"

#include <QPointer>

class ZLChapterDocument;

/// Says in words what an action has done: made before the action, asked after it. It compares the document before and
/// after, since an action itself gives no answer.
class ZLRemoteOutcome {
public:
    /// The document may be null. `recordingBeside` is another one that records meanwhile, null when there is none: then
    /// an action that does nothing may have been meant for that one.
    explicit ZLRemoteOutcome(ZLChapterDocument* document, ZLChapterDocument* recordingBeside = nullptr);

    /// Whether there is a change that the action may have made.
    [[nodiscard]] bool hadEffect() const;
    [[nodiscard]] bool hasAddedChapter() const;
    /// "added a chapter", "did nothing: the clock is not running", "did nothing in “Episode 11.zelta”: …"
    [[nodiscard]] QString description(const ZLRemoteAction& action) const;

private:
    [[nodiscard]] QString descriptionOfNothing(const ZLRemoteAction& action) const;

    QPointer<ZLChapterDocument> m_document;
    QPointer<ZLChapterDocument> m_recordingBeside;
    bool m_wasRecording = false;
    bool m_wasWaitingForBeep = false;
    qsizetype m_chapterCount = 0;
    int m_selectedRow = -1;
};
