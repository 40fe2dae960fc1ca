#include "delivery/ZLDeliveryJob.h"

#include "platform/media/file/ZLMediaFile.h"

namespace {

ZLResult<QString> writeUnlessChanged(const ZLDeliveryPlan& plan, ZLWorkProgress& progress)
{
    const auto found = ZLMediaFile::read(plan.audioPath);
    if (!found)
        return found.error();
    if (found.value() != plan.now)
        return ZLError { ZLDeliveryJob::tr(
            "%1: Another program changed this file since it was read, so nothing was written. Look at it again.")
                .arg(plan.audioPath) };
    return ZLDelivery::write(plan, plan.audioPath, progress);
}

}

ZLDeliveryJob::ZLDeliveryJob(QList<ZLDeliveryPlan> plans, QObject* parent)
    : QObject(parent)
    , m_shared(std::make_shared<Shared>())
{
    m_shared->plans = std::move(plans);
    connect(&m_work, &ZLDiskWork::didEnd, this, &ZLDeliveryJob::didFinish);
}

ZLDeliveryJob::~ZLDeliveryJob()
{
    cancel();
}

void ZLDeliveryJob::start()
{
    m_work.start([this, shared = m_shared](const ZLDiskWork::Teller& tell) {
        for (int index = 0; index < int(shared->plans.size()) && !shared->progress.isCancelled(); ++index) {
            tell([this, index] { Q_EMIT didBeginFile(index); });
            const auto outcome = writeUnlessChanged(shared->plans.at(index), shared->progress);
            const QString message = outcome ? outcome.value() : outcome.error().message;
            tell([this, index, message, isWritten = outcome.isOk()] { Q_EMIT didEndFile(index, isWritten, message); });
        }
    });
}
