#include "app/ui/windows/ZLDocumentWindows.h"

#include "app/ui/menus/ZLCopyAsMenu.h"
#include "app/ui/menus/ZLExportMenu.h"
#include "app/ui/menus/ZLFileMenu.h"
#include "app/ui/menus/ZLHelpMenu.h"
#include "app/ui/menus/ZLWindowMenu.h"
#include "app/ui/saving/ZLConcernDisplay.h"
#include "app/ui/saving/ZLSavePanel.h"
#include "app/ui/saving/ZLSavingDisplay.h"
#include "app/ui/saving/ZLWindowCloser.h"
#include "app/ui/windows/ZLDeliveryDisplay.h"
#include "app/ui/windows/ZLExportAgainDisplay.h"
#include "app/ui/windows/ZLFitDisplay.h"
#include "app/ui/windows/ZLImportDisplay.h"
#include "app/ui/windows/ZLOpeningProblems.h"
#include "document/concerns/ZLConcern.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLMessageBar.h"
#include "document/ui/ZLStatusLine.h"
#include "document/ui/menus/ZLEditMenu.h"
#include "document/ui/menus/ZLViewMenu.h"
#include "export/lists/ZLListExporter.h"
#include "platform/window/ZLWindowInFront.h"
#include "platform/window/ZLWindowPlace.h"

#include <QApplication>
#include <QFileInfo>
#include <QScreen>
#include <QSessionManager>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

bool isThere(const QString& path)
{
    return QFileInfo::exists(path);
}

}

ZLDocumentWindows::ZLDocumentWindows(ZLDocumentController& controller, ZLSoundExcerpt::SoundMaker soundMaker)
    : m_controller(controller)
    , m_soundMaker(std::move(soundMaker))
    , m_exportMemory(controller)
    , m_exports(controller, m_exportMemory, ZLExporter::allExporters())
    , m_exportDisplay(m_exports, *this)
    , m_furtherExports(controller, m_exportMemory, ZLListExporter::allForms())
    , m_furtherExportDisplay(m_furtherExports, *this)
{
    connect(&controller, &ZLDocumentController::didOpenDocument, this, &ZLDocumentWindows::addWindow);
    connect(&controller, &ZLDocumentController::willCloseDocument, this, &ZLDocumentWindows::removeWindow);
    // The manager waits for the answer, which has to be given before this returns.
    connect(qApp, &QGuiApplication::commitDataRequest, this, &ZLDocumentWindows::answerLogOut, Qt::DirectConnection);
    for (const ZLExports* exports : { &m_exports, &m_furtherExports })
        connect(exports, &ZLExports::exportDidEnd, this, &ZLDocumentWindows::quitUnlessWindowsAreOpen,
            Qt::QueuedConnection);
    connect(&m_opening, &ZLFileOpening::didOpen, this, &ZLDocumentWindows::showOpened);
    connect(
        &m_opening, &ZLFileOpening::didEnd, this, &ZLDocumentWindows::quitUnlessWindowsAreOpen, Qt::QueuedConnection);
}

ZLDocumentWindows::~ZLDocumentWindows()
{
    qDeleteAll(m_windows);
}

QStringList ZLDocumentWindows::openAtLaunch(const ZLLaunchRequest& request)
{
    QStringList problems;
    if (request.files.isEmpty()) {
        problems = m_controller.restoreSession();
    } else {
        problems = m_opening.openNow(request.files);
        if (m_windows.isEmpty() && std::ranges::none_of(request.files, &isThere))
            return problems;
        // Nothing that was kept aside waits for a start without files; what is asked for stays in front of it.
        ZLChapterDocument* const asked = m_controller.currentOrLastDocument();
        problems += m_controller.restoreKeptDocuments();
        bringToFront(asked);
    }
    // What could not be opened is said in a window, so there has to be one.
    if (m_windows.isEmpty() || request.wantsNewDocument)
        m_controller.newDocument();
    showProblems(problems);
    return {};
}

