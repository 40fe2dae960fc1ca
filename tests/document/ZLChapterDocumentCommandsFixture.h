#pragma once

#include "support/ZLDocumentFixture.h"

/// A document whose commands are driven without a window, with what is asked of its undo history.
class ZLChapterDocumentCommandsTest : public ZLDocumentFixture {
protected:
    void startAndAdvance(double seconds)
    {
        m_document.recordButtonPressed();
        advance(seconds);
    }

    void expectUndoName(const QString& name) { EXPECT_EQ(history().undoActionName(), name); }
    void expectRedoName(const QString& name) { EXPECT_EQ(history().redoActionName(), name); }

    /// Undoes until nothing is left; returns how many steps there were.
    int undoEverything()
    {
        int steps = 0;
        for (; history().canUndo() && steps < 1000; ++steps)
            history().undo();
        return steps;
    }
};
