#include "document/ui/menus/ZLRecordingMenu.h"

#include "document/ZLChapterDocument.h"
#include "document/ZLCommandTag.h"
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

void ZLRecordingMenu::validate()
{
    const bool isRecording = m_document.isRecording();
    const bool hasChapters = m_document.tableModel().rowCount() > 0;
    const int row = m_document.selectedRow();
    actionWithTag(ZLCommandTag::ToggleRecording)
        ->setText(isRecording ? tr("Pause &Recording") : tr("Start &Recording"));
    actionWithTag(ZLCommandTag::NewChapter)->setEnabled(m_document.canAddChapter());
    actionWithTag(ZLCommandTag::DeleteSelectedChapter)->setEnabled(m_document.canDeleteChapter());
    actionWithTag(ZLCommandTag::DeleteLastChapter)->setEnabled(hasChapters);
    actionWithTag(ZLCommandTag::SelectPreviousChapter)->setEnabled(row >= 1);
    actionWithTag(ZLCommandTag::SelectNextChapter)->setEnabled(row + 1 < m_document.tableModel().rowCount());
    m_menu->findChild<QAction*>(u"newBlankChapter"_s)->setEnabled(m_document.canAddChapter());
    m_menu->findChild<QAction*>(u"moveChapters"_s)->setEnabled(hasChapters);
    for (QAction* edit : { m_editTitle, m_editLink })
        edit->setEnabled(m_document.canDeleteChapter());
}

void ZLRecordingMenu::addTaggedActions()
{
    const auto addTagged = [this](int tag, const QString& name, const QString& title, const QString& key,
                               void (ZLChapterDocument::*command)()) {
        QAction* action = addAction(name, title, key);
        action->setProperty("tag", tag);
        connect(action, &QAction::triggered, &m_document, command);
    };
    addTagged(ZLCommandTag::ToggleRecording, u"toggleRecording"_s, tr("Start &Recording"), u"Ctrl+R"_s,
        &ZLChapterDocument::recordButtonPressed);
    addTagged(ZLCommandTag::NewChapter, u"newChapter"_s, tr("&New Chapter"), u"Ctrl+Return"_s,
        &ZLChapterDocument::addChapterButtonPressed);
    addTagged(ZLCommandTag::DeleteSelectedChapter, u"deleteSelectedChapter"_s, tr("&Delete Chapter"), u"Ctrl+D"_s,
        &ZLChapterDocument::deleteButtonPressed);
    addTagged(ZLCommandTag::DeleteLastChapter, u"deleteLastChapter"_s, tr("Delete &Last Chapter"),
        u"Ctrl+Shift+Backspace"_s, &ZLChapterDocument::deleteLastChapter);
    addTagged(ZLCommandTag::SelectPreviousChapter, u"selectPreviousChapter"_s, tr("Select &Previous Chapter"),
        u"Ctrl+Up"_s, &ZLChapterDocument::selectLastChapter);
    addTagged(ZLCommandTag::SelectNextChapter, u"selectNextChapter"_s, tr("&Select Next Chapter"), u"Ctrl+Down"_s,
        &ZLChapterDocument::selectNextChapter);
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
