#include "app/ui/outside/ZLOSCConnections.h"

#include "app/ZLApplication.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLStatusLine.h"
#include "document/ui/menus/ZLActionHelp.h"
#include "document/ui/menus/ZLViewMenu.h"
#include "platform/dnssd/ZLAvahiServiceBrowser.h"
#include "remote/ui/ZLOSCConnectionsWindow.h"

#include <QAction>
#include <QMenu>

using namespace Qt::StringLiterals;

ZLOSCConnections::ZLOSCConnections(ZLApplication& application, QObject* parent)
    : QObject(parent)
    , m_application(application)
{
}

ZLOSCConnections::~ZLOSCConnections() = default;

void ZLOSCConnections::addWindow(ZLChapterDocumentWindow& window)
{
    QMenu* menu = window.viewMenu().menu();
    menu->addSeparator();
    connect(ZLActionHelp::addAction(*menu, u"showOSCConnections"_s, tr("&OSC Connections…")), &QAction::triggered, this,
        &ZLOSCConnections::open);
    connect(&window.statusLine(), &ZLStatusLine::partClicked, this, [this](const QString& name) {
        if (name == "oscStatus"_L1)
            open();
    });
}

void ZLOSCConnections::open()
{
    if (!m_window) {
        m_window = std::make_unique<ZLOSCConnectionsWindow>(ZLOSCConnectionsSetup {
            .controller = m_application.oscController(),
            .publisher = m_application.oscPublisher(),
            .browser = std::make_unique<ZLAvahiServiceBrowser>(ZLOSCAnnouncement::serviceType()),
        });
    }
    m_window->present();
}
