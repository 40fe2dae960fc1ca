#include "platform/hotkey/ZLPrivateBus.h"

#include <QDBusMessage>
#include <QFile>
#include <QProcessEnvironment>

using namespace Qt::StringLiterals;

namespace {

constexpr int busDeadlineMilliseconds = 30000;

const QString busConfiguration = u"<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\" "
                                 "\"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">"
                                 "<busconfig><type>session</type><listen>unix:dir=%1</listen><auth>EXTERNAL</auth>"
                                 "<policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
                                 "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>"_s;

void endBusProcess(QProcess& process)
{
    process.terminate();
    if (!process.waitForFinished(busDeadlineMilliseconds))
        process.kill();
}

}

ZLPrivateBus::ZLPrivateBus()
{
    QFile configuration(m_folder.filePath(u"bus.conf"_s));
    if (!configuration.open(QIODevice::WriteOnly)) {
        m_error = configuration.errorString();
        return;
    }
    configuration.write(busConfiguration.arg(m_folder.path()).toUtf8());
    configuration.close();
    m_daemon.setProcessChannelMode(QProcess::SeparateChannels);
    m_daemon.start(
        u"dbus-daemon"_s, { u"--nofork"_s, u"--print-address=1"_s, u"--config-file="_s + configuration.fileName() });
    if (!m_daemon.waitForReadyRead(busDeadlineMilliseconds)) {
        m_error = u"dbus-daemon: "_s + m_daemon.errorString();
        return;
    }
    m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
}

ZLPrivateBus::~ZLPrivateBus()
{
    endPortal();
    for (const QString& name : std::as_const(m_connectionNames))
        QDBusConnection::disconnectFromBus(name);
    endBusProcess(m_daemon);
}

QDBusConnection ZLPrivateBus::connection()
{
    static int count = 0;
    m_connectionNames.append(u"private%1"_s.arg(++count));
    return QDBusConnection::connectToBus(m_address, m_connectionNames.constLast());
}

bool ZLPrivateBus::startPortal(const QString& kind, const QString& answer)
{
    endPortal();
    m_portal = std::make_unique<QProcess>();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, m_address);
    m_portal->setProcessEnvironment(environment);
    m_portal->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_portal->start(
        QStringLiteral(ZELTA_PYTHON), { QStringLiteral(ZELTA_PORTAL_MOCK), u"--kind"_s, kind, u"--answer"_s, answer });
    return m_portal->waitForReadyRead(busDeadlineMilliseconds) && m_portal->readLine().startsWith("ready");
}

void ZLPrivateBus::endPortal()
{
    if (m_portal)
        endBusProcess(*m_portal);
    m_portal.reset();
}

QVariant ZLPrivateBus::control(const QString& method, const QVariantList& arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        u"org.freedesktop.portal.Desktop"_s, u"/org/freedesktop/portal/desktop"_s, u"org.zelta.Test"_s, method);
    call.setArguments(arguments);
    const QDBusMessage reply = connection().call(call);
    if (reply.type() == QDBusMessage::ErrorMessage)
        qCritical("the portal mock failed: %s", qPrintable(reply.errorMessage()));
    return reply.arguments().value(0);
}
