#include "delivery/ZLDeliveryJob.h"

#include <QThread>

ZLDeliveryJob::ZLDeliveryJob(QList<ZLDeliveryPlan> plans, QObject* parent)
    : QObject(parent)
    , m_plans(std::move(plans))
{
}

ZLDeliveryJob::~ZLDeliveryJob()
{
    m_progress.cancel();
    if (m_thread)
        m_thread->wait();
}

void ZLDeliveryJob::start()
{
    m_thread.reset(QThread::create([this] { carryOut(); }));
    connect(m_thread.get(), &QThread::finished, this, &ZLDeliveryJob::didFinish);
    m_thread->start();
}

/// On the job's own thread; what it announces reaches the objects of other threads there.
void ZLDeliveryJob::carryOut()
{
    for (int index = 0; index < int(m_plans.size()) && !m_progress.isCancelled(); ++index) {
        const ZLDeliveryPlan& plan = m_plans.at(index);
        Q_EMIT didBeginFile(index);
        const auto outcome = ZLDelivery::write(plan, plan.audioPath, m_progress);
        Q_EMIT didEndFile(index, outcome.isOk(), outcome ? outcome.value() : outcome.error().message);
    }
}
