#include "document/ui/ZLMessageBar.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

#include <algorithm>

ZLMessageBar::ZLMessageBar(QWidget* parent)
    : QFrame(parent)
    , m_layout(new QHBoxLayout(this))
    , m_icon(new QLabel(this))
    , m_text(new QLabel(this))
{
    m_text->setObjectName(QStringLiteral("messageText"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_icon->setAccessibleName(tr("Attention"));
    m_layout->addWidget(m_icon);
    m_layout->addWidget(m_text, 1);
    setFrameShape(QFrame::NoFrame);
    setAutoFillBackground(true);
    updateColors();
    updateIcon();
    hide();
}

void ZLMessageBar::showMessage(const QString& text, const QList<Button>& buttons)
{
    removeButtons();
    m_text->setText(text);
    for (const Button& button : buttons.first(std::min(buttons.size(), MostButtons)))
        addButton(button);
    setAccessibleName(text);
    show();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void ZLMessageBar::hideMessage()
{
    if (isHidden())
        return;
    hide();
    m_text->clear();
    removeButtons();
    Q_EMIT didHide();
}

QString ZLMessageBar::text() const
{
    return m_text->text();
}

void ZLMessageBar::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::StyleChange)
        updateIcon();
    if (event->type() == QEvent::ApplicationPaletteChange)
        updateColors();
}

void ZLMessageBar::addButton(const Button& button)
{
    auto* widget = new QPushButton(button.text, this);
    widget->setAutoDefault(true);
    connect(widget, &QPushButton::clicked, this, [this, callback = button.callback] {
        hideMessage();
        if (callback)
            callback();
    });
    m_layout->addWidget(widget);
}

void ZLMessageBar::removeButtons()
{
    const auto buttons = findChildren<QPushButton*>(QString(), Qt::FindDirectChildrenOnly);
    for (QPushButton* button : buttons) {
        // One of them may be the sender of the click that is being handled.
        m_layout->removeWidget(button);
        button->setParent(nullptr);
        button->deleteLater();
    }
}

void ZLMessageBar::updateColors()
{
    // The colours of a tool tip are the palette's own pair for "look here", readable in light and dark.
    const QPalette source = parentWidget() ? parentWidget()->palette() : QPalette();
    QPalette colors = source;
    colors.setColor(QPalette::Window, source.color(QPalette::ToolTipBase));
    colors.setColor(QPalette::WindowText, source.color(QPalette::ToolTipText));
    setPalette(colors);
}

void ZLMessageBar::updateIcon()
{
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    m_icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this).pixmap(size));
}
