#pragma once

#include <QObject>

class QAction;
class QMenu;
class QMenuBar;
class QWidget;
class ZLChapterDocument;
class ZLChapterTableView;

/// The Edit menu of a document window. Undo, redo and the clipboard commands go to the text field that has the keyboard
/// as long as it has a use for them; otherwise undo and redo go to the document, and Paste goes to the list that
/// has the keyboard.
class ZLEditMenu : public QObject {
    Q_OBJECT

public:
    ZLEditMenu(QMenuBar& menuBar, ZLChapterDocument& document, ZLChapterTableView& tableView);

    [[nodiscard]] QMenu* menu() const { return m_menu; }
    [[nodiscard]] QAction* deleteItem() const { return m_delete; }
    /// Behind the clipboard commands.
    void addClipboardMenu(QMenu& menu);
    /// Where listPasteRequested() follows on Paste while no text field has the keyboard.
    void setPasteList(const QWidget& list) { m_pasteList = &list; }
    void undo();
    void redo();
    /// Brings titles and enabled states up to date.
    void validate();

Q_SIGNALS:
    void importTemplatesRequested();
    void listPasteRequested();
    /// Paste was chosen while the chapter list has the keyboard.
    void chapterPasteRequested();

private:
    void addUndoActions();
    void addClipboardActions();
    void addDeleteAction();
    void addImportAction();
    void paste();
    void validateClipboardActions();
    [[nodiscard]] bool hasListForPaste() const;

    ZLChapterDocument& m_document;
    ZLChapterTableView& m_tableView;
    QMenu* m_menu;
    const QWidget* m_pasteList = nullptr;
    QAction* m_undo = nullptr;
    QAction* m_redo = nullptr;
    QAction* m_cut = nullptr;
    QAction* m_copy = nullptr;
    QAction* m_paste = nullptr;
    QAction* m_selectAll = nullptr;
    QAction* m_delete = nullptr;
};
