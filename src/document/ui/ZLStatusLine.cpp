#include "document/ui/ZLStatusLine.h"

#include "platform/ZLShownText.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int passingMillisecondsAtFirst = 6000;
constexpr int longestTemplateTitleInCharacters = 32;
const QString savePartName = QStringLiteral("saveStatus");

}

ZLStatusLine::ZLStatusLine(QWidget* parent)
    : QStatusBar(parent)
    , m_nextTemplate(addFlatButton(u"nextTemplate"_s))
    , m_hint(new QLabel(this))
    , m_message(new QLabel(this))
    , m_messageButton(addFlatButton(u"passingMessageButton"_s))
    , m_passingMilliseconds(passingMillisecondsAtFirst)
{
    setSizeGripEnabled(false);
    setAccessibleName(tr("Status"));
    m_message->setObjectName(u"passingMessage"_s);
    m_message->setTextFormat(Qt::PlainText);
    m_message->setMinimumWidth(1);
    m_hint->setObjectName(u"hint"_s);
    m_hint->setTextFormat(Qt::PlainText);
    auto* left = new QWidget(this);
    auto* layout = new QHBoxLayout(left);
    layout->setContentsMargins(0, 0, 0, 0);
    // A message begins where the text of the button begins whose place it takes.
    m_message->setIndent(style()->pixelMetric(QStyle::PM_ButtonMargin, nullptr, m_nextTemplate));
    layout->addWidget(m_nextTemplate);
    m_hint->setIndent(m_message->indent());
    layout->addWidget(m_hint);
    layout->addWidget(m_message);
    layout->addWidget(m_messageButton);
    layout->addStretch(1);
    addWidget(left, 1);
    m_passingTimer.setSingleShot(true);
    connect(&m_passingTimer, &QTimer::timeout, this, &ZLStatusLine::hidePassingMessage);
    connect(m_nextTemplate, &QToolButton::clicked, this, &ZLStatusLine::nextTemplateClicked);
    connect(m_messageButton, &QToolButton::clicked, this, [this] {
        const auto action = m_messageAction;
        hidePassingMessage();
        if (action)
            action();
    });
    hidePassingMessage();
    setNextTemplate(NextTemplate::Missing);
}

void ZLStatusLine::setNextTemplate(NextTemplate next, const QString& title)
{
    const QFontMetrics metrics = m_nextTemplate->fontMetrics();
    const int width = longestTemplateTitleInCharacters * metrics.averageCharWidth();
    const QString shown = title.isEmpty() ? tr("untitled") : ZLShownText::shortened(title).simplified();
    QString text = tr("No templates");
    if (next == NextTemplate::Exists)
        text = tr("Next: %1").arg(metrics.elidedText(shown, Qt::ElideRight, width));
    m_nextTemplate->setAccessibleName(next == NextTemplate::Exists ? tr("Next: %1").arg(shown) : text);
    // An ampersand in a title is no mnemonic.
    m_nextTemplate->setText(text.replace(u'&', "&&"_L1));
    m_nextTemplate->setToolTip(next == NextTemplate::Exists
            ? tr("The next chapter takes this title. Click to show the templates.")
            : tr("Click to prepare chapters before the recording."));
}

void ZLStatusLine::setSaveStatus(const QString& text, const QString& toolTip)
{
    setPart(savePartName, text, toolTip);
}

void ZLStatusLine::setPart(const QString& name, const QString& text, const QString& toolTip)
{
    QToolButton*& part = m_parts[name];
    if (!part) {
        part = addFlatButton(name);
        addPermanentWidget(part);
        connect(part, &QToolButton::clicked, this, [this, name] {
            if (name == savePartName)
                Q_EMIT saveStatusClicked();
            Q_EMIT partClicked(name);
        });
    }
    part->setText(text);
    part->setToolTip(toolTip);
    part->setAccessibleDescription(toolTip);
    part->setVisible(!text.isEmpty());
}

void ZLStatusLine::setPartIcon(const QString& name, const QIcon& icon, QSize size)
{
    QToolButton* part = m_parts.value(name);
    if (!part)
        return;
    part->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    part->setIconSize(size);
    part->setIcon(icon);
}

void ZLStatusLine::showPassingMessage(
    const QString& text, const QString& actionText, const std::function<void()>& action)
{
    m_messageAction = action;
    m_message->setText(text);
    m_messageButton->setText(actionText);
    m_nextTemplate->hide();
    m_hint->hide();
    m_message->show();
    m_messageButton->setVisible(!actionText.isEmpty());
    // A person who wants to press the button needs the time to get there.
    m_passingTimer.start(actionText.isEmpty() ? m_passingMilliseconds : 2 * m_passingMilliseconds);
    announcePassingMessage();
}

void ZLStatusLine::hidePassingMessage()
{
    m_passingTimer.stop();
    m_messageAction = nullptr;
    m_message->clear();
    m_message->hide();
    m_messageButton->hide();
    showHintOrTemplate();
}

void ZLStatusLine::setHint(const QString& text)
{
    m_hint->setText(text);
    // A hint is about what begins now, a message about what is over.
    if (!text.isEmpty())
        hidePassingMessage();
    else if (passingMessage().isEmpty())
        showHintOrTemplate();
}

QString ZLStatusLine::hint() const
{
    return m_hint->text();
}

void ZLStatusLine::showHintOrTemplate()
{
    m_hint->setVisible(!hint().isEmpty());
    m_nextTemplate->setVisible(hint().isEmpty());
}

QString ZLStatusLine::passingMessage() const
{
    return m_message->text();
}

QToolButton* ZLStatusLine::addFlatButton(const QString& name)
{
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setAutoRaise(true);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

void ZLStatusLine::announcePassingMessage()
{
    m_message->setAccessibleName(m_message->text());
    QAccessibleEvent alert(m_message, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}
