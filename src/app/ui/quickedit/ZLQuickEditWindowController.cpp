#include "app/ui/quickedit/ZLQuickEditWindowController.h"

#include "document/ZLChapterDocument.h"
#include "platform/window/ZLFloatingWindow.h"
#include "platform/window/ZLKeyboardHandover.h"
#include "ui_ZLQuickEditWindowController.h"

#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QMainWindow>
#include <QMouseEvent>
#include <QPropertyAnimation>
#include <QScreen>
#include <QShortcut>
#include <QWindow>

#include <utility>

using namespace Qt::StringLiterals;

ZLQuickEditWindowController::ZLQuickEditWindowController(ZLOneShotTimerStarter startTimer, QObject* parent)
    : QObject(parent)
    , m_startTimer(std::move(startTimer))
    // Not a mere frame, which some versions of the toolkit do not tell a screen reader as a window.
    , m_window(std::make_unique<QMainWindow>(nullptr, Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint))
    , m_ui(std::make_unique<Ui::ZLQuickEditWindowController>())
    , m_fade(new QPropertyAnimation(this, "opacity", this))
{
    m_ui->setupUi(m_window.get());
    m_window->setAttribute(Qt::WA_ShowWithoutActivating);
    m_window->setAttribute(Qt::WA_QuitOnClose, false);
    m_fade->setDuration(int(fadeDuration.count()));
    connectParts();
}

ZLQuickEditWindowController::~ZLQuickEditWindowController()
{
    m_window->removeEventFilter(this);
}

void ZLQuickEditWindowController::connectParts()
{
    using Self = ZLQuickEditWindowController;
    m_window->installEventFilter(this);
    connect(m_fade, &QPropertyAnimation::finished, this, &Self::fadeDidFinish);
    connect(m_ui->saveButton, &QPushButton::clicked, this, &Self::saveButtonPressed);
    connect(m_ui->closeButton, &QPushButton::clicked, this, &Self::closeButtonPressed);
    connect(m_ui->titleField, &QLineEdit::textChanged, this, &Self::controlTextDidChange);
    // Return alone: a field that loses the keyboard by Tab or a click saves nothing.
    connect(m_ui->titleField, &QLineEdit::returnPressed, this, &Self::saveButtonPressed);
    connect(new QShortcut(Qt::Key_Escape, m_window.get()), &QShortcut::activated, this, &Self::closeButtonPressed);
}

QWidget& ZLQuickEditWindowController::window()
{
    return *m_window;
}

void ZLQuickEditWindowController::setChapDoc(ZLChapterDocument* document)
{
    m_chapDoc = document;
}

ZLChapterDocument* ZLQuickEditWindowController::chapDoc() const
{
    return m_chapDoc;
}

void ZLQuickEditWindowController::show()
{
    windowDidLoad();
    placeWindow();
    setOpacity(0.0);
    m_window->show();
    m_window->raise();
    fadeIn();
    m_ui->titleField->setFocus();
    startHideTimer();
}

void ZLQuickEditWindowController::takeKeyboard(const QString& activationToken)
{
    ZLKeyboardHandover::giveTo(*m_window->windowHandle(), activationToken);
}

void ZLQuickEditWindowController::renew()
{
    m_window->raise();
    if (!m_hideTimer)
        return;
    fadeIn();
    startHideTimer();
}

void ZLQuickEditWindowController::startHideTimer()
{
    m_hideTimer = m_startTimer(hideDelay, [this] { close(); });
}

void ZLQuickEditWindowController::windowDidLoad()
{
    m_ui->timestampField->setText(m_chapter->timeString());
    m_ui->titleField->clear();
    m_ui->saveButton->setEnabled(false);
}

void ZLQuickEditWindowController::placeWindow()
{
    // Makes the window handle, without which the following has no effect.
    m_window->winId();
    // Small helpers stay out of task bars. It is the type alone: what the toolkit calls a tool belongs to the program's
    // other windows, and the window manager would bring those along, and give them the keyboard afterwards.
    m_window->setAttribute(Qt::WA_X11NetWmWindowTypeUtility);
    ZLFloatingWindow::joinAllDesktops(*m_window->windowHandle());
    m_window->adjustSize();
    const QPoint pointer = QCursor::pos();
    const QScreen* screen = QGuiApplication::screenAt(pointer);
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    const QRect available = screen->availableGeometry();
    const QRect place = ZLFloatingWindow::geometryBeside(pointer, m_window->size(), available);
    m_window->setGeometry(
        ZLFloatingWindow::geometryBesideOthers(place, m_neighbours + QList { QRect(pointer, QSize(1, 1)) }, available));
}

void ZLQuickEditWindowController::fadeIn()
{
    fadeTo(1.0);
}

void ZLQuickEditWindowController::fadeOut()
{
    fadeTo(0.0);
}

void ZLQuickEditWindowController::fadeTo(double opacity)
{
    m_fade->stop();
    m_fade->setStartValue(m_opacity);
    m_fade->setEndValue(opacity);
    m_fade->start();
}

void ZLQuickEditWindowController::fadeDidFinish()
{
    // Closing the window hands the keyboard back: the window manager gives it to the window that had it before.
    if (m_fade->endValue().toDouble() == 0.0)
        m_window->close();
}

bool ZLQuickEditWindowController::isGoing() const
{
    return m_fade->state() == QAbstractAnimation::Running && m_fade->endValue().toDouble() == 0.0;
}

void ZLQuickEditWindowController::setOpacity(double opacity)
{
    m_opacity = opacity;
    // Wayland has no translucent windows of this kind, and complains at every step.
    if (!QGuiApplication::platformName().startsWith("wayland"_L1))
        m_window->setWindowOpacity(opacity);
}

void ZLQuickEditWindowController::close()
{
    if (m_window->isVisible())
        fadeOut();
}

void ZLQuickEditWindowController::windowDidBecomeKey()
{
    m_hideTimer.reset();
}

void ZLQuickEditWindowController::controlTextDidChange(const QString& text)
{
    m_ui->saveButton->setEnabled(!text.isEmpty());
}

void ZLQuickEditWindowController::saveButtonPressed()
{
    // The chapter may have been deleted, and its document closed, while the title was being typed.
    if (m_chapDoc && m_chapDoc->chapterManager().indexOfChapter(m_chapter))
        m_chapDoc->updateChapterToTitle(m_chapter, m_ui->titleField->text());
    close();
}

void ZLQuickEditWindowController::closeButtonPressed()
{
    close();
}

bool ZLQuickEditWindowController::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::WindowActivate)
        windowDidBecomeKey();
    else if (event->type() == QEvent::Close)
        QMetaObject::invokeMethod(this, &ZLQuickEditWindowController::didClose, Qt::QueuedConnection);
    else if (event->type() == QEvent::MouseButtonPress && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
        m_window->windowHandle()->startSystemMove();
    return QObject::eventFilter(watched, event);
}
