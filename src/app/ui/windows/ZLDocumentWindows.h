#pragma once

#include "app/ZLDocumentController.h"
#include "app/ZLRunningInstance.h"
#include "app/ui/menus/ZLExports.h"
#include "app/ui/windows/ZLExportDisplay.h"
#include "app/ui/windows/ZLFileOpening.h"
#include "delivery/fit/ZLSoundExcerpt.h"

#include <QHash>
#include <QObject>

class QSessionManager;
class ZLChapterDocumentWindow;
class ZLFileMenu;
class ZLImportDisplay;
class ZLSavePanel;

/// Keeps one window for each open document, with its menus, its closing and what it shows of the saving, and tells the
/// controller which document has the user's attention.
class ZLDocumentWindows : public QObject {
    Q_OBJECT

public:
    /// `controller` has to outlive the windows, and no document may be open yet. `soundMaker` plays what is to be
    /// listened to in a window; without it nothing is heard.
    explicit ZLDocumentWindows(ZLDocumentController& controller, ZLSoundExcerpt::SoundMaker soundMaker = {});
    ~ZLDocumentWindows() override;

    /// Opens what is asked for, or what was open before when that is nothing. What fails is told in a window. Where
    /// none of the files is there, nothing is opened at all, and it returns that, a sentence each.
    QStringList openAtLaunch(const ZLLaunchRequest& request);
    /// Opens what is asked for while the program runs, or comes to the front when that is nothing. Files are read
    /// beside the event loop. `whenOpened` is given what could not be opened, a sentence each, and a window tells it as
    /// well.
    void openLater(const ZLLaunchRequest& request, const ZLFileOpening::WhenOpened& whenOpened);
    void open(const QStringList& paths);
    [[nodiscard]] bool isOpening() const { return m_opening.isUnderWay(); }
    /// Ends the program, unless a clock runs or something cannot be saved: then the windows say so.
    void quit();
    /// Saves at once whatever there is and ends the program, because the system asks for it.
    void quitAtOnce();
    /// Saves whatever there is because the session shall end, which may be called off by others. False while a clock
    /// runs: then the windows say that it has to be stopped first.
    [[nodiscard]] bool prepareForLogOut();

    [[nodiscard]] ZLChapterDocumentWindow* windowOf(ZLChapterDocument* document) const;
    /// The window of `document`, else the front window, else null.
    [[nodiscard]] ZLChapterDocumentWindow* windowToTellIn(ZLChapterDocument* document) const;
    /// As above. Where there is no window any more, what was open opens again, for what went wrong has to be told.
    [[nodiscard]] ZLChapterDocumentWindow& windowToWarnIn(ZLChapterDocument* document);

    /// To be called when one of the program's windows gets the keyboard, and when none has it any more.
    void applicationDidComeOrGo(bool isActive);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void didAddWindow(ZLChapterDocumentWindow* window);
    /// The user asks what program this is.
    void aboutRequested();
    /// The user asks for the keys of all commands, in this window.
    void keysRequested(ZLChapterDocumentWindow* window);

private:
    void addWindow(ZLChapterDocument* document);
    void answerLogOut(QSessionManager& manager);
    ZLFileMenu* addFileMenu(ZLChapterDocumentWindow& window, ZLSavePanel& savePanel);
    ZLImportDisplay& addLists(ZLChapterDocumentWindow& window, const ZLFileMenu& fileMenu);
    void addDelivery(ZLChapterDocumentWindow& window, const ZLFileMenu& fileMenu, ZLImportDisplay& import);
    void removeWindow(ZLChapterDocument* document);
    void quitUnlessWindowsAreOpen();
    void findPlaceFor(ZLChapterDocumentWindow& window) const;
    void bringToFront(ZLChapterDocument* document) const;
    /// Null when no clock runs.
    [[nodiscard]] ZLChapterDocument* recordingDocument() const;
    [[nodiscard]] ZLChapterDocumentWindow* frontWindow() const;
    void showOpened(const QString& path, ZLChapterDocument* document);
    void showProblems(const QStringList& problems);
    void tellWhatHoldsTheLogOut() const;
    void askWhetherToQuitUnsaved(const QStringList& problems);

    ZLDocumentController& m_controller;
    const ZLSoundExcerpt::SoundMaker m_soundMaker;
    const ZLExportMemory m_exportMemory;
    ZLExports m_exports;
    ZLExportDisplay m_exportDisplay;
    ZLExports m_furtherExports;
    ZLExportDisplay m_furtherExportDisplay;
    QHash<ZLChapterDocument*, ZLChapterDocumentWindow*> m_windows;
    ZLFileOpening m_opening { m_controller, *this };
};
