#include "settings/ui/MASPreferencesWindowController.h"

#include "platform/window/ZLWindowInFront.h"
#include "platform/window/ZLWindowPlace.h"
#include "settings/ZLSettingsManager.h"
#include "settings/ui/MASPreferencesGeometryText.h"
#include "settings/ui/MASPreferencesStage.h"
#include "settings/ui/MASWindowGlide.h"
#include "ui_MASPreferencesWindow.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QResizeEvent>
#include <QScreen>
#include <QShortcut>
#include <QStyle>
#include <QToolBar>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The stored corner counts upward from the lower edge of the first screen. The way there is also the way back.
QPoint turnedUpsideDown(QPoint point)
{
    return { point.x(), QGuiApplication::primaryScreen()->geometry().height() - point.y() };
}

QWidget* firstKeyView(QWidget& pane)
{
    QWidget* candidate = &pane;
    do {
        if ((candidate->focusPolicy() & Qt::TabFocus) && candidate->isEnabled() && pane.isAncestorOf(candidate))
            return candidate;
        candidate = candidate->nextInFocusChain();
    } while (candidate != &pane);
    return nullptr;
}

}

MASPreferencesWindowController::MASPreferencesWindowController(Panes viewControllers, const QString& title)
    : m_title(title)
    , m_animationDuration(styleAnimationDuration)
    , m_viewControllers(std::move(viewControllers))
{
}

std::chrono::milliseconds MASPreferencesWindowController::styleAnimationDuration()
{
    return std::chrono::milliseconds(QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration));
}

MASPreferencesWindowController::~MASPreferencesWindowController()
{
    // The panes go first, and their leaving is no move or resize of the user's.
    if (m_window)
        m_window->removeEventFilter(this);
    for (const auto& pane : m_viewControllers) {
        if (pane)
            pane->removeEventFilter(this);
    }
}

void MASPreferencesWindowController::addViewController(std::unique_ptr<MASPreferencesViewController> viewController)
{
    m_viewControllers.push_back(std::move(viewController));
    if (m_window)
        addToolbarItem(m_viewControllers.back().get());
}

QMainWindow& MASPreferencesWindowController::window()
{
    if (!m_window)
        windowDidLoad();
    return *m_window;
}

void MASPreferencesWindowController::showWindow()
{
    const bool isReopened = m_window && !m_window->isVisible();
    if (isReopened && m_selected)
        m_selected->viewWillAppear();
    window().show();
    ZLWindowInFront::bring(*window().windowHandle());
}

void MASPreferencesWindowController::windowDidLoad()
{
    m_window = std::make_unique<QMainWindow>();
    Ui::MASPreferencesWindow().setupUi(m_window.get());
    m_toolbar = m_window->findChild<QToolBar*>(u"toolbar"_s);
    m_toolbarItems = new QActionGroup(m_window.get());
    m_stage = new MASPreferencesStage;
    m_window->setCentralWidget(m_stage);
    m_glide = new MASWindowGlide(*m_window);
    connect(m_glide, &MASWindowGlide::didArrive, m_stage, &MASPreferencesStage::letPaneFill);
    connect(m_glide, &MASWindowGlide::didArrive, this, &MASPreferencesWindowController::keepOnScreen);
    for (const auto& pane : m_viewControllers)
        addToolbarItem(pane.get());
    addWindowKeys();
    if (!m_title.isEmpty())
        m_window->setWindowTitle(m_title);
    setSelectedViewController(paneToStartWith());
    restorePosition();
    m_window->installEventFilter(this);
}

void MASPreferencesWindowController::addToolbarItem(MASPreferencesViewController* pane)
{
    if (!pane) {
        auto* gap = new QWidget(m_toolbar);
        gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
        m_toolbar->addWidget(gap);
        return;
    }
    QAction* item = m_toolbar->addAction(pane->toolbarItemImage(), pane->toolbarItemLabel());
    item->setObjectName(pane->identifier());
    item->setCheckable(true);
    m_toolbarItems->addAction(item);
    m_itemOfPane.insert(pane, item);
    pane->installEventFilter(this);
    // Toolbars keep their buttons out of the reach of the keyboard.
    m_toolbar->widgetForAction(item)->setFocusPolicy(Qt::TabFocus);
    // Not the clicks: a screen reader toggles a button without one, and could leave no pane chosen.
    connect(item, &QAction::toggled, this, [this, pane, item](bool isOn) {
        const auto items = m_toolbarItems->actions();
        if (isOn)
            setSelectedViewController(pane);
        else if (std::none_of(items.cbegin(), items.cend(), [](const QAction* other) { return other->isChecked(); }))
            item->setChecked(true);
    });
}

