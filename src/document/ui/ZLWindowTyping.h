#pragma once

#include "model/ZLChapterManager.h"

#include <QModelIndex>
#include <QObject>

class QLineEdit;
class ZLChapterDocument;
class ZLChapterTableView;

/// What is being typed in a document window, in the table or in the drawer, and what becomes of it when a command
/// comes. A command of the window's own writes it. One from outside leaves alone what is not finished: a time,
/// which might not be one yet, and the text of a template.
class ZLWindowTyping : public QObject {
    Q_OBJECT

public:
    /// All have to outlive the object. It answers the document's signals by itself.
    ZLWindowTyping(ZLChapterDocument& document, ZLChapterTableView& table, QWidget& drawer, QObject* parent);

    /// Writes everything.
    void commit();

private:
    void prepareForCommand();
    void beginEditing(const QModelIndex& index);
    /// The field that is open for typing in the drawer, or null.
    [[nodiscard]] QLineEdit* fieldInDrawer() const;
    void rememberTypingIntoFirstTemplate();
    /// Lets who types into a template that has become the chapter at `index` go on there.
    void continueTyping(const QModelIndex& index);

    ZLChapterDocument& m_document;
    ZLChapterTableView& m_table;
    QWidget& m_drawer;
    /// Null unless the first template was being typed when the command came.
    ZLChapterPointer m_typedTemplate;
    int m_typedColumn = 0;
    int m_typedPosition = 0;
};
