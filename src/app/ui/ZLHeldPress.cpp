#include "app/ui/ZLHeldPress.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace {

/// The event that ends what `type` begins; None for one that begins nothing.
QEvent::Type endOf(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return QEvent::MouseButtonRelease;
    case QEvent::KeyPress:
        return QEvent::KeyRelease;
    default:
        return QEvent::None;
    }
}

/// What is pressed or let go; absent for an event of another kind, and while a held key repeats itself.
std::optional<int> pressedCode(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
        return int(static_cast<const QMouseEvent&>(event).button());
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
        const auto& key = static_cast<const QKeyEvent&>(event);
        return key.isAutoRepeat() ? std::nullopt : std::optional(key.key());
    }
    default:
        return std::nullopt;
    }
}

}

ZLPressStamp ZLHeldPress::stampFor(const QObject* receiver, const QEvent& event, const ZLPressStamp& own)
{
    const auto code = pressedCode(event);
    if (!code)
        return own;
    if (const QEvent::Type end = endOf(event.type()); end != QEvent::None) {
        m_press = Press { receiver, end, *code, own };
        return own;
    }
    const bool isItsEnd =
        m_press && m_press->receiver == receiver && m_press->end == event.type() && m_press->code == *code;
    const bool isYoung = isItsEnd && own.hostTime() - m_press->stamp.hostTime() <= ZLPressStamp::LongestAge;
    return isYoung ? m_press->stamp : own;
}
