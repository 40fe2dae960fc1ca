#pragma once

#include "platform/hotkey/ZLKeyboardLayout.h"

#include <QVariantMap>
#include <QWidget>

#include <optional>

class QLabel;
class QToolButton;
class ZLShortcutField;

/// Records a shortcut: the field, a button that clears it, and beside them what there is to say about it.
class ZLShortcutRecorder : public QWidget {
    Q_OBJECT

public:
    explicit ZLShortcutRecorder(QWidget* parent = nullptr);

    /// The shortcut as it is stored, see ZLSettingsManager::keyComboForKey(); what was set comes back untouched.
    [[nodiscard]] std::optional<QVariantMap> objectValue() const { return m_objectValue; }
    void setObjectValue(const std::optional<QVariantMap>& shortcut);
    [[nodiscard]] std::optional<ZLKeyCombo> keyCombo() const;

    [[nodiscard]] QString title() const { return m_title; }
    /// What the shortcut does.
    void setTitle(const QString& title);
    void setKeyboardLayout(const ZLKeyboardLayout& layout);

    enum class Notice {
        Warning, ///< Something is wrong.
        Remark, ///< Something is worth knowing.
    };
    /// A sentence beside the field, until the next one or the next recording; empty for none.
    void setNotice(const QString& text, Notice kind = Notice::Warning);
    [[nodiscard]] QString notice() const;

    [[nodiscard]] bool isRecording() const;

Q_SIGNALS:
    /// The user recorded or cleared the shortcut, and objectValue() is the new one.
    void didEndRecording();
    void recordingDidStart();
    void recordingDidStop();

private:
    void keyComboDidChange();
    void clear();
    void updateClearButton();
    void showHint(const QString& hint);
    void removeHint();
    void showNoticeText(const QString& text, Notice kind);

    ZLShortcutField* m_field;
    QToolButton* m_clearButton;
    QLabel* m_noticeIcon;
    QLabel* m_noticeLabel;
    QString m_title;
    /// What stands there when there is no hint.
    QString m_notice;
    Notice m_noticeKind = Notice::Warning;
    std::optional<QVariantMap> m_objectValue;
};
