#pragma once

#include <QGroupBox>
#include <QHash>

class QComboBox;
class QFormLayout;
class QLineEdit;

/// Under which addresses a recorder sends its time by OSC: a preset, or what is typed.
class ZLOSCTimePanel : public QGroupBox {
    Q_OBJECT

public:
    explicit ZLOSCTimePanel(QWidget* parent = nullptr);

Q_SIGNALS:
    void settingsDidChange();

private:
    void addField(QFormLayout& form, const QString& purpose, const QString& title);
    void takePreset(int number);
    void takeAddress(const QString& purpose);
    void update();

    QComboBox* m_preset;
    /// By purpose, see ZLFollowingSettings::oscAddress().
    QHash<QString, QLineEdit*> m_fields;
};
