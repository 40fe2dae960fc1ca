#include "app/ui/ZLDesktop.h"

#include "app/ui/ZLDesktopApplication.h"

#include <QFontInfo>

#include <csignal>

namespace {

ZLDocumentControllerSetup desktopSetup(const ZLDesktopApplication& events)
{
    ZLDocumentControllerSetup setup;
    setup.environment.isApplicationActive = [] { return QGuiApplication::applicationState() == Qt::ApplicationActive; };
    setup.environment.isOptionKeyHeld = [&events] { return events.isOptionKeyHeld(); };
    return setup;
}

}

ZLDesktop::ZLDesktop(ZLDesktopApplication& events)
    : m_application(desktopSetup(events), float(QFontInfo(QApplication::font()).pointSizeF()))
    , m_windows(m_application.documentController())
    , m_signals({ SIGINT, SIGTERM, SIGHUP })
{
    connect(&events, &ZLDesktopApplication::modifiersDidChange, this, &ZLDesktop::updateAddButtons);
    connect(&m_signals, &ZLSignalWatcher::didReceiveSignal, &m_windows, &ZLDocumentWindows::quitAtOnce);
}

int ZLDesktop::run(const QStringList& files)
{
    m_windows.openAtLaunch(files);
    return QCoreApplication::exec();
}

void ZLDesktop::updateAddButtons()
{
    const auto documents = m_application.documentController().documents();
    for (ZLChapterDocument* document : documents)
        document->updateAddButton();
}
