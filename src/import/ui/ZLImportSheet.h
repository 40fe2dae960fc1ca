#pragma once

#include "import/ZLImportPlan.h"
#include "platform/ZLDiskWork.h"

#include <QFrame>

#include <memory>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QListWidget;
class QMenuBar;
class QPushButton;
class QRadioButton;
class QTreeView;
class ZLImportRowsModel;

/// What an import will bring, in a document's window: the rows that come, what was not understood, and the choices. It
/// changes nothing by itself.
class ZLImportSheet : public QFrame {
    Q_OBJECT

public:
    /// Its buttons take no mnemonic that `menus` have.
    explicit ZLImportSheet(const QMenuBar& menus, QWidget* parent = nullptr);

    /// Shows another import with the usual choices, of which `plan` is made; `name` is where it comes from.
    void setSource(const ZLImportSource& source, const ZLImportPlan& plan, const QString& name);
    /// What was chosen last. Its chapters go to a document, so the sheet shows none afterwards.
    [[nodiscard]] ZLImportPlan takePlan();
    [[nodiscard]] bool replacesChapters() const;
    void takeKeyboard();

Q_SIGNALS:
    void importRequested();
    void wantsToClose();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QTreeView* makeRows();
    void addItemRow(QBoxLayout& layout);
    void addChoiceRow(QBoxLayout& layout);
    void addButtonRow(QBoxLayout& layout);
    void nameTheParts(const QMenuBar& menus);
    void fillItems();
    [[nodiscard]] ZLImportChoices choices() const;
    void update();
    void showPlan(const ZLImportPlan& plan);
    void updateRemarks(const QList<ZLListRemark>& remarks);
    [[nodiscard]] QString heading() const;

    ZLImportSource m_source;
    ZLImportPlan m_plan;
    QString m_name;
    /// Another plan is made beside the main thread.
    std::unique_ptr<ZLDiskWork> m_planning;
    ZLImportRowsModel* m_model;
    QLabel* m_heading;
    QWidget* m_itemRow;
    QComboBox* m_items;
    QTreeView* m_rows;
    QListWidget* m_remarks;
    QRadioButton* m_add;
    QRadioButton* m_replace;
    QDoubleSpinBox* m_shift;
    QLabel* m_shiftLabel;
    QCheckBox* m_templates;
    QPushButton* m_cancel;
    QPushButton* m_import;
};
