#include "document/ui/menus/ZLChapterEditItems.h"

#include "document/ZLChapterDocument.h"
#include "document/ZLChapterInsertion.h"
#include "document/ZLTitleTidying.h"
#include "document/ui/menus/ZLActionHelp.h"
#include "document/ui/menus/ZLInsertChapterDialog.h"

#include <QAction>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

constexpr double smallStep = 0.1;
constexpr double greatStep = 1.0;

}

ZLChapterEditItems::ZLChapterEditItems(QMenu& menu, ZLChapterDocument& document, QWidget& window)
    : QObject(&window)
    , m_document(document)
    , m_window(window)
    , m_nudge(document)
{
    menu.addSeparator();
    addItem(
        menu, u"insertChapter"_s, tr("I&nsert Chapter…"), QKeySequence(u"Ctrl+I"_s), [this] { showInsertDialog(); });
    addMoveItems(menu);
    addItem(menu, u"tidyTitles"_s, tr("Tid&y Titles"), QKeySequence(u"Ctrl+Shift+T"_s), [this] { tidyTitles(); });
    connect(&document.selectionModel(), &QItemSelectionModel::selectionChanged, this, &ZLChapterEditItems::validate);
    connect(&document.tableModel(), &QAbstractItemModel::rowsRemoved, this, &ZLChapterEditItems::validate);
    connect(&document.tableModel(), &QAbstractItemModel::modelReset, this, &ZLChapterEditItems::validate);
    validate();
}

QAction* ZLChapterEditItems::addItem(QMenu& menu, const QString& name, const QString& title, const QKeySequence& key,
    const std::function<void()>& command)
{
    QAction* item = ZLActionHelp::addAction(menu, name, title, key);
    connect(item, &QAction::triggered, this, command);
    return item;
}

void ZLChapterEditItems::addMoveItems(QMenu& menu)
{
    m_moveMenu = menu.addMenu(tr("&Move Selected Chapter"));
    m_moveMenu->setObjectName(u"moveChapterMenu"_s);
    m_moveMenu->setToolTipsVisible(true);
    const auto addMove = [this](const QString& name, const QString& title, const QString& key, double seconds) {
        addItem(*m_moveMenu, name, title, QKeySequence(key),
            [this, seconds] { m_nudge.moveSelectedChapterBySeconds(seconds); });
    };
    addMove(u"moveEarlier"_s, tr("0.1 s &Earlier"), u"Alt+Left"_s, -smallStep);
    addMove(u"moveLater"_s, tr("0.1 s &Later"), u"Alt+Right"_s, smallStep);
    addMove(u"moveMuchEarlier"_s, tr("1 s E&arlier"), u"Alt+Shift+Left"_s, -greatStep);
    addMove(u"moveMuchLater"_s, tr("1 s La&ter"), u"Alt+Shift+Right"_s, greatStep);
}

void ZLChapterEditItems::validate()
{
    const bool hasSelection = m_document.selectedRow() >= 0;
    m_moveMenu->setEnabled(hasSelection);
    const auto items = m_moveMenu->actions();
    for (QAction* item : items)
        item->setEnabled(hasSelection);
}

void ZLChapterEditItems::showInsertDialog()
{
    Q_EMIT typedTextShouldBeCommitted();
    auto* dialog = new ZLInsertChapterDialog(ZLChapterInsertion::proposedTime(m_document), &m_window);
    connect(dialog, &QDialog::finished, this, &ZLChapterEditItems::dialogDidClose);
    connect(dialog, &QDialog::accepted, this, [this, dialog] {
        if (const auto time = dialog->time())
            insertChapterAt(*time);
    });
    dialog->open();
}

void ZLChapterEditItems::insertChapterAt(double seconds)
{
    ZLChapterInsertion::insertBlankChapterAt(m_document, seconds);
    // The window gets the keyboard back from the dialog only after this, and the title is wanted all the same.
    QMetaObject::invokeMethod(&m_document, &ZLChapterDocument::editCurrentTitle, Qt::QueuedConnection);
}

void ZLChapterEditItems::tidyTitles()
{
    Q_EMIT typedTextShouldBeCommitted();
    const qsizetype count = ZLTitleTidying::tidy(m_document);
    if (count == 0)
        Q_EMIT hasNews(tr("All titles are tidy."));
    else if (count == 1)
        Q_EMIT hasNews(tr("1 chapter tidied"));
    else
        Q_EMIT hasNews(tr("%1 chapters tidied").arg(count));
}
