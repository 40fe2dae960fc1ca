#pragma once

#include "platform/hotkey/ZLKeyboardLayout.h"

#include <QPushButton>

#include <optional>

/// A button that shows a key combination and takes a new one: a click or Space starts recording, Escape ends it,
/// Backspace clears. The combination counts when its key is let go, so that nothing reacts to the key that is still
/// held.
class ZLShortcutField : public QPushButton {
    Q_OBJECT

public:
    explicit ZLShortcutField(QWidget* parent = nullptr);

    [[nodiscard]] std::optional<ZLKeyCombo> keyCombo() const { return m_keyCombo; }
    void setKeyCombo(const std::optional<ZLKeyCombo>& keyCombo);
    void setKeyboardLayout(const ZLKeyboardLayout& layout);
    /// What the shortcut does, for a screen reader.
    void setTitle(const QString& title);

    [[nodiscard]] bool isRecording() const { return m_phase != Phase::Idle; }
    void startRecording();
    /// Ends recording; what was pressed does not count.
    void cancelRecording();

    /// Whether the combination stands for text or moves the cursor, so that typing would be impossible if it were
    /// taken away from all programs.
    [[nodiscard]] static bool wouldBlockTyping(const ZLKeyCombo& keyCombo);

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void recordingDidStart();
    /// The user recorded another combination or cleared it; keyCombo() is the new one. Comes before recordingDidEnd().
    void keyComboDidChange();
    void recordingDidEnd();
    /// What was pressed cannot be a shortcut; `hint` says in a sentence what to do. Recording goes on.
    void didRefuse(const QString& hint);

protected:
    bool event(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    enum class Phase {
        Idle,
        /// Waits for a combination.
        Listening,
        /// Has one, and waits until its key is let go.
        AwaitingRelease,
    };

    void handlePress(const QKeyEvent& event);
    void handleRelease(const QKeyEvent& event);
    /// True when the key commands the field itself.
    [[nodiscard]] bool handleOwnKey(const QKeyEvent& event);
    void take(const std::optional<ZLKeyCombo>& keyCombo);
    void endRecording();
    void updateText(Qt::KeyboardModifiers held = {});
    [[nodiscard]] std::optional<ZLKeyCombo> keyComboOf(const QKeyEvent& event) const;
    [[nodiscard]] QString textForModifiers(Qt::KeyboardModifiers modifiers) const;

    ZLKeyboardLayout m_layout = ZLKeyboardLayout::current();
    QString m_title;
    std::optional<ZLKeyCombo> m_keyCombo;
    std::optional<ZLKeyCombo> m_pressed;
    Phase m_phase = Phase::Idle;
};
