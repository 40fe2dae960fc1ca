#include "settings/ui/ZLShortcutField.h"

#include "platform/hotkey/ZLVirtualKeyMap.h"

#include <QKeyEvent>
#include <QStyleOptionButton>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr Qt::KeyboardModifiers modifiersThatDoNotType = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

bool isModifierKey(int key)
{
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Meta:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock:
        return true;
    default:
        return false;
    }
}

}

ZLShortcutField::ZLShortcutField(QWidget* parent)
    : QPushButton(parent)
{
    setAutoDefault(false);
    connect(this, &QPushButton::clicked, this, [this] {
        if (isRecording())
            endRecording();
        else
            startRecording();
    });
    updateText();
}

void ZLShortcutField::setKeyCombo(const std::optional<ZLKeyCombo>& keyCombo)
{
    m_keyCombo = keyCombo;
    updateText();
}

void ZLShortcutField::setKeyboardLayout(const ZLKeyboardLayout& layout)
{
    m_layout = layout;
    updateText();
}

void ZLShortcutField::setTitle(const QString& title)
{
    m_title = title;
    updateText();
}

void ZLShortcutField::startRecording()
{
    if (isRecording())
        return;
    m_phase = Phase::Listening;
    setFocus();
    // Window managers and menus would take many combinations before the field sees them.
    grabKeyboard();
    updateText();
    Q_EMIT recordingDidStart();
}

void ZLShortcutField::cancelRecording()
{
    m_pressed.reset();
    endRecording();
}

void ZLShortcutField::endRecording()
{
    if (!isRecording())
        return;
    m_phase = Phase::Idle;
    releaseKeyboard();
    const auto pressed = std::exchange(m_pressed, std::nullopt);
    if (pressed)
        take(pressed);
    updateText();
    Q_EMIT recordingDidEnd();
}

void ZLShortcutField::take(const std::optional<ZLKeyCombo>& keyCombo)
{
    m_keyCombo = keyCombo;
    updateText();
    Q_EMIT keyComboDidChange();
}

bool ZLShortcutField::wouldBlockTyping(const ZLKeyCombo& keyCombo)
{
    if (keyCombo.modifiers & ~ZLHotKeyModifier::shift)
        return false;
    const ZLVirtualKey* key = ZLVirtualKeyMap::keyForKeyCode(keyCombo.keyCode);
    return !key || key->qtKey < Qt::Key_F1 || key->qtKey > Qt::Key_F35;
}

QSize ZLShortcutField::sizeHint() const
{
    QStyleOptionButton option;
    initStyleOption(&option);
    const QSize text = option.fontMetrics.size(0, u"Super+Ctrl+Alt+Shift+F12"_s);
    return style()->sizeFromContents(QStyle::CT_PushButton, &option, text, this);
}

bool ZLShortcutField::event(QEvent* event)
{
    const auto keyEvent = [event]() -> QKeyEvent& { return *static_cast<QKeyEvent*>(event); };
    if (!isRecording()) {
        if (event->type() == QEvent::KeyPress && handleOwnKey(keyEvent()))
            return true;
        return QPushButton::event(event);
    }
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        event->accept();
        return true;
    case QEvent::KeyPress:
        handlePress(keyEvent());
        return true;
    case QEvent::KeyRelease:
        handleRelease(keyEvent());
        return true;
    default:
        return QPushButton::event(event);
    }
}

void ZLShortcutField::focusOutEvent(QFocusEvent* event)
{
    endRecording();
    QPushButton::focusOutEvent(event);
}

void ZLShortcutField::hideEvent(QHideEvent* event)
{
    endRecording();
    QPushButton::hideEvent(event);
}

bool ZLShortcutField::handleOwnKey(const QKeyEvent& event)
{
    if (event.modifiers() & (modifiersThatDoNotType | Qt::ShiftModifier))
        return false;
    if (event.key() != Qt::Key_Backspace && event.key() != Qt::Key_Delete)
        return false;
    m_pressed.reset();
    if (m_keyCombo)
        take(std::nullopt);
    endRecording();
    return true;
}

void ZLShortcutField::handlePress(const QKeyEvent& event)
{
    if (event.isAutoRepeat())
        return;
    if (isModifierKey(event.key())) {
        updateText(event.modifiers());
        return;
    }
    const bool isPlain = !(event.modifiers() & modifiersThatDoNotType);
    if (isPlain && (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab)) {
        endRecording();
        focusNextPrevChild(event.key() == Qt::Key_Tab);
        return;
    }
    if (event.key() == Qt::Key_Escape && event.modifiers() == Qt::NoModifier) {
        cancelRecording();
        return;
    }
    if (handleOwnKey(event))
        return;
    const auto pressed = keyComboOf(event);
    if (!pressed) {
        Q_EMIT didRefuse(tr("This key cannot be part of a shortcut."));
    } else if (wouldBlockTyping(*pressed)) {
        Q_EMIT didRefuse(tr("Add Ctrl, Alt or Super, or use a function key."));
    } else {
        m_pressed = pressed;
        m_phase = Phase::AwaitingRelease;
        updateText();
    }
}

void ZLShortcutField::handleRelease(const QKeyEvent& event)
{
    if (event.isAutoRepeat())
        return;
    if (m_phase == Phase::AwaitingRelease && !isModifierKey(event.key()))
        endRecording();
    else if (m_phase == Phase::Listening)
        updateText(event.modifiers());
}

std::optional<ZLKeyCombo> ZLShortcutField::keyComboOf(const QKeyEvent& event) const
{
    // The place of the key counts, for the character depends on the layout and on Shift.
    if (const auto keyCode = m_layout.keyCodeForNativeScanCode(event.nativeScanCode()))
        return ZLKeyCombo { *keyCode, ZLKeyCombo::modifiersFromKeyboardModifiers(event.modifiers()) };
    return m_layout.keyComboForKeyCombination(event.keyCombination());
}

QString ZLShortcutField::textForModifiers(Qt::KeyboardModifiers modifiers) const
{
    const int anyKey = ZLVirtualKeyMap::keys().front().keyCode;
    const ZLKeyCombo combo { anyKey, ZLKeyCombo::modifiersFromKeyboardModifiers(modifiers) };
    return m_layout.textForKeyCombo(combo).chopped(m_layout.textForKeyCode(anyKey).size());
}

void ZLShortcutField::updateText(Qt::KeyboardModifiers held)
{
    const auto textOf = [this](const ZLKeyCombo& combo) {
        const QString text = m_layout.textForKeyCombo(combo);
        return text.isEmpty() ? tr("Unknown key") : text;
    };
    QString shown;
    if (m_phase == Phase::AwaitingRelease && m_pressed)
        shown = textOf(*m_pressed);
    else if (m_phase == Phase::Listening)
        shown = textForModifiers(held).isEmpty() ? tr("Press the keys…") : textForModifiers(held) + u'…';
    else
        shown = m_keyCombo ? textOf(*m_keyCombo) : tr("None");
    setDown(isRecording());
    setText(QString(shown).replace(u'&', u"&&"_s));
    setAccessibleName(m_title.isEmpty() ? shown : tr("%1: %2").arg(m_title, shown));
}
