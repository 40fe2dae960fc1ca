#pragma once

#include "app/ui/ZLInputPress.h"
#include "app/ui/ZLModifierState.h"
#include "app/ui/look/ZLReadablePalette.h"
#include "platform/window/ZLApplicationFocus.h"

#include <QApplication>

/// The program's events, on a desktop. The documents and all that works without a display belong to ZLApplication.
class ZLDesktopApplication final : public QApplication {
    Q_OBJECT

public:
    ZLDesktopApplication(int& argc, char** argv);

    /// Whether Alt is held in the event that is being handled.
    [[nodiscard]] bool isOptionKeyHeld() const { return m_modifiers.isOptionKeyHeld(); }
    /// When the key or button was pressed whose event is being handled; absent when it is no such event.
    [[nodiscard]] const std::optional<ZLPressStamp>& pressUnderWay() const { return m_press.underWay(); }
    [[nodiscard]] ZLApplicationFocus& focus() { return m_focus; }

    /// Dispatches as inherited, and then announces a modifier key that was pressed or released. No event is swallowed.
    bool notify(QObject* receiver, QEvent* event) override;

protected:
    bool event(QEvent* event) override;

Q_SIGNALS:
    /// A modifier key was pressed or released, or went with the keyboard.
    void modifiersDidChange();

private:
    void forgetModifiers();

    ZLModifierState m_modifiers;
    ZLInputPress m_press;
    ZLApplicationFocus m_focus;
    ZLReadablePalette m_palette;
};
