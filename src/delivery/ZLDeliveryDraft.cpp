#include "delivery/ZLDeliveryDraft.h"

#include "delivery/ZLDeliveryJob.h"
#include "document/ZLChapterDocument.h"
#include "document/ZLChapterImport.h"
#include "document/saving/ZLWriteProtection.h"
#include "platform/media/file/ZLMediaFile.h"

#include <QDir>

#include <algorithm>
#include <utility>

using State = ZLDeliveryTarget::State;

ZLDeliveryDraft::ZLDeliveryDraft(ZLChapterDocument& document, Reader reader, QObject* parent)
    : QObject(parent)
    , m_document(document)
    , m_reading(reader ? std::move(reader) : &ZLMediaFile::read)
{
    connect(&m_reading, &ZLDeliveryReading::didRead, this, &ZLDeliveryDraft::takeContents);
    connect(&document, &ZLChapterDocument::changed, this, [this](const ZLDocumentChange& change) {
        if (change.concerns(ZLDocumentChange::concerningExports | ZLDocumentChange::Extras))
            planAgainSoon();
    });
    // A window that is closing may go after its document, and what is still being read arrives in between.
    connect(&document, &QObject::destroyed, this, [this] {
        m_targets.clear();
        m_reading.setUnreadable({});
    });
}

ZLDeliveryDraft::~ZLDeliveryDraft() = default;

void ZLDeliveryDraft::setPaths(const QStringList& paths)
{
    if (isWriting())
        return;
    m_targets.clear();
    for (const QString& path : paths) {
        const QString absolute = QDir::cleanPath(QDir().absoluteFilePath(path));
        if (!this->paths().contains(absolute))
            m_targets.append({ .path = absolute });
    }
    m_reading.setUnreadable({});
    m_reading.read(this->paths());
    Q_EMIT didChange();
}

QStringList ZLDeliveryDraft::paths() const
{
    QStringList paths;
    for (const ZLDeliveryTarget& target : m_targets)
        paths.append(target.path);
    return paths;
}

void ZLDeliveryDraft::setShift(double seconds)
{
    if (std::exchange(m_shift, seconds) != seconds)
        planAgain();
}

bool ZLDeliveryDraft::canWrite() const
{
    return !isWriting() && std::ranges::any_of(m_targets, [](const ZLDeliveryTarget& target) {
        return target.plan && !target.plan->toCome.isEmpty();
    });
}

void ZLDeliveryDraft::write()
{
    if (!canWrite())
        return;
    planAgain();
    m_filesDone = 0;
    m_job = std::make_unique<ZLDeliveryJob>(plansToCarryOut());
    connect(m_job.get(), &ZLDeliveryJob::didBeginFile, this, [this](int index) {
        m_targets[m_written.at(index)].state = State::Writing;
        Q_EMIT didChange();
    });
    connect(m_job.get(), &ZLDeliveryJob::didEndFile, this, &ZLDeliveryDraft::noteEndOfFile);
    connect(m_job.get(), &ZLDeliveryJob::didFinish, this, &ZLDeliveryDraft::finishWriting);
    m_job->start();
    Q_EMIT didChange();
}

void ZLDeliveryDraft::cancel()
{
    if (m_job)
        m_job->cancel();
}

double ZLDeliveryDraft::fraction() const
{
    if (!m_job || m_written.isEmpty())
        return 0.0;
    const bool isBetweenFiles = m_filesDone == m_written.size();
    return (double(m_filesDone) + (isBetweenFiles ? 0.0 : m_job->fraction())) / double(m_written.size());
}

qsizetype ZLDeliveryDraft::importChaptersOf(qsizetype index)
{
    const auto& plan = m_targets.value(index).plan;
    QList<ZLListedChapter> listed;
    for (const ZLMediaChapter& chapter : plan ? plan->now.chapters : ZLMediaChapters()) {
        listed.append(
            { .start = double(chapter.start) / 1000.0 - m_shift, .title = chapter.title, .link = chapter.link });
    }
    return ZLChapterImport::importChapters(m_document, listed, ZLChapterImport::Way::Add);
}

