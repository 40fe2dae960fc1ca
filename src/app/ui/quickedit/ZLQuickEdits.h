#pragma once

#include "app/ui/quickedit/ZLQuickEditWindowController.h"
#include "platform/notification/ZLUserNotification.h"

#include <QObject>

class ZLApplication;

/// Where the desktop's notifications have no reply field, their Reply button opens a quick edit panel for the chapter
/// and gives it the keyboard: one for each chapter, so that what is being typed into one is not lost to the next. Where
/// there are no notifications, the panel comes instead of one, without the keyboard.
class ZLQuickEdits : public QObject {
    Q_OBJECT

public:
    /// Of those panels that come by themselves and that were not used yet; the oldest goes.
    static constexpr qsizetype maximumUnasked = 3;

    /// `application` has to outlive the object.
    explicit ZLQuickEdits(ZLApplication& application, ZLOneShotTimerStarter startTimer = ZLStartSystemTimer);

    /// In the order in which they were opened.
    [[nodiscard]] const QList<ZLQuickEditWindowController*>& panels() const { return m_panels; }

private:
    void notificationWasActivated(
        const ZLUserNotification& notification, const ZLUserNotificationActivation& activation);
    void notificationCouldNotBeShown(const ZLUserNotification& notification);
    ZLQuickEditWindowController& openPanel(const ZLChapterPointer& chapter, ZLChapterDocument* document);
    void makeRoomForUnasked();
    void removePanel(ZLQuickEditWindowController* panel);

    ZLApplication& m_application;
    ZLOneShotTimerStarter m_startTimer;
    QList<ZLQuickEditWindowController*> m_panels;
    /// Those of them that came by themselves.
    QList<ZLQuickEditWindowController*> m_unasked;
};
