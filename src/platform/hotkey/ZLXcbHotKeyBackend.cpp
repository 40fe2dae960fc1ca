#include "platform/hotkey/ZLXcbHotKeyBackend.h"

#include "platform/hotkey/ZLXcbKeyboard.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <utility>

#include <xcb/xcb.h>
// The header has a field of this name, which C++ reserves.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(xcbHotKeyLog, "zelta.platform.hotkey.xcb", QtInfoMsg)

constexpr quint16 comparedModifiers = XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | XCB_MOD_MASK_4;

quint16 coreModifiers(const ZLKeyCombo& combo)
{
    quint16 mask = 0;
    mask |= combo.modifiers & ZLHotKeyModifier::command ? XCB_MOD_MASK_4 : 0;
    mask |= combo.modifiers & ZLHotKeyModifier::shift ? XCB_MOD_MASK_SHIFT : 0;
    mask |= combo.modifiers & ZLHotKeyModifier::option ? XCB_MOD_MASK_1 : 0;
    mask |= combo.modifiers & ZLHotKeyModifier::control ? XCB_MOD_MASK_CONTROL : 0;
    return mask;
}

int firstXkbEventCode(xcb_connection_t* connection)
{
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection, &xcb_xkb_id);
    return extension && extension->present ? extension->first_event : -1;
}

bool changesKeyboard(const xcb_generic_event_t* event)
{
    // All events of the extension share one code; the second byte tells them apart.
    if (event->pad0 == XCB_XKB_NEW_KEYBOARD_NOTIFY || event->pad0 == XCB_XKB_MAP_NOTIFY)
        return true;
    if (event->pad0 != XCB_XKB_STATE_NOTIFY)
        return false;
    const auto* const state = reinterpret_cast<const xcb_xkb_state_notify_event_t*>(event);
    return (state->changed & XCB_XKB_STATE_PART_GROUP_STATE) != 0;
}

}

ZLXcbHotKeyBackend::ZLXcbHotKeyBackend(QObject* parent)
    : ZLHotKeyCenter(parent)
{
    m_keyboardChangeTimer.setSingleShot(true);
    m_keyboardChangeTimer.setInterval(0);
    connect(&m_keyboardChangeTimer, &QTimer::timeout, this, &ZLXcbHotKeyBackend::keyboardDidChange);
    if (xcb_connection_t* connection = ZLXcbKeyboard::applicationConnection()) {
        m_xkbEventCode = firstXkbEventCode(connection);
        QCoreApplication::instance()->installNativeEventFilter(this);
    }
}

ZLXcbHotKeyBackend::~ZLXcbHotKeyBackend()
{
    releaseAll();
}

QString ZLXcbHotKeyBackend::backendName() const
{
    return u"X11"_s;
}

QString ZLXcbHotKeyBackend::unavailabilityReason() const
{
    return ZLXcbKeyboard::applicationConnection() ? QString() : tr("There is no connection to an X server.");
}

void ZLXcbHotKeyBackend::activateHotKey(const ZLHotKey& hotKey)
{
    Wanted& wanted = m_wanted[hotKey.identifier];
    wanted.keyCombo = hotKey.keyCombo;
    grab(hotKey.identifier, wanted);
}

void ZLXcbHotKeyBackend::deactivateHotKey(const ZLHotKey& hotKey)
{
    const Wanted wanted = m_wanted.take(hotKey.identifier);
    xcb_connection_t* connection = ZLXcbKeyboard::applicationConnection();
    if (wanted.grab && connection)
        wanted.grab->release(connection);
}

