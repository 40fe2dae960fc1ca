#pragma once

#include "app/ui/ZLModifierState.h"

#include <QApplication>

/// The program's events, on a desktop. The documents and all that works without a display belong to ZLApplication.
class ZLDesktopApplication final : public QApplication {
    Q_OBJECT

public:
    ZLDesktopApplication(int& argc, char** argv);

    /// Whether Alt is held in the event that is being handled.
    [[nodiscard]] bool isOptionKeyHeld() const { return m_modifiers.isOptionKeyHeld(); }

    /// Dispatches as inherited, and then announces a modifier key that was pressed or released. No event is swallowed.
    bool notify(QObject* receiver, QEvent* event) override;

Q_SIGNALS:
    void modifiersDidChange();

private:
    ZLModifierState m_modifiers;
};
