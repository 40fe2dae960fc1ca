#include "app/ZLRunningInstance.h"

#include "platform/ZLStateFolder.h"

#include <QDeadlineTimer>
#include <QMetaObject>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

const QString openFileAddress = QStringLiteral("/zelta/open");
const QString newDocumentAddress = QStringLiteral("/zelta/new");
const QString showAddress = QStringLiteral("/zelta/show");
const QString takenAnswer = QStringLiteral("taken");

/// The process that holds the lock opens its socket a moment later.
constexpr int patienceMilliseconds = 3000;
constexpr unsigned long millisecondsBetweenTries = 50;

bool someoneRuns(const QString& path)
{
    const auto lock = ZLFileLock::tryLock(ZLCommandSocket::lockPath(path));
    return lock && !lock.value();
}

/// One message a file, so that none is ever too long.
QList<ZLOSCMessage> messagesFor(const ZLLaunchRequest& request)
{
    QList<ZLOSCMessage> messages;
    if (request.wantsNewDocument)
        messages.append(ZLOSCMessage(newDocumentAddress));
    for (const QString& file : request.files)
        messages.append(ZLOSCMessage(openFileAddress, { file }));
    if (messages.isEmpty())
        messages.append(ZLOSCMessage(showAddress));
    return messages;
}

std::optional<ZLLaunchRequest> requestFrom(const ZLOSCMessage& message)
{
    if (message.address() == newDocumentAddress)
        return ZLLaunchRequest { .wantsNewDocument = true };
    if (message.address() == showAddress)
        return ZLLaunchRequest {};
    const QString* file =
        message.arguments().isEmpty() ? nullptr : std::get_if<QString>(&message.arguments().constFirst());
    if (message.address() == openFileAddress && file)
        return ZLLaunchRequest { .files = { *file } };
    return std::nullopt;
}

}

ZLResult<bool> ZLRunningInstance::handOver(const ZLLaunchRequest& request, const QString& path)
{
    QList<ZLOSCMessage> messages = messagesFor(request);
    const QDeadlineTimer deadline(patienceMilliseconds);
    while (someoneRuns(path)) {
        const ZLResult<QString> answer = ZLCommandSocket::send(messages.constFirst(), path);
        if (answer)
            messages.removeFirst();
        if (messages.isEmpty())
            return true;
        if (!answer && deadline.hasExpired())
            return answer.error();
        if (!answer)
            QThread::msleep(millisecondsBetweenTries);
    }
    return false;
}

ZLRunningInstance::ZLRunningInstance(Handler handler, const QString& path)
    : m_handler(std::move(handler))
    , m_socket([this](const ZLOSCMessage& message) { return take(message); }, path)
{
}

QString ZLRunningInstance::defaultPath()
{
    return ZLStateFolder::path() + u"/windows"_s;
}

QString ZLRunningInstance::take(const ZLOSCMessage& message)
{
    const auto request = requestFrom(message);
    if (!request)
        return {};
    // The other process does not have to wait until the file is read.
    QMetaObject::invokeMethod(
        &m_socket, [this, request] { m_handler(*request); }, Qt::QueuedConnection);
    return takenAnswer;
}
