#include "export/ui/ZLLinePatternView.h"

#include "platform/ZLShownText.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype previewLines = 3;

}

ZLLinePatternView::ZLLinePatternView(const QString& pattern, QWidget* parent)
    : QWidget(parent)
    , m_pattern(new QLineEdit(pattern, this))
    , m_preview(new QLabel(this))
{
    m_pattern->setObjectName(u"linePattern"_s);
    m_pattern->setToolTip(tr("{time}, {title}, {link} and {number} stand for those of the chapter."));
    m_pattern->setAccessibleDescription(m_pattern->toolTip());
    m_preview->setObjectName(u"linePatternPreview"_s);
    m_preview->setTextFormat(Qt::PlainText);
    // A long line is cut off instead of making the dialog wider.
    m_preview->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_preview->setMinimumHeight(int(previewLines) * m_preview->fontMetrics().lineSpacing());
    m_preview->setAlignment(Qt::AlignTop | Qt::AlignLeading);
    auto* layout = new QFormLayout(this);
    layout->setContentsMargins({});
    layout->addRow(tr("L&ine:"), m_pattern);
    layout->addRow(tr("Preview:"), m_preview);
    connect(m_pattern, &QLineEdit::textChanged, this, &ZLLinePatternView::patternDidChange);
}

QString ZLLinePatternView::pattern() const
{
    return m_pattern->text();
}

void ZLLinePatternView::setPreview(const QString& text)
{
    QStringList lines = text.split(u'\n').first(std::min<qsizetype>(previewLines, text.count(u'\n')));
    for (QString& line : lines)
        line = ZLShownText::asOneLine(ZLShownText::shortened(line));
    m_preview->setText(lines.join(u'\n'));
}
