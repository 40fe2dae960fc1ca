#pragma once

#include "platform/osc/LoopbackPeer.h"
#include "remote/ZLOSCController.h"
#include "remote/ZLRecordingDelegate.h"
#include "support/ZLDocumentFixture.h"

/// A controller on a port of its own choice, a document that it serves, and a delegate that knows two actions.
class ZLOSCControllerFixture : public ZLDocumentFixture {
protected:
    ZLOSCControllerFixture()
    {
        m_delegate.perform = [this](const QString& action) {
            if (action == ZLControllerToggleRecordingAction)
                m_document.recordButtonPressed();
            else if (action == ZLControllerNewChapterAction)
                m_document.addChapterButtonPressed();
        };
    }

    [[nodiscard]] ZLOSCControllerSetup setup()
    {
        return {
            .currentDocument = [this] { return m_currentDocument; },
            .hostClock = m_hostClock,
            .inputPort = 0,
        };
    }

    void createController(ZLOSCControllerSetup setup)
    {
        m_controller.reset();
        m_controller = std::make_unique<ZLOSCController>(&m_delegate, std::move(setup));
        QObject::connect(
            &m_document, &ZLChapterDocument::changed, m_controller.get(), [this](const ZLDocumentChange& change) {
                if (change.concerns(ZLDocumentChange::concerningControllers))
                    m_controller->sendUpdatesStatusInformation();
            });
    }
    void createController() { createController(setup()); }

    /// Sends the state to the peer from now on; what it is told at once has arrived when this returns.
    static void addOutput(const LoopbackPeer& peer)
    {
        auto outputs = ZLSettingsManager::oscOutputs();
        outputs.append({ QStringLiteral("127.0.0.1"), peer.port() });
        ZLSettingsManager::setOSCOutputs(outputs);
        QCoreApplication::processEvents();
    }

    /// The timer says that a second has passed.
    void tick() { QMetaObject::invokeMethod(&m_controller->displayTimer(), "timeout"); }

    /// What arrived since the last call, as "/zl/isRecording true".
    [[nodiscard]] QStringList news(LoopbackPeer& peer)
    {
        QStringList texts;
        qsizetype& seen = m_seen[&peer];
        for (const ZLOSCMessage& message : peer.received().sliced(seen))
            texts.append(message.description());
        seen = peer.received().size();
        return texts;
    }

    /// The controller receives the message from this sender, as if by its input.
    void receive(const ZLOSCMessage& message, const ZLOSCPeer& peer = { QHostAddress::LocalHost, 9 })
    {
        m_controller->receivedOSCMessage({ message, peer, 0 });
    }
    void press(const QString& address) { receive(ZLOSCMessage(address, { 1.0F })); }

    [[nodiscard]] QStringList loggedOutcomes()
    {
        m_controller->log().flush();
        QStringList outcomes;
        for (const ZLOSCLogEntry& entry : m_controller->log().entries())
            outcomes.append(entry.outcome);
        return outcomes;
    }

    ZLRecordingDelegate m_delegate;
    ZLChapterDocument* m_currentDocument = &m_document;
    std::unique_ptr<ZLOSCController> m_controller;

private:
    QHash<const LoopbackPeer*, qsizetype> m_seen;
};
