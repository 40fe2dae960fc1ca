#include "app/ui/look/ZLBoxStyle.h"
#include "document/ui/ZLWindowFixture.h"
#include "settings/ui/ZLGeneralPrefsViewController.h"
#include "templates/ui/ZLReadableColors.h"
#include "templates/ui/ZLTemplatesTableView.h"

#include <QCheckBox>
#include <QDockWidget>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <ostream>

using namespace Qt::StringLiterals;

/// A desktop's colours, as settings name them.
struct ZLContrastLook {
    const char* name;
    QRgb window, base, button, text, highlight, highlightedText;
};

inline std::ostream& operator<<(std::ostream& stream, const ZLContrastLook& look)
{
    return stream << look.name;
}

namespace {

constexpr ZLContrastLook looks[] {
    { "Light", 0xffefefef, 0xffffffff, 0xffefefef, 0xff000000, 0xff308cc6, 0xffffffff },
    { "LightWithPaleSelection", 0xffeff0f1, 0xfffcfcfc, 0xfffcfcfc, 0xff232629, 0xff3daee9, 0xfffcfcfc },
    { "Dark", 0xff31363b, 0xff232629, 0xff40454a, 0xffeff0f1, 0xff3daee9, 0xfffcfcfc },
    { "DarkGrey", 0xff353535, 0xff2d2d2d, 0xff353535, 0xffffffff, 0xff15539e, 0xffffffff },
};

QPalette paletteOfDesktop(const ZLContrastLook& look)
{
    QPalette palette = QPalette(QColor(look.button), QColor(look.window));
    const auto set = [&palette](QPalette::ColorRole role, QRgb color) { palette.setColor(role, QColor(color)); };
    set(QPalette::Base, look.base);
    set(QPalette::AlternateBase, look.window);
    for (const auto role : { QPalette::WindowText, QPalette::Text, QPalette::ButtonText })
        set(role, look.text);
    set(QPalette::Highlight, look.highlight);
    set(QPalette::HighlightedText, look.highlightedText);
    QColor placeholder(look.text);
    placeholder.setAlphaF(0.4F);
    palette.setColor(QPalette::PlaceholderText, placeholder);
    return palette;
}

/// The colour that most of the picture has.
QColor groundOf(const QImage& picture)
{
    QHash<QRgb, int> counts;
    QRgb most = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb color = picture.pixel(x, y);
            if (++counts[color] > counts.value(most))
                most = color;
        }
    }
    return QColor(most);
}

/// How much the strokes stand out from what they stand on. Their edges are soft, so that a few pixels of each stroke
/// have its full colour.
double contrastIn(const QImage& picture)
{
    const QColor ground = groundOf(picture);
    QList<double> contrasts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            contrasts += ZLReadableColors::contrast(picture.pixelColor(x, y), ground);
    }
    std::sort(contrasts.begin(), contrasts.end(), std::greater<>());
    // One pixel may be anything.
    return contrasts.value(3);
}

}

/// Document windows as they are painted in each of the looks.
class ZLContrastTest : public ZLWindowFixture, public testing::WithParamInterface<ZLContrastLook> {
protected:
    void SetUp() override
    {
        ZLBoxStyle::install();
        QApplication::setPalette(ZLReadableColors::improved(paletteOfDesktop(GetParam())));
        ZLWindowFixture::SetUp();
    }
    void TearDown() override
    {
        m_window.reset();
        QApplication::setPalette(QPalette());
    }

    /// Two rows that count and two that do not, each kind on both grounds; three templates.
    void fill()
    {
        for (int row = 0; row < 4; ++row) {
            const auto chapter = ZLTestChapters::chapterAt(row * 60.0, u"Mail and more"_s);
            chapter->setLink(u"example.org"_s);
            chapter->setEnabled(row < 2);
            m_document.addChapter(chapter);
        }
        for (const auto& title : { u"News"_s, u"Interview"_s, u"Outlook"_s })
            addTemplate(title);
        m_document.updateAddButton();
        if (!m_window->isDrawerOpen())
            m_window->toggleDrawer();
        m_window->tableView().finishEditing();
        table().setFocus();
    }

