#pragma once

#include "document/ui/ZLWindowStateStore.h"
#include "model/ZLChapter.h"

#include <QMainWindow>
#include <QStringList>

#include <functional>
#include <memory>

class ZLChapterDocument;
class ZLChapterTableView;
class ZLDocumentToolbar;
class ZLDrawerSlide;
class ZLEditMenu;
class ZLMessageBar;
class ZLRecordingMenu;
class ZLStatusLine;
class ZLViewMenu;
class ZLWindowTyping;
struct ZLDocumentChange;

namespace Ui {
class ZLChapterDocument;
}

/// The window of a chapter document: it shows the document's models, forwards clicks and keys to its operations and
/// follows its signals. It makes the menus Edit, Recording and View; its owner may insert others around them.
class ZLChapterDocumentWindow : public QMainWindow {
    Q_OBJECT

public:
    /// `document` has to outlive the window.
    explicit ZLChapterDocumentWindow(ZLChapterDocument& document, QWidget* parent = nullptr,
        const ZLWindowStateStore& stateStore = ZLWindowStateStore());
    ~ZLChapterDocumentWindow() override;

    [[nodiscard]] ZLChapterDocument& document() const { return m_document; }
    [[nodiscard]] ZLChapterTableView& tableView() const;
    [[nodiscard]] ZLDocumentToolbar& toolbar() const;
    [[nodiscard]] ZLStatusLine& statusLine() const;
    [[nodiscard]] ZLMessageBar& messageBar() const;
    [[nodiscard]] ZLEditMenu& editMenu() const { return *m_editMenu; }
    [[nodiscard]] ZLRecordingMenu& recordingMenu() const { return *m_recordingMenu; }
    [[nodiscard]] ZLViewMenu& viewMenu() const { return *m_viewMenu; }

    void toggleDrawer();
    [[nodiscard]] bool isDrawerOpen() const;

    /// Writes what is being typed, in the table or in the drawer; to be called before the document is saved.
    void commitTypedText();

    /// Asked before the window closes; it stays open when the answer is false. While the document records the window
    /// refuses by itself and does not ask.
    void setCloseGuard(std::function<bool()> guard) { m_closeGuard = std::move(guard); }
    void saveWindowState() const;

    /// The toolbar cannot be hidden, so there is no menu for it.
    QMenu* createPopupMenu() override { return nullptr; }

Q_SIGNALS:
    /// The window has been closed by the user and is about to disappear.
    void willClose();
    /// Local files were dropped onto the window; their paths.
    void filesDropped(const QStringList& paths);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void buildDrawer();
    void connectDocument();
    void connectToolbar();
    void connectMenus();
    void connectStatusLine();
    void restoreWindowState();

    void validate();
    void updateClock();
    void updateRecordingState();
    void showChange(const ZLDocumentChange& change);
    void updateAddButton();
    void updateNextTemplate();
    void updateTitle();
    void updateToolTips();
    [[nodiscard]] QString recordHelp() const;
    void updateDrawerItems();

    void openDrawerWithFocus();
    void drawerDidToggle();
    void addBlankChapter();
    void showInvalidTimestampAlert(const ZLChapterPointer& chapter, const QString& text);
    void addEditItems();
    void showMoveChaptersDialog();
    void returnFocusToTable();

    ZLChapterDocument& m_document;
    std::unique_ptr<Ui::ZLChapterDocument> m_ui;
    ZLEditMenu* m_editMenu;
    ZLRecordingMenu* m_recordingMenu;
    ZLViewMenu* m_viewMenu;
    ZLWindowTyping* m_typing;
    ZLDrawerSlide* m_drawerSlide = nullptr;
    ZLWindowStateStore m_stateStore;
    std::function<bool()> m_closeGuard;
};
