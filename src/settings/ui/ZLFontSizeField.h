#pragma once

#include <QDoubleSpinBox>

/// A font size in points. It shows a fraction only where there is one.
class ZLFontSizeField : public QDoubleSpinBox {
    Q_OBJECT

public:
    using QDoubleSpinBox::QDoubleSpinBox;

    [[nodiscard]] QString textFromValue(double value) const override;
    /// Wide enough for every fraction that can be typed.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
};
