#pragma once

#include "document/ui/ZLWindowStateStore.h"
#include "platform/dnssd/ZLServiceBrowser.h"
#include "platform/dnssd/ZLServicePublisher.h"
#include "platform/osc/ZLOSCConnectedNetworks.h"
#include "remote/ZLOSCController.h"

#include <QWidget>

#include <memory>

class QScrollArea;
class QSplitter;

/// What the window shows beside the settings.
struct ZLOSCConnectionsSetup {
    /// Has to outlive the window.
    ZLOSCController& controller;
    /// Has to outlive the window; null when nothing is announced.
    const ZLServicePublisher* publisher = nullptr;
    std::unique_ptr<ZLServiceBrowser> browser;
    ZLOSCConnectedNetworks::Source networks = &ZLOSCConnectedNetworks::ofThisComputer;
    ZLWindowStateStore stateStore = ZLWindowStateStore(standardStatePath());

    /// Beside that of the document windows.
    [[nodiscard]] static QString standardStatePath();
};

/// The window of the remote control by Open Sound Control: where to send, to whom is sent, who may speak, and why a
/// button does nothing.
class ZLOSCConnectionsWindow : public QWidget {
    Q_OBJECT

public:
    explicit ZLOSCConnectionsWindow(ZLOSCConnectionsSetup setup);
    ~ZLOSCConnectionsWindow() override;

    /// Opens the window, or brings it to the front.
    void present();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    [[nodiscard]] QWidget* buildPanels(ZLOSCConnectionsSetup& setup);
    [[nodiscard]] int heightOfSettings() const;
    void growForFirstSizes();
    void giveSettingsTheirRoom();
    void restoreWindowState();
    void saveWindowState() const;

    std::unique_ptr<ZLServiceBrowser> m_browser;
    ZLWindowStateStore m_stateStore;
    QSplitter* m_splitter;
    QScrollArea* m_panels;
    /// By the user, now or in an earlier run; until then the sizes follow what the panels need.
    bool m_areSizesSettled = false;
};