void ZLDocumentWindows::openLater(const ZLLaunchRequest& request, const ZLFileOpening::WhenOpened& whenOpened)
{
    m_opening.open(request.files, [this, request, whenOpened](const QStringList& failed) {
        QStringList problems = failed;
        if (request.wantsNewDocument)
            bringToFront(m_controller.newDocument());
        else if (m_windows.isEmpty())
            problems += m_controller.restoreSession();
        else if (request.files.isEmpty())
            bringToFront(m_controller.currentOrLastDocument());
        showProblems(problems);
        whenOpened(problems);
    });
}

void ZLDocumentWindows::open(const QStringList& paths)
{
    m_opening.open(paths, [this](const QStringList& problems) { showProblems(problems); });
}

void ZLDocumentWindows::showOpened(const QString& path, ZLChapterDocument* document)
{
    // What was read from an audio file is untitled.
    const ZLDocumentSaver* saver = m_controller.saverOf(document);
    const QString file = saver->isUntitled() ? QFileInfo(path).absoluteFilePath() : saver->path();
    for (ZLChapterDocumentWindow* window : std::as_const(m_windows))
        ZLOpeningProblems::forget(window->messageBar(), file);
    bringToFront(document);
}

void ZLDocumentWindows::quit()
{
    // Refused without a word: the red line, the button and the clock of the window say already what has to end first.
    if (!m_controller.canTerminate()) {
        bringToFront(recordingDocument());
        return;
    }
    for (ZLChapterDocumentWindow* window : std::as_const(m_windows))
        window->commitTypedText();
    const QStringList problems = m_controller.saveAllNow();
    if (problems.isEmpty())
        quitAtOnce();
    else
        askWhetherToQuitUnsaved(problems);
}

void ZLDocumentWindows::quitAtOnce()
{
    for (ZLChapterDocumentWindow* window : std::as_const(m_windows)) {
        window->commitTypedText();
        window->saveWindowState();
    }
    m_controller.keepSessionAsItIs();
    // The windows go now, so that no bar can tell it.
    const QStringList problems = m_controller.saveAllNow();
    for (const QString& problem : problems)
        std::fprintf(stderr, "%s\n", qUtf8Printable(tr("Cannot save: %1").arg(problem)));
    QCoreApplication::exit();
}

bool ZLDocumentWindows::prepareForLogOut()
{
    for (ZLChapterDocumentWindow* window : std::as_const(m_windows))
        window->commitTypedText();
    m_controller.saveAllNow();
    if (m_controller.canTerminate())
        return true;
    tellWhatHoldsTheLogOut();
    return false;
}

void ZLDocumentWindows::answerLogOut(QSessionManager& manager)
{
    // What is not saved is kept aside and back after the next log-in, so only a running clock is a reason to say no.
    if (prepareForLogOut() || !manager.allowsInteraction())
        return;
    manager.cancel();
    manager.release();
}

ZLChapterDocumentWindow* ZLDocumentWindows::windowOf(ZLChapterDocument* document) const
{
    return m_windows.value(document);
}

bool ZLDocumentWindows::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::WindowActivate) {
        if (auto* window = qobject_cast<ZLChapterDocumentWindow*>(watched); window && windowOf(&window->document()))
            m_controller.setCurrentDocument(&window->document());
    }
    return QObject::eventFilter(watched, event);
}