void MASPreferencesWindowController::addWindowKeys()
{
    const auto bind = [this](const QKeySequence& keys, auto operation) {
        connect(new QShortcut(keys, m_window.get()), &QShortcut::activated, this, operation);
    };
    const auto close = [this] { m_window->close(); };
    bind(QKeySequence(Qt::Key_Escape), close);
    bind(QKeySequence(u"Ctrl+W"_s), close);
    bind(QKeySequence(u"Ctrl+Tab"_s), [this] { goNextTab(); });
    bind(QKeySequence(u"Ctrl+PgDown"_s), [this] { goNextTab(); });
    bind(QKeySequence(u"Ctrl+Shift+Tab"_s), [this] { goPreviousTab(); });
    bind(QKeySequence(u"Ctrl+PgUp"_s), [this] { goPreviousTab(); });
}

void MASPreferencesWindowController::selectControllerAtIndex(qsizetype index)
{
    if (index < 0 || index >= qsizetype(m_viewControllers.size()))
        return;
    if (MASPreferencesViewController* pane = m_viewControllers[size_t(index)].get()) {
        window();
        setSelectedViewController(pane);
    }
}

qsizetype MASPreferencesWindowController::indexOfSelectedController() const
{
    const auto found = std::find_if(m_viewControllers.cbegin(), m_viewControllers.cend(),
        [this](const auto& pane) { return pane && pane.get() == m_selected; });
    return found == m_viewControllers.cend() ? -1 : found - m_viewControllers.cbegin();
}

void MASPreferencesWindowController::goNextTab()
{
    moveSelection(1);
}

void MASPreferencesWindowController::goPreviousTab()
{
    moveSelection(-1);
}

void MASPreferencesWindowController::moveSelection(qsizetype step)
{
    window();
    const auto count = qsizetype(m_viewControllers.size());
    qsizetype index = std::max<qsizetype>(indexOfSelectedController(), 0);
    for (qsizetype tries = 0; tries < count; ++tries) {
        index = (index + step + count) % count;
        if (m_viewControllers[size_t(index)]) {
            selectControllerAtIndex(index);
            return;
        }
    }
}

bool MASPreferencesWindowController::commitEditing()
{
    return !m_selected || m_selected->commitEditing();
}

void MASPreferencesWindowController::setSelectedViewController(MASPreferencesViewController* pane)
{
    if (pane == m_selected)
        return;
    if (!commitEditing()) {
        m_itemOfPane.value(m_selected)->setChecked(true);
        return;
    }
    const QWidget* focused = m_window->focusWidget();
    const bool givesFocus = !focused || (m_selected && m_selected->isAncestorOf(focused));
    takeOutSelectedPane();
    if (!pane)
        return;
    m_selected = pane;
    if (m_title.isEmpty())
        m_window->setWindowTitle(pane->toolbarItemLabel());
    m_itemOfPane.value(pane)->setChecked(true);
    ZLSettingsManager::setText(pane->identifier(), selectedPaneKey);
    const MASWindowGlide::Goal goal = windowGoalFor(*pane);
    pane->viewWillAppear();
    m_stage->showPane(*pane, goal.size - toolbarSize());
    m_glide->glideTo(goal, m_window->isVisible() ? m_animationDuration() : std::chrono::milliseconds(0));
    if (givesFocus) {
        if (QWidget* keyView = pane->initialKeyView() ? pane->initialKeyView() : firstKeyView(*pane))
            keyView->setFocus();
    }
    Q_EMIT MASPreferencesWindowControllerDidChangeViewNotification();
}

void MASPreferencesWindowController::takeOutSelectedPane()
{
    MASPreferencesViewController* pane = std::exchange(m_selected, nullptr);
    if (!pane)
        return;
    m_stage->takePane();
    pane->viewDidDisappear();
}

