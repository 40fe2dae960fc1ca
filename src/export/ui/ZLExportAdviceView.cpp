#include "export/ui/ZLExportAdviceView.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>

using namespace Qt::StringLiterals;

ZLExportAdviceView::ZLExportAdviceView(QWidget* parent)
    : QFrame(parent)
    , m_icon(new QLabel(this))
    , m_text(new QLabel(this))
{
    setObjectName(u"exportAdvice"_s);
    m_text->setObjectName(u"exportAdviceText"_s);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_icon->setAccessibleName(tr("Attention"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_icon, 0, Qt::AlignTop);
    layout->addWidget(m_text, 1);
    updateIcon();
    hide();
}

void ZLExportAdviceView::setLines(const QStringList& lines)
{
    if (m_lines == lines)
        return;
    m_lines = lines;
    m_text->setText(lines.join(u'\n'));
    setAccessibleName(m_text->text());
    setVisible(!lines.isEmpty());
    if (lines.isEmpty())
        return;
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void ZLExportAdviceView::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::StyleChange)
        updateIcon();
}

void ZLExportAdviceView::updateIcon()
{
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    m_icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this).pixmap(size));
}
