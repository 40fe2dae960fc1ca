#include "document/ui/ZLWindowTyping.h"

#include "document/ZLChapterDocument.h"
#include "document/ui/table/ZLChapterTableView.h"

#include <QAbstractItemView>
#include <QLineEdit>

#include <utility>

ZLWindowTyping::ZLWindowTyping(ZLChapterDocument& document, ZLChapterTableView& table, QWidget& drawer, QObject* parent)
    : QObject(parent)
    , m_document(document)
    , m_table(table)
    , m_drawer(drawer)
{
    connect(
        &document.typing(), &ZLTypingRequests::typedTextShouldBeCommitted, this, &ZLWindowTyping::prepareForCommand);
    connect(&document.typing(), &ZLTypingRequests::wantsEditing, this, &ZLWindowTyping::beginEditing);
}

void ZLWindowTyping::commit()
{
    m_table.commitTypedText();
    // A field in the drawer writes its text when the keyboard leaves it.
    if (fieldInDrawer())
        m_table.setFocus();
}

void ZLWindowTyping::prepareForCommand()
{
    m_typedTemplate = nullptr;
    if (!m_document.isCommandFromOutside()) {
        commit();
        return;
    }
    if (!m_table.isEditingTime())
        m_table.commitTypedText();
    rememberTypingIntoFirstTemplate();
}

void ZLWindowTyping::beginEditing(const QModelIndex& index)
{
    const ZLChapterPointer typedTemplate = std::exchange(m_typedTemplate, nullptr);
    if (typedTemplate && m_document.chapterManager().chapterAtIndex(index.row()) == typedTemplate)
        continueTyping(index);
    else if (!m_document.isCommandFromOutside() || !(m_table.isEditingTime() || fieldInDrawer()))
        m_table.beginEditing(index);
}

QLineEdit* ZLWindowTyping::fieldInDrawer() const
{
    auto* field = qobject_cast<QLineEdit*>(m_drawer.window()->focusWidget());
    return field && m_drawer.isAncestorOf(field) ? field : nullptr;
}

void ZLWindowTyping::rememberTypingIntoFirstTemplate()
{
    QLineEdit* field = fieldInDrawer();
    const auto* list = m_drawer.findChild<QAbstractItemView*>();
    const QAbstractItemModel& templates = m_document.templateViewController().tableModel();
    const auto isTypedInto = [&](int column) { return list->indexWidget(templates.index(0, column)) == field; };
    const bool isTitle = field && list && isTypedInto(ZLTemplatesTableModel::TitleColumn);
    if (!isTitle && !(field && list && isTypedInto(ZLTemplatesTableModel::LinkColumn)))
        return;
    // What is there so far goes along if the template becomes a chapter now.
    Q_EMIT list->itemDelegate()->commitData(field);
    m_typedTemplate = m_document.templateViewController().chapterManager().chapterAtIndex(0);
    m_typedColumn = isTitle ? ZLChapterTableModel::TitleColumn : ZLChapterTableModel::LinkColumn;
    m_typedPosition = field->cursorPosition();
}

void ZLWindowTyping::continueTyping(const QModelIndex& index)
{
    m_table.beginEditing(index.siblingAtColumn(m_typedColumn));
    if (QLineEdit* field = m_table.openField())
        field->setCursorPosition(m_typedPosition);
}
