#include "app/ui/look/ZLBoxStyle.h"
#include "delivery/fit/ui/ZLFitPicture.h"
#include "document/ui/ZLWindowFixture.h"
#include "settings/ui/ZLGeneralPrefsViewController.h"
#include "templates/ui/ZLReadableColors.h"
#include "templates/ui/ZLTemplatesTableView.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <functional>
#include <ostream>

using namespace Qt::StringLiterals;

/// A desktop's colours, as settings name them.
struct ZLContrastLook {
    const char* name;
    QRgb window, base, button, text, disabledText, highlight, highlightedText;
};

static std::ostream& operator<<(std::ostream& stream, const ZLContrastLook& look)
{
    return stream << look.name;
}

namespace {

constexpr ZLContrastLook looks[] {
    { "Light", 0xffefefef, 0xffffffff, 0xffefefef, 0xff000000, 0xffbebebe, 0xff308cc6, 0xffffffff },
    { "LightWithPaleSelection", 0xffeff0f1, 0xfffcfcfc, 0xfffcfcfc, 0xff232629, 0xffa0a2a3, 0xff3daee9, 0xfffcfcfc },
    { "Dark", 0xff31363b, 0xff232629, 0xff40454a, 0xffeff0f1, 0xff6e7175, 0xff3daee9, 0xfffcfcfc },
    { "DarkGrey", 0xff353535, 0xff2d2d2d, 0xff353535, 0xffffffff, 0xff828282, 0xff15539e, 0xffffffff },
};

QPalette paletteOfDesktop(const ZLContrastLook& look)
{
    QPalette palette = QPalette(QColor(look.button), QColor(look.window));
    const auto set = [&palette](QPalette::ColorRole role, QRgb color) { palette.setColor(role, QColor(color)); };
    set(QPalette::Base, look.base);
    set(QPalette::AlternateBase, look.window);
    for (const auto role : { QPalette::WindowText, QPalette::Text, QPalette::ButtonText }) {
        set(role, look.text);
        palette.setColor(QPalette::Disabled, role, QColor(look.disabledText));
    }
    set(QPalette::Highlight, look.highlight);
    set(QPalette::HighlightedText, look.highlightedText);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x919191));
    QColor placeholder(look.text);
    placeholder.setAlphaF(0.4F);
    palette.setColor(QPalette::PlaceholderText, placeholder);
    return palette;
}

using ColorCounts = QHash<QRgb, int>;

ColorCounts countsIn(const QImage& picture)
{
    ColorCounts counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    return counts;
}

/// The colour that most of the picture has.
QColor groundOf(const QImage& picture)
{
    const ColorCounts counts = countsIn(picture);
    const auto isRarer = [&](QRgb first, QRgb second) { return counts.value(first) < counts.value(second); };
    const QList<QRgb> colors = counts.keys();
    return colors.isEmpty() ? QColor() : QColor(*std::ranges::max_element(colors, isRarer));
}

/// How much the strokes stand out from this ground. Their edges are soft, so that a few pixels of each stroke have its
/// full colour.
double contrastIn(const ColorCounts& counts, const QColor& ground)
{
    QMap<double, int> countsByContrast;
    for (const auto [color, count] : counts.asKeyValueRange())
        countsByContrast[ZLReadableColors::contrast(QColor(color), ground)] += count;
    // Three pixels may be anything.
    int further = 3;
    while (!countsByContrast.isEmpty() && countsByContrast.last() <= further)
        further -= countsByContrast.take(countsByContrast.lastKey());
    return countsByContrast.isEmpty() ? 0.0 : countsByContrast.lastKey();
}

double contrastIn(const QImage& picture, const QColor& ground)
{
    return contrastIn(countsIn(picture), ground);
}

double contrastIn(const QImage& picture)
{
    return contrastIn(picture, groundOf(picture));
}

/// The same on a ground that is shaded from top to bottom, where the strokes stand out least. The last column of the
/// picture has nothing but ground.
double contrastOnShades(const QImage& picture)
{
    const ColorCounts counts = countsIn(picture);
    double least = 21.0;
    for (int y = 0; y < picture.height(); ++y)
        least = std::min(least, contrastIn(counts, picture.pixelColor(picture.width() - 1, y)));
    return least;
}

}

/// A control of each kind in a window of its own. The letters are large, for the thin strokes of small ones may have no
/// pixel of their full colour.
class ZLControlSamples {
public:
    struct Sample {
        QString name;
        QWidget* control;
        /// The part of the control in which the text stands, and nothing but its ground at the right.
        std::function<QRect()> textArea;
    };

    ZLControlSamples()
        : m_layout(new QVBoxLayout(&m_window))
    {
        QFont large = m_window.font();
        large.setPointSizeF(large.pointSizeF() * 2.0);
        m_window.setFont(large);
        addButtons();
        addFields();
        addRows();
        // Nothing is selected because the keyboard came to it.
        m_window.setFocusPolicy(Qt::StrongFocus);
        m_window.setFocus();
        m_window.resize(300, 900);
        m_window.show();
        QCoreApplication::processEvents();
    }

