#include "app/ui/look/ZLBoxStyle.h"
#include "delivery/fit/ui/ZLFitPicture.h"
#include "document/ui/ZLWindowFixture.h"
#include "settings/ui/ZLGeneralPrefsViewController.h"
#include "templates/ui/ZLReadableColors.h"
#include "templates/ui/ZLTemplatesTableView.h"

#include <QCheckBox>
#include <QDockWidget>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>

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

/// How much the strokes stand out from this ground. Their edges are soft, so that a few pixels of each stroke have its
/// full colour.
double contrastIn(const QImage& picture, const QColor& ground)
{
    QList<double> contrasts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            contrasts += ZLReadableColors::contrast(picture.pixelColor(x, y), ground);
    }
    std::sort(contrasts.begin(), contrasts.end(), std::greater<>());
    // One pixel may be anything.
    return contrasts.value(3);
}

double contrastIn(const QImage& picture)
{
    return contrastIn(picture, groundOf(picture));
}

/// The same on a ground that is shaded from top to bottom, where the strokes stand out least. The last column of the
/// picture has nothing but ground.
double contrastOnShades(const QImage& picture)
{
    double least = 21.0;
    for (int y = 0; y < picture.height(); ++y)
        least = std::min(least, contrastIn(picture, picture.pixelColor(picture.width() - 1, y)));
    return least;
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
        // The thin strokes of a few small letters may have no pixel of their full colour.
        QFont large = drawer().font();
        large.setPointSizeF(large.pointSizeF() * 2.0);
        drawer().setFont(large);
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
    [[nodiscard]] QImage picture(const QWidget& widget)
    {
        settle();
        return picture(widget, widget.rect());
    }
    /// Lets each part of the window get its size, also those whose layouts wait for others.
    void settle()
    {
        QCoreApplication::processEvents();
        static_cast<void>(m_window->grab());
    }
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
    /// The sign above and the label below stand on a shaded button.
    void expectReadableRecordButton()
    {
        settle();
        const QToolButton& button = *bar().recordButton();
        const QRect inside = button.rect().adjusted(6, 6, -6, -6);
        const int top = button.rect().bottom() - button.fontMetrics().height();
        const QRect label(QPoint(inside.left(), top), inside.bottomRight());
        const QRect sign(inside.topLeft(), QPoint(inside.right(), top - 1));
        EXPECT_GE(contrastOnShades(picture(button, label)), ZLReadableColors::LeastForText)
            << qPrintable(button.text());
        EXPECT_GE(contrastOnShades(picture(button, sign)), ZLReadableColors::LeastForSigns)
            << qPrintable(button.text());
    }
    void expectReadableChapters()
    {
        expectReadableRows(table(),
            { ZLChapterTableModel::TimeColumn, ZLChapterTableModel::TitleColumn, ZLChapterTableModel::LinkColumn });
    }
};

TEST_P(ZLContrastTest, EveryRowCanBeReadSelectedOrNotWithAndWithoutTheKeyboard)
{
    fill();
    for (QWidget* focused : std::initializer_list<QWidget*> { &table(), &drawer() }) {
        focused->setFocus();
        for (const int row : { 0, 3 }) {
            select(row);
            expectReadableChapters();
        }
        expectReadableRows(drawer(), { 0 });
    }
}

TEST_P(ZLContrastTest, TheCellWithTheFocusCanBeReadAndHasAFrame)
{
    fill();
    for (const int row : { 0, 3 }) {
        for (const int column : { ZLChapterTableModel::TitleColumn, ZLChapterTableModel::LinkColumn }) {
            table().setCurrentIndex(cell(row, column));
            const QImage inside = cellPicture(table(), row, column);
            EXPECT_GE(contrastIn(inside), ZLReadableColors::LeastForText) << "row " << row << ", column " << column;
            const QRect rect = table().visualRect(cell(row, column));
            const QImage edge = picture(*table().viewport(), { rect.topLeft(), QSize(rect.width(), 1) });
            EXPECT_GE(ZLReadableColors::contrast(groundOf(edge), groundOf(inside)), ZLReadableColors::LeastForSigns)
                << "row " << row << ", column " << column;
        }
    }
}

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

