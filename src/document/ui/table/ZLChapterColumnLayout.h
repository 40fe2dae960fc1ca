#pragma once

#include <QObject>

class QTableView;

/// The column widths of the chapter table: number, check box, time and duration are as wide as their longest text,
/// title and link share the rest. The widths follow from sample texts, so their cost does not depend on the rows.
class ZLChapterColumnLayout : public QObject {
    Q_OBJECT

public:
    /// `table` shows the chapters already.
    explicit ZLChapterColumnLayout(QTableView& table);

    /// Part of the shared width that the title takes, 0 to 1; the user changes it by dragging the title's border.
    [[nodiscard]] double titleShare() const { return m_titleShare; }
    /// A share that would leave one of the two columns without room is moved into the usable range.
    void setTitleShare(double share);

    /// Measures the texts again; to be called when the font, the style or the kind of time shown changes.
    void measureTexts();
    /// Distributes the table's present width.
    void fillWidth();

private:
    [[nodiscard]] int widthFor(int column, const QString& sample) const;
    void growNumberColumn();
    void sectionWasResized(int column, int oldWidth, int newWidth);
    [[nodiscard]] int sharedWidth() const;
    /// The narrowest that title and link get before the table scrolls sideways.
    [[nodiscard]] int smallestSharedWidth() const;

    QTableView& m_table;
    double m_titleShare;
    int m_numberDigits = 0;
    bool m_isFilling = false;
};
