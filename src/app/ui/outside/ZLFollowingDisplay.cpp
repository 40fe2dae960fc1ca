#include "app/ui/outside/ZLFollowingDisplay.h"

#include "app/ZLApplication.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLStatusLine.h"
#include "document/ui/menus/ZLActionHelp.h"
#include "document/ui/menus/ZLViewMenu.h"
#include "following/ZLFollowingSettings.h"
#include "following/ui/ZLOBSPanel.h"
#include "following/ui/ZLRecorderWindow.h"
#include "templates/ui/ZLReadableColors.h"

#include <QAction>
#include <QMenu>
#include <QPainter>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString lampPart = QStringLiteral("recorderStatus");

QColor lampColor(ZLFollowingState state)
{
    if (state == ZLFollowingState::Following)
        return { 0x2e, 0xa0, 0x43 };
    if (state == ZLFollowingState::Lost || state == ZLFollowingState::Refused)
        return { 0xd2, 0x6a, 0x00 };
    return { 0x80, 0x80, 0x80 };
}

/// A disc; a ring while nothing is followed, for eyes that see no colours.
QIcon lamp(ZLFollowingState state, const QWidget& place)
{
    constexpr int size = 16;
    constexpr double radius = 4.5;
    constexpr double ringWidth = 1.6;
    QPixmap picture(QSize(size, size) * place.devicePixelRatio());
    picture.setDevicePixelRatio(place.devicePixelRatio());
    picture.fill(Qt::transparent);
    const QColor color = ZLReadableColors::onGrounds(
        lampColor(state), { place.palette().color(QPalette::Window) }, ZLReadableColors::LeastForSigns);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, ringWidth));
    painter.setBrush(state == ZLFollowingState::Following ? QBrush(color) : QBrush(Qt::NoBrush));
    painter.drawEllipse(QPointF(size, size) / 2.0, radius, radius);
    return picture;
}

}

ZLFollowingDisplay::ZLFollowingDisplay(ZLApplication& application, QObject* parent)
    : QObject(parent)
    , m_application(application)
{
    connect(&application.following(), &ZLFollowing::stateDidChange, this, &ZLFollowingDisplay::update);
}

ZLFollowingDisplay::~ZLFollowingDisplay() = default;

void ZLFollowingDisplay::addWindow(ZLChapterDocumentWindow& window)
{
    connect(ZLActionHelp::addAction(*window.viewMenu().menu(), u"showRecorder"_s, tr("&Recorder…")),
        &QAction::triggered, this, &ZLFollowingDisplay::open);
    connect(&window.statusLine(), &ZLStatusLine::partClicked, this, [this](const QString& name) {
        if (name == lampPart)
            open();
    });
    m_documentWindows.removeAll(nullptr);
    m_documentWindows.append(&window);
    updateLamp(window);
}

void ZLFollowingDisplay::followAsBefore()
{
    const QString word = ZLFollowingSettings::kind();
    ZLChapterDocument* wanted = m_application.documentController().currentOrLastDocument();
    const auto documents = m_application.documentController().documents();
    for (ZLChapterDocument* document : documents) {
        if (document->interruptedRecording())
            wanted = document;
    }
    // A kind that this build does not have was another one's choice.
    if (wanted && !m_application.following().document() && m_application.following().kindWithWord(word))
        (void)m_application.following().follow(*wanted, word);
}

void ZLFollowingDisplay::open()
{
    if (!m_window) {
        m_window = std::make_unique<ZLRecorderWindow>(ZLRecorderWindowSetup {
            .following = m_application.following(),
            .currentDocument = [this] { return m_application.documentController().currentOrLastDocument(); },
        });
        auto* const obs = new ZLOBSPanel(m_application.obsPassword(), m_window.get());
        connect(obs, &ZLOBSPanel::settingsDidChange, &m_application.following(), &ZLFollowing::followAnew);
        m_window->addSettings(u"obs"_s, obs);
    }
    m_window->present();
}

void ZLFollowingDisplay::update()
{
    for (const auto& window : std::as_const(m_documentWindows)) {
        if (window)
            updateLamp(*window);
    }
}

void ZLFollowingDisplay::updateLamp(ZLChapterDocumentWindow& window) const
{
    const ZLFollowing& following = m_application.following();
    const bool isHere = following.document() == &window.document();
    window.statusLine().setPart(lampPart, isHere ? following.lampText() : QString(), following.stateText());
    if (isHere)
        window.statusLine().setPartIcon(lampPart, lamp(following.state(), window));
}