TEST_P(ZLContrastTest, RoundButtonsThatAreNotChosenCanBeSeen)
{
    QRadioButton button(u"Only these addresses"_s);
    button.show();
    const QImage image = button.grab().toImage().copy(0, 0, 16, button.height());
    EXPECT_GE(contrastIn(image), ZLReadableColors::LeastForSigns);
}

TEST_P(ZLContrastTest, BarsCanBeReadAndAreTinted)
{
    ZLMessageBar& bar = m_window->messageBar();
    bar.showMessage(u"question"_s, u"Another program changed it."_s, { { u"Keep Mine"_s, {} } });
    bar.showMessage(u"error"_s, u"It is not saved."_s, { { u"Try Now"_s, {} } }, {}, ZLMessageBar::Kind::Error);
    QCoreApplication::processEvents();
    const QColor window(GetParam().window);
    QList<QColor> grounds { window };
    for (const auto& name : { u"question"_s, u"error"_s }) {
        const auto* row = bar.findChild<QWidget*>(name);
        const auto* text = row->findChild<QLabel*>(u"messageText"_s);
        const QImage sentence = picture(*text);
        EXPECT_GE(contrastIn(sentence), ZLReadableColors::LeastForText) << qPrintable(name);
        const auto* button = row->findChild<QPushButton*>();
        EXPECT_GE(contrastIn(picture(*button, button->rect().adjusted(6, 5, -6, -5))), ZLReadableColors::LeastForText);
        EXPECT_FALSE(grounds.contains(groundOf(sentence))) << qPrintable(name);
        grounds.append(groundOf(sentence));
    }
}

TEST_P(ZLContrastTest, WhatAFitFoundCanBeSeen)
{
    const ZLSoundAlignment cutShow { { { 0.0, 5.0, 40.0, 1.0, 0.1 }, { 60.0, 45.0, 40.0, 1.0, 0.1 } }, {}, 100.0,
        85.0 };
    ZLFitPicture picture;
    picture.resize(1000, 160);
    picture.setFit(ZLFit::of(
        { { ZLTestChapters::chapterAt(20.0), 20.0 }, { ZLTestChapters::chapterAt(50.0), 50.0 } }, cutShow, 0.0));
    const QImage image = picture.grab().toImage();
    const auto around = [&](int mark, int right) {
        return image.copy(QRect(picture.pointOf(mark) + QPoint(right - 10, 2), QSize(20, 12)));
    };
    const QColor base = QApplication::palette().color(QPalette::Base);
    EXPECT_GE(ZLReadableColors::contrast(groundOf(around(0, 30)), base), ZLReadableColors::LeastForSigns) << "a piece";
    EXPECT_GE(contrastIn(around(0, 0)), ZLReadableColors::LeastForSigns) << "a mark on it";
    EXPECT_GE(contrastIn(around(1, 40), base), ZLReadableColors::LeastForSigns) << "what was cut out";
}

TEST_P(ZLContrastTest, HintsInEmptyListsCanBeRead)
{
    if (!m_window->isDrawerOpen())
        m_window->toggleDrawer();
    QCoreApplication::processEvents();
    EXPECT_GE(contrastIn(picture(*table().viewport())), ZLReadableColors::LeastForText);
    EXPECT_GE(contrastIn(picture(*drawer().viewport())), ZLReadableColors::LeastForText);
}

TEST_P(ZLContrastTest, TheToolbarAndTheStatusLineCanBeReadPausedAndRunning)
{
    fill();
    for (int round = 0; round < 2; ++round) {
        for (const auto& name : { u"clockLabel"_s, u"ageLabel"_s, u"nextTitle"_s })
            EXPECT_GE(contrastIn(picture(*bar().findChild<QLabel*>(name))), ZLReadableColors::LeastForText)
                << qPrintable(name) << round;
        expectReadableRecordButton();
        EXPECT_GE(contrastIn(picture(*m_window->statusLine().findChild<QToolButton*>(u"nextTemplate"_s))),
            ZLReadableColors::LeastForText);
        if (round == 0)
            start();
    }
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
