#include "document/ui/ZLMessageRow.h"

#include "document/ui/ZLMnemonics.h"
#include "document/ui/ZLRecordingColors.h"
#include "templates/ui/ZLReadableColors.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A sentence that is broken into less than this beside its buttons cannot be read.
constexpr int leastSentenceCharacters = 36;

/// A screen reader has to know that a row is a message and not a group of buttons.
QAccessibleInterface* accessibleMessageRow(const QString& className, QObject* object)
{
    auto* row = className == "ZLMessageRow"_L1 ? qobject_cast<QWidget*>(object) : nullptr;
    return row ? new QAccessibleWidget(row, QAccessible::AlertMessage) : nullptr;
}

void installMessageRowFactory()
{
    [[maybe_unused]] static const bool isInstalled = [] {
        QAccessible::installFactory(accessibleMessageRow);
        return true;
    }();
}

}

ZLMessageRow::ZLMessageRow(const QString& name, QWidget* parent)
    : QWidget(parent)
    , m_name(name)
    , m_layout(new QBoxLayout(QBoxLayout::LeftToRight, this))
    , m_buttonLayout(new QBoxLayout(QBoxLayout::LeftToRight))
    , m_icon(new QLabel(this))
    , m_text(new QLabel(this))
{
    installMessageRowFactory();
    setObjectName(name);
    m_text->setObjectName(u"messageText"_s);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    auto* sentence = new QHBoxLayout;
    sentence->addWidget(m_icon);
    sentence->addWidget(m_text, 1);
    m_layout->addLayout(sentence, 1);
    m_layout->addLayout(m_buttonLayout);
    m_buttonLayout->addStretch(1);
    setAutoFillBackground(true);
    updateIcon();
    updateColors();
}

QString ZLMessageRow::text() const
{
    return m_text->text();
}

void ZLMessageRow::setMessage(const QString& text, const QList<ZLMessageBar::Button>& buttons)
{
    const bool hadKeyboard = hasKeyboard();
    removeButtons();
    const bool isNew = m_text->text() != text;
    m_text->setText(text);
    setAccessibleName(text);
    for (const ZLMessageBar::Button& button : buttons)
        addButton(button);
    arrange();
    if (hadKeyboard)
        takeKeyboard();
    if (isNew && isVisible())
        announce();
}

void ZLMessageRow::setKind(ZLMessageBar::Kind kind)
{
    m_kind = kind;
    updateIcon();
    updateColors();
}

void ZLMessageRow::setMnemonics(ZLMnemonics& mnemonics) const
{
    const auto buttons = findChildren<QPushButton*>(QString(), Qt::FindDirectChildrenOnly);
    for (QPushButton* button : buttons)
        button->setText(mnemonics.withMnemonic(button->text()));
}

void ZLMessageRow::announce()
{
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

bool ZLMessageRow::takeKeyboard()
{
    auto* first = findChild<QPushButton*>(QString(), Qt::FindDirectChildrenOnly);
    if (first)
        first->setFocus(Qt::ShortcutFocusReason);
    return first;
}

bool ZLMessageRow::hasKeyboard() const
{
    const auto buttons = findChildren<QPushButton*>(QString(), Qt::FindDirectChildrenOnly);
    return std::any_of(buttons.cbegin(), buttons.cend(), [](const QPushButton* button) { return button->hasFocus(); });
}

void ZLMessageRow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::StyleChange)
        updateIcon();
    if (event->type() == QEvent::ApplicationPaletteChange)
        updateColors();
}

void ZLMessageRow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    arrange();
}

void ZLMessageRow::arrange()
{
    const int besideButtons = width() - m_buttonLayout->sizeHint().width();
    const bool isNarrow = besideButtons < leastSentenceCharacters * fontMetrics().averageCharWidth();
    m_layout->setDirection(isNarrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}

void ZLMessageRow::addButton(const ZLMessageBar::Button& button)
{
    auto* widget = new QPushButton(button.text, this);
    // Return presses the button that has the keyboard, as in a dialog.
    widget->setAutoDefault(true);
    // Who comes here by Tab hears what is asked.
    widget->setAccessibleDescription(text());
    connect(widget, &QPushButton::clicked, this, [this, callback = button.callback] {
        Q_EMIT answered(m_name);
        if (callback)
            callback();
    });
    m_buttonLayout->addWidget(widget);
    widget->show();
}

void ZLMessageRow::removeButtons()
{
    const auto buttons = findChildren<QPushButton*>(QString(), Qt::FindDirectChildrenOnly);
    for (QPushButton* button : buttons) {
        // One of them may be the sender of the click that is being handled.
        m_buttonLayout->removeWidget(button);
        button->hide();
        button->setParent(nullptr);
        button->deleteLater();
    }
}

void ZLMessageRow::updateIcon()
{
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    const bool isError = m_kind == ZLMessageBar::Kind::Error;
    const QStyle::StandardPixmap sign = isError ? QStyle::SP_MessageBoxCritical : QStyle::SP_MessageBoxQuestion;
    m_icon->setPixmap(style()->standardIcon(sign, nullptr, this).pixmap(size));
    m_icon->setAccessibleName(isError ? tr("Error") : tr("Question"));
}

void ZLMessageRow::updateColors()
{
    const QPalette source = parentWidget()->palette();
    const QColor tint = m_kind == ZLMessageBar::Kind::Error ? ZLRecordingColors::red(source)
                                                            : source.color(QPalette::Active, QPalette::Highlight);
    QPalette colors = source;
    colors.setColor(QPalette::Window, ZLReadableColors::tinted(source.color(QPalette::Window), tint));
    setPalette(colors);
}
