#pragma once

#include "settings/ZLSettingsManager.h"

#include <QGroupBox>

class QButtonGroup;
class QLabel;
class QListWidget;
class ZLOSCEntryEditor;

/// Who may speak to the recorder: the choice, and the list of addresses that belongs to its last one.
class ZLOSCAcceptPanel : public QGroupBox {
    Q_OBJECT

public:
    explicit ZLOSCAcceptPanel(QWidget* parent = nullptr);

private:
    void addChoice(ZLOSCAccept accept, const QString& objectName, const QString& text);
    void buildAddresses();
    void update();
    void updateAddresses();
    void addAddress(const QString& text);
    void removeSelectedAddresses();

    QButtonGroup* m_choices;
    QWidget* m_addressArea = nullptr;
    QListWidget* m_addresses = nullptr;
    ZLOSCEntryEditor* m_editor = nullptr;
    QLabel* m_emptyNote = nullptr;
};
