#include "document/ui/ZLDocumentToolbar.h"

#include "document/ui/ZLRecordingColors.h"
#include "platform/ZLShownText.h"
#include "resources/ZLSymbolIcon.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QToolButton>

#include <algorithm>
#include <string_view>

using namespace Qt::StringLiterals;

namespace {

constexpr int toolbarHeight = 64;
constexpr int symbolSize = 24;
constexpr int recordSymbolSize = 32;
constexpr int recordingLineHeight = 3;
constexpr double clockScale = 2.2;
constexpr int nextTitleCharacters = 26;
const QString clockSample = QStringLiteral("00:00:00.0");

/// Width in which `characters` never jump, whatever digits they are.
int steadyWidth(const QFontMetrics& metrics, QString characters)
{
    const auto isNarrower = [&metrics](char16_t one, char16_t other) {
        return metrics.horizontalAdvance(QChar(one)) < metrics.horizontalAdvance(QChar(other));
    };
    constexpr std::u16string_view digits = u"0123456789";
    const QChar widest = *std::max_element(digits.begin(), digits.end(), isNarrower);
    for (QChar& character : characters)
        character = character.isDigit() ? widest : character;
    // Digits side by side may take a fraction more than equal ones.
    return metrics.horizontalAdvance(characters) + 2;
}

}

ZLDocumentToolbar::ZLDocumentToolbar(QWidget* parent)
    : QToolBar(parent)
    , m_recordButton(
          createButton(u"recordButton"_s, u"StartButton"_s, { tr("Start"), tr("Pause") }, Qt::ToolButtonTextUnderIcon))
    , m_addButton(createButton(u"addButton"_s, u"AddButton"_s, { tr("Add"), tr("Next") }, Qt::ToolButtonTextBesideIcon))
    , m_deleteButton(createButton(u"deleteButton"_s, u"DeleteButton"_s, { tr("Delete") }, Qt::ToolButtonTextBesideIcon))
    , m_drawerButton(
          createButton(u"drawerButton"_s, u"DrawerButton"_s, { tr("Templates") }, Qt::ToolButtonTextUnderIcon))
    , m_clockLabel(new QLabel(this))
    , m_ageLabel(new QLabel(this))
    , m_ageCaption(new QLabel(tr("in chapter"), this))
    , m_nextLabel(new QLabel(this))
{
    // The two buttons that are meant to be seen from across the room.
    m_recordButton->setAutoRaise(false);
    m_addButton->setAutoRaise(false);
    m_recordButton->setIconSize({ recordSymbolSize, recordSymbolSize });
    m_addButton->setProperty("tag", AddTag);
    m_deleteButton->setProperty("tag", DeleteTag);
    m_drawerButton->setCheckable(true);
    setMovable(false);
    setFloatable(false);
    build();
    updateRecordColors();
}

void ZLDocumentToolbar::build()
{
    auto* content = new QWidget(this);
    auto* row = new QHBoxLayout(content);
    const int spacing = std::max(style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing, nullptr, this), 4);
    row->setContentsMargins(spacing, spacing, spacing, spacing + recordingLineHeight);
    row->setSpacing(spacing);
    row->addWidget(m_recordButton);
    row->addSpacing(spacing);
    row->addWidget(createTimeLabel());
    row->addStretch(1);
    row->addWidget(createChapterCommands());
    row->addStretch(1);
    row->addWidget(m_drawerButton);
    content->setMinimumHeight(toolbarHeight);
    content->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    addWidget(content);
}

QWidget* ZLDocumentToolbar::createTimeLabel()
{
    m_clockLabel->setObjectName(u"clockLabel"_s);
    // The name of a label is what it shows; a screen reader has to get the time and not only what it means.
    m_clockLabel->setAccessibleDescription(tr("Recorded time"));
    m_clockLabel->setToolTip(tr("Recorded time"));
    m_ageLabel->setObjectName(u"ageLabel"_s);
    m_ageLabel->setAccessibleDescription(tr("Time since the last chapter"));
    m_ageLabel->setToolTip(tr("Time since the last chapter"));
    for (QLabel* label : { m_clockLabel, m_ageLabel, m_ageCaption })
        label->setTextFormat(Qt::PlainText);
    // Without chapters there is no age, and the clock stays where it is.
    for (QLabel* label : { m_ageLabel, m_ageCaption }) {
        QSizePolicy policy = label->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        label->setSizePolicy(policy);
    }
    auto* age = new QHBoxLayout;
    age->addWidget(m_ageLabel);
    age->addWidget(m_ageCaption, 1);
    auto* timeLabel = new QWidget(this);
    timeLabel->setObjectName(u"timeLabel"_s);
    auto* column = new QVBoxLayout(timeLabel);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addStretch(1);
    column->addWidget(m_clockLabel);
    column->addLayout(age);
    column->addStretch(1);
    return timeLabel;
}

QWidget* ZLDocumentToolbar::createChapterCommands()
{
    m_nextLabel->setObjectName(u"nextTitle"_s);
    m_nextLabel->setTextFormat(Qt::PlainText);
    m_nextLabel->setAccessibleDescription(tr("Title of the next chapter"));
    auto* commands = new QWidget(this);
    auto* column = new QVBoxLayout(commands);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_addButton);
    buttons->addWidget(m_deleteButton);
    buttons->addStretch(1);
    column->addLayout(buttons, 1);
    column->addWidget(m_nextLabel);
    return commands;
}

