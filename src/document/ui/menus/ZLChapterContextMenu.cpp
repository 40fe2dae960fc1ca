#include "document/ui/menus/ZLChapterContextMenu.h"

#include "document/ZLChapterDocument.h"
#include "document/ui/table/ZLChapterTableView.h"

#include <QClipboard>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

ZLChapterContextMenu::ZLChapterContextMenu(
    ZLChapterDocument& document, ZLChapterTableView& tableView, const QList<QAction*>& commands)
    : QMenu(&tableView)
    , m_document(document)
    , m_tableView(tableView)
{
    setObjectName(u"chapterContextMenu"_s);
    setAccessibleName(tr("Chapter"));
    addActions(commands);
    addSeparator();
    m_openLink = addAction(tr("&Open Link"), this, &ZLChapterContextMenu::openLink);
    m_openLink->setObjectName(u"openLink"_s);
    m_copyLink = addAction(tr("&Copy Link"), this, &ZLChapterContextMenu::copyLink);
    m_copyLink->setObjectName(u"copyLink"_s);
    connect(&tableView, &ZLChapterTableView::contextMenuRequested, this, &ZLChapterContextMenu::showAt);
}

QString ZLChapterContextMenu::selectedLink() const
{
    const ZLChapterPointer chapter = m_document.chapterManager().chapterAtIndex(m_document.selectedRow());
    return chapter ? chapter->link() : QString();
}

void ZLChapterContextMenu::showAt(const QPoint& place)
{
    m_openLink->setEnabled(!ZLChapterTableView::addressOfLink(selectedLink()).isEmpty());
    m_copyLink->setEnabled(!selectedLink().isEmpty());
    popup(place);
}

void ZLChapterContextMenu::openLink()
{
    Q_EMIT m_tableView.linkActivated(ZLChapterTableView::addressOfLink(selectedLink()));
}

void ZLChapterContextMenu::copyLink()
{
    QGuiApplication::clipboard()->setText(selectedLink());
}
