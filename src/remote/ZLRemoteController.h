#pragma once

#include "commands/ZLRemoteActions.h"
#include "remote/ZLRemoteSource.h"

#include <QObject>

class ZLRemoteController;

/// Carries out what remote controllers receive.
class ZLRemoteControllerDelegate {
public:
    virtual ~ZLRemoteControllerDelegate() = default;

    /// On the main thread; `action` is one of the published identifiers. Optional: a delegate that does not override it
    /// does nothing.
    virtual void remoteControllerReceivedAction(ZLRemoteController& controller, const QString& action);
};

/// Turns events from outside the program into actions and hands them to its delegate.
class ZLRemoteController : public QObject {
    Q_OBJECT

public:
    /// The delegate may be null; it is not owned and has to outlive the controller.
    explicit ZLRemoteController(ZLRemoteControllerDelegate* delegate, QObject* parent = nullptr);
    ~ZLRemoteController() override;

    [[nodiscard]] ZLRemoteControllerDelegate* delegate() const { return m_delegate; }
    void setDelegate(ZLRemoteControllerDelegate* delegate) { m_delegate = delegate; }

    /// Where the action that is being delivered came from.
    [[nodiscard]] const ZLRemoteSource& source() const { return m_source; }

protected:
    /// Does nothing without a delegate or with an empty action.
    void deliverAction(const QString& action, const ZLRemoteSource& source = {});

private:
    ZLRemoteControllerDelegate* m_delegate;
    ZLRemoteSource m_source;
};
