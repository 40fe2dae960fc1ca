#include "following/ui/ZLRecorderWindow.h"

#include "document/ui/ZLAccessibleWindows.h"
#include "following/ui/ZLOSCTimePanel.h"
#include "following/ui/ZLRecorderChoicePanel.h"
#include "following/ui/ZLRecorderStatePanel.h"
#include "platform/window/ZLWindowInFront.h"
#include "platform/window/ZLWindowPlace.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>
#include <QWindow>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize firstWindowSize { 760, 640 };
constexpr int logRowMargin = 6;

}

QString ZLRecorderWindowSetup::standardStatePath()
{
    return QFileInfo(ZLWindowStateStore::standardPath()).path() + "/recorder.ini"_L1;
}

ZLRecorderWindow::ZLRecorderWindow(ZLRecorderWindowSetup setup)
    : m_stateStore(setup.stateStore)
    , m_choice(new ZLRecorderChoicePanel(setup.following, std::move(setup.currentDocument), this))
    , m_settings(new QVBoxLayout)
{
    ZLAccessibleWindows::addClass(u"ZLRecorderWindow"_s);
    setObjectName(u"recorderWindow"_s);
    setWindowTitle(tr("Recorder"));
    setAttribute(Qt::WA_QuitOnClose, false);
    auto* const left = new QVBoxLayout;
    left->addWidget(m_choice);
    left->addLayout(m_settings);
    left->addStretch();
    auto* const right = new QVBoxLayout;
    right->addWidget(new ZLRecorderStatePanel(setup.following, this));
    right->addStretch();
    auto* const columns = new QHBoxLayout;
    columns->addLayout(left, 1);
    columns->addLayout(right, 1);
    auto* const column = new QVBoxLayout(this);
    column->addLayout(columns);
    column->addWidget(buildLog(setup.following.log()), 1);
    auto* const oscTime = new ZLOSCTimePanel(this);
    connect(oscTime, &ZLOSCTimePanel::settingsDidChange, &setup.following, &ZLFollowing::followAnew);
    addSettings(u"osc"_s, oscTime);
    connect(m_choice, &ZLRecorderChoicePanel::chosenWordDidChange, this, &ZLRecorderWindow::updateSettings);
    restoreWindowState();
}

ZLRecorderWindow::~ZLRecorderWindow()
{
    if (isVisible())
        saveWindowState();
    // The log goes before the view.
    m_log->setModel(nullptr);
}

void ZLRecorderWindow::addSettings(const QString& word, QWidget* panel)
{
    m_panels.insert(word, panel);
    m_settings->addWidget(panel);
    updateSettings();
}

void ZLRecorderWindow::present()
{
    show();
    ZLWindowInFront::bring(*windowHandle());
}

void ZLRecorderWindow::keyPressEvent(QKeyEvent* event)
{
    const bool isCloseKey = event->key() == Qt::Key_W && event->modifiers() == Qt::ControlModifier;
    if (event->key() == Qt::Key_Escape || isCloseKey)
        close();
    else
        QWidget::keyPressEvent(event);
}

void ZLRecorderWindow::closeEvent(QCloseEvent* event)
{
    saveWindowState();
    QWidget::closeEvent(event);
}

QWidget* ZLRecorderWindow::buildLog(ZLFollowingLog& log)
{
    auto* const box = new QGroupBox(tr("What Happened"), this);
    m_log = new QTableView(box);
    m_log->setObjectName(u"recorderLog"_s);
    m_log->setAccessibleName(tr("What happened"));
    m_log->setModel(&log);
    m_log->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_log->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_log->setTabKeyNavigation(false);
    m_log->setShowGrid(false);
    m_log->verticalHeader()->hide();
    m_log->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_log->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + logRowMargin);
    m_log->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    m_log->horizontalHeader()->setHighlightSections(false);
    m_log->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_log->horizontalHeader()->setStretchLastSection(true);
    // The newest row is in sight also when other settings leave less room.
    connect(m_log->verticalScrollBar(), &QScrollBar::rangeChanged, m_log, &QTableView::scrollToBottom);
    auto* const column = new QVBoxLayout(box);
    column->addWidget(m_log);
    return box;
}

void ZLRecorderWindow::updateSettings()
{
    for (auto panel = m_panels.cbegin(); panel != m_panels.cend(); ++panel)
        panel.value()->setVisible(panel.key() == m_choice->chosenWord());
}

void ZLRecorderWindow::restoreWindowState()
{
    resize(firstWindowSize);
    if (const std::optional<ZLWindowState> state = m_stateStore.load())
        restoreGeometry(state->geometry);
    const QRect contents = ZLWindowPlace::returned(geometry(), screen()->availableGeometry());
    if (testAttribute(Qt::WA_Moved))
        setGeometry(contents);
    else
        resize(contents.size());
}

void ZLRecorderWindow::saveWindowState() const
{
    m_stateStore.save({ .geometry = saveGeometry(), .panels = {} });
}