    [[nodiscard]] const QList<Sample>& all() const { return m_samples; }
    [[nodiscard]] QImage picture(const Sample& sample)
    {
        QCoreApplication::processEvents();
        const QRect area = sample.textArea();
        return m_window.grab().toImage().copy(QRect(sample.control->mapTo(&m_window, area.topLeft()), area.size()));
    }

private:
    void addButtons()
    {
        auto* button = new QPushButton(word);
        add(u"push button"_s, button, [button] { return button->rect().adjusted(6, 5, -6, -5); });
        auto* toolButton = new QToolButton;
        toolButton->setText(word);
        toolButton->setAutoRaise(true);
        add(u"tool button"_s, toolButton, [toolButton] { return toolButton->rect().adjusted(4, 4, -1, -4); });
        for (QAbstractButton* box :
            std::initializer_list<QAbstractButton*> { new QCheckBox(word), new QRadioButton(word) })
            add(QString::fromLatin1(box->metaObject()->className()), box,
                [box] { return box->rect().adjusted(24, 0, 0, 0); });
        auto* label = new QLabel(word);
        add(u"label"_s, label, [label] { return label->rect(); });
        auto* group = new QGroupBox(word);
        add(u"title of a group"_s, group,
            [group] { return QRect(0, 0, group->width(), group->fontMetrics().height()); });
    }
    void addFields()
    {
        auto* field = new QLineEdit(word);
        add(u"field"_s, field, [field] { return field->rect().adjusted(4, 4, -4, -4); });
        auto* combo = new QComboBox;
        combo->addItem(word);
        add(u"combo box"_s, combo, [combo] { return combo->rect().adjusted(5, 5, -30, -5); });
        auto* editable = new QComboBox;
        editable->addItem(word);
        editable->setEditable(true);
        add(u"combo box for typing"_s, editable, [editable] { return editable->lineEdit()->geometry(); });
        auto* spin = new QSpinBox;
        spin->setPrefix(word);
        add(u"spin box"_s, spin, [spin] { return spin->rect().adjusted(5, 4, -30, -4); });
        auto* text = new QPlainTextEdit(word);
        add(u"text"_s, text, [text] { return text->rect().adjusted(4, 4, -4, -4); });
    }
    void addRows()
    {
        auto* list = new QTableWidget(2, 1);
        list->setHorizontalHeaderLabels({ word });
        list->horizontalHeader()->setStretchLastSection(true);
        for (const int row : { 0, 1 })
            list->setItem(row, 0, new QTableWidgetItem(word));
        list->selectRow(0);
        for (const int row : { 0, 1 })
            add(u"row %1"_s.arg(row), list, [list, row] {
                return list->visualRect(list->model()->index(row, 0))
                    .adjusted(3, 2, -3, -2)
                    .translated(list->viewport()->pos());
            });
        add(u"heading"_s, list, [list] {
            const QHeaderView* header = list->horizontalHeader();
            return header->geometry().adjusted(3, 3, -3, -3);
        });
    }
    void add(const QString& name, QWidget* control, std::function<QRect()> textArea)
    {
        if (m_layout->indexOf(control) < 0)
            m_layout->addWidget(control);
        m_samples.append({ name, control, std::move(textArea) });
    }

    static inline const QString word = u"Mail"_s;
    QWidget m_window;
    QVBoxLayout* m_layout;
    QList<Sample> m_samples;
};

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

TEST_P(ZLContrastTest, DisabledControlsCanBeReadAndLookDisabled)
{
    ZLControlSamples samples;
    for (const ZLControlSamples::Sample& sample : samples.all()) {
        const double enabled = contrastOnShades(samples.picture(sample));
        sample.control->setEnabled(false);
        const double disabled = contrastOnShades(samples.picture(sample));
        EXPECT_GE(disabled, ZLReadableColors::LeastForText) << qPrintable(sample.name);
        // Selected text has little more contrast than it needs in any state.
        EXPECT_LE(disabled, std::max(0.7 * enabled, 1.5 * ZLReadableColors::LeastForText)) << qPrintable(sample.name);
        sample.control->setEnabled(true);
    }
}

TEST_P(ZLContrastTest, DisabledBoxesCanBeSeenTickedOrNot)
{
    for (const bool isTicked : { false, true }) {
        QCheckBox box;
        QRadioButton button;
        for (QAbstractButton* each : std::initializer_list<QAbstractButton*> { &box, &button }) {
            each->setChecked(isTicked);
            each->setEnabled(false);
            const QImage whole = each->grab().toImage();
            EXPECT_GE(contrastIn(whole), ZLReadableColors::LeastForSigns) << isTicked;
            const QImage inside = whole.copy(whole.rect().adjusted(4, 4, -4, -4));
            if (isTicked) {
                EXPECT_GE(contrastIn(inside), ZLReadableColors::LeastForSigns);
            }
        }
    }
}

TEST_P(ZLContrastTest, DisabledItemsOfMenusCanBeReadAlsoWhenTheyAreChosen)
{
    QMenu menu;
    QFont large = menu.font();
    large.setPointSizeF(large.pointSizeF() * 2.0);
    menu.setFont(large);
    QAction* item = menu.addAction(u"Mail and more"_s);
    const auto contrast = [&](QAction* chosen) {
        menu.popup({});
        menu.setActiveAction(chosen);
        QCoreApplication::processEvents();
        const QImage image = menu.grab().toImage().copy(menu.actionGeometry(item).adjusted(12, 3, -3, -3));
        menu.hide();
        return contrastOnShades(image);
    };
    const double enabled = contrast(nullptr);
    item->setEnabled(false);
    EXPECT_GE(contrast(nullptr), ZLReadableColors::LeastForText);
    EXPECT_LE(contrast(nullptr), 0.7 * enabled);
    EXPECT_GE(contrast(item), ZLReadableColors::LeastForText);
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