    [[nodiscard]] ZLTemplatesTableView& drawer() { return *m_window->findChild<ZLTemplatesTableView*>(); }
    /// What is painted of a part of the window.
    [[nodiscard]] QImage picture(const QWidget& widget, const QRect& part)
    {
        QCoreApplication::processEvents();
        const QImage all = m_window->grab().toImage();
        return all.copy(QRect(widget.mapTo(m_window.get(), part.topLeft()), part.size()));
    }
    [[nodiscard]] QImage picture(const QWidget& widget) { return picture(widget, widget.rect()); }
    [[nodiscard]] QImage cellPicture(const QTableView& view, int row, int column)
    {
        // Without the frame of the cell that has the focus.
        return picture(*view.viewport(), view.visualRect(view.model()->index(row, column)).adjusted(3, 2, -3, -2));
    }
    void expectReadableRows(const QTableView& view, const QList<int>& columns)
    {
        for (int row = 0; row < view.model()->rowCount(); ++row) {
            for (const int column : columns)
                EXPECT_GE(contrastIn(cellPicture(view, row, column)), ZLReadableColors::LeastForText)
                    << "row " << row << ", column " << column;
        }
    }
    void expectReadableChapters()
    {
        expectReadableRows(table(),
            { ZLChapterTableModel::TimeColumn, ZLChapterTableModel::TitleColumn, ZLChapterTableModel::LinkColumn });
    }
};

TEST_P(ZLContrastTest, OnlyTheListWithTheKeyboardHasTheStrongSelection)
{
    fill();
    select(1);
    drawer().selectRow(1);
    const auto grounds = [this] {
        return std::array { groundOf(cellPicture(table(), 1, ZLChapterTableModel::TitleColumn)),
            groundOf(cellPicture(drawer(), 1, 0)) };
    };
    const QColor plain = groundOf(cellPicture(table(), 0, ZLChapterTableModel::TitleColumn));
    table().setFocus();
    const auto [strong, weak] = grounds();
    EXPECT_GE(ZLReadableColors::contrast(strong, weak), 1.5);
    EXPECT_GE(ZLReadableColors::contrast(weak, plain), 1.15);
    drawer().setFocus();
    const auto [weakNow, strongNow] = grounds();
    // A style may shade it.
    EXPECT_LT(ZLReadableColors::contrast(strongNow, strong), 1.05);
    EXPECT_LT(ZLReadableColors::contrast(weakNow, weak), 1.05);
    // A field that is open in the list is a part of it.
    table().beginEditing(titleCell(1));
    EXPECT_LT(
        ZLReadableColors::contrast(groundOf(cellPicture(table(), 1, ZLChapterTableModel::TimeColumn)), strong), 1.05);
}

TEST_P(ZLContrastTest, UntickedBoxesCanBeSeen)
{
    fill();
    for (QWidget* focused : std::initializer_list<QWidget*> { &table(), &drawer() }) {
        focused->setFocus();
        for (const int selected : { 0, 2 }) {
            select(selected);
            for (const int row : { 2, 3 })
                EXPECT_GE(contrastIn(cellPicture(table(), row, ZLChapterTableModel::EnabledColumn)),
                    ZLReadableColors::LeastForSigns)
                    << row << " with " << selected;
        }
    }
    ZLGeneralPrefsViewController pane([] { return QList<ZLOutputDevice>(); });
    pane.show();
    for (const auto* box : pane.findChildren<QCheckBox*>()) {
        const_cast<QCheckBox*>(box)->setChecked(false);
        const QImage image = pane.grab().toImage().copy(QRect(box->mapTo(&pane, QPoint()), QSize(16, box->height())));
        EXPECT_GE(contrastIn(image), ZLReadableColors::LeastForSigns) << qPrintable(box->text());
    }
}

TEST_P(ZLContrastTest, HintsInEmptyListsCanBeRead)
{
    if (!m_window->isDrawerOpen())
        m_window->toggleDrawer();
    QCoreApplication::processEvents();
    EXPECT_GE(contrastIn(picture(*table().viewport())), ZLReadableColors::LeastForText);
    EXPECT_GE(contrastIn(picture(*drawer().viewport())), ZLReadableColors::LeastForText);
}

TEST_P(ZLContrastTest, SelectedTextInAFieldAndTheChosenItemOfAMenuCanBeRead)
{
    fill();
    table().beginEditing(titleCell(0));
    ASSERT_NE(field(), nullptr);
    field()->selectAll();
    EXPECT_GE(contrastIn(picture(*field(), { 3, 3, 60, field()->height() - 6 })), ZLReadableColors::LeastForText);
    QMenu& menu = *m_window->editMenu().menu();
    QAction* item = m_window->viewMenu().drawerItem();
    menu.addAction(item);
    menu.popup({});
    menu.setActiveAction(item);
    const QImage image = menu.grab().toImage().copy(menu.actionGeometry(item).adjusted(24, 3, -24, -3));
    EXPECT_GE(contrastIn(image), ZLReadableColors::LeastForText);
    menu.hide();
}

INSTANTIATE_TEST_SUITE_P(
    Looks, ZLContrastTest, testing::ValuesIn(looks), [](const auto& look) { return std::string(look.param.name); });
