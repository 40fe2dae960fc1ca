#pragma once

#include "delivery/fit/ui/ZLFitPictureLayout.h"

#include <QWidget>

#include <optional>

/// A fit at one glance: the show above, the finished file below, bands that join what was kept, and the marks as lines.
/// What one side has alone is hatched. The arrow keys go from mark to mark, a click takes the nearest one, Space plays
/// it.
class ZLFitPicture : public QWidget {
    Q_OBJECT

public:
    explicit ZLFitPicture(QWidget* parent = nullptr);

    void setFit(const std::optional<ZLFit>& fit);
    /// Index among the chapters of the fit; -1 for none.
    void setSelectedMark(int index);
    [[nodiscard]] int selectedMark() const { return m_selected; }
    /// Where to click on a mark.
    [[nodiscard]] QPoint pointOf(int index) const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void markSelected(int index);
    void playRequested();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QRectF area() const;
    [[nodiscard]] ZLFitPictureLayout layoutOfFit() const { return { *m_fit, area() }; }
    void select(int index);
    void describe();
    void drawBars(QPainter& painter, const ZLFitPictureLayout& layout) const;
    void drawPieces(QPainter& painter, const ZLFitPictureLayout& layout) const;
    void drawMarks(QPainter& painter, const ZLFitPictureLayout& layout) const;
    void drawMark(QPainter& painter, const ZLFitPictureLayout& layout, int index) const;
    void drawNames(QPainter& painter) const;
    void drawLegend(QPainter& painter) const;

    std::optional<ZLFit> m_fit;
    int m_selected = -1;
};