void ZLDocumentWindows::addWindow(ZLChapterDocument* document)
{
    auto* window = new ZLChapterDocumentWindow(*document);
    if (!m_windows.isEmpty())
        window->viewMenu().showSameTimeAs((*m_windows.cbegin())->viewMenu());
    m_windows.insert(document, window);
    auto* savePanel = new ZLSavePanel(m_controller, *window);
    const ZLFileMenu* fileMenu = addFileMenu(*window, *savePanel);
    const auto* windowMenu = new ZLWindowMenu(m_controller, *window);
    connect(windowMenu, &ZLWindowMenu::windowRequested, this, &ZLDocumentWindows::bringToFront);
    const auto* helpMenu = new ZLHelpMenu(*window);
    connect(helpMenu, &ZLHelpMenu::aboutRequested, this, &ZLDocumentWindows::aboutRequested);
    connect(helpMenu, &ZLHelpMenu::keysRequested, this, [this, window] { Q_EMIT keysRequested(window); });
    new ZLSavingDisplay(*m_controller.saverOf(document), *savePanel, *window);
    new ZLConcernDisplay(*m_controller.saverOf(document), *savePanel, *window);
    new ZLWindowCloser(m_controller, *savePanel, *window);
    addDelivery(*window, *fileMenu, addLists(*window, *fileMenu));
    window->installEventFilter(this);
    findPlaceFor(*window);
    window->show();
    Q_EMIT didAddWindow(window);
}

ZLFileMenu* ZLDocumentWindows::addFileMenu(ZLChapterDocumentWindow& window, ZLSavePanel& savePanel)
{
    const QList<ZLExportMenu*> exportMenus { new ZLExportMenu(m_exports, &window),
        ZLExportMenu::ofFurtherFormats(m_furtherExports, &window) };
    auto* menu = new ZLFileMenu(m_controller, savePanel, exportMenus, window);
    connect(menu, &ZLFileMenu::newDocumentRequested, &m_controller, &ZLDocumentController::newDocument);
    connect(menu, &ZLFileMenu::openRequested, this, &ZLDocumentWindows::open);
    connect(menu, &ZLFileMenu::quitRequested, this, &ZLDocumentWindows::quit);
    return menu;
}

ZLImportDisplay& ZLDocumentWindows::addLists(ZLChapterDocumentWindow& window, const ZLFileMenu& fileMenu)
{
    window.editMenu().addClipboardMenu(*new ZLCopyAsMenu(window));
    auto* again = new ZLExportAgainDisplay(m_exportMemory, window);
    connect(&fileMenu, &ZLFileMenu::exportAgainRequested, again, &ZLExportAgainDisplay::exportAgain);
    auto* import = new ZLImportDisplay(window);
    connect(&fileMenu, &ZLFileMenu::importRequested, import, &ZLImportDisplay::chooseFile);
    connect(import, &ZLImportDisplay::openRequested, this, &ZLDocumentWindows::open);
    return *import;
}

void ZLDocumentWindows::addDelivery(
    ZLChapterDocumentWindow& window, const ZLFileMenu& fileMenu, ZLImportDisplay& import)
{
    auto* delivery = new ZLDeliveryDisplay(m_controller, window);
    connect(&fileMenu, &ZLFileMenu::writeChaptersRequested, delivery, &ZLDeliveryDisplay::show);
    auto* fit = new ZLFitDisplay(m_controller, window, m_soundMaker);
    connect(&fileMenu, &ZLFileMenu::fitRequested, fit, &ZLFitDisplay::show);
    connect(fit, &ZLFitDisplay::writingRequested, delivery, &ZLDeliveryDisplay::showFor);
    connect(fit, &ZLFitDisplay::documentOpened, this, &ZLDocumentWindows::bringToFront);
    // Audio files are written into, lists are imported, and what is neither is opened.
    connect(&window, &ZLChapterDocumentWindow::filesDropped, delivery, &ZLDeliveryDisplay::takeDroppedFiles);
    connect(delivery, &ZLDeliveryDisplay::openRequested, &import, &ZLImportDisplay::takeDroppedFiles);
}

void ZLDocumentWindows::removeWindow(ZLChapterDocument* document)
{
    ZLChapterDocumentWindow* window = m_windows.take(document);
    if (!window)
        return;
    window->hide();
    // It may be in the middle of its closing, and it must be gone before its document is.
    window->deleteLater();
    if (m_windows.isEmpty())
        QMetaObject::invokeMethod(this, &ZLDocumentWindows::quitUnlessWindowsAreOpen, Qt::QueuedConnection);
}

