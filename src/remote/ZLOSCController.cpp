#include "remote/ZLOSCController.h"

#include "document/ZLChapterDocument.h"
#include "model/ZLTimeText.h"
#include "remote/ZLOSCLogTexts.h"
#include "remote/ZLRemoteOutcome.h"

#include <QLoggingCategory>
#include <QThread>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(oscLog, "zelta.remote.osc", QtInfoMsg)

constexpr int statusMilliseconds = 1000;

const QString isRecordingAddress = QStringLiteral("/zl/isRecording");
const QString lastChapterTitleAddress = QStringLiteral("/zl/lastChapterTitle");
const QString selectedChapterTitleAddress = QStringLiteral("/zl/selectedChapterTitle");
const QString currentTimeAddress = QStringLiteral("/zl/currentTime");
const QString currentChapterDurationAddress = QStringLiteral("/zl/currentChapterDuration");

/// Runs on the receiving thread too. A button sends 0 when it is released.
bool isCommand(const ZLOSCMessage& message)
{
    return ZLOSCController::actionForOSCKey(message.address()) && message.floatValue() > 0;
}

QString titleOfLastChapter(ZLChapterManager& chapters)
{
    const ZLChapterPointer chapter = chapters.lastChapter();
    return chapter ? chapter->title() : u""_s;
}

QString titleOfSelectedChapter(ZLChapterManager& chapters, int row)
{
    // While rows are being removed, the selection may lie below the last one.
    const ZLChapterPointer chapter =
        row >= 0 ? chapters.chapterAtIndex(std::min<qsizetype>(row, chapters.count() - 1)) : nullptr;
    return chapter ? chapter->title() : u""_s;
}

}

ZLOSCController::ZLOSCController(ZLRemoteControllerDelegate* delegate, ZLOSCControllerSetup setup, QObject* parent)
    : ZLRemoteController(delegate, parent)
    , m_setup(std::move(setup))
    , m_unsentMessages({ isRecordingAddress, lastChapterTitleAddress, selectedChapterTitleAddress })
    , m_manager(inPortLabelBase())
    , m_answeredSenders(m_manager)
{
    connectManager();
    m_manager.setPortRange(inputPortRange());
    m_manager.setFilter(isCommand);
    applyAccept();
    m_inPort = m_manager.createNewInput();
    applyOutputs();
    followSettings();
    m_displayTimer.setInterval(statusMilliseconds);
    connect(&m_displayTimer, &QTimer::timeout, this, &ZLOSCController::sendTime);
    connect(&m_displayTimer, &QTimer::timeout, this, [this] { m_answeredSenders.update(m_setup.hostClock->now()); });
    m_displayTimer.start();
}

ZLOSCController::~ZLOSCController()
{
    // No output shall go with a signal to an object that is half gone.
    m_manager.disconnect(this);
}

QString ZLOSCController::inPortLabelBase()
{
    return u"Zelta"_s;
}

std::optional<QString> ZLOSCController::actionForOSCKey(const QString& address)
{
    return ZLRemoteActions::actionForOSCAddress(address);
}

void ZLOSCController::receivedOSCMessage(const ZLOSCReceivedMessage& received)
{
    if (!isCommand(received.message))
        return;
    if (QThread::currentThread() != thread()) {
        QMetaObject::invokeMethod(this, [this, received] { receivedOSCMessage(received); }, Qt::QueuedConnection);
        return;
    }
    const Result result = carryOut(received.message, { .origin = ZLRemoteOrigin::OSC, .press = received.stamp });
    // Later, since the sender may be waiting for the answer.
    logReceived(received.message, received.peer.text(), received.receivedAt, result);
    if (ZLSettingsManager::oscAnswersSenders())
        m_answeredSenders.noteCommand(received.peer, m_setup.hostClock->now());
}

QString ZLOSCController::performMessage(
    const ZLOSCMessage& message, const QString& peer, std::optional<ZLPressStamp> press)
{
    const qint64 receivedAt = QDateTime::currentMSecsSinceEpoch();
    const Result result = carryOut(message, { .origin = ZLRemoteOrigin::CommandSocket, .press = press });
    logReceived(message, peer, receivedAt, result);
    return result.outcome;
}

