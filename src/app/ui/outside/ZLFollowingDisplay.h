#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

#include <memory>

class ZLApplication;
class ZLChapterDocumentWindow;
class ZLRecorderWindow;

/// The window of the recorder, the ways to it, and the lamp "recorderStatus" in the status line of the document that
/// follows. The window is made when it is first wanted and kept until the program ends.
class ZLFollowingDisplay : public QObject {
    Q_OBJECT

public:
    /// `application` has to outlive the object.
    explicit ZLFollowingDisplay(ZLApplication& application, QObject* parent = nullptr);
    ~ZLFollowingDisplay() override;

    /// Adds "Recorder…" to the window's View menu and leads from the lamp to the same place.
    void addWindow(ZLChapterDocumentWindow& window);
    /// Follows what was followed when the program ended, with the document whose recording was interrupted, else the
    /// one in front.
    void followAsBefore();

    void open();

    /// Null until the window is first wanted.
    [[nodiscard]] ZLRecorderWindow* window() const { return m_window.get(); }

private:
    void update();
    void updateLamp(ZLChapterDocumentWindow& window) const;

    ZLApplication& m_application;
    QList<QPointer<ZLChapterDocumentWindow>> m_documentWindows;
    std::unique_ptr<ZLRecorderWindow> m_window;
};
