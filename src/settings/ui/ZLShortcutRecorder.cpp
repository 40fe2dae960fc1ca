#include "settings/ui/ZLShortcutRecorder.h"

#include "resources/ZLSymbolIcon.h"
#include "settings/ui/ZLShortcutField.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

/// Wide enough for the longest sentence in two lines.
constexpr int noticeCharacters = 34;

}

ZLShortcutRecorder::ZLShortcutRecorder(QWidget* parent)
    : QWidget(parent)
    , m_field(new ZLShortcutField(this))
    , m_clearButton(new QToolButton(this))
    , m_noticeIcon(new QLabel(this))
    , m_noticeLabel(new QLabel(this))
{
    m_field->setObjectName(u"field"_s);
    m_clearButton->setObjectName(u"clearButton"_s);
    m_clearButton->setIcon(ZLSymbolIcon::named(u"ClearButton"_s));
    m_clearButton->setAutoRaise(true);
    m_clearButton->setToolTip(tr("Clear the shortcut"));
    m_noticeLabel->setObjectName(u"noticeLabel"_s);
    m_noticeLabel->setTextFormat(Qt::PlainText);
    m_noticeLabel->setWordWrap(true);
    m_noticeLabel->setFixedWidth(noticeCharacters * fontMetrics().averageCharWidth());
    m_noticeLabel->setMinimumHeight(2 * fontMetrics().lineSpacing());
    const int iconSize = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    m_noticeIcon->setFixedWidth(iconSize);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    for (QWidget* part : std::initializer_list<QWidget*> { m_field, m_clearButton, m_noticeIcon, m_noticeLabel })
        row->addWidget(part);
    setFocusProxy(m_field);
    connect(m_field, &ZLShortcutField::keyComboDidChange, this, &ZLShortcutRecorder::keyComboDidChange);
    connect(m_field, &ZLShortcutField::recordingDidStart, this, &ZLShortcutRecorder::recordingDidStart);
    connect(m_field, &ZLShortcutField::recordingDidEnd, this, &ZLShortcutRecorder::removeHint);
    connect(m_field, &ZLShortcutField::recordingDidEnd, this, &ZLShortcutRecorder::recordingDidStop);
    connect(m_field, &ZLShortcutField::didRefuse, this, &ZLShortcutRecorder::showHint);
    connect(m_field, &ZLShortcutField::recordingDidStart, this, &ZLShortcutRecorder::updateClearButton);
    connect(m_field, &ZLShortcutField::recordingDidEnd, this, &ZLShortcutRecorder::updateClearButton);
    connect(m_clearButton, &QToolButton::clicked, this, &ZLShortcutRecorder::clear);
    updateClearButton();
}

void ZLShortcutRecorder::setObjectValue(const std::optional<QVariantMap>& shortcut)
{
    m_objectValue = shortcut;
    m_field->setKeyCombo(keyCombo());
    updateClearButton();
}

std::optional<ZLKeyCombo> ZLShortcutRecorder::keyCombo() const
{
    return m_objectValue ? std::optional(ZLKeyCombo::fromShortcutDictionary(*m_objectValue)) : std::nullopt;
}

void ZLShortcutRecorder::setTitle(const QString& title)
{
    m_title = title;
    m_field->setTitle(title);
    m_clearButton->setAccessibleName(tr("Clear %1").arg(title));
}

void ZLShortcutRecorder::setKeyboardLayout(const ZLKeyboardLayout& layout)
{
    m_field->setKeyboardLayout(layout);
}

void ZLShortcutRecorder::setNotice(const QString& text, Notice kind)
{
    m_notice = text;
    m_noticeKind = kind;
    showNoticeText(text, kind);
}

QString ZLShortcutRecorder::notice() const
{
    return m_noticeLabel->text();
}

bool ZLShortcutRecorder::isRecording() const
{
    return m_field->isRecording();
}

void ZLShortcutRecorder::keyComboDidChange()
{
    const auto recorded = m_field->keyCombo();
    m_objectValue = recorded ? std::optional(recorded->shortcutDictionary()) : std::nullopt;
    updateClearButton();
    Q_EMIT didEndRecording();
}

void ZLShortcutRecorder::clear()
{
    // The button that was pressed is about to be switched off.
    m_field->setFocus();
    m_field->cancelRecording();
    if (!m_objectValue)
        return;
    setObjectValue(std::nullopt);
    Q_EMIT didEndRecording();
}

void ZLShortcutRecorder::updateClearButton()
{
    m_clearButton->setEnabled(m_objectValue.has_value() || isRecording());
}

void ZLShortcutRecorder::showHint(const QString& hint)
{
    showNoticeText(hint, Notice::Warning);
    QAccessibleEvent alert(m_noticeLabel, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void ZLShortcutRecorder::removeHint()
{
    showNoticeText(m_notice, m_noticeKind);
}

void ZLShortcutRecorder::showNoticeText(const QString& text, Notice kind)
{
    const auto symbol = kind == Notice::Warning ? QStyle::SP_MessageBoxWarning : QStyle::SP_MessageBoxInformation;
    const QIcon icon = style()->standardIcon(symbol, nullptr, this);
    m_noticeIcon->setPixmap(text.isEmpty() ? QPixmap() : icon.pixmap(m_noticeIcon->width()));
    m_noticeLabel->setText(text);
    m_field->setAccessibleDescription(text);
}
