#include "document/ui/menus/ZLRecordingMenu.h"

#include "commands/ZLRemoteActions.h"
#include "document/ZLChapterDocument.h"
#include "document/ui/menus/ZLActionHelp.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

using namespace Qt::StringLiterals;

namespace {

constexpr int recordingMenuTag = 2;

}

ZLRecordingMenu::ZLRecordingMenu(QMenuBar& menuBar, ZLChapterDocument& document)
    : QObject(&menuBar)
    , m_document(document)
    , m_menu(menuBar.addMenu(tr("&Recording")))
{
    m_menu->setObjectName(u"recordingMenu"_s);
    m_menu->menuAction()->setProperty("tag", recordingMenuTag);
    m_menu->setToolTipsVisible(true);
    addTaggedActions();
    m_menu->addSeparator();
    addOtherActions();
    validate();
}

QAction* ZLRecordingMenu::actionWithTag(int tag) const
{
    const auto actions = m_menu->actions();
    for (QAction* action : actions) {
        if (tag > 0 && action->property("tag").toInt() == tag)
            return action;
    }
    return nullptr;
}

QAction* ZLRecordingMenu::itemOf(const QString& action) const
{
    return actionWithTag(ZLRemoteActions::withIdentifier(action)->menuTag());
}

void ZLRecordingMenu::validate()
{
    for (const ZLRemoteAction& action : ZLRemoteActions::all())
        actionWithTag(action.menuTag())->setEnabled(action.isPossible(m_document));
    const ZLRemoteAction& toggle = *ZLRemoteActions::withIdentifier(ZLControllerToggleRecordingAction);
    itemOf(toggle.identifier)->setText(m_document.isRecording() ? tr("Pause &Recording") : toggle.menuTitle());
    const bool hasChapters = m_document.tableModel().rowCount() > 0;
    m_menu->findChild<QAction*>(u"newBlankChapter"_s)->setEnabled(m_document.canAddChapter());
    m_menu->findChild<QAction*>(u"moveChapters"_s)->setEnabled(hasChapters);
    for (QAction* edit : { m_editTitle, m_editLink })
        edit->setEnabled(m_document.canDeleteChapter());
}

void ZLRecordingMenu::addTaggedActions()
{
    for (const ZLRemoteAction& row : ZLRemoteActions::all()) {
        QAction* action = addAction(row.menuName, row.menuTitle(), row.menuKey);
        action->setProperty("tag", row.menuTag());
        connect(action, &QAction::triggered, &m_document, row.operation);
    }
}

void ZLRecordingMenu::addOtherActions()
{
    const QAction* blank = addAction(u"newBlankChapter"_s, tr("New &Blank Chapter"), u"Ctrl+Shift+Return"_s);
    connect(blank, &QAction::triggered, this, &ZLRecordingMenu::blankChapterRequested);
    const QAction* move = addAction(u"moveChapters"_s, tr("&Move Chapters…"), u"Ctrl+M"_s);
    connect(move, &QAction::triggered, this, &ZLRecordingMenu::moveChaptersRequested);
    m_menu->addSeparator();
    m_editTitle = addAction(u"editTitle"_s, tr("Edit &Title"), u"F2"_s);
    connect(m_editTitle, &QAction::triggered, this, &ZLRecordingMenu::editTitleRequested);
    m_editLink = addAction(u"editLink"_s, tr("Edit Lin&k"), u"Shift+F2"_s);
    connect(m_editLink, &QAction::triggered, this, &ZLRecordingMenu::editLinkRequested);
}

QAction* ZLRecordingMenu::addAction(const QString& name, const QString& title, const QString& key)
{
    QAction* action = ZLActionHelp::addAction(*m_menu, name, title, QKeySequence(key));
    // A held key must not fill the list with chapters.
    action->setAutoRepeat(false);
    return action;
}
