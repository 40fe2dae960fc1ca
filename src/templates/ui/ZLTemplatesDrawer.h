#pragma once

#include "templates/ZLTemplatesViewController.h"

#include <QWidget>

#include <memory>

namespace Ui {
class ZLTemplatesDrawer;
}

/// The templates beside a document: their table, and the buttons that add, remove and import them. Its window title is
/// the heading that a dock should show.
class ZLTemplatesDrawer : public QWidget {
    Q_OBJECT

public:
    /// `controller` has to outlive the drawer.
    explicit ZLTemplatesDrawer(ZLTemplatesViewController& controller, QWidget* parent = nullptr);
    ~ZLTemplatesDrawer() override;

    /// Appends the topics of the outline that the clipboard holds.
    void importFromClipboard();
    void importText(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void showTemplates();
    void connectButtons();
    void connectActions();
    void updateEmptyState();
    void editCell(const QModelIndex& index);
    void editSelected(int column);
    void openOrAdd();
    void moveSelectedTemplateUp();
    void moveSelectedTemplateDown();

    std::unique_ptr<Ui::ZLTemplatesDrawer> m_ui;
    ZLTemplatesViewController& m_controller;
};