ZLOSCController::Result ZLOSCController::carryOut(const ZLOSCMessage& message, const ZLRemoteSource& source)
{
    if (!isCommand(message))
        return { .outcome = ZLOSCLogTexts::reasonToIgnore(message), .isProblem = true };
    const ZLRemoteAction* action = ZLRemoteActions::withIdentifier(*actionForOSCKey(message.address()));
    const ZLRemoteOutcome outcome(currentDocument(), m_setup.recordingBeside ? m_setup.recordingBeside() : nullptr);
    if (delegate()) {
        qCInfo(oscLog, "%s", "-[ZLOSCController receivedOSCMessage:]");
        qCInfo(oscLog, "m: %s", qUtf8Printable(message.description()));
    }
    deliverAction(action->identifier, source);
    return { .outcome = outcome.description(*action), .isProblem = !outcome.hadEffect() };
}

void ZLOSCController::logReceived(
    const ZLOSCMessage& message, const QString& peer, qint64 receivedAt, const Result& result)
{
    ZLOSCLogEntry entry = ZLOSCLogTexts::entryFor(message, ZLOSCLogEntry::Direction::In, peer);
    entry.time = QDateTime::fromMSecsSinceEpoch(receivedAt);
    entry.outcome = result.outcome;
    entry.isProblem = result.isProblem;
    m_log.append(entry);
}

void ZLOSCController::sendUpdatesStatusInformation()
{
    const QList<ZLOSCMessage> messages = statusMessages();
    for (const ZLOSCMessage& message : messages)
        sendMessageToAllOutputs(message);
    sendTime();
}

void ZLOSCController::sendTime()
{
    const QList<ZLOSCMessage> messages = timeMessages();
    for (const ZLOSCMessage& message : messages)
        sendMessageToAllOutputs(message);
}

void ZLOSCController::sendMessageToAllOutputs(const ZLOSCMessage& message)
{
    const ZLOSCOutPortArray& outputs = m_manager.outPortArray();
    outputs.rdlock();
    for (ZLOSCOutPort* port : outputs.ports())
        sendMessage(message, *port);
    outputs.unlock();
}

ZLChapterDocument* ZLOSCController::currentDocument() const
{
    return m_setup.currentDocument ? m_setup.currentDocument() : nullptr;
}

QList<ZLOSCMessage> ZLOSCController::statusMessages() const
{
    ZLChapterDocument* document = currentDocument();
    ZLChapterManager* chapters = document ? &document->chapterManager() : nullptr;
    return {
        ZLOSCMessage(isRecordingAddress, { document && document->isRecording() }),
        ZLOSCMessage(lastChapterTitleAddress, { chapters ? titleOfLastChapter(*chapters) : u""_s }),
        ZLOSCMessage(selectedChapterTitleAddress,
            { chapters ? titleOfSelectedChapter(*chapters, document->selectedRow()) : u""_s }),
    };
}

QList<ZLOSCMessage> ZLOSCController::timeMessages() const
{
    ZLChapterDocument* document = currentDocument();
    if (!document || !document->isRecording())
        return {};
    const double seconds = document->currentDuration();
    const ZLChapterPointer chapter = document->chapterManager().lastChapter();
    return {
        ZLOSCMessage(currentTimeAddress, { ZLTimeText::hoursMinutesSeconds(ZLTimeText::truncated(seconds)) }),
        ZLOSCMessage(currentChapterDurationAddress, { chapter ? chapter->durationToTimestamp(seconds) : u""_s }),
    };
}

void ZLOSCController::sendMessage(const ZLOSCMessage& message, ZLOSCOutPort& port)
{
    // First of all, since the sender may be waiting for the answer.
    const bool wasSent = port.sendThisMessage(message);
    const QString outcome = ZLOSCLogTexts::outcomeOfSending(wasSent, port);
    if (!m_unsentMessages.note(port, message.address(), wasSent ? QString() : outcome))
        return;
    ZLOSCLogEntry entry = ZLOSCLogTexts::entryFor(message, ZLOSCLogEntry::Direction::Out, port.label());
    entry.outcome = outcome;
    entry.isProblem = !wasSent;
    m_log.append(entry);
}

void ZLOSCController::sendWholeState(ZLOSCOutPort* port)
{
    const QList<ZLOSCMessage> messages = statusMessages() + timeMessages();
    for (const ZLOSCMessage& message : messages)
        sendMessage(message, *port);
}