QToolButton* ZLDocumentToolbar::createButton(
    const QString& name, const QString& image, const QStringList& labels, Qt::ToolButtonStyle style)
{
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setIcon(ZLSymbolIcon::named(image));
    button->setIconSize({ symbolSize, symbolSize });
    button->setToolButtonStyle(style);
    button->setFocusPolicy(Qt::TabFocus);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    int width = 0;
    // As wide as its longest label, so that nothing moves when the label or its weight changes.
    QFont boldest = font();
    boldest.setBold(true);
    button->setFont(boldest);
    for (const QString& label : labels) {
        button->setText(label);
        width = std::max(width, button->sizeHint().width());
    }
    button->setFont(font());
    button->setText(labels.first());
    button->setMinimumWidth(std::max(width, toolbarHeight));
    return button;
}

void ZLDocumentToolbar::setRecordFace(RecordFace face)
{
    if (face == m_recordFace)
        return;
    m_recordFace = face;
    m_recordButton->setText(face == RecordFace::Pause ? tr("Pause") : tr("Start"));
    updateRecordColors();
}

void ZLDocumentToolbar::setAddFace(ZLAddButtonFace face)
{
    const bool isNext = face == ZLAddButtonFace::Next;
    m_addButton->setText(isNext ? tr("Next") : tr("Add"));
    m_addButton->setIcon(ZLSymbolIcon::named(isNext ? u"NextChapter"_s : u"AddButton"_s));
}

void ZLDocumentToolbar::setNextTitle(const QString& title)
{
    m_nextTitle = title;
    showNextTitle();
}

void ZLDocumentToolbar::setClock(const QString& clock, const QString& age)
{
    if (clock.size() > m_clockCharacters)
        growClockFor(clock);
    m_clockLabel->setText(clock);
    m_ageLabel->setText(age);
    m_ageLabel->setVisible(!age.isEmpty());
    m_ageCaption->setVisible(!age.isEmpty());
}

void ZLDocumentToolbar::setTagEnabled(Tag tag, bool enabled)
{
    const auto buttons = findChildren<QToolButton*>();
    for (QToolButton* button : buttons) {
        if (button->property("tag").toInt() == tag)
            button->setEnabled(enabled);
    }
}

void ZLDocumentToolbar::paintEvent(QPaintEvent* event)
{
    QToolBar::paintEvent(event);
    if (m_recordFace != RecordFace::Pause)
        return;
    QPainter painter(this);
    painter.fillRect(
        0, height() - recordingLineHeight, width(), recordingLineHeight, ZLRecordingColors::red(QToolBar::palette()));
}

void ZLDocumentToolbar::changeEvent(QEvent* event)
{
    QToolBar::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        styleClock();
        showNextTitle();
    }
    if (event->type() == QEvent::PaletteChange)
        updateRecordColors();
}

void ZLDocumentToolbar::styleClock()
{
    QFont large = font();
    large.setPointSizeF(font().pointSizeF() * clockScale);
    large.setBold(m_recordFace == RecordFace::Pause);
    m_clockLabel->setFont(large);
    growClockFor(m_clockLabel->text().size() > clockSample.size() ? m_clockLabel->text() : clockSample);
}

void ZLDocumentToolbar::growClockFor(const QString& text)
{
    m_clockCharacters = text.size();
    // As wide as the running clock, whose digits are bold.
    QFont boldest = m_clockLabel->font();
    boldest.setBold(true);
    m_clockLabel->setFixedWidth(steadyWidth(QFontMetrics(boldest), text));
    // The age never has more digits than the clock.
    m_ageLabel->setFixedWidth(steadyWidth(fontMetrics(), text.chopped(2)));
}

void ZLDocumentToolbar::showNextTitle()
{
    const int width = nextTitleCharacters * fontMetrics().averageCharWidth();
    m_nextLabel->setFixedWidth(std::max(width, m_addButton->minimumWidth() + m_deleteButton->minimumWidth()));
    const QString line = ZLShownText::shortened(m_nextTitle).simplified();
    m_nextLabel->setText(fontMetrics().elidedText(line, Qt::ElideRight, m_nextLabel->width()));
    m_nextLabel->setAccessibleName(line);
    m_nextLabel->setToolTip(line.isEmpty() ? QString() : tr("The next chapter takes this title: %1").arg(line));
}

void ZLDocumentToolbar::updateRecordColors()
{
    const bool isRecording = m_recordFace == RecordFace::Pause;
    QFont labelFont = font();
    labelFont.setBold(isRecording);
    // The icon rather than the button's surface, which not every style lets a palette colour.
    const QColor red = ZLRecordingColors::red(palette());
    QPalette clockColors = palette();
    // Which of the two a label of a toolbar is painted in is up to the style.
    for (const auto role : { QPalette::WindowText, QPalette::ButtonText }) {
        if (isRecording)
            clockColors.setColor(role, red);
    }
    m_clockLabel->setPalette(clockColors);
    styleClock();
    m_recordButton->setFont(labelFont);
    m_recordButton->setIcon(
        ZLSymbolIcon::named(isRecording ? u"StopButton"_s : u"StartButton"_s, isRecording ? red : QColor()));
    update();
}
