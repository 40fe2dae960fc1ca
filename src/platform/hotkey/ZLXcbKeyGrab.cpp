#include "platform/hotkey/ZLXcbKeyGrab.h"

#include <QCoreApplication>

#include <cstdlib>
#include <memory>
#include <utility>

#include <xcb/xcb.h>

namespace {

/// The X protocol's number for "another client holds this".
constexpr quint8 accessErrorCode = XCB_ACCESS;

struct GrabErrorRelease {
    void operator()(xcb_generic_error_t* error) const { std::free(error); }
};
using GrabErrorPointer = std::unique_ptr<xcb_generic_error_t, GrabErrorRelease>;

xcb_window_t grabRootWindow(xcb_connection_t* connection)
{
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

QString grabRefusal(quint8 errorCode)
{
    if (errorCode == accessErrorCode)
        return QCoreApplication::translate("ZLXcbKeyGrab", "Another program uses these keys.");
    return QCoreApplication::translate("ZLXcbKeyGrab", "The X server refuses these keys (error %1).").arg(errorCode);
}

}

ZLXcbKeyGrab::ZLXcbKeyGrab(Combination combination, QList<quint16> lockMasks)
    : m_combination(combination)
    , m_lockMasks(std::move(lockMasks))
{
}

ZLResult<ZLXcbKeyGrab> ZLXcbKeyGrab::take(
    xcb_connection_t* connection, Combination combination, const QList<quint16>& lockMasks)
{
    const xcb_window_t root = grabRootWindow(connection);
    QList<xcb_void_cookie_t> cookies;
    for (const quint16 locks : lockMasks) {
        cookies.append(xcb_grab_key_checked(connection, 1, root, combination.modifiers | locks, combination.keycode,
            XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    }
    QList<quint16> taken;
    quint8 errorCode = 0;
    for (qsizetype index = 0; index < cookies.size(); ++index) {
        const GrabErrorPointer error(xcb_request_check(connection, cookies.at(index)));
        if (error)
            errorCode = error->error_code;
        else
            taken.append(lockMasks.at(index));
    }
    ZLXcbKeyGrab grab(combination, taken);
    if (errorCode == 0)
        return grab;
    grab.release(connection);
    return ZLError { grabRefusal(errorCode) };
}

void ZLXcbKeyGrab::release(xcb_connection_t* connection) const
{
    for (const quint16 locks : m_lockMasks) {
        xcb_ungrab_key(connection, m_combination.keycode, grabRootWindow(connection), m_combination.modifiers | locks);
    }
    xcb_flush(connection);
}
