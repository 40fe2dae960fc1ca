#include "platform/ZLPrivateBus.h"

#include <QDBusMessage>
#include <QFile>
#include <QProcessEnvironment>

#include <csignal>
#include <sys/prctl.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int busDeadlineMilliseconds = 15000;

const QString busConfiguration = u"<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\" "
                                 "\"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">"
                                 "<busconfig><type>session</type><listen>unix:dir=%1</listen>"
                                 "<servicedir>%1</servicedir><auth>EXTERNAL</auth>"
                                 "<policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
                                 "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>"_s;

/// A test that crashes takes its helpers along: they would keep its output open, and its reader waiting.
void startBusProcess(QProcess& process, const QString& program, const QStringList& arguments)
{
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process.start(program, arguments);
}

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
    startBusProcess(m_daemon, u"dbus-daemon"_s,
        { u"--nofork"_s, u"--print-address=1"_s, u"--config-file="_s + configuration.fileName() });
    if (!m_daemon.waitForReadyRead(busDeadlineMilliseconds)) {
        m_error = u"dbus-daemon: "_s + m_daemon.errorString();
        return;
    }
    m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
}

ZLPrivateBus::~ZLPrivateBus()
{
    endMock();
    for (const QString& name : std::as_const(m_connectionNames))
        QDBusConnection::disconnectFromBus(name);
    end();
}

QDBusConnection ZLPrivateBus::connection()
{
    static int count = 0;
    m_connectionNames.append(u"private%1"_s.arg(++count));
    return QDBusConnection::connectToBus(m_address, m_connectionNames.constLast());
}

bool ZLPrivateBus::startMock(const QString& program, const QStringList& arguments)
{
    endMock();
    m_mock = std::make_unique<QProcess>();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, m_address);
    m_mock->setProcessEnvironment(environment);
    m_mock->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    startBusProcess(*m_mock, QStringLiteral(ZELTA_PYTHON), QStringList { program } + arguments);
    return m_mock->waitForReadyRead(busDeadlineMilliseconds) && m_mock->readLine().startsWith("ready");
}

void ZLPrivateBus::offerService(const QString& name, const QString& program)
{
    QFile service(m_folder.filePath(name + u".service"_s));
    if (!service.open(QIODevice::WriteOnly))
        qFatal("cannot offer a service: %s", qPrintable(service.errorString()));
    service.write(
        u"[D-BUS Service]\nName=%1\nExec=%2 %3\n"_s.arg(name, QStringLiteral(ZELTA_PYTHON), program).toUtf8());
    service.close();
    call(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"ReloadConfig"_s);
}

void ZLPrivateBus::endMock()
{
    if (m_mock)
        endBusProcess(*m_mock);
    m_mock.reset();
}

void ZLPrivateBus::end()
{
    if (m_daemon.state() != QProcess::NotRunning)
        endBusProcess(m_daemon);
}

QVariant ZLPrivateBus::call(const QString& service, const QString& path, const QString& interface,
    const QString& method, const QVariantList& arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    // One connection for all calls: a bus takes only some hundreds of them from one user.
    if (!m_caller)
        m_caller = connection();
    const QDBusMessage reply = m_caller->call(message, QDBus::Block, busDeadlineMilliseconds);
    if (reply.type() == QDBusMessage::ErrorMessage)
        qCritical("the mock failed: %s", qPrintable(reply.errorMessage()));
    return reply.arguments().value(0);
}