QSize MASPreferencesWindowController::toolbarSize() const
{
    return { 0, m_toolbar->sizeHint().height() };
}

MASWindowGlide::Goal MASPreferencesWindowController::windowGoalFor(MASPreferencesViewController& pane)
{
    pane.ensurePolished();
    if (!m_minimumViewRects.contains(pane.identifier()))
        m_minimumViewRects.insert(pane.identifier(), pane.sizeHint());
    const QSize minimum = m_minimumViewRects.value(pane.identifier());
    const QString stored = ZLSettingsManager::textForKey(paneFrameKey.arg(pane.identifier()));
    const QRect screen = m_window->screen()->availableGeometry();
    const QSize room = ZLWindowPlace::roomAt(screen.topLeft(), screen) - toolbarSize();
    const QSize wanted =
        MASPreferencesGeometryText::toSize(stored).value_or(minimum).boundedTo(room).expandedTo(minimum);
    const bool isWide = pane.hasResizableWidth();
    const bool isHigh = pane.hasResizableHeight();
    const QSize content(isWide ? wanted.width() : minimum.width(), isHigh ? wanted.height() : minimum.height());
    const QSize most(isWide ? QWIDGETSIZE_MAX : minimum.width(), isHigh ? QWIDGETSIZE_MAX : minimum.height());
    // The window manager offers enlarging exactly where the two limits differ.
    return { content + toolbarSize(), minimum + toolbarSize(),
        (most + toolbarSize()).boundedTo({ QWIDGETSIZE_MAX, QWIDGETSIZE_MAX }) };
}

MASPreferencesViewController* MASPreferencesWindowController::paneToStartWith() const
{
    const QString stored = ZLSettingsManager::textForKey(selectedPaneKey);
    MASPreferencesViewController* first = nullptr;
    for (const auto& pane : m_viewControllers) {
        if (pane && pane->identifier() == stored)
            return pane.get();
        if (!first)
            first = pane.get();
    }
    return first;
}

void MASPreferencesWindowController::rememberPosition() const
{
    ZLSettingsManager::setText(MASPreferencesGeometryText::fromPoint(turnedUpsideDown(m_window->pos())), topLeftKey);
}

void MASPreferencesWindowController::restorePosition()
{
    const auto stored = MASPreferencesGeometryText::toPoint(ZLSettingsManager::textForKey(topLeftKey));
    const QPoint wanted = stored ? turnedUpsideDown(*stored) : QPoint();
    // The screen that the window was on may be gone.
    if (const QScreen* screen = stored ? QGuiApplication::screenAt(wanted) : nullptr) {
        m_window->move(ZLWindowPlace::fitted(wanted, m_window->size(), screen->availableGeometry()).topLeft());
        return;
    }
    const QWidget* front = QApplication::activeWindow();
    const QRect screen = (front ? front : m_window.get())->screen()->availableGeometry();
    const QPoint center = (front ? front->frameGeometry() : screen).center() - m_window->rect().center();
    m_window->move(ZLWindowPlace::fitted(center, m_window->size(), screen).topLeft());
}

void MASPreferencesWindowController::keepOnScreen()
{
    // A pane may be larger than the one before it.
    if (!m_window->isVisible())
        return;
    const QRect frame = m_window->frameGeometry();
    const QRect screen = m_window->screen()->availableGeometry();
    const QPoint last(screen.right() + 1 - frame.width(), screen.bottom() + 1 - frame.height());
    const QPoint place(
        std::max(screen.x(), std::min(frame.x(), last.x())), std::max(screen.y(), std::min(frame.y(), last.y())));
    if (place != frame.topLeft())
        m_window->move(place);
}

bool MASPreferencesWindowController::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_window.get()) {
        if (event->type() == QEvent::Move && m_window->isVisible())
            rememberPosition();
        if (event->type() == QEvent::Close && !commitEditing()) {
            event->ignore();
            return true;
        }
    } else if (watched == m_selected && event->type() == QEvent::Resize && m_window->isVisible()) {
        const QSize size = static_cast<QResizeEvent*>(event)->size();
        ZLSettingsManager::setText(
            MASPreferencesGeometryText::fromSize(size), paneFrameKey.arg(m_selected->identifier()));
    }
    return QObject::eventFilter(watched, event);
}
