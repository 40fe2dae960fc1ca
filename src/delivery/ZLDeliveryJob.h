#pragma once

#include "delivery/ZLDelivery.h"

#include <QObject>

#include <memory>

class QThread;

/// Carries out plans beside the main thread, one file after the other. A failure does not stop the others.
class ZLDeliveryJob final : public QObject {
    Q_OBJECT

public:
    explicit ZLDeliveryJob(QList<ZLDeliveryPlan> plans, QObject* parent = nullptr);
    /// Cancels what is not done and waits for it.
    ~ZLDeliveryJob() override;

    void start();
    /// The file that is being written stays as it was; those that are done stay done.
    void cancel() { m_progress.cancel(); }
    /// Of the file that is being written, from 0 to 1.
    [[nodiscard]] double fraction() const { return m_progress.fraction(); }

Q_SIGNALS:
    void didBeginFile(int index);
    /// `message` is the outcome or the reason of the failure.
    void didEndFile(int index, bool isWritten, const QString& message);
    void didFinish();

private:
    void carryOut();

    const QList<ZLDeliveryPlan> m_plans;
    ZLWriteProgress m_progress;
    std::unique_ptr<QThread> m_thread;
};
