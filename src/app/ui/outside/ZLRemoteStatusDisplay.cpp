#include "app/ui/outside/ZLRemoteStatusDisplay.h"

#include "app/ZLApplication.h"
#include "document/ui/ZLStatusLine.h"

using namespace Qt::StringLiterals;

ZLRemoteStatusDisplay::ZLRemoteStatusDisplay(ZLApplication& application, QObject* parent)
    : QObject(parent)
    , m_application(application)
{
    connect(&application.oscController().inPort(), &ZLOSCInPort::portDidChange, this, &ZLRemoteStatusDisplay::update);
    connect(&application, &ZLApplication::hotKeysDidChange, this, &ZLRemoteStatusDisplay::update);
}

void ZLRemoteStatusDisplay::addStatusLine(ZLStatusLine& statusLine)
{
    m_statusLines.removeAll(nullptr);
    m_statusLines.append(&statusLine);
    updateOSC(statusLine);
    updateHotkeys(statusLine);
}

void ZLRemoteStatusDisplay::update()
{
    for (const auto& statusLine : std::as_const(m_statusLines)) {
        if (!statusLine)
            continue;
        updateOSC(*statusLine);
        updateHotkeys(*statusLine);
    }
}

void ZLRemoteStatusDisplay::updateOSC(ZLStatusLine& statusLine) const
{
    const ZLOSCInPort& port = m_application.oscController().inPort();
    if (port.port() != 0)
        statusLine.setPart(u"oscStatus"_s, tr("OSC %1").arg(port.port()),
            tr("Open Sound Control messages are received on UDP port %1.").arg(port.port()));
    else
        statusLine.setPart(u"oscStatus"_s, tr("OSC off"), port.failure());
}

void ZLRemoteStatusDisplay::updateHotkeys(ZLStatusLine& statusLine) const
{
    const auto show = [&](const QString& text, const QString& toolTip) {
        statusLine.setPart(u"hotkeyStatus"_s, text, toolTip);
    };
    const QString problems = hotkeyProblems();
    if (!m_application.hotkeyController())
        show(tr("Global shortcuts off"), tr("Shortcuts work only while Zelta is in front."));
    else if (!problems.isEmpty())
        show(tr("Global shortcuts refused"), problems);
    else
        show(tr("Global shortcuts on"), tr("Shortcuts also work while another program is in front."));
}

QString ZLRemoteStatusDisplay::hotkeyProblems() const
{
    if (!m_application.hotkeyController())
        return {};
    // What concerns all of them needs to be said only once.
    if (const QString reason = m_application.hotKeyCenter()->unavailabilityReason(); !reason.isEmpty())
        return reason;
    QStringList problems;
    const QList<ZLHotKey> refused = m_application.hotkeyController()->refusedHotKeys();
    for (const ZLHotKey& hotKey : refused)
        problems.append(tr("%1: %2").arg(hotKey.purpose, hotKey.refusalReason));
    return problems.join(u'\n');
}
