#include "app/ui/menus/ZLFileMenu.h"

#include "app/ui/menus/ZLExportMenu.h"
#include "app/ui/menus/ZLRevertMenu.h"
#include "app/ui/saving/ZLSavePanel.h"
#include "delivery/ZLMediaImport.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLMessageBar.h"
#include "document/ui/menus/ZLActionHelp.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>

using namespace Qt::StringLiterals;

ZLFileMenu::ZLFileMenu(ZLDocumentController& controller, ZLSavePanel& savePanel,
    const QList<ZLExportMenu*>& exportMenus, ZLChapterDocumentWindow& window)
    : QObject(&window)
    , m_controller(controller)
    , m_savePanel(savePanel)
    , m_window(window)
    , m_menu(new QMenu(tr("&File"), &window))
{
    m_menu->setObjectName(u"fileMenu"_s);
    m_menu->setToolTipsVisible(true);
    window.menuBar()->insertMenu(window.menuBar()->actions().value(0), m_menu);
    addOpeningActions();
    m_menu->addSeparator();
    addSavingActions();
    m_menu->addSeparator();
    addExportActions(exportMenus);
    addFinishedFileActions();
    m_menu->addSeparator();
    addClosingActions();
    connect(m_menu, &QMenu::aboutToShow, this, &ZLFileMenu::validate);
    connect(&window.document(), &ZLChapterDocument::changed, this, [this](const ZLDocumentChange& change) {
        if (change.concerns(ZLDocumentChange::Recording))
            validate();
    });
}

void ZLFileMenu::addOpeningActions()
{
    connect(ZLActionHelp::addAction(*m_menu, u"newDocument"_s, tr("&New"), QKeySequence::New), &QAction::triggered,
        this, &ZLFileMenu::newDocumentRequested);
    connect(ZLActionHelp::addAction(*m_menu, u"openDocument"_s, tr("&Open…"), QKeySequence::Open), &QAction::triggered,
        this, &ZLFileMenu::chooseFilesToOpen);
    m_recentMenu = m_menu->addMenu(tr("Open &Recent"));
    m_recentMenu->setObjectName(u"recentMenu"_s);
    m_recentMenu->setToolTipsVisible(true);
    connect(m_recentMenu, &QMenu::aboutToShow, this, &ZLFileMenu::fillRecentMenu);
    fillRecentMenu();
}

void ZLFileMenu::addSavingActions()
{
    connect(ZLActionHelp::addAction(*m_menu, u"save"_s, tr("&Save"), QKeySequence::Save), &QAction::triggered,
        &m_savePanel, &ZLSavePanel::save);
    connect(ZLActionHelp::addAction(*m_menu, u"saveAs"_s, tr("Save &As…"), QKeySequence(u"Ctrl+Shift+S"_s)),
        &QAction::triggered, &m_savePanel, [this] { m_savePanel.saveAs(); });
    m_revertAction = ZLActionHelp::addAction(*m_menu, u"revert"_s, tr("Re&vert to Last Saved"), {});
    connect(m_revertAction, &QAction::triggered, this, &ZLFileMenu::revert);
    m_revertMenu = new ZLRevertMenu(m_controller, m_window, m_menu);
    m_menu->addMenu(m_revertMenu);
}

void ZLFileMenu::addExportActions(const QList<ZLExportMenu*>& exportMenus)
{
    connect(
        ZLActionHelp::addAction(*m_menu, u"importChapters"_s, tr("&Import Chapters…"), QKeySequence(u"Ctrl+Shift+I"_s)),
        &QAction::triggered, this, &ZLFileMenu::importRequested);
    for (ZLExportMenu* exportMenu : exportMenus)
        m_menu->addMenu(exportMenu);
    connect(ZLActionHelp::addAction(*m_menu, u"exportAgain"_s, tr("Export A&gain"), QKeySequence(u"Ctrl+Alt+E"_s)),
        &QAction::triggered, this, &ZLFileMenu::exportAgainRequested);
}

void ZLFileMenu::addFinishedFileActions()
{
    connect(ZLActionHelp::addAction(
                *m_menu, u"fitToFinishedFile"_s, tr("Fit to &Finished File…"), QKeySequence(u"Ctrl+Shift+F"_s)),
        &QAction::triggered, this, &ZLFileMenu::fitRequested);
    connect(ZLActionHelp::addAction(*m_menu, u"writeChaptersIntoAudio"_s, tr("&Write Chapters into Audio File…"),
                QKeySequence(u"Ctrl+Shift+E"_s)),
        &QAction::triggered, this, &ZLFileMenu::writeChaptersRequested);
}

void ZLFileMenu::addClosingActions()
{
    connect(ZLActionHelp::addAction(*m_menu, u"close"_s, tr("&Close"), QKeySequence(u"Ctrl+W"_s)), &QAction::triggered,
        &m_window, &QWidget::close);
    connect(ZLActionHelp::addAction(*m_menu, u"quit"_s, tr("&Quit"), QKeySequence(u"Ctrl+Q"_s)), &QAction::triggered,
        this, &ZLFileMenu::quitRequested);
}

void ZLFileMenu::chooseFilesToOpen()
{
    auto* dialog = new QFileDialog(&m_window, tr("Open Chapters"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(u"openPanel"_s);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    dialog->setNameFilters({ tr("Chapter documents (*.%1)").arg(ZLDocumentFile::Extension),
        tr("Audio files (%1)").arg(ZLMediaImport::NamePatterns), tr("All files (*)") });
    connect(dialog, &QFileDialog::filesSelected, this, &ZLFileMenu::openRequested);
    dialog->open();
}

void ZLFileMenu::fillRecentMenu()
{
    m_recentMenu->clear();
    const QStringList paths = m_controller.recentDocuments().paths();
    for (const QString& path : paths) {
        QAction* action = m_recentMenu->addAction(QFileInfo(path).fileName().replace(u'&', u"&&"_s));
        action->setObjectName(u"openRecent%1"_s.arg(paths.indexOf(path) + 1));
        action->setToolTip(path);
        connect(action, &QAction::triggered, this, [this, path] { Q_EMIT openRequested({ path }); });
    }
    m_recentMenu->addSeparator();
    QAction* clear = m_recentMenu->addAction(tr("&Clear This List"));
    clear->setObjectName(u"clearRecent"_s);
    clear->setEnabled(!paths.isEmpty());
    connect(clear, &QAction::triggered, &m_controller.recentDocuments(), &ZLRecentDocuments::clear);
}

void ZLFileMenu::revert()
{
    m_window.commitTypedText();
    ZLDocumentSaver* saver = m_controller.saverOf(&m_window.document());
    if (!saver)
        return;
    if (const ZLStatus reverted = saver->revert(); !reverted)
        m_window.messageBar().showMessage(
            u"revertFailure"_s, reverted.error().message, { { tr("Dismiss"), [] { } } }, {}, ZLMessageBar::Kind::Error);
    else
        m_window.messageBar().hideMessage(u"revertFailure"_s);
}

void ZLFileMenu::validate()
{
    ZLDocumentSaver* saver = m_controller.saverOf(&m_window.document());
    m_revertAction->setEnabled(saver && saver->canRevert());
    m_revertMenu->menuAction()->setEnabled(!m_window.document().isRecording());
}
