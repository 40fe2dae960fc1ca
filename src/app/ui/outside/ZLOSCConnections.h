#pragma once

#include <QObject>

#include <memory>

class ZLApplication;
class ZLChapterDocumentWindow;
class ZLOSCConnectionsWindow;

/// The window of the OSC connections and the ways to it. The window is made when it is first wanted and kept until the
/// program ends.
class ZLOSCConnections : public QObject {
    Q_OBJECT

public:
    /// `application` has to outlive the object.
    explicit ZLOSCConnections(ZLApplication& application, QObject* parent = nullptr);
    ~ZLOSCConnections() override;

    /// Adds "OSC Connections…" to the window's View menu and leads from its status line to the same place.
    void addWindow(ZLChapterDocumentWindow& window);

    void open();

    /// Null until the window is first wanted.
    [[nodiscard]] ZLOSCConnectionsWindow* window() const { return m_window.get(); }

private:
    ZLApplication& m_application;
    std::unique_ptr<ZLOSCConnectionsWindow> m_window;
};
