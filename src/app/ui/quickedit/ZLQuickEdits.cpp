#include "app/ui/quickedit/ZLQuickEdits.h"

#include "app/ZLApplication.h"

#include "platform/window/ZLFloatingWindow.h"

#include <QWidget>

#include <algorithm>
#include <utility>

ZLQuickEdits::ZLQuickEdits(ZLApplication& application, ZLOneShotTimerStarter startTimer)
    : m_application(application)
    , m_startTimer(std::move(startTimer))
{
    connect(&application.userNotificationCenter(), &ZLUserNotificationCenter::didActivateNotification, this,
        &ZLQuickEdits::notificationWasActivated);
    connect(&application.userNotificationCenter(), &ZLUserNotificationCenter::couldNotShowNotification, this,
        &ZLQuickEdits::notificationCouldNotBeShown);
}

void ZLQuickEdits::notificationWasActivated(
    const ZLUserNotification& notification, const ZLUserNotificationActivation& activation)
{
    if (activation.type != ZLUserNotificationActivationType::ReplyButtonClicked)
        return;
    const auto [document, chapter] = m_application.chapterOfNotification(notification);
    if (document)
        openPanel(chapter, document).takeKeyboard(activation.activationToken);
}

void ZLQuickEdits::notificationCouldNotBeShown(const ZLUserNotification& notification)
{
    const auto [document, chapter] = m_application.chapterOfNotification(notification);
    // A title that lands in the middle of what is typed elsewhere is worse than a chapter without one.
    if (!document || !ZLFloatingWindow::canAppearWithoutKeyboard())
        return;
    makeRoomForUnasked();
    m_unasked.append(&openPanel(chapter, document));
}

void ZLQuickEdits::makeRoomForUnasked()
{
    // A panel that is being used is no longer counted.
    m_unasked.removeIf([](const ZLQuickEditWindowController* panel) { return !panel->hasHideTimer(); });
    while (m_unasked.size() >= maximumUnasked)
        m_unasked.takeFirst()->close();
}

ZLQuickEditWindowController& ZLQuickEdits::openPanel(const ZLChapterPointer& chapter, ZLChapterDocument* document)
{
    const auto open = std::find_if(m_panels.cbegin(), m_panels.cend(),
        [&chapter](const ZLQuickEditWindowController* panel) { return panel->chapter() == chapter; });
    if (open != m_panels.cend()) {
        (*open)->renew();
        return **open;
    }
    QList<QRect> places;
    for (ZLQuickEditWindowController* other : std::as_const(m_panels))
        places += other->window().geometry();
    auto* panel = new ZLQuickEditWindowController(m_startTimer, this);
    panel->setNeighbours(places);
    m_panels.append(panel);
    connect(panel, &ZLQuickEditWindowController::didClose, this, [this, panel] { removePanel(panel); });
    panel->setChapter(chapter);
    panel->setChapDoc(document);
    panel->show();
    return *panel;
}

void ZLQuickEdits::removePanel(ZLQuickEditWindowController* panel)
{
    m_unasked.removeOne(panel);
    if (m_panels.removeOne(panel))
        panel->deleteLater();
}
