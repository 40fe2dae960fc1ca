#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWidget>

/// The row below a list with which entries are added and removed, and the place where it is said what is wrong with
/// one.
class ZLOSCEntryEditor : public QWidget {
    Q_OBJECT

public:
    /// `name` becomes the accessible name of the field and part of the object names, `example` stands in the empty
    /// field.
    ZLOSCEntryEditor(const QString& objectName, const QString& name, const QString& example, QWidget* parent = nullptr);

    void setRemovable(bool removable) { m_removeButton->setEnabled(removable); }
    /// Takes the text as accepted.
    void clear();
    /// Says it beside the field, and leaves the field as it is.
    void setProblem(const QString& problem);
    [[nodiscard]] QString problem() const { return m_problemLabel->text(); }

Q_SIGNALS:
    /// Answer with clear() or setProblem().
    void addRequested(const QString& text);
    void removeRequested();

private:
    void add();

    QLineEdit* m_field;
    QPushButton* m_addButton;
    QPushButton* m_removeButton;
    QLabel* m_problemLabel;
};
