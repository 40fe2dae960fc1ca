#pragma once

#include "platform/hotkey/ZLKeyboardLayout.h"
#include "settings/ui/MASPreferencesViewController.h"

#include <QHash>
#include <QList>

#include <memory>

class ZLShortcutRecorder;
struct ZLRemoteAction;

namespace Ui {
class ZLShortcutPrefsViewController;
}

/// The pane for the shortcuts of all remote actions, and whether they work in the whole system. Every change is stored
/// at once.
class ZLShortcutPrefsViewController : public MASPreferencesViewController {
    Q_OBJECT

public:
    explicit ZLShortcutPrefsViewController(QWidget* parent = nullptr);
    ~ZLShortcutPrefsViewController() override;

    [[nodiscard]] QString identifier() const override;
    [[nodiscard]] QString toolbarItemLabel() const override;
    [[nodiscard]] QIcon toolbarItemImage() const override;
    [[nodiscard]] QWidget* initialKeyView() const override;
    void viewWillAppear() override;

    /// Stores the recorder's shortcut, or removes it when there is none. One that is no part of this pane stands for
    /// the empty settings key.
    void shortcutRecorderDidEndRecording(ZLShortcutRecorder& recorder);
    void globalSettingDidChange();

    void setKeyboardLayout(const ZLKeyboardLayout& layout);
    /// What the system says: `byKey` has a sentence for the settings key of each shortcut that needs one, and
    /// `aboutAll` is about system-wide shortcuts in general, empty when there is nothing to say.
    void setSystemNotices(const QHash<QString, QString>& byKey, const QString& aboutAll);

    [[nodiscard]] bool isRecording() const;

Q_SIGNALS:
    /// While a shortcut is recorded, no hot key may take the keys away. The stop comes after the change was stored.
    void recordingDidStart();
    void recordingDidStop();

private:
    struct Row {
        ZLShortcutRecorder* recorder;
        QString settingsKey;
    };

    void addRow(int index, const ZLRemoteAction& action);
    [[nodiscard]] QString settingsKeyOf(const ZLShortcutRecorder& recorder) const;
    void updateNotices();
    /// What stands in the way of the shortcut.
    [[nodiscard]] QString noticeFor(const Row& row) const;
    [[nodiscard]] static QString remarkFor(const Row& row);

    std::unique_ptr<Ui::ZLShortcutPrefsViewController> m_ui;
    QList<Row> m_rows;
    QHash<QString, QString> m_systemNotices;
};
