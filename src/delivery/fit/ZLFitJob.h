#pragma once

#include "alignment/ZLSoundAlignment.h"
#include "platform/ZLDiskWork.h"
#include "platform/ZLResult.h"
#include "platform/ZLWorkProgress.h"

#include <functional>
#include <memory>

/// How a show sounded, and where the recording clock's zero lies in it, in seconds.
struct ZLShowSound {
    ZLSoundFingerprint fingerprint {};
    double zero = 0.0;
};

/// The pieces that a show and a finished file share.
struct ZLFitFinding {
    ZLSoundAlignment alignment {};
    /// See ZLFit.
    double zero = 0.0;
};

/// Compares a show with a finished file beside the main thread.
class ZLFitJob final : public QObject {
    Q_OBJECT

public:
    /// May be called on any thread. What it returns after the progress was cancelled is not used.
    using Hearing = std::function<ZLResult<ZLShowSound>(ZLWorkProgress& progress)>;

    explicit ZLFitJob(Hearing hearShow, QString finishedPath, QObject* parent = nullptr);
    /// Cancels what is not done.
    ~ZLFitJob() override;

    void start();
    void cancel();
    [[nodiscard]] bool isCancelled() const { return m_shared->aligning.isCancelled(); }
    /// From 0 to 1.
    [[nodiscard]] double fraction() const;

Q_SIGNALS:
    /// Once, also after cancel().
    void didEnd(const ZLResult<ZLFitFinding>& finding);

private:
    /// What the other thread uses, as long as it needs it.
    struct Shared {
        Hearing hearShow {};
        QString finishedPath {};
        ZLWorkProgress hearingShow {};
        ZLWorkProgress hearingFile {};
        ZLWorkProgress aligning {};

        [[nodiscard]] ZLResult<ZLFitFinding> carryOut();
    };

    const std::shared_ptr<Shared> m_shared;
    ZLDiskWork m_work;
};
