#pragma once

#include <QIcon>
#include <QString>
#include <QWidget>

/// One pane of a preferences window: its view, and what the window asks it for.
class MASPreferencesViewController : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Unique among the panes of a window; the window stores things under it.
    [[nodiscard]] virtual QString identifier() const = 0;
    [[nodiscard]] virtual QString toolbarItemLabel() const = 0;
    [[nodiscard]] virtual QIcon toolbarItemImage() const = 0;

    /// Whether the window may make the pane larger than it is by itself. Its size policy says so unless overridden.
    [[nodiscard]] virtual bool hasResizableWidth() const;
    [[nodiscard]] virtual bool hasResizableHeight() const;
    /// Gets the keyboard when the pane is shown; null for the first widget that takes it.
    [[nodiscard]] virtual QWidget* initialKeyView() const { return nullptr; }

    /// Called each time before the pane is shown.
    virtual void viewWillAppear() { }
    /// Called when another pane takes its place.
    virtual void viewDidDisappear() { }
    /// Takes over what is being typed; the pane stays on show when it answers false.
    [[nodiscard]] virtual bool commitEditing() { return true; }
};
