#include "delivery/ZLDeliveryJob.h"

#include "platform/media/file/ZLMediaFile.h"

#include <QFileInfo>
#include <QHash>

namespace {

/// What became of each file, under its name without links: a file that was chosen by two paths is written once.
using Outcomes = QHash<QString, ZLResult<QString>>;

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

ZLResult<QString> writeOnce(const ZLDeliveryPlan& plan, Outcomes& outcomes, ZLWorkProgress& progress)
{
    const QString file = QFileInfo(plan.audioPath).canonicalFilePath();
    const auto known = outcomes.constFind(file);
    if (known != outcomes.cend())
        return *known;
    const auto outcome = writeUnlessChanged(plan, progress);
    if (!file.isEmpty())
        outcomes.insert(file, outcome);
    return outcome;
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
        Outcomes outcomes;
        for (int index = 0; index < int(shared->plans.size()) && !shared->progress.isCancelled(); ++index) {
            tell([this, index] { Q_EMIT didBeginFile(index); });
            const auto outcome = writeOnce(shared->plans.at(index), outcomes, shared->progress);
            const QString message = outcome ? outcome.value() : outcome.error().message;
            tell([this, index, message, isWritten = outcome.isOk()] { Q_EMIT didEndFile(index, isWritten, message); });
        }
    });
}
