#include "app/ui/ZLInputPress.h"

#include <QInputEvent>

#include <utility>

namespace {

bool isKey(const QEvent& event)
{
    return event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease
        || event.type() == QEvent::ShortcutOverride;
}

/// What a person does that may set a command off.
bool isInput(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
        return true;
    default:
        return isKey(event);
    }
}

/// Whether the event comes from elsewhere also when it is dispatched while an input is, as in the loop of a menu.
bool isOfItsOwn(const QEvent& event)
{
    return event.type() == QEvent::Timer || event.type() == QEvent::MetaCall || event.type() == QEvent::SockAct;
}

}

ZLInputPress::Dispatch::Dispatch(ZLInputPress& press, const QObject* receiver, const QEvent& event)
    : m_press(press)
    , m_former(std::exchange(press.m_underWay, press.pressFor(receiver, event)))
{
}

ZLInputPress::Dispatch::~Dispatch()
{
    m_press.m_underWay = m_former;
}

std::optional<ZLPressStamp> ZLInputPress::pressFor(const QObject* receiver, const QEvent& event)
{
    if (event.type() == QEvent::Shortcut)
        return m_lastKey;
    if (isOfItsOwn(event))
        return std::nullopt;
    if (!isInput(event))
        return m_underWay;
    const auto time = quint32(static_cast<const QInputEvent&>(event).timestamp());
    const double arrival = m_hostClock.now();
    // An event that a program made up has no time.
    const ZLPressStamp stamp = time == 0 ? ZLPressStamp(arrival) : m_inputClock.stampOf(time, arrival);
    if (isKey(event))
        m_lastKey = stamp;
    return m_held.stampFor(receiver, event, stamp);
}