void ZLOSCController::sendWhatOutputsLack()
{
    const QList<ZLOSCMessage> messages = statusMessages();
    const ZLOSCOutPortArray& outputs = m_manager.outPortArray();
    outputs.rdlock();
    for (ZLOSCOutPort* port : outputs.ports()) {
        const QStringList lacked = m_unsentMessages.lackedBy(port);
        for (const ZLOSCMessage& message : messages) {
            if (lacked.contains(message.address()))
                sendMessage(message, *port);
        }
    }
    outputs.unlock();
}

void ZLOSCController::connectManager()
{
    connect(&m_unsentMessages, &ZLOSCUnsentMessages::retryIsDue, this, &ZLOSCController::sendWhatOutputsLack);
    connect(&m_manager, &ZLOSCManager::receivedOSCMessage, this, &ZLOSCController::receivedOSCMessage);
    connect(&m_manager, &ZLOSCManager::droppedOSCDatagram, this, &ZLOSCController::logDropped);
    connect(&m_manager, &ZLOSCManager::outputDidBecomeReady, this, [this](ZLOSCOutPort* port) {
        sendWholeState(port);
        // A name may turn out to be a sender that is being answered.
        m_answeredSenders.update(m_setup.hostClock->now());
    });
}

void ZLOSCController::followSettings()
{
    // What was given for this run holds until the user chooses otherwise.
    const ZLSettingsNotifications& settings = ZLSettingsManager::notifications();
    connect(&settings, &ZLSettingsNotifications::ZLOSCInputPortSettingDidChange, this, [this] {
        m_setup.inputPort.reset();
        applyInputPort();
    });
    connect(&settings, &ZLSettingsNotifications::ZLOSCOutputsSettingDidChange, this, [this] {
        m_setup.outputs.reset();
        applyOutputs();
    });
    connect(&settings, &ZLSettingsNotifications::ZLOSCAcceptSettingDidChange, this, &ZLOSCController::applyAccept);
    connect(&settings, &ZLSettingsNotifications::ZLOSCAnswerSendersSettingDidChange, this,
        &ZLOSCController::applyAnswerSenders);
}

ZLOSCPortRange ZLOSCController::inputPortRange() const
{
    if (!m_setup.inputPort)
        return ZLOSCPortRange::startingAt(ZLSettingsManager::oscInputPort());
    return ZLOSCPortRange::exactly(*m_setup.inputPort);
}

void ZLOSCController::applyInputPort()
{
    const ZLOSCPortRange range = inputPortRange();
    m_manager.setPortRange(range);
    // The port reports by itself why there is none.
    if (m_inPort->port() != range.first)
        (void)m_inPort->bind(range);
}

void ZLOSCController::applyAccept()
{
    QList<ZLOSCNetwork> addresses;
    const QStringList texts = ZLSettingsManager::oscAcceptedAddresses();
    for (const QString& text : texts) {
        if (const auto network = ZLOSCNetwork::fromText(text))
            addresses.append(*network);
    }
    m_manager.setAccessPolicy(
        ZLOSCAccessPolicy(ZLOSCAccessPolicy::Mode(ZLSettingsManager::oscAccept()), std::move(addresses)));
}

QList<ZLOSCDestination> ZLOSCController::outputs() const
{
    return m_setup.outputs ? *m_setup.outputs : ZLSettingsManager::oscOutputs();
}

void ZLOSCController::applyOutputs()
{
    const QList<ZLOSCDestination> wanted = outputs();
    const auto destinationOf = [](const ZLOSCOutPort* port) { return ZLOSCDestination { port->host(), port->port() }; };
    m_configuredOutputs.removeIf([&](ZLOSCOutPort* port) {
        if (wanted.contains(destinationOf(port)))
            return false;
        m_manager.removeOutput(port);
        return true;
    });
    for (const ZLOSCDestination& destination : wanted) {
        if (std::ranges::find(m_configuredOutputs, destination, destinationOf) == m_configuredOutputs.end())
            m_configuredOutputs.append(
                m_manager.createNewOutput(destination.text(), destination.host, destination.port));
    }
}

void ZLOSCController::applyAnswerSenders()
{
    if (!ZLSettingsManager::oscAnswersSenders())
        m_answeredSenders.clear();
}

void ZLOSCController::logDropped(const ZLOSCDroppedDatagram& dropped)
{
    m_log.append(ZLOSCLogTexts::entryForDropped(dropped, ZLSettingsManager::oscAccept()));
}
