#pragma once

#include "remote/ZLRemoteActions.h"

#include <QPointer>

class ZLChapterDocument;

/// Says in words what an action has done: made before the action, asked after it. Nobody else could tell, for whoever
/// carries out an action gives no answer.
class ZLRemoteOutcome {
public:
    /// The document may be null.
    explicit ZLRemoteOutcome(ZLChapterDocument* document);

    /// Whether there is a change that the action may have made.
    [[nodiscard]] bool hadEffect() const;
    /// "added a chapter", "did nothing: the clock is not running" …
    [[nodiscard]] QString description(const ZLRemoteAction& action) const;

private:
    QPointer<ZLChapterDocument> m_document;
    bool m_wasRecording = false;
    bool m_wasWaitingForBeep = false;
    qsizetype m_chapterCount = 0;
    int m_selectedRow = -1;
};
