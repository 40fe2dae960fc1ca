#include "platform/hotkey/ZLNullHotKeyBackend.h"

using namespace Qt::StringLiterals;

QString ZLNullHotKeyBackend::backendName() const
{
    return u"none"_s;
}

QString ZLNullHotKeyBackend::unavailabilityReason() const
{
    return tr("This window system has no global shortcuts.");
}

void ZLNullHotKeyBackend::activateHotKey(const ZLHotKey& hotKey)
{
    setHotKeyState(hotKey.identifier, ZLHotKey::State::Refused, unavailabilityReason());
}

void ZLNullHotKeyBackend::deactivateHotKey(const ZLHotKey&) { }
