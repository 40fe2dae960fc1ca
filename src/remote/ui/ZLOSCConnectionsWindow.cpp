#include "remote/ui/ZLOSCConnectionsWindow.h"

#include "document/ui/ZLAccessibleWindows.h"
#include "platform/window/ZLWindowInFront.h"
#include "platform/window/ZLWindowPlace.h"
#include "remote/ui/ZLOSCAcceptPanel.h"
#include "remote/ui/ZLOSCInputPanel.h"
#include "remote/ui/ZLOSCLogPanel.h"
#include "remote/ui/ZLOSCOutputsPanel.h"
#include "remote/ui/ZLOSCServicesPanel.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QScreen>
#include <QScrollArea>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize firstWindowSize { 940, 720 };
/// Lines of the log, at least where the screen has room.
constexpr int firstLogLines = 12;
/// Of the screen: the frame and a desktop's own bars need some, too.
constexpr double largestPart = 0.9;

}

ZLOSCConnectionsWindow::ZLOSCConnectionsWindow(ZLOSCConnectionsSetup setup)
    : m_browser(std::move(setup.browser))
    , m_stateStore(setup.stateStore)
    , m_splitter(new QSplitter(Qt::Vertical, this))
    , m_panels(new QScrollArea(m_splitter))
{
    ZLAccessibleWindows::addClass(u"ZLOSCConnectionsWindow"_s);
    setObjectName(u"oscConnections"_s);
    setWindowTitle(tr("OSC Connections"));
    setAttribute(Qt::WA_QuitOnClose, false);
    m_panels->setFrameShape(QFrame::NoFrame);
    m_panels->setWidgetResizable(true);
    m_panels->setFocusPolicy(Qt::NoFocus);
    m_panels->setWidget(buildPanels(setup));
    m_splitter->addWidget(m_panels);
    m_splitter->addWidget(new ZLOSCLogPanel(setup.controller.log(), m_splitter));
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setStretchFactor(1, 1);
    connect(m_splitter, &QSplitter::splitterMoved, this, [this] { m_areSizesSettled = true; });
    m_panels->widget()->installEventFilter(this);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(m_splitter);
    restoreWindowState();
}

ZLOSCConnectionsWindow::~ZLOSCConnectionsWindow()
{
    if (isVisible())
        saveWindowState();
    // The panels look at the browser, which goes before them otherwise.
    delete m_splitter;
}

QString ZLOSCConnectionsSetup::standardStatePath()
{
    return QFileInfo(ZLWindowStateStore::standardPath()).path() + "/connections.ini"_L1;
}

QWidget* ZLOSCConnectionsWindow::buildPanels(ZLOSCConnectionsSetup& setup)
{
    auto* const panels = new QWidget(this);
    auto* const left = new QVBoxLayout;
    auto* const right = new QVBoxLayout;
    left->addWidget(new ZLOSCInputPanel(setup.controller.inPort(), setup.publisher, std::move(setup.networks), panels));
    left->addWidget(new ZLOSCAcceptPanel(panels));
    left->addStretch();
    auto* const outputs = new ZLOSCOutputsPanel(setup.controller, panels);
    right->addWidget(outputs, 1);
    if (m_browser) {
        auto* const services = new ZLOSCServicesPanel(*m_browser, setup.publisher, panels);
        connect(services, &ZLOSCServicesPanel::outputRequested, outputs, &ZLOSCOutputsPanel::addOutput);
        right->addWidget(services);
    }
    auto* const columns = new QHBoxLayout(panels);
    columns->setContentsMargins({});
    columns->addLayout(left, 2);
    columns->addLayout(right, 3);
    return panels;
}

void ZLOSCConnectionsWindow::present()
{
    show();
    ZLWindowInFront::bring(*windowHandle());
}

void ZLOSCConnectionsWindow::showEvent(QShowEvent* event)
{
    // Only now every style and font is settled that the sizes depend on.
    if (!m_areSizesSettled) {
        growForFirstSizes();
        giveSettingsTheirRoom();
    }
    QWidget::showEvent(event);
}

bool ZLOSCConnectionsWindow::eventFilter(QObject* watched, QEvent* event)
{
    // What the network has to say comes later, and may take more lines than there were.
    if (event->type() == QEvent::LayoutRequest && isVisible())
        QMetaObject::invokeMethod(this, &ZLOSCConnectionsWindow::giveSettingsTheirRoom, Qt::QueuedConnection);
    return QWidget::eventFilter(watched, event);
}

void ZLOSCConnectionsWindow::keyPressEvent(QKeyEvent* event)
{
    const bool isCloseKey = event->key() == Qt::Key_W && event->modifiers() == Qt::ControlModifier;
    if (event->key() == Qt::Key_Escape || isCloseKey)
        close();
    else
        QWidget::keyPressEvent(event);
}

void ZLOSCConnectionsWindow::closeEvent(QCloseEvent* event)
{
    saveWindowState();
    m_areSizesSettled = true;
    QWidget::closeEvent(event);
}

/// At the window's width.
int ZLOSCConnectionsWindow::heightOfSettings() const
{
    const QLayout* const settings = m_panels->widget()->layout();
    const int width = m_panels->viewport()->width();
    // The table of the outputs would like to have no height at all, so its least one has to be asked for.
    return std::max({ settings->totalMinimumSize().height(), settings->totalMinimumHeightForWidth(width),
        settings->totalHeightForWidth(width) });
}

void ZLOSCConnectionsWindow::growForFirstSizes()
{
    layout()->activate();
    const int logHeight = fontMetrics().lineSpacing() * firstLogLines;
    const int wanted = heightOfSettings() + m_splitter->handleWidth() + logHeight;
    const int others = height() - m_splitter->height();
    const int largest = int(screen()->availableSize().height() * largestPart);
    resize(width(), std::max(height(), std::min(wanted + others, largest)));
    layout()->activate();
}

/// The settings in full, the rest for the messages.
void ZLOSCConnectionsWindow::giveSettingsTheirRoom()
{
    if (m_areSizesSettled)
        return;
    const int settingsHeight = heightOfSettings();
    m_splitter->setSizes({ settingsHeight, std::max(1, m_splitter->height() - settingsHeight) });
}

void ZLOSCConnectionsWindow::restoreWindowState()
{
    resize(firstWindowSize);
    if (const std::optional<ZLWindowState> state = m_stateStore.load()) {
        restoreGeometry(state->geometry);
        m_areSizesSettled = m_splitter->restoreState(state->panels);
    }
    const QRect contents = ZLWindowPlace::returned(geometry(), screen()->availableGeometry());
    if (testAttribute(Qt::WA_Moved))
        setGeometry(contents);
    else
        resize(contents.size());
}

void ZLOSCConnectionsWindow::saveWindowState() const
{
    m_stateStore.save({ .geometry = saveGeometry(), .panels = m_splitter->saveState() });
}
