#pragma once

#include "remote/ZLRemoteController.h"

#include <QList>
#include <QThread>

#include <functional>

/// Keeps the actions that it receives, and carries them out where a test says how.
class ZLRecordingDelegate final : public ZLRemoteControllerDelegate {
public:
    void remoteControllerReceivedAction(ZLRemoteController& controller, const QString& action) override
    {
        actions.append(action);
        controllers.append(&controller);
        threads.append(QThread::currentThread());
        if (perform)
            perform(action);
    }

    QStringList actions;
    QList<ZLRemoteController*> controllers;
    QList<QThread*> threads;
    std::function<void(const QString& action)> perform;
};
