#include "app/ui/ZLQuickEdits.h"

#include "app/ZLApplication.h"

#include <QWidget>

#include <algorithm>
#include <utility>

ZLQuickEdits::ZLQuickEdits(ZLApplication& application, ZLOneShotTimerStarter startTimer)
    : m_application(application)
    , m_startTimer(std::move(startTimer))
{
    connect(&application.userNotificationCenter(), &ZLUserNotificationCenter::didActivateNotification, this,
        &ZLQuickEdits::notificationWasActivated);
}

void ZLQuickEdits::notificationWasActivated(
    const ZLUserNotification& notification, const ZLUserNotificationActivation& activation)
{
    if (activation.type != ZLUserNotificationActivationType::ReplyButtonClicked)
        return;
    const auto [document, chapter] = m_application.chapterOfNotification(notification);
    if (document)
        openPanel(chapter, document);
}

void ZLQuickEdits::openPanel(const ZLChapterPointer& chapter, ZLChapterDocument* document)
{
    const auto open = std::find_if(m_panels.cbegin(), m_panels.cend(),
        [&chapter](const ZLQuickEditWindowController* panel) { return panel->chapter() == chapter; });
    if (open != m_panels.cend()) {
        (*open)->window().raise();
        return;
    }
    auto* panel = new ZLQuickEditWindowController(m_startTimer, this);
    m_panels.append(panel);
    connect(panel, &ZLQuickEditWindowController::didClose, this, [this, panel] { removePanel(panel); });
    panel->setChapter(chapter);
    panel->setChapDoc(document);
    panel->show();
}

void ZLQuickEdits::removePanel(ZLQuickEditWindowController* panel)
{
    if (m_panels.removeOne(panel))
        panel->deleteLater();
}
