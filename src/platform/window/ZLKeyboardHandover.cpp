#include "platform/window/ZLKeyboardHandover.h"

#include "platform/window/ZLXcbWindows.h"

#include <QEvent>
#include <QRegularExpression>
#include <QWindow>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 noTime = XCB_CURRENT_TIME;

/// The server tells the time with its events alone, so a window that is never shown gets one. On a connection of its
/// own, since the events of the program's own one belong to the toolkit.
quint32 serverTime()
{
    int screenNumber = 0;
    xcb_connection_t* connection = xcb_connect(nullptr, &screenNumber);
    quint32 time = noTime;
    if (xcb_connection_has_error(connection) == 0) {
        const xcb_window_t window = xcb_generate_id(connection);
        const quint32 wanted = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(connection, 0, window, xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root, 0, 0,
            1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &wanted);
        xcb_change_property(
            connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, 0, nullptr);
        xcb_flush(connection);
        xcb_generic_event_t* event = xcb_wait_for_event(connection);
        if (event && (event->response_type & 0x7F) == XCB_PROPERTY_NOTIFY)
            time = reinterpret_cast<xcb_property_notify_event_t*>(event)->time;
        std::free(event);
    }
    xcb_disconnect(connection);
    return time;
}

/// As the window manager expects it of a program whose user has just asked for this window.
void askWindowManager(xcb_connection_t* connection, QWindow& window, quint32 userTime)
{
    constexpr quint32 askedByProgram = 1;
    const auto id = xcb_window_t(window.winId());
    ZLXcbWindows::setNumber(connection, id, "_NET_WM_USER_TIME", userTime);
    xcb_client_message_event_t message {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = id;
    message.type = ZLXcbWindows::atomNamed(connection, "_NET_ACTIVE_WINDOW");
    message.data.data32[0] = askedByProgram;
    message.data.data32[1] = userTime;
    xcb_send_event(connection, 0, ZLXcbWindows::rootOf(connection, id),
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
        reinterpret_cast<const char*>(&message));
    xcb_flush(connection);
}

void askCompositor(QWindow& window, const QString& activationToken)
{
    // The toolkit looks for the compositor's token here.
    if (!activationToken.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", activationToken.toUtf8());
    window.requestActivate();
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

/// Asks when the window is on the screen: before, some compositors do not listen.
class AskWhenExposed final : public QObject {
public:
    AskWhenExposed(QWindow& window, const QString& activationToken)
        : QObject(&window)
        , m_window(window)
        , m_activationToken(activationToken)
    {
        window.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Expose && m_window.isExposed()) {
            m_window.removeEventFilter(this);
            // After the event, with which the window gets its picture.
            QMetaObject::invokeMethod(this, [this] { ask(); }, Qt::QueuedConnection);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void ask()
    {
        askCompositor(m_window, m_activationToken);
        deleteLater();
    }

    QWindow& m_window;
    QString m_activationToken;
};

}

void ZLKeyboardHandover::giveTo(QWindow& window, const QString& activationToken)
{
    if (xcb_connection_t* connection = ZLXcbWindows::connection()) {
        const quint32 told = timeInStartupIdentifier(activationToken);
        askWindowManager(connection, window, told == noTime ? serverTime() : told);
        return;
    }
    if (window.isExposed())
        askCompositor(window, activationToken);
    else
        new AskWhenExposed(window, activationToken);
}

quint32 ZLKeyboardHandover::timeInStartupIdentifier(const QString& identifier)
{
    static const QRegularExpression ending(uR"(_TIME(\d{1,10})$)"_s);
    return ending.match(identifier).captured(1).toUInt();
}
