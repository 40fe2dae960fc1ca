#pragma once

#include <QHeaderView>

/// The column titles of the chapter table, each aligned as the cells below it.
class ZLChapterTableHeader : public QHeaderView {
    Q_OBJECT

public:
    explicit ZLChapterTableHeader(QWidget* parent = nullptr);

    /// How the texts of a column stand: digits below digits.
    [[nodiscard]] static Qt::Alignment alignmentOf(int column);

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const override;
};
