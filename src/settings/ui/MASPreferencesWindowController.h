#pragma once

#include "settings/ui/MASPreferencesViewController.h"
#include "settings/ui/MASWindowGlide.h"

#include <QHash>
#include <QMainWindow>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

class QActionGroup;
class QToolBar;
class MASPreferencesStage;

/// A window with a toolbar, each item of which shows one pane. It knows nothing of what the panes set. It remembers the
/// pane on show, its own place and the size of each pane in the user's settings.
class MASPreferencesWindowController : public QObject {
    Q_OBJECT

public:
    /// A null pointer stands for a gap in the toolbar.
    using Panes = std::vector<std::unique_ptr<MASPreferencesViewController>>;

    /// Nothing is loaded until the window is asked for. Without a title the window is called like the pane on show.
    explicit MASPreferencesWindowController(Panes viewControllers, const QString& title = {});
    ~MASPreferencesWindowController() override;

    /// How long the window takes from the size of one pane to that of another; none where nothing is to move.
    using AnimationDuration = std::function<std::chrono::milliseconds()>;
    /// Asked at every change of the pane; the style's duration unless set.
    void setAnimationDuration(AnimationDuration duration) { m_animationDuration = std::move(duration); }
    [[nodiscard]] static std::chrono::milliseconds styleAnimationDuration();

    /// Appends the pane, or a gap, and its toolbar item.
    void addViewController(std::unique_ptr<MASPreferencesViewController> viewController);

    /// Loads the window at the first call.
    QMainWindow& window();
    /// Brings the window to the front and gives it the keyboard. Its pane is filled anew when it was closed.
    void showWindow();

    /// Gaps count. An index at or beyond the count and the index of a gap change nothing.
    void selectControllerAtIndex(qsizetype index);
    /// -1 while no pane is on show.
    [[nodiscard]] qsizetype indexOfSelectedController() const;
    [[nodiscard]] MASPreferencesViewController* selectedViewController() const { return m_selected; }
    /// To the next pane, and from the last one to the first.
    void goNextTab();
    void goPreviousTab();

    /// Lets the pane on show take over what is being typed; true when there is none.
    [[nodiscard]] bool commitEditing();

    /// Closes the window only if the pane on show can take over what is being typed; remembers its moves.
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// @name Keys of what is remembered; the last one with an identifier in place of %1.
    /// @{
    inline static const QString selectedPaneKey = QStringLiteral("MASPreferences Selected Identifier View");
    inline static const QString topLeftKey = QStringLiteral("MASPreferences Frame Top Left");
    inline static const QString paneFrameKey = QStringLiteral("MASPreferences %1 Frame");
    /// @}

Q_SIGNALS:
    /// Another pane is on show.
    void MASPreferencesWindowControllerDidChangeViewNotification();

private:
    void windowDidLoad();
    void addToolbarItem(MASPreferencesViewController* pane);
    void addWindowKeys();
    void setSelectedViewController(MASPreferencesViewController* pane);
    void takeOutSelectedPane();
    [[nodiscard]] QSize toolbarSize() const;
    [[nodiscard]] MASWindowGlide::Goal windowGoalFor(MASPreferencesViewController& pane);
    void moveSelection(qsizetype step);
    [[nodiscard]] MASPreferencesViewController* paneToStartWith() const;
    void rememberPosition() const;
    void restorePosition();
    void keepOnScreen();

    QString m_title;
    AnimationDuration m_animationDuration;
    std::unique_ptr<QMainWindow> m_window;
    MASPreferencesStage* m_stage = nullptr;
    MASWindowGlide* m_glide = nullptr;
    QToolBar* m_toolbar = nullptr;
    QActionGroup* m_toolbarItems = nullptr;
    QHash<MASPreferencesViewController*, QAction*> m_itemOfPane;
    QHash<QString, QSize> m_minimumViewRects;
    MASPreferencesViewController* m_selected = nullptr;
    /// Below the window: the panes leave it before it goes.
    Panes m_viewControllers;
};