/// What is no longer among the targets goes unheard.
void ZLDeliveryDraft::takeContents(const QString& path, const ZLResult<ZLMediaContents>& contents)
{
    const auto found = std::ranges::find(m_targets, path, &ZLDeliveryTarget::path);
    if (found == m_targets.end())
        return;
    const bool wasUnreadable = found->state == State::Unreadable;
    if (wasUnreadable && !contents && found->message == contents.error().message)
        return;
    // With the contents that were known when the chapters changed: only so is it seen that they are others.
    if (m_isPlanDue)
        planAgain();
    if (contents) {
        updatePlan(*found, contents.value());
        if (wasUnreadable || found->state == State::Reading) {
            found->state = State::Ready;
            found->message.clear();
        }
    } else {
        found->plan.reset();
        found->state = State::Unreadable;
        found->message = contents.error().message;
    }
    m_reading.setUnreadable(unreadablePaths());
    Q_EMIT didChange();
}

void ZLDeliveryDraft::planAgain()
{
    m_isPlanDue = false;
    for (ZLDeliveryTarget& target : m_targets) {
        if (!target.plan)
            continue;
        const ZLMediaChapters former = target.plan->toCome;
        updatePlan(target, target.plan->now);
        // What was told of the file is about other chapters.
        if (target.plan->toCome != former && target.state != State::Writing) {
            target.state = State::Ready;
            target.message.clear();
        }
    }
    Q_EMIT didChange();
}

/// Not at once: a mark must not wait for it.
void ZLDeliveryDraft::planAgainSoon()
{
    if (!std::exchange(m_isPlanDue, true))
        QMetaObject::invokeMethod(this, &ZLDeliveryDraft::planAgain, Qt::QueuedConnection);
}

void ZLDeliveryDraft::updatePlan(ZLDeliveryTarget& target, const ZLMediaContents& contents)
{
    const auto carried = m_carrier ? m_carrier(target.path, contents) : std::nullopt;
    target.plan = ZLDeliveryPlan::make(
        carried.value_or(m_document.chapterManager().allChapters()), target.path, contents, carried ? 0.0 : m_shift);
    if (carried)
        target.plan->findings.prepend(
            tr("The chapters are at the places where they were found in this file. No shift is "
               "added."));
}

QList<ZLDeliveryPlan> ZLDeliveryDraft::plansToCarryOut()
{
    QList<ZLDeliveryPlan> plans;
    m_written.clear();
    for (qsizetype index = 0; index < m_targets.size(); ++index) {
        ZLDeliveryTarget& target = m_targets[index];
        if (!target.plan)
            continue;
        if (const ZLStatus allowed = ZLWriteProtection::check(target.path); !allowed) {
            target.state = State::Failed;
            target.message = allowed.error().message;
            continue;
        }
        target.state = State::Ready;
        target.message.clear();
        plans.append(*target.plan);
        m_written.append(index);
    }
    return plans;
}

QStringList ZLDeliveryDraft::unreadablePaths() const
{
    QStringList paths;
    for (const ZLDeliveryTarget& target : m_targets) {
        if (target.state == State::Unreadable)
            paths.append(target.path);
    }
    return paths;
}

void ZLDeliveryDraft::noteEndOfFile(int index, bool isWritten, const QString& message)
{
    ZLDeliveryTarget& target = m_targets[m_written.at(index)];
    target.state = isWritten ? State::Written : State::Failed;
    target.message = message;
    ++m_filesDone;
    Q_EMIT didChange();
}

void ZLDeliveryDraft::finishWriting()
{
    m_job.release()->deleteLater();
    QStringList touched;
    for (const qsizetype index : std::as_const(m_written)) {
        ZLDeliveryTarget& target = m_targets[index];
        if (target.state == State::Ready) {
            target.state = State::Failed;
            target.message = tr("%1 was not written.").arg(target.plan->fileName());
        }
        touched.append(target.path);
    }
    m_reading.read(touched);
    Q_EMIT didChange();
    Q_EMIT didEndWriting();
}
