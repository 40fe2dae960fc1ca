#include "app/ui/ZLModifierState.h"

#include <QInputEvent>
#include <QKeyEvent>

namespace {

bool isKeyEvent(const QEvent& event)
{
    return event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease;
}

/// Events that report which modifiers are held; an enter event, for one, always reports none.
bool reportsModifiers(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
        return true;
    default:
        return false;
    }
}

bool isModifierKey(int key)
{
    return key == Qt::Key_Alt || key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Meta
        || key == Qt::Key_AltGr;
}

}

void ZLModifierState::noteEvent(const QEvent& event)
{
    if (!reportsModifiers(event))
        return;
    const auto& input = static_cast<const QInputEvent&>(event);
    if (isKeyEvent(event) && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Alt) {
        // The modifiers of this event are those from before the key moved.
        m_isOptionKeyHeld = event.type() == QEvent::KeyPress;
        return;
    }
    m_isOptionKeyHeld = input.modifiers().testFlag(Qt::AltModifier);
}

bool ZLModifierState::changesModifiers(const QEvent& event)
{
    return isKeyEvent(event) && isModifierKey(static_cast<const QKeyEvent&>(event).key());
}
