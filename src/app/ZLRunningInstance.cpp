#include "app/ZLRunningInstance.h"

#include "platform/ZLStateFolder.h"

#include <QDeadlineTimer>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

const QString openFileAddress = QStringLiteral("/zelta/open");
const QString newDocumentAddress = QStringLiteral("/zelta/new");
const QString showAddress = QStringLiteral("/zelta/show");
const QString takenAnswer = QStringLiteral("taken");
/// Before what could not be opened.
const QString problemAnswer = QStringLiteral("problem: ");

/// The process that holds the lock opens its socket a moment later.
constexpr int patienceMilliseconds = 3000;
constexpr unsigned long millisecondsBetweenTries = 50;
/// A file may lie on a share that takes its time.
constexpr int openingMilliseconds = 10000;

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

ZLResult<ZLHandover> ZLRunningInstance::handOver(const ZLLaunchRequest& request, const QString& path)
{
    ZLHandover handover;
    QList<ZLOSCMessage> messages = messagesFor(request);
    const QDeadlineTimer deadline(patienceMilliseconds);
    while (someoneRuns(path)) {
        const ZLResult<QString> answer = ZLCommandSocket::send(messages.constFirst(), path, openingMilliseconds);
        if (answer)
            messages.removeFirst();
        if (answer && answer.value().startsWith(problemAnswer))
            handover.problems.append(answer.value().sliced(problemAnswer.size()));
        handover.isTaken = messages.isEmpty();
        if (handover.isTaken)
            return handover;
        if (!answer && deadline.hasExpired())
            return answer.error();
        if (!answer)
            QThread::msleep(millisecondsBetweenTries);
    }
    return handover;
}

ZLRunningInstance::ZLRunningInstance(Handler handler, const QString& path)
    : m_handler(std::move(handler))
    , m_socket([this](const auto& message, const ZLPressStamp&, const auto& answer) { take(message, answer); }, path)
{
}

QString ZLRunningInstance::defaultPath()
{
    return ZLStateFolder::path() + u"/windows"_s;
}

void ZLRunningInstance::take(const ZLOSCMessage& message, const ZLCommandSocket::Answer& answer)
{
    const auto request = requestFrom(message);
    if (!request) {
        answer({});
        return;
    }
    m_handler(*request, [answer](const QStringList& problems) {
        answer(problems.isEmpty() ? takenAnswer : problemAnswer + problems.join(u' '));
    });
}
