#include "app/ZLSendCommand.h"

#include "commands/ZLRemoteActions.h"
#include "platform/ZLShownText.h"
#include "platform/osc/ZLOSCCodec.h"
#include "remote/ZLCommandSocket.h"

#include <QCoreApplication>
#include <QUdpSocket>

using namespace Qt::StringLiterals;

namespace {

struct SendCommandTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLSendCommand)
};

/// What a control surface sends when its button is pressed.
ZLResult<QString> sendToPort(const ZLOSCMessage& message, quint16 port)
{
    const ZLResult<QByteArray> datagram = ZLOSCCodec::encode(message);
    if (!datagram)
        return datagram.error();
    QUdpSocket socket;
    if (socket.writeDatagram(datagram.value(), QHostAddress::LocalHost, port) < 0)
        return ZLError { socket.errorString() };
    return SendCommandTexts::tr("sent to port %1 of this computer").arg(port);
}

}

int ZLSendCommand::run(const ZLCommandLine& commandLine)
{
    const ZLRemoteAction* action = ZLRemoteActions::withCommandWord(commandLine.action);
    if (!action)
        return ZLExitStatus::WrongUsage;
    const ZLOSCMessage message(action->oscAddress, { 1.0F });
    const ZLResult<QString> outcome =
        commandLine.oscPort ? sendToPort(message, *commandLine.oscPort) : ZLCommandSocket::send(message);
    if (!outcome) {
        m_err << u"zelta: %1\n"_s.arg(ZLShownText::asOneLine(outcome.error().message)) << Qt::flush;
        return ZLExitStatus::Failed;
    }
    m_out << u"%1: %2\n"_s.arg(commandLine.action, ZLShownText::asOneLine(outcome.value())) << Qt::flush;
    return ZLExitStatus::Done;
}
