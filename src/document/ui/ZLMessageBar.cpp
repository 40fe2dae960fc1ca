#include "document/ui/ZLMessageBar.h"

#include "document/ui/ZLMessageRow.h"

#include <QEvent>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>

ZLMessageBar::ZLMessageBar(QWidget* parent)
    : QFrame(parent)
    , m_layout(new QVBoxLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    setFrameShape(QFrame::NoFrame);
    setAutoFillBackground(true);
    updateColors();
    hide();
}

void ZLMessageBar::showMessage(const QString& name, const QString& text, const QList<Button>& buttons)
{
    ZLMessageRow* row = rowNamed(name);
    if (!row) {
        row = new ZLMessageRow(name, this);
        connect(row, &ZLMessageRow::answered, this, &ZLMessageBar::hideMessage);
        m_rows.append(row);
        m_layout->addWidget(row);
        row->hide();
    }
    row->setMessage(text, buttons.first(std::min(buttons.size(), MostButtons)));
    showFirstRows();
}

void ZLMessageBar::hideMessage(const QString& name)
{
    ZLMessageRow* row = rowNamed(name);
    if (!row)
        return;
    const bool hadKeyboard = row->hasKeyboard();
    m_rows.removeOne(row);
    m_layout->removeWidget(row);
    row->hide();
    // One of its buttons may be the sender of the click that is being handled.
    row->deleteLater();
    showFirstRows();
    if (hadKeyboard)
        Q_EMIT keyboardReturned();
}

QString ZLMessageBar::text(const QString& name) const
{
    const ZLMessageRow* row = rowNamed(name);
    return row ? row->text() : QString();
}

QStringList ZLMessageBar::texts() const
{
    QStringList texts;
    for (const ZLMessageRow* row : m_rows)
        texts.append(row->text());
    return texts;
}

void ZLMessageBar::goToMessages()
{
    const qsizetype shown = std::min(m_rows.size(), MostRows);
    qsizetype present = -1;
    for (qsizetype index = 0; index < shown; ++index) {
        if (m_rows.at(index)->hasKeyboard())
            present = index;
    }
    // A message without buttons has nothing to give the keyboard to.
    for (qsizetype step = 1; step <= shown; ++step) {
        if (m_rows.at((present + step) % shown)->takeKeyboard())
            return;
    }
}

void ZLMessageBar::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        Q_EMIT keyboardReturned();
    else
        QFrame::keyPressEvent(event);
}

void ZLMessageBar::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange)
        updateColors();
}

ZLMessageRow* ZLMessageBar::rowNamed(const QString& name) const
{
    const auto row = std::find_if(
        m_rows.cbegin(), m_rows.cend(), [&name](const ZLMessageRow* candidate) { return candidate->name() == name; });
    return row == m_rows.cend() ? nullptr : *row;
}

void ZLMessageBar::showFirstRows()
{
    setVisible(!m_rows.isEmpty());
    for (qsizetype index = 0; index < m_rows.size(); ++index) {
        ZLMessageRow* row = m_rows.at(index);
        const bool comesUp = row->isHidden() && index < MostRows;
        row->setVisible(index < MostRows);
        if (comesUp)
            row->announce();
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
