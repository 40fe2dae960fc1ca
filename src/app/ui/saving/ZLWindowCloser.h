#pragma once

#include "app/ZLDocumentController.h"

#include <QObject>

class ZLChapterDocumentWindow;
class ZLSavePanel;

/// Decides whether a document window may close and what becomes of its document. What needs a decision is asked in the
/// window's bar.
class ZLWindowCloser : public QObject {
    Q_OBJECT

public:
    /// Belongs to `window`.
    ZLWindowCloser(ZLDocumentController& controller, ZLSavePanel& savePanel, ZLChapterDocumentWindow& window);

private:
    /// Closes the document and says yes, or asks and says no.
    [[nodiscard]] bool windowShouldClose();
    [[nodiscard]] bool isLastDocument() const;
    [[nodiscard]] bool isAnotherRecording() const;
    /// Beside the event loop, which the recording needs; the window closes at the end.
    void saveBeforeClosing(ZLDocumentSaver& saver);
    void closeSaved();
    void askWhetherToKeep();
    void showFailure(const QString& message);
    void closeWith(ZLClosing closing);

    ZLDocumentController& m_controller;
    ZLSavePanel& m_savePanel;
    ZLChapterDocumentWindow& m_window;
    ZLClosing m_closing = ZLClosing::Keep;
    bool m_isDecided = false;
    /// The document was written a moment ago.
    bool m_isSaved = false;
};
