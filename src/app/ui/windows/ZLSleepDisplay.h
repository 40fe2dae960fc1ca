#pragma once

#include <QObject>

class ZLChapterDocumentWindow;

/// Shows in a window as a bar that the computer slept during the recording, and how the time can be added.
class ZLSleepDisplay : public QObject {
    Q_OBJECT

public:
    /// Belongs to `window`.
    explicit ZLSleepDisplay(ZLChapterDocumentWindow& window);

private:
    void update();

    ZLChapterDocumentWindow& m_window;
};