void ZLXcbHotKeyBackend::grab(const QString& identifier, Wanted& wanted)
{
    xcb_connection_t* connection = ZLXcbKeyboard::applicationConnection();
    if (!connection) {
        setHotKeyState(identifier, ZLHotKey::State::Refused, unavailabilityReason());
        return;
    }
    const std::optional<quint32> keycode = m_layout.nativeScanCodeForKeyCode(wanted.keyCombo.keyCode);
    // A key code of the X protocol has eight bits.
    if (!keycode || *keycode > 0xff) {
        setHotKeyState(identifier, ZLHotKey::State::Refused, tr("This keyboard has no such key."));
        return;
    }
    ZLResult<ZLXcbKeyGrab> taken = ZLXcbKeyGrab::take(connection,
        { static_cast<quint8>(*keycode), coreModifiers(wanted.keyCombo) }, ZLXcbKeyboard::lockMasks(connection));
    if (!taken) {
        qCInfo(xcbHotKeyLog) << "refused:" << identifier << taken.error().message;
        setHotKeyState(identifier, ZLHotKey::State::Refused, taken.error().message);
        return;
    }
    wanted.grab = std::move(taken).value();
    setHotKeyState(identifier, ZLHotKey::State::Registered);
}

void ZLXcbHotKeyBackend::releaseAll()
{
    xcb_connection_t* connection = ZLXcbKeyboard::applicationConnection();
    for (Wanted& wanted : m_wanted) {
        if (wanted.grab && connection)
            wanted.grab->release(connection);
        wanted.grab.reset();
    }
}

void ZLXcbHotKeyBackend::keyboardDidChange()
{
    releaseAll();
    m_layout = ZLKeyboardLayout::current();
    // A listener of the state may register and unregister while this runs.
    const QStringList identifiers = m_wanted.keys();
    for (const QString& identifier : identifiers) {
        const auto wanted = m_wanted.find(identifier);
        if (wanted != m_wanted.end() && !wanted->grab)
            grab(identifier, *wanted);
    }
    Q_EMIT keyboardLayoutDidChange();
}

bool ZLXcbHotKeyBackend::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto* const event = static_cast<const xcb_generic_event_t*>(message);
    // An event that another client made up has the highest bit set and so is neither: it cannot press our keys.
    if (event->response_type == XCB_KEY_PRESS) {
        const auto* const press = reinterpret_cast<const xcb_key_press_event_t*>(event);
        return handleKeyPress({ press->detail, static_cast<quint16>(press->state & comparedModifiers) }, press->time);
    }
    if (event->response_type == XCB_KEY_RELEASE) {
        const auto* const release = reinterpret_cast<const xcb_key_release_event_t*>(event);
        return handleKeyRelease(release->detail, release->time);
    }
    if (event->response_type == m_xkbEventCode && changesKeyboard(event))
        m_keyboardChangeTimer.start();
    return false;
}

bool ZLXcbHotKeyBackend::handleKeyPress(ZLXcbKeyGrab::Combination pressed, quint32 time)
{
    // Of every key, so that the clocks are known before a hot key comes late.
    const ZLPressStamp press = m_serverClock.stampOf(time, m_hostClock.now());
    for (auto wanted = m_wanted.cbegin(); wanted != m_wanted.cend(); ++wanted) {
        if (!wanted->grab || wanted->grab->combination() != pressed)
            continue;
        // The server repeats a held key as a release and a press at the same instant.
        const auto released = m_releaseTimes.constFind(pressed.keycode);
        const bool isRepeat = released != m_releaseTimes.cend() && *released == time;
        if (!m_heldKeys.contains(pressed.keycode))
            m_heldKeys.append(pressed.keycode);
        if (!isRepeat)
            fireLater(wanted.key(), press);
        return true;
    }
    return false;
}

bool ZLXcbHotKeyBackend::handleKeyRelease(quint8 keycode, quint32 time)
{
    if (!m_heldKeys.removeOne(keycode))
        return false;
    m_releaseTimes.insert(keycode, time);
    return true;
}

void ZLXcbHotKeyBackend::fireLater(const QString& identifier, const ZLPressStamp& press)
{
    // A listener may open a window, which must not happen inside an event filter.
    QMetaObject::invokeMethod(
        this,
        [this, identifier, press] {
            if (m_wanted.contains(identifier))
                Q_EMIT hotKeyPressed(identifier, press);
        },
        Qt::QueuedConnection);
}
