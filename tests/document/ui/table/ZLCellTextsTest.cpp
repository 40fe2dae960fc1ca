#include "document/ui/ZLWindowFixture.h"
#include "document/ui/table/ZLChapterCellDelegate.h"

#include <QPainter>

using namespace Qt::StringLiterals;

/// A delegate that says how the style alone would paint the cell.
class ZLPlainlyPaintedCells : public ZLChapterCellDelegate {
public:
    [[nodiscard]] QStyleOptionViewItem complete(QStyleOptionViewItem option, const QModelIndex& index) const
    {
        initStyleOption(&option, index);
        return option;
    }
};

class ZLCellTextsTest : public ZLWindowFixture {
protected:
    [[nodiscard]] QStyleOptionViewItem optionFor(const QRect& rect)
    {
        QStyleOptionViewItem option;
        option.initFrom(&table());
        option.rect = rect;
        option.font = table().font();
        option.fontMetrics = table().fontMetrics();
        option.widget = &table();
        option.showDecorationSelected = true;
        option.textElideMode = Qt::ElideRight;
        return option;
    }

    [[nodiscard]] static QImage emptyPicture(const QRect& cell)
    {
        QImage picture(cell.right() + 5, cell.bottom() + 5, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::white);
        return picture;
    }

    [[nodiscard]] QImage painted(const QStyleOptionViewItem& option, const QModelIndex& index)
    {
        QImage picture = emptyPicture(option.rect);
        QPainter painter(&picture);
        m_delegate.paint(&painter, option, index);
        return picture;
    }

    [[nodiscard]] QImage paintedByStyle(const QStyleOptionViewItem& option, const QModelIndex& index)
    {
        QImage picture = emptyPicture(option.rect);
        QPainter painter(&picture);
        const QStyleOptionViewItem cell = m_delegate.complete(option, index);
        table().style()->drawControl(QStyle::CE_ItemViewItem, &cell, &painter, &table());
        return picture;
    }

    /// Both pictures agree, now and from what was kept of the first time.
    void expectAgreement(const QStyleOptionViewItem& option, const QModelIndex& index)
    {
        const QImage expected = paintedByStyle(option, index);
        const QStyleOptionViewItem cell = m_delegate.complete(option, index);
        EXPECT_EQ(painted(option, index), expected) << qPrintable(cell.text) << " in " << option.rect.width();
        EXPECT_EQ(painted(option, index), expected) << qPrintable(cell.text) << " again in " << option.rect.width();
    }

    void expectAgreementInEveryWidth(QStyleOptionViewItem option)
    {
        for (int row = 0; row < m_document.tableModel().rowCount(); ++row) {
            for (int column = 0; column < ZLChapterTableModel::ColumnCount; ++column) {
                for (const int width : { 1, 12, 61, 140, 333 }) {
                    option.rect = QRect(3, 2, width, 24);
                    expectAgreement(option, cell(row, column));
                }
            }
        }
    }

    void addTitles()
    {
        addChapterAt(10.0, u"Welcome to the show, which has a rather long title"_s);
        addChapterAt(20.0, u"مرحبا بكم في العرض"_s);
        addChapterAt(30.0, u"Zu guter Letzt: ½ Äpfel · 日本語"_s);
        addChapterAt(40.0, u"Two\nlines"_s);
        addChapterAt(50.0, u"  "_s);
        m_document.updateChapterToEnabledState(m_document.chapterManager().chapterAtIndex(2), false);
    }

    ZLPlainlyPaintedCells m_delegate;
};

TEST_F(ZLCellTextsTest, TheTableLooksAsTheStylePaintsIt)
{
    addTitles();
    expectAgreementInEveryWidth(optionFor({}));
}

TEST_F(ZLCellTextsTest, SelectedAndFocusedCellsLookAsTheStylePaintsThem)
{
    addTitles();
    QStyleOptionViewItem option = optionFor({});
    option.state |= QStyle::State_Selected;
    expectAgreementInEveryWidth(option);
    option.state |= QStyle::State_HasFocus;
    expectAgreementInEveryWidth(option);
    option.state &= ~(QStyle::State_Active | QStyle::State_HasFocus);
    expectAgreementInEveryWidth(option);
    option.state.setFlag(QStyle::State_Enabled, false);
    expectAgreementInEveryWidth(option);
}

TEST_F(ZLCellTextsTest, CellsFromRightToLeftLookAsTheStylePaintsThem)
{
    addTitles();
    QStyleOptionViewItem option = optionFor({});
    option.direction = Qt::RightToLeft;
    expectAgreementInEveryWidth(option);
}

TEST_F(ZLCellTextsTest, AnotherFontIsSeenAtOnce)
{
    addTitles();
    QStyleOptionViewItem option = optionFor(QRect(0, 0, 200, 24));
    const QImage small = painted(option, titleCell(0));
    option.font.setPointSizeF(option.font.pointSizeF() * 1.5);
    option.fontMetrics = QFontMetrics(option.font);
    EXPECT_NE(painted(option, titleCell(0)), small);
    expectAgreement(option, titleCell(0));
}

TEST_F(ZLCellTextsTest, AnotherTextIsSeenAtOnce)
{
    addChapterAt(10.0, u"First"_s);
    const QStyleOptionViewItem option = optionFor(QRect(0, 0, 200, 24));
    const QImage first = painted(option, titleCell(0));
    m_document.updateChapterToTitle(m_document.chapterManager().chapterAtIndex(0), u"Second"_s);
    EXPECT_NE(painted(option, titleCell(0)), first);
    expectAgreement(option, titleCell(0));
}
