#pragma once

#include "platform/ZLEventClock.h"
#include "platform/ZLHostClock.h"
#include "platform/hotkey/ZLHotKeyCenter.h"
#include "platform/hotkey/ZLKeyboardLayout.h"
#include "platform/hotkey/ZLXcbKeyGrab.h"

#include <QAbstractNativeEventFilter>
#include <QHash>
#include <QMap>
#include <QTimer>

#include <optional>

/// Hot keys as passive grabs on the root window of an X server. The program's own windows get no event for them either.
class ZLXcbHotKeyBackend final : public ZLHotKeyCenter, public QAbstractNativeEventFilter {
    Q_OBJECT

public:
    explicit ZLXcbHotKeyBackend(QObject* parent = nullptr);
    ~ZLXcbHotKeyBackend() override;

    [[nodiscard]] QString backendName() const override;
    [[nodiscard]] QString unavailabilityReason() const override;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

protected:
    void activateHotKey(const ZLHotKey& hotKey) override;
    void deactivateHotKey(const ZLHotKey& hotKey) override;

private:
    struct Wanted {
        ZLKeyCombo keyCombo;
        std::optional<ZLXcbKeyGrab> grab;
    };

    void grab(const QString& identifier, Wanted& wanted);
    void releaseAll();
    /// Key codes and the modifier of Num Lock may have moved: takes everything anew, also what was refused before.
    void keyboardDidChange();
    [[nodiscard]] bool handleKeyPress(ZLXcbKeyGrab::Combination pressed, quint32 time);
    [[nodiscard]] bool handleKeyRelease(quint8 keycode, quint32 time);
    void fireLater(const QString& identifier, const ZLPressStamp& press);

    QMap<QString, Wanted> m_wanted;
    ZLKeyboardLayout m_layout = ZLKeyboardLayout::current();
    /// Keys whose press was a hot key and whose release therefore is ours as well.
    QList<quint8> m_heldKeys;
    /// When a key was released last, in the server's time.
    QHash<quint8, quint32> m_releaseTimes;
    /// One change of layout comes as several events.
    QTimer m_keyboardChangeTimer;
    int m_xkbEventCode = -1;
    const ZLSteadyHostClock m_hostClock {};
    ZLEventClock m_serverClock;
};
