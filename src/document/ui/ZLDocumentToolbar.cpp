#include "document/ui/ZLDocumentToolbar.h"

#include "document/ui/ZLRecordingColors.h"
#include "resources/ZLSymbolIcon.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int toolbarHeight = 64;
constexpr int symbolSize = 24;
constexpr int recordSymbolSize = 32;
constexpr int recordingLineHeight = 3;
constexpr double clockScale = 2.2;
const QString clockSample = QStringLiteral("00:00:00.0");

/// Width in which `characters` never jump, whatever digits they are.
int steadyWidth(const QFontMetrics& metrics, const QString& characters)
{
    int widestDigit = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        widestDigit = std::max(widestDigit, metrics.horizontalAdvance(digit));
    int width = 0;
    for (const QChar character : characters)
        width += character.isDigit() ? widestDigit : metrics.horizontalAdvance(character);
    return width;
}

}

ZLDocumentToolbar::ZLDocumentToolbar(QWidget* parent)
    : QToolBar(parent)
    , m_recordButton(createButton(u"recordButton"_s, u"StartButton"_s, { tr("Start"), tr("Pause") }))
    , m_addButton(createButton(u"addButton"_s, u"AddButton"_s, { tr("Add"), tr("Next") }))
    , m_deleteButton(createButton(u"deleteButton"_s, u"DeleteButton"_s, { tr("Delete") }))
    , m_drawerButton(createButton(u"drawerButton"_s, u"DrawerButton"_s, { tr("Templates") }))
    , m_clockLabel(new QLabel(this))
    , m_ageLabel(new QLabel(this))
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
    styleClock();
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
    row->addWidget(m_addButton);
    row->addWidget(m_deleteButton);
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
    for (QLabel* label : { m_clockLabel, m_ageLabel })
        label->setTextFormat(Qt::PlainText);
    auto* timeLabel = new QWidget(this);
    timeLabel->setObjectName(u"timeLabel"_s);
    auto* column = new QVBoxLayout(timeLabel);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addStretch(1);
    column->addWidget(m_clockLabel);
    column->addWidget(m_ageLabel);
    column->addStretch(1);
    return timeLabel;
}

QToolButton* ZLDocumentToolbar::createButton(const QString& name, const QString& image, const QStringList& labels)
{
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setIcon(ZLSymbolIcon::named(image));
    button->setIconSize({ symbolSize, symbolSize });
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
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

void ZLDocumentToolbar::setClock(const QString& clock, const QString& age)
{
    if (clock.size() > m_clockCharacters)
        growClockFor(clock);
    m_clockLabel->setText(clock);
    m_ageLabel->setText(age);
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
    if (event->type() == QEvent::FontChange)
        styleClock();
    if (event->type() == QEvent::PaletteChange)
        updateRecordColors();
}

void ZLDocumentToolbar::styleClock()
{
    QFont large = font();
    large.setPointSizeF(font().pointSizeF() * clockScale);
    m_clockLabel->setFont(large);
    growClockFor(clockSample);
}

void ZLDocumentToolbar::growClockFor(const QString& text)
{
    m_clockCharacters = text.size();
    const int width = steadyWidth(QFontMetrics(m_clockLabel->font()), text);
    m_clockLabel->setFixedWidth(width);
    m_ageLabel->setFixedWidth(width);
}

void ZLDocumentToolbar::updateRecordColors()
{
    const bool isRecording = m_recordFace == RecordFace::Pause;
    QPalette colors = palette();
    QFont labelFont = font();
    labelFont.setBold(isRecording);
    // Icon and label rather than the button's surface, which not every style lets a palette colour.
    const QColor red = ZLRecordingColors::red(colors);
    if (isRecording)
        colors.setColor(QPalette::ButtonText, red);
    m_recordButton->setPalette(colors);
    m_recordButton->setFont(labelFont);
    m_recordButton->setIcon(
        ZLSymbolIcon::named(isRecording ? u"StopButton"_s : u"StartButton"_s, isRecording ? red : QColor()));
    update();
}
