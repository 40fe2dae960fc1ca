#include "app/ui/ZLDocumentWindows.h"

#include "app/ui/ZLFileMenu.h"
#include "app/ui/ZLHelpMenu.h"
#include "app/ui/ZLReadOnlyDisplay.h"
#include "app/ui/ZLSavePanel.h"
#include "app/ui/ZLSavingDisplay.h"
#include "app/ui/ZLSleepDisplay.h"
#include "app/ui/ZLWindowCloser.h"
#include "app/ui/ZLWindowMenu.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLMessageBar.h"
#include "document/ui/ZLStatusLine.h"
#include "document/ui/menus/ZLViewMenu.h"
#include "platform/filemanager/ZLFileManager.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QScreen>
#include <QSessionManager>
#include <QUrl>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr QPoint offsetBetweenWindows(32, 32);
constexpr QSize leastVisibleSize(320, 200);
const QString openingProblemsName = QStringLiteral("openingProblems");

bool isThere(const QString& path)
{
    return QFileInfo::exists(path);
}

void openFolder(const QString& folder)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
}

}

ZLDocumentWindows::ZLDocumentWindows(ZLDocumentController& controller)
    : m_controller(controller)
    , m_exportMenu(controller)
{
    connect(&controller, &ZLDocumentController::didOpenDocument, this, &ZLDocumentWindows::addWindow);
    connect(&controller, &ZLDocumentController::willCloseDocument, this, &ZLDocumentWindows::removeWindow);
    connect(qApp, &QGuiApplication::applicationStateChanged, this, &ZLDocumentWindows::noteApplicationState);
    // The manager waits for the answer, which has to be given before this returns.
    connect(qApp, &QGuiApplication::commitDataRequest, this, &ZLDocumentWindows::answerLogOut, Qt::DirectConnection);
    connect(&m_exportMenu, &ZLExportMenu::exportDidFinish, this, &ZLDocumentWindows::showExportedFile);
    connect(&m_exportMenu, &ZLExportMenu::exportDidInsertNothing, this, &ZLDocumentWindows::showThatNothingWasInserted);
    connect(&m_exportMenu, &ZLExportMenu::exportDidFail, this, &ZLDocumentWindows::showExportFailure);
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
        problems = openFiles(request.files);
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

QStringList ZLDocumentWindows::openLater(const ZLLaunchRequest& request)
{
    const QStringList problems = openFiles(request.files);
    showProblems(problems);
    if (request.wantsNewDocument)
        bringToFront(m_controller.newDocument());
    else if (request.files.isEmpty())
        bringToFront(m_controller.currentOrLastDocument());
    return problems;
}

void ZLDocumentWindows::open(const QStringList& paths)
{
    showProblems(openFiles(paths));
}

QStringList ZLDocumentWindows::openFiles(const QStringList& paths)
{
    QStringList problems;
    for (const QString& path : paths) {
        const auto opened = m_controller.openDocument(path);
        if (opened)
            bringToFront(opened.value());
        else
            problems += opened.error().message;
    }
    return problems;
}

void ZLDocumentWindows::quit()
{
    // Refused without a word: the red line, the button and the clock of the window say already what has to end first.
    if (!m_controller.canTerminate())
        return;
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
    connectFileMenu(*window, *savePanel);
    const auto* windowMenu = new ZLWindowMenu(m_controller, *window);
    connect(windowMenu, &ZLWindowMenu::windowRequested, this, &ZLDocumentWindows::bringToFront);
    const auto* helpMenu = new ZLHelpMenu(*window);
    connect(helpMenu, &ZLHelpMenu::aboutRequested, this, &ZLDocumentWindows::aboutRequested);
    connect(helpMenu, &ZLHelpMenu::keysRequested, this, [this, window] { Q_EMIT keysRequested(window); });
    new ZLSavingDisplay(*m_controller.saverOf(document), *savePanel, *window);
    new ZLReadOnlyDisplay(*m_controller.saverOf(document), *savePanel, *window);
    new ZLSleepDisplay(*window);
    new ZLWindowCloser(m_controller, *savePanel, *window);
    connect(window, &ZLChapterDocumentWindow::filesDropped, this, &ZLDocumentWindows::open);
    window->installEventFilter(this);
    keepApart(*window);
    window->show();
}

void ZLDocumentWindows::connectFileMenu(ZLChapterDocumentWindow& window, ZLSavePanel& savePanel)
{
    const auto* menu = new ZLFileMenu(m_controller, savePanel, m_exportMenu, window);
    connect(menu, &ZLFileMenu::newDocumentRequested, &m_controller, &ZLDocumentController::newDocument);
    connect(menu, &ZLFileMenu::openRequested, this, &ZLDocumentWindows::open);
    connect(menu, &ZLFileMenu::quitRequested, this, &ZLDocumentWindows::quit);
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
    // A document that takes the place of the last one opens its window in the meantime.
    if (m_windows.isEmpty())
        quitAtOnce();
}

void ZLDocumentWindows::keepApart(ZLChapterDocumentWindow& window) const
{
    const auto isTaken = [this, &window](QPoint place) {
        return std::any_of(m_windows.cbegin(), m_windows.cend(),
            [&](const auto* other) { return other != &window && other->isVisible() && other->pos() == place; });
    };
    const QRect screen = window.screen()->availableGeometry();
    QPoint place = window.pos();
    int rows = 0;
    for (qsizetype tries = 0; tries < 2 * m_windows.size() && isTaken(place); ++tries) {
        place += offsetBetweenWindows;
        // A row of windows that reaches the edge of the screen goes on beside its beginning.
        if (!screen.contains(QRect(place, leastVisibleSize)))
            place = screen.topLeft() + QPoint(++rows * offsetBetweenWindows.x(), 0);
    }
    if (place != window.pos())
        window.move(place);
}

void ZLDocumentWindows::bringToFront(ZLChapterDocument* document) const
{
    if (ZLChapterDocumentWindow* window = windowOf(document)) {
        window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
        window->raise();
        window->activateWindow();
    }
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

void ZLDocumentWindows::showProblems(const QStringList& problems) const
{
    ZLChapterDocumentWindow* window = frontWindow();
    if (problems.isEmpty() || !window)
        return;
    // Several files may come one after the other, and each failure is to be seen.
    QStringList lines = window->messageBar().text(openingProblemsName).split(u'\n', Qt::SkipEmptyParts) + problems;
    lines.removeDuplicates();
    window->messageBar().showMessage(openingProblemsName, lines.join(u'\n'), { { tr("Dismiss"), [] {} } });
}

void ZLDocumentWindows::tellWhatHoldsTheLogOut() const
{
    const auto documents = m_controller.documents();
    for (ZLChapterDocument* document : documents) {
        if (document->isRecording())
            windowOf(document)->statusLine().showPassingMessage(tr("Stop the recording before quitting."));
    }
}

void ZLDocumentWindows::askWhetherToQuitUnsaved(const QStringList& problems)
{
    if (ZLChapterDocumentWindow* window = frontWindow())
        window->messageBar().showMessage(u"quittingUnsaved"_s,
            tr("Not everything could be saved: %1").arg(problems.join(u' ')),
            { { tr("Quit Anyway"), [this] { quitAtOnce(); } }, { tr("Cancel"), [] {} } },
            { ZLSavingDisplay::failureMessageName() });
}

void ZLDocumentWindows::noteApplicationState(Qt::ApplicationState state)
{
    // While another program is in front there is no current document.
    if (state != Qt::ApplicationActive)
        m_controller.setCurrentDocument(nullptr);
    else if (auto* window = qobject_cast<ZLChapterDocumentWindow*>(QApplication::activeWindow()))
        m_controller.setCurrentDocument(&window->document());
}

void ZLDocumentWindows::showExportedFile(ZLChapterDocument* document, const QString& path) const
{
    if (ZLChapterDocumentWindow* window = windowToTellIn(document))
        window->statusLine().showPassingMessage(tr("Exported %1.").arg(QFileInfo(path).fileName()),
            tr("Show in Folder"), [path] { ZLFileManager::showFile(path, openFolder); });
}

void ZLDocumentWindows::showThatNothingWasInserted(
    ZLChapterDocument* document, const QString& path, const QString& reason) const
{
    if (ZLChapterDocumentWindow* window = windowToTellIn(document))
        window->messageBar().showMessage(u"exportFailure"_s,
            tr("No chapters were inserted into “%1”. %2").arg(QFileInfo(path).fileName(), reason),
            { { tr("Dismiss"), [] {} } });
}

void ZLDocumentWindows::showExportFailure(ZLChapterDocument* document, const QString& message) const
{
    if (ZLChapterDocumentWindow* window = windowToTellIn(document))
        window->messageBar().showMessage(
            u"exportFailure"_s, tr("The export failed. %1").arg(message), { { tr("Dismiss"), [] {} } });
}
