#include "platform/keyring/ZLDesktopKeyring.h"

#include <qt6keychain/keychain.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString serviceName = QStringLiteral("zelta");

/// Never into a file of its own that other users could read.
void prepare(QKeychain::Job& job, const QString& name)
{
    job.setAutoDelete(true);
    job.setInsecureFallback(false);
    job.setKey(name);
}

}

void ZLDesktopKeyring::read(const QString& name, std::function<void(const QString& secret)> done)
{
    auto* const job = new QKeychain::ReadPasswordJob(serviceName, this);
    prepare(*job, name);
    connect(job, &QKeychain::Job::finished, this,
        [job, done = std::move(done)] { done(job->error() == QKeychain::NoError ? job->textData() : QString()); });
    job->start();
}

void ZLDesktopKeyring::write(const QString& name, const QString& secret, std::function<void(const ZLStatus&)> done)
{
    const auto start = [this, &name, done = std::move(done)](QKeychain::Job* job) {
        prepare(*job, name);
        connect(job, &QKeychain::Job::finished, this, [job, done] {
            const bool isDone = job->error() == QKeychain::NoError || job->error() == QKeychain::EntryNotFound;
            done(isDone ? ZLStatus(ZLDone {}) : ZLStatus(ZLError { job->errorString() }));
        });
        job->start();
    };
    if (secret.isEmpty())
        return start(new QKeychain::DeletePasswordJob(serviceName, this));
    auto* const job = new QKeychain::WritePasswordJob(serviceName, this);
    job->setTextData(secret);
    start(job);
}
