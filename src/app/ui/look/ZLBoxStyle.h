#pragma once

#include <QProxyStyle>

/// The desktop's style with boxes and round buttons that can be seen while they are not ticked, and with texts that can
/// be read in the cell that has the focus. One of the styles draws the outline of a box darker than the window, and on
/// a dark one it disappears. The same style paints a half transparent ground over the text in the cell that has the
/// focus.
class ZLBoxStyle : public QProxyStyle {
    Q_OBJECT

public:
    using QProxyStyle::QProxyStyle;

    /// Puts it around the application's style where that one needs it.
    static void install();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget = nullptr) const override;
};
