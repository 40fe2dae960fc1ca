#pragma once

#include "remote/ui/ZLOSCOutputsModel.h"

#include <QGroupBox>

class QCheckBox;
class QTableView;
class ZLOSCEntryEditor;

/// The outputs as a table that can be edited, and whether senders are answered.
class ZLOSCOutputsPanel : public QGroupBox {
    Q_OBJECT

public:
    /// `controller` has to outlive the panel.
    explicit ZLOSCOutputsPanel(ZLOSCController& controller, QWidget* parent = nullptr);

    /// Adds an output, or says at the field why not.
    void addOutput(const QString& text);

protected:
    void changeEvent(QEvent* event) override;

private:
    void buildTable();
    void buildAnswerBox();
    void updateSizes();
    void removeSelectedOutputs();
    void updateButtons();

    ZLOSCOutputsModel* m_model;
    QTableView* m_table;
    ZLOSCEntryEditor* m_editor;
    QCheckBox* m_answerBox;
};