void ZLDocumentWindows::quitUnlessWindowsAreOpen()
{
    // A document that takes the place of the last one opens its window in the meantime, or will when it is read. An
    // export goes on alone.
    const bool isExporting = m_exports.isExporting() || m_furtherExports.isExporting();
    if (m_windows.isEmpty() && !isExporting && !isOpening())
        quitAtOnce();
}

void ZLDocumentWindows::findPlaceFor(ZLChapterDocumentWindow& window) const
{
    if (window.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen))
        return;
    QList<QPoint> taken;
    for (const auto* other : m_windows) {
        if (other != &window && other->isVisible())
            taken.append(other->pos());
    }
    const QWidget* front = frontWindow();
    const QRect screen = (taken.isEmpty() ? window.screen() : front->screen())->availableGeometry();
    if (!taken.isEmpty()) {
        const QRect place = ZLWindowPlace::cascaded(front->pos(), window.size(), window.minimumSize(), taken, screen);
        window.resize(place.size());
        window.move(place.topLeft());
        return;
    }
    const QRect contents = ZLWindowPlace::returned(window.geometry(), screen);
    // The window manager knows best where a first window goes that never stood anywhere.
    if (window.testAttribute(Qt::WA_Moved))
        window.setGeometry(contents);
    else
        window.resize(contents.size());
}

void ZLDocumentWindows::bringToFront(ZLChapterDocument* document) const
{
    if (const ZLChapterDocumentWindow* window = windowOf(document))
        ZLWindowInFront::bring(*window->windowHandle());
}

ZLChapterDocument* ZLDocumentWindows::recordingDocument() const
{
    QList<ZLChapterDocument*> candidates = m_controller.documents();
    // The one that the user has in view comes first.
    candidates.prepend(m_controller.currentDocument());
    const auto recording = std::find_if(candidates.cbegin(), candidates.cend(),
        [](const ZLChapterDocument* document) { return document && document->isRecording(); });
    return recording == candidates.cend() ? nullptr : *recording;
}

ZLChapterDocumentWindow* ZLDocumentWindows::frontWindow() const
{
    return windowOf(m_controller.currentOrLastDocument());
}

ZLChapterDocumentWindow* ZLDocumentWindows::windowToTellIn(ZLChapterDocument* document) const
{
    ZLChapterDocumentWindow* window = windowOf(document);
    return window ? window : frontWindow();
}

ZLChapterDocumentWindow& ZLDocumentWindows::windowToWarnIn(ZLChapterDocument* document)
{
    if (m_windows.isEmpty())
        showProblems(m_controller.restoreSession());
    return *windowToTellIn(document);
}

void ZLDocumentWindows::showProblems(const QStringList& problems)
{
    if (!problems.isEmpty())
        ZLOpeningProblems::tell(windowToWarnIn(nullptr).messageBar(), problems);
}

void ZLDocumentWindows::tellWhatHoldsTheLogOut() const
{
    const auto documents = m_controller.documents();
    for (ZLChapterDocument* document : documents) {
        if (document->isRecording())
            windowOf(document)->statusLine().showPassingMessage(tr("Pause the recording before quitting."));
    }
}

void ZLDocumentWindows::askWhetherToQuitUnsaved(const QStringList& problems)
{
    const QString name = u"quittingUnsaved"_s;
    if (ZLChapterDocumentWindow* window = frontWindow()) {
        window->messageBar().showMessage(name, tr("Not everything could be saved: %1").arg(problems.join(u' ')),
            { { tr("Quit Anyway"), [this] { quitAtOnce(); } }, { tr("Cancel"), [] {} } },
            { ZLConcernName::SavingFailure }, ZLMessageBar::Kind::Error);
        window->messageBar().takeKeyboardFor(name);
    }
}

void ZLDocumentWindows::applicationDidComeOrGo(bool isActive)
{
    // While another program is in front there is no current document.
    if (!isActive)
        m_controller.setCurrentDocument(nullptr);
    else if (auto* window = qobject_cast<ZLChapterDocumentWindow*>(QApplication::activeWindow()))
        m_controller.setCurrentDocument(&window->document());
}
