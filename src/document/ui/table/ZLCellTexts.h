#pragma once

#include <QCache>
#include <QFont>
#include <QTextLayout>

class QPainter;
class QStyleOptionViewItem;

/// Draws the texts of table cells just as the style does, but keeps them as they were laid out: shaping the same texts
/// again in every repaint would cost more than everything else that a table paints.
class ZLCellTexts {
public:
    ZLCellTexts();

    /// Whether draw() knows how to draw the text of `cell`. The rest, such as a text of several lines, is left to the
    /// style.
    [[nodiscard]] static bool canDraw(const QStyleOptionViewItem& cell);

    /// `cell` belongs to a widget and was drawn by the style, without its text.
    void draw(QPainter& painter, const QStyleOptionViewItem& cell, const QString& text);

private:
    struct Key {
        QString text;
        int width;
        Qt::Alignment alignment;
        Qt::LayoutDirection direction;
        Qt::TextElideMode elideMode;

        bool operator==(const Key&) const = default;
    };
    friend size_t qHash(const Key& key, size_t seed);

    [[nodiscard]] const QTextLayout& layoutFor(const QStyleOptionViewItem& cell, const QString& text, int width);

    /// All of them in m_font.
    QCache<Key, QTextLayout> m_layouts;
    QFont m_font;
};
