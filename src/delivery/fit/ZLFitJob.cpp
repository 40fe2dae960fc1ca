#include "delivery/fit/ZLFitJob.h"

#include "delivery/fit/ZLHeardSound.h"

#include <utility>

namespace {

/// How the work as a whole divides, about.
constexpr double shareOfShow = 0.4;
constexpr double shareOfFile = 0.4;
constexpr double shareOfAligning = 0.2;

void finish(ZLWorkProgress& progress)
{
    progress.begin(1);
    progress.advance(1);
}

}

ZLFitJob::ZLFitJob(Hearing hearShow, QString finishedPath, QObject* parent)
    : QObject(parent)
    , m_shared(std::make_shared<Shared>())
{
    m_shared->hearShow = std::move(hearShow);
    m_shared->finishedPath = std::move(finishedPath);
}

ZLFitJob::~ZLFitJob()
{
    cancel();
}

void ZLFitJob::start()
{
    m_work.start([this, shared = m_shared](const ZLDiskWork::Teller& tell) {
        const auto finding = shared->carryOut();
        tell([this, finding] { Q_EMIT didEnd(finding); });
    });
}

void ZLFitJob::cancel()
{
    for (ZLWorkProgress* progress : { &m_shared->hearingShow, &m_shared->hearingFile, &m_shared->aligning })
        progress->cancel();
}

double ZLFitJob::fraction() const
{
    return shareOfShow * m_shared->hearingShow.fraction() + shareOfFile * m_shared->hearingFile.fraction()
        + shareOfAligning * m_shared->aligning.fraction();
}

ZLResult<ZLFitFinding> ZLFitJob::Shared::carryOut()
{
    const auto show = hearShow(hearingShow);
    if (!show)
        return show.error();
    finish(hearingShow);
    const auto file = ZLHeardSound::fingerprintOf(finishedPath, hearingFile);
    if (!file)
        return file.error();
    finish(hearingFile);
    return ZLFitFinding { ZLSoundAlignment::of(show.value().fingerprint, file.value(), aligning), show.value().zero };
}
