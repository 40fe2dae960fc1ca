#pragma once

#include "delivery/ZLDelivery.h"
#include "platform/ZLDiskWork.h"

#include <memory>

/// Carries out plans beside the main thread, one file after the other. A failure does not stop the others. A file that
/// is no longer what its plan was made for is left alone.
class ZLDeliveryJob final : public QObject {
    Q_OBJECT

public:
    explicit ZLDeliveryJob(QList<ZLDeliveryPlan> plans, QObject* parent = nullptr);
    /// Cancels what is not done. The file that is being written is as it was before.
    ~ZLDeliveryJob() override;

    void start();
    /// The file that is being written stays as it was; those that are done stay done.
    void cancel() { m_shared->progress.cancel(); }
    /// Of the file that is being written, from 0 to 1.
    [[nodiscard]] double fraction() const { return m_shared->progress.fraction(); }

Q_SIGNALS:
    void didBeginFile(int index);
    /// `message` is the outcome or the reason of the failure.
    void didEndFile(int index, bool isWritten, const QString& message);
    void didFinish();

private:
    /// What the other thread uses, as long as it needs it.
    struct Shared {
        QList<ZLDeliveryPlan> plans {};
        ZLWorkProgress progress {};
    };

    const std::shared_ptr<Shared> m_shared;
    ZLDiskWork m_work { std::chrono::seconds(2) };
};
