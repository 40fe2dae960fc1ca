#include "document/ui/menus/ZLEditMenu.h"

#include "document/ZLChapterDocument.h"
#include "document/ui/menus/ZLActionHelp.h"
#include "document/ui/table/ZLChapterTableView.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>

using namespace Qt::StringLiterals;

namespace {

/// The undo history knows its steps by their English names.
QString translated(const QString& actionName)
{
    return ZLChapterDocument::tr(actionName.toUtf8().constData());
}

QLineEdit* focusedField()
{
    return qobject_cast<QLineEdit*>(QApplication::focusWidget());
}

}

ZLEditMenu::ZLEditMenu(QMenuBar& menuBar, ZLChapterDocument& document, ZLChapterTableView& tableView)
    : QObject(&menuBar)
    , m_document(document)
    , m_tableView(tableView)
    , m_menu(menuBar.addMenu(tr("&Edit")))
{
    m_menu->setObjectName(u"editMenu"_s);
    m_menu->setToolTipsVisible(true);
    addUndoActions();
    m_menu->addSeparator();
    addClipboardActions();
    m_menu->addSeparator();
    addDeleteAction();
    m_menu->addSeparator();
    addImportAction();
    connect(m_menu, &QMenu::aboutToShow, this, &ZLEditMenu::validate);
    connect(&document.undoManager(), &ZLUndoManager::historyDidChange, this, &ZLEditMenu::validate);
    connect(&document.selectionModel(), &QItemSelectionModel::selectionChanged, this, &ZLEditMenu::validate);
    connect(qApp, &QApplication::focusChanged, this, &ZLEditMenu::validateClipboardActions);
    validate();
}

void ZLEditMenu::undo()
{
    if (QLineEdit* field = focusedField(); field && field->isUndoAvailable()) {
        field->undo();
        return;
    }
    m_tableView.finishEditing();
    m_document.undoManager().undo();
}

void ZLEditMenu::redo()
{
    if (QLineEdit* field = focusedField(); field && field->isRedoAvailable()) {
        field->redo();
        return;
    }
    m_tableView.finishEditing();
    m_document.undoManager().redo();
}

void ZLEditMenu::validate()
{
    const ZLUndoManager& history = m_document.undoManager();
    const QLineEdit* field = focusedField();
    m_undo->setText(history.canUndo() ? tr("&Undo %1").arg(translated(history.undoActionName())) : tr("&Undo"));
    m_redo->setText(history.canRedo() ? tr("&Redo %1").arg(translated(history.redoActionName())) : tr("&Redo"));
    m_undo->setEnabled(history.canUndo() || (field && field->isUndoAvailable()));
    m_redo->setEnabled(history.canRedo() || (field && field->isRedoAvailable()));
    m_delete->setEnabled(m_document.canDeleteChapter());
    validateClipboardActions();
}

void ZLEditMenu::addClipboardMenu(QMenu& menu)
{
    m_menu->insertMenu(m_paste, &menu);
}

void ZLEditMenu::addUndoActions()
{
    m_undo = ZLActionHelp::addAction(*m_menu, u"undo"_s, tr("&Undo"), QKeySequence(u"Ctrl+Z"_s));
    m_redo = ZLActionHelp::addAction(*m_menu, u"redo"_s, tr("&Redo"), QKeySequence(u"Ctrl+Shift+Z"_s));
    connect(m_undo, &QAction::triggered, this, &ZLEditMenu::undo);
    connect(m_redo, &QAction::triggered, this, &ZLEditMenu::redo);
}

void ZLEditMenu::addClipboardActions()
{
    const auto addFieldAction = [this](
                                    const QString& name, const QString& title, const QKeySequence& key, auto command) {
        QAction* action = ZLActionHelp::addAction(*m_menu, name, title, key);
        connect(action, &QAction::triggered, this, [command] {
            if (QLineEdit* field = focusedField())
                (field->*command)();
        });
        return action;
    };
    m_cut = addFieldAction(u"cut"_s, tr("Cu&t"), QKeySequence(u"Ctrl+X"_s), &QLineEdit::cut);
    m_copy = addFieldAction(u"copy"_s, tr("&Copy"), QKeySequence(u"Ctrl+C"_s), &QLineEdit::copy);
    m_paste = ZLActionHelp::addAction(*m_menu, u"paste"_s, tr("&Paste"), QKeySequence(u"Ctrl+V"_s));
    connect(m_paste, &QAction::triggered, this, &ZLEditMenu::paste);
    m_selectAll = addFieldAction(u"selectAll"_s, tr("Select &All"), QKeySequence(u"Ctrl+A"_s), &QLineEdit::selectAll);
}

void ZLEditMenu::addDeleteAction()
{
    m_delete =
        ZLActionHelp::addAction(*m_menu, u"deleteChapter"_s, tr("&Delete Chapter"), QKeySequence(Qt::Key_Delete));
    // Only in the table itself: elsewhere the key deletes a character or a template.
    m_delete->setShortcutContext(Qt::WidgetShortcut);
    m_tableView.addAction(m_delete);
    connect(m_delete, &QAction::triggered, &m_document, &ZLChapterDocument::deleteButtonPressed);
}

void ZLEditMenu::addImportAction()
{
    const QAction* action = ZLActionHelp::addAction(
        *m_menu, u"importTemplates"_s, tr("&Import Templates from Clipboard"), QKeySequence(u"Ctrl+Shift+V"_s));
    connect(action, &QAction::triggered, this, &ZLEditMenu::importTemplatesRequested);
}

void ZLEditMenu::validateClipboardActions()
{
    const QLineEdit* field = focusedField();
    for (QAction* action : { m_cut, m_copy, m_selectAll })
        action->setEnabled(field != nullptr);
    m_paste->setEnabled(field || hasListForPaste() || m_tableView.hasFocus());
}

void ZLEditMenu::paste()
{
    if (QLineEdit* field = focusedField())
        field->paste();
    else if (hasListForPaste())
        Q_EMIT listPasteRequested();
    else if (m_tableView.hasFocus())
        Q_EMIT chapterPasteRequested();
}

bool ZLEditMenu::hasListForPaste() const
{
    const QWidget* focused = QApplication::focusWidget();
    return m_pasteList && focused && m_pasteList->isAncestorOf(focused);
}
