#pragma once

#include "app/ui/ZLQuickEditWindowController.h"
#include "platform/notification/ZLUserNotification.h"

#include <QObject>

class ZLApplication;

/// Where the desktop's notifications have no reply field, their Reply button opens a quick edit panel for the chapter:
/// one for each chapter, so that what is being typed into one is not lost to the next.
class ZLQuickEdits : public QObject {
    Q_OBJECT

public:
    /// `application` has to outlive the object.
    explicit ZLQuickEdits(ZLApplication& application, ZLOneShotTimerStarter startTimer = ZLStartSystemTimer);

    /// In the order in which they were opened.
    [[nodiscard]] const QList<ZLQuickEditWindowController*>& panels() const { return m_panels; }

private:
    void notificationWasActivated(
        const ZLUserNotification& notification, const ZLUserNotificationActivation& activation);
    void openPanel(const ZLChapterPointer& chapter, ZLChapterDocument* document);
    void removePanel(ZLQuickEditWindowController* panel);

    ZLApplication& m_application;
    ZLOneShotTimerStarter m_startTimer;
    QList<ZLQuickEditWindowController*> m_panels;
};
