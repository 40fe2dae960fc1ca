#include "remote/ZLRemoteController.h"

void ZLRemoteControllerDelegate::remoteControllerReceivedAction(ZLRemoteController&, const QString&) { }

ZLRemoteController::ZLRemoteController(ZLRemoteControllerDelegate* delegate, QObject* parent)
    : QObject(parent)
    , m_delegate(delegate)
{
}

ZLRemoteController::~ZLRemoteController()
{
    setDelegate(nullptr);
}

void ZLRemoteController::deliverAction(const QString& action, const ZLRemoteSource& source)
{
    m_source = source;
    if (m_delegate && !action.isEmpty())
        m_delegate->remoteControllerReceivedAction(*this, action);
}
