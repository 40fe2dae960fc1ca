#include "document/ui/ZLMessageBar.h"

#include "document/ui/ZLMessageRow.h"
#include "document/ui/ZLMnemonics.h"

#include <QKeyEvent>
#include <QMenuBar>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

ZLMessageBar::ZLMessageBar(QWidget* parent)
    : QFrame(parent)
    , m_layout(new QVBoxLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    setFrameShape(QFrame::NoFrame);
    hide();
}

void ZLMessageBar::showMessage(
    const QString& name, const QString& text, const QList<Button>& buttons, const QStringList& coveredNames, Kind kind)
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
    row->setCoveredNames(coveredNames);
    row->setKind(kind);
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
    for (const ZLMessageRow* row : uncoveredRows())
        texts.append(row->text());
    return texts;
}

void ZLMessageBar::goToMessages()
{
    const QList<ZLMessageRow*> shown = firstRows();
    qsizetype present = -1;
    for (qsizetype index = 0; index < shown.size(); ++index) {
        if (shown.at(index)->hasKeyboard())
            present = index;
    }
    // A message without buttons has nothing to give the keyboard to.
    for (qsizetype step = 1; step <= shown.size(); ++step) {
        if (shown.at((present + step) % shown.size())->takeKeyboard())
            return;
    }
}

void ZLMessageBar::takeKeyboardFor(const QString& name)
{
    // The focus takes effect at once in an active window, and otherwise when it becomes active.
    if (ZLMessageRow* row = rowNamed(name); row && !row->isHidden())
        row->takeKeyboard();
}

void ZLMessageBar::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        Q_EMIT keyboardReturned();
    else
        QFrame::keyPressEvent(event);
}

ZLMessageRow* ZLMessageBar::rowNamed(const QString& name) const
{
    const auto row = std::find_if(
        m_rows.cbegin(), m_rows.cend(), [&name](const ZLMessageRow* candidate) { return candidate->name() == name; });
    return row == m_rows.cend() ? nullptr : *row;
}

QList<ZLMessageRow*> ZLMessageBar::uncoveredRows() const
{
    QStringList coveredNames;
    for (const ZLMessageRow* row : m_rows)
        coveredNames += row->coveredNames();
    QList<ZLMessageRow*> rows;
    std::copy_if(m_rows.cbegin(), m_rows.cend(), std::back_inserter(rows),
        [&coveredNames](const ZLMessageRow* row) { return !coveredNames.contains(row->name()); });
    return rows;
}

QList<ZLMessageRow*> ZLMessageBar::firstRows() const
{
    const QList<ZLMessageRow*> rows = uncoveredRows();
    return rows.first(std::min(rows.size(), MostRows));
}

void ZLMessageBar::showFirstRows()
{
    setVisible(!m_rows.isEmpty());
    const QList<ZLMessageRow*> shown = firstRows();
    bool losesKeyboard = false;
    for (ZLMessageRow* row : std::as_const(m_rows)) {
        const bool comesUp = row->isHidden() && shown.contains(row);
        losesKeyboard = losesKeyboard || (row->hasKeyboard() && !shown.contains(row));
        row->setVisible(shown.contains(row));
        if (comesUp)
            row->announce();
    }
    updateMnemonics();
    if (losesKeyboard)
        Q_EMIT keyboardReturned();
}

void ZLMessageBar::updateMnemonics()
{
    ZLMnemonics mnemonics;
    if (const auto* menus = window()->findChild<QMenuBar*>())
        mnemonics.leaveToMenus(*menus);
    for (const ZLMessageRow* row : firstRows())
        row->setMnemonics(mnemonics);
}
