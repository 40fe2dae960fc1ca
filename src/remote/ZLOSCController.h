#pragma once

#include "platform/osc/ZLOSCManager.h"
#include "remote/ZLOSCAnsweredSenders.h"
#include "remote/ZLOSCLog.h"
#include "remote/ZLOSCUnsentMessages.h"
#include "remote/ZLRemoteController.h"
#include "settings/ZLSettingsManager.h"

#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

class ZLChapterDocument;

/// What an OSC controller is given from the outside.
struct ZLOSCControllerSetup {
    /// The document that commands act on at the moment, null when there is none. When empty, there never is one.
    std::function<ZLChapterDocument*()> currentDocument {};
    /// A document that records while commands act on another one, null when there is none. When empty, there never is.
    std::function<ZLChapterDocument*()> recordingBeside {};
    /// Measures how long an answered sender has been silent.
    std::shared_ptr<const ZLHostClock> hostClock = std::make_shared<ZLSteadyHostClock>();
    /// For this run, instead of the stored settings, until the user changes the setting. Port 0 lets the system choose.
    /// Where any other port is not free, there is none.
    std::optional<quint16> inputPort {};
    std::optional<QList<ZLOSCDestination>> outputs {};
};

/// Lets programs and control surfaces on the network drive the recorder by Open Sound Control messages, and sends them
/// its state. Follows the OSC settings at once. Everything but receivedOSCMessage() belongs to the main thread.
class ZLOSCController : public ZLRemoteController {
    Q_OBJECT

public:
    ZLOSCController(ZLRemoteControllerDelegate* delegate, ZLOSCControllerSetup setup, QObject* parent = nullptr);
    ~ZLOSCController() override;

    [[nodiscard]] ZLOSCManager& manager() { return m_manager; }
    /// Its port() is the one in use; 0 when there is none, and failure() says why. It announces portDidChange.
    [[nodiscard]] ZLOSCInPort& inPort() const { return *m_inPort; }
    /// Every second.
    [[nodiscard]] QTimer& displayTimer() { return m_displayTimer; }
    [[nodiscard]] ZLOSCLog& log() { return m_log; }
    [[nodiscard]] ZLOSCUnsentMessages& unsentMessages() { return m_unsentMessages; }
    /// The outputs in force, without those to answered senders.
    [[nodiscard]] QList<ZLOSCDestination> outputs() const;
    /// The outputs that exist only because a command came from there, among those of the manager.
    [[nodiscard]] bool isAnsweredSender(const ZLOSCOutPort* port) const { return m_answeredSenders.contains(port); }

    /// The text that the labels of inputs begin with.
    [[nodiscard]] static QString inPortLabelBase();
    [[nodiscard]] static std::optional<QString> actionForOSCKey(const QString& address);

    /// May be called on any thread.
    void receivedOSCMessage(const ZLOSCReceivedMessage& received);
    /// Carries out a message that came by another way than the network; what became of it, as the log says it.
    QString performMessage(const ZLOSCMessage& message, const QString& peer, std::optional<ZLPressStamp> press = {});

    void sendUpdatesStatusInformation();
    /// Sends nothing unless the document records.
    void sendTime();
    void sendMessageToAllOutputs(const ZLOSCMessage& message);

private:
    /// What became of a message, as the log says it.
    struct Result {
        QString outcome;
        bool isProblem = false;
    };

    [[nodiscard]] Result carryOut(const ZLOSCMessage& message, const ZLRemoteSource& source);
    void logReceived(const ZLOSCMessage& message, const QString& peer, qint64 receivedAt, const Result& result);
    [[nodiscard]] ZLChapterDocument* currentDocument() const;
    [[nodiscard]] QList<ZLOSCMessage> statusMessages() const;
    [[nodiscard]] QList<ZLOSCMessage> timeMessages() const;
    void sendMessage(const ZLOSCMessage& message, ZLOSCOutPort& port);
    void sendWholeState(ZLOSCOutPort* port);
    void sendWhatOutputsLack();

    void connectManager();
    void followSettings();
    [[nodiscard]] ZLOSCPortRange inputPortRange() const;
    void applyInputPort();
    void applyAccept();
    void applyOutputs();
    void applyAnswerSenders();
    void logDropped(const ZLOSCDroppedDatagram& dropped);

    ZLOSCControllerSetup m_setup;
    ZLOSCLog m_log;
    /// Before the outputs, which go later.
    ZLOSCUnsentMessages m_unsentMessages;
    ZLOSCManager m_manager;
    ZLOSCAnsweredSenders m_answeredSenders;
    QList<ZLOSCOutPort*> m_configuredOutputs;
    ZLOSCInPort* m_inPort = nullptr;
    QTimer m_displayTimer;
};
