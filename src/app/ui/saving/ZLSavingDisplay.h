#pragma once

#include "document/saving/ZLDocumentSaver.h"

#include <QObject>

class ZLChapterDocumentWindow;
class ZLSavePanel;

/// Shows in the status line of a window whether its document is on the disk.
class ZLSavingDisplay : public QObject {
    Q_OBJECT

public:
    /// Belongs to `window`; `saver` has to outlive it.
    ZLSavingDisplay(const ZLDocumentSaver& saver, ZLSavePanel& savePanel, ZLChapterDocumentWindow& window);

private:
    void update();
    [[nodiscard]] QString statusText() const;
    [[nodiscard]] QString statusToolTip() const;

    const ZLDocumentSaver& m_saver;
    ZLSavePanel& m_savePanel;
    ZLChapterDocumentWindow& m_window;
};
