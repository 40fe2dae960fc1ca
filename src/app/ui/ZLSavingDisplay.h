#pragma once

#include "document/saving/ZLDocumentSaver.h"

#include <QObject>

class ZLChapterDocumentWindow;
class ZLSavePanel;

/// Shows in a window whether its document is on the disk: always in the status line, and as a bar when it is not and
/// cannot be brought there.
class ZLSavingDisplay : public QObject {
    Q_OBJECT

public:
    /// Belongs to `window`; `saver` has to outlive it.
    ZLSavingDisplay(ZLDocumentSaver& saver, ZLSavePanel& savePanel, ZLChapterDocumentWindow& window);

private:
    void update();
    void updateBar();
    void showFailureBar();
    void hideFailureBar();
    [[nodiscard]] QString statusText() const;
    [[nodiscard]] QString statusToolTip() const;

    ZLDocumentSaver& m_saver;
    ZLSavePanel& m_savePanel;
    ZLChapterDocumentWindow& m_window;
    /// The text of the bar that this object showed; another message is not its own to hide.
    QString m_shownFailure;
};
