#pragma once

#include <QProxyStyle>

/// The desktop's style with boxes that can be seen while they are not ticked: one of the styles draws their outline
/// darker than the window, and on a dark one it disappears.
class ZLBoxStyle : public QProxyStyle {
    Q_OBJECT

public:
    using QProxyStyle::QProxyStyle;

    /// Puts it around the application's style where that one needs it.
    static void install();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget = nullptr) const override;
};
