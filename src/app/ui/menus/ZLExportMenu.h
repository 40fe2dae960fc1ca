#pragma once

#include <QMenu>

class ZLExports;

/// A window's menu of exports: one item an exporter, in its order, the item's tag being its position. Each window has
/// its own, for a menu that stands in several windows is lost to screen readers when the first of them closes.
class ZLExportMenu : public QMenu {
    Q_OBJECT

public:
    /// The exporters of the registry. `exports` carries them out and has to outlive the menu.
    ZLExportMenu(ZLExports& exports, QWidget* parent);
    /// The further formats.
    [[nodiscard]] static ZLExportMenu* ofFurtherFormats(ZLExports& exports, QWidget* parent);

private:
    ZLExportMenu(ZLExports& exports, const QString& title, QWidget* parent);
};
