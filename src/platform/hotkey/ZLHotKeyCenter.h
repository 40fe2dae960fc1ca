#pragma once

#include "platform/ZLPressStamp.h"
#include "platform/hotkey/ZLHotKey.h"

#include <QList>
#include <QObject>

#include <memory>

/// Key combinations that fire wherever the keyboard focus is. Keeps the list of hot keys; a subclass per window system
/// makes them work. Everything happens on the main thread. Nothing here fails towards the caller: each hot key tells by
/// its state whether it works and why not.
class ZLHotKeyCenter : public QObject {
    Q_OBJECT

public:
    explicit ZLHotKeyCenter(QObject* parent = nullptr);

    /// The back end for the window system that this program runs on. Needs a QGuiApplication.
    [[nodiscard]] static std::unique_ptr<ZLHotKeyCenter> create();

    /// Adds the hot key, or replaces the one with the same identifier. The answer may come later (see stateDidChange).
    void registerHotKey(const ZLHotKey& hotKey);
    /// An unknown identifier is ignored.
    void unregisterHotKey(const QString& identifier);
    /// Every hot key that was registered and not unregistered, the refused ones too, in the order of registration.
    [[nodiscard]] QList<ZLHotKey> allHotKeys() const { return m_hotKeys; }

    /// The mechanism in use, for people: "X11", "GlobalShortcuts portal" or "none".
    [[nodiscard]] virtual QString backendName() const = 0;
    /// Why no hot key at all can work, in one sentence; empty while there is nothing in the way.
    [[nodiscard]] virtual QString unavailabilityReason() const = 0;

Q_SIGNALS:
    /// `press` is when the keys reached the computer.
    void hotKeyPressed(const QString& identifier, const ZLPressStamp& press);
    /// The state of a hot key or the unavailability reason has changed.
    void stateDidChange();
    /// The keys print other characters than before: texts made by ZLKeyboardLayout are out of date.
    void keyboardLayoutDidChange();

protected:
    /// Makes the hot key work, and says by setHotKeyState, now or later, whether it does.
    virtual void activateHotKey(const ZLHotKey& hotKey) = 0;
    /// Undoes activateHotKey; only called after it.
    virtual void deactivateHotKey(const ZLHotKey& hotKey) = 0;

    /// A state for the hot key with this identifier, announced when it differs from the one before.
    void setHotKeyState(const QString& identifier, ZLHotKey::State state, const QString& reason = {},
        const QString& desktopTrigger = {});

private:
    [[nodiscard]] qsizetype indexOfHotKey(const QString& identifier) const;
    [[nodiscard]] QString obstacleForHotKey(const ZLHotKey& hotKey) const;
    void activateUnlessObstructed(const ZLHotKey& hotKey);

    QList<ZLHotKey> m_hotKeys;
    /// Identifiers of the hot keys that the subclass has been given.
    QStringList m_active;
};
