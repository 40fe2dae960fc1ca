#include "delivery/fit/ZLFitDraft.h"

#include "delivery/fit/ZLClockStart.h"
#include "delivery/fit/ZLFitApplication.h"
#include "delivery/fit/ZLHeardSound.h"
#include "delivery/fit/ZLKeptFits.h"
#include "document/ZLChapterDocument.h"
#include "document/shared/ZLChapterMoves.h"
#include "platform/media/decoding/ZLSoundDecoder.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// What a fit shows, and what it depends on.
constexpr ZLDocumentChange::Parts concerningFits { ZLDocumentChange::Rows | ZLDocumentChange::Texts
    | ZLDocumentChange::EnabledStates | ZLDocumentChange::Times | ZLDocumentChange::Extras };
/// Nobody hears less.
constexpr double sameTime = 0.0005;
constexpr double millisecondsPerSecond = 1000.0;

bool isWhereItBelongs(const ZLFittedChapter& found)
{
    return std::abs(found.newTime() - found.oldTime()) < sameTime
        && found.mark.chapter->isEnabled() == found.isEnabledThere();
}

}

ZLFitDraft::ZLFitDraft(ZLChapterDocument& document, QObject* parent)
    : QObject(parent)
    , m_document(&document)
{
    connect(&document, &ZLChapterDocument::changed, this, [this](const ZLDocumentChange& change) {
        if (change.concerns(concerningFits))
            fitAgainSoon();
    });
    connect(&document, &QObject::destroyed, this, [this] {
        m_document = nullptr;
        forgetFit();
    });
}

ZLFitDraft::~ZLFitDraft() = default;

void ZLFitDraft::setFinishedPath(const QString& path)
{
    if (isWorking() || !m_document)
        return;
    m_finishedPath = QDir::cleanPath(QDir().absoluteFilePath(path));
    m_knownPaths.removeOne(m_finishedPath);
    m_knownPaths.prepend(m_finishedPath);
    forgetFit();
    lookForKeptFit();
    Q_EMIT didChange();
}

void ZLFitDraft::lookForKeptFit()
{
    m_lookUp = std::make_unique<ZLDiskWork>();
    m_lookUp->start([this, path = m_finishedPath](const ZLDiskWork::Teller& tell) {
        const auto length = ZLSoundDecoder::claimedSeconds(path);
        tell([this, path, length] { showKeptFitOf(path, length); });
    });
}

void ZLFitDraft::showKeptFitOf(const QString& path, std::optional<double> length)
{
    if (!m_document || m_state != State::Choosing || path != m_finishedPath)
        return;
    if (const auto kept = ZLKeptFits::ofFile(m_document->extras(), QFileInfo(path).fileName(), length)) {
        show(*kept);
        Q_EMIT didChange();
    }
}

void ZLFitDraft::setSource(Source source)
{
    if (!isWorking() && std::exchange(m_source, source) != source)
        Q_EMIT didChange();
}

bool ZLFitDraft::hasHeardAlong() const
{
    return !ZLListeningData::fromStored(keptHearing()).isEmpty();
}

QList<ZLRecorderFile> ZLFitDraft::recorderFiles() const
{
    return m_document ? ZLRecorderFiles::in(m_document->extras().value(ZLRecorderFiles::Key)) : QList<ZLRecorderFile>();
}

void ZLFitDraft::takeBestSource()
{
    if (hasHeardAlong())
        setSource(Source::HeardAlong);
    else if (!recorderFiles().isEmpty())
        setSource(Source::RecorderFiles);
}

void ZLFitDraft::setRecordingPath(const QString& path)
{
    if (isWorking())
        return;
    m_recordingPath = QDir::cleanPath(QDir().absoluteFilePath(path));
    m_source = Source::Recording;
    Q_EMIT didChange();
}

void ZLFitDraft::setZero(double seconds)
{
    if (!isWorking() && std::exchange(m_zero, seconds) != seconds)
        Q_EMIT didChange();
}

bool ZLFitDraft::canFindZero() const
{
    return m_document && !isWorking() && m_source == Source::Recording && !m_recordingPath.isEmpty();
}

void ZLFitDraft::findZero()
{
    if (!canFindZero())
        return;
    forgetFit();
    m_state = State::Working;
    m_zeroJob = std::make_unique<ZLClockStartJob>();
    connect(m_zeroJob.get(), &ZLClockStartJob::didEnd, this, &ZLFitDraft::takeZero);
    m_zeroJob->start(zeroSearch());
    Q_EMIT didChange();
}

QList<ZLKeptFit> ZLFitDraft::keptFits() const
{
    return m_document ? ZLKeptFits::in(m_document->extras()) : QList<ZLKeptFit>();
}

void ZLFitDraft::showKeptFit(const QString& identifier)
{
    const QList<ZLKeptFit> fits = keptFits();
    const auto wanted = std::ranges::find(fits, identifier, &ZLKeptFit::identifier);
    if (isWorking() || wanted == fits.cend())
        return;
    const auto known = std::ranges::find_if(
        m_knownPaths, [&](const QString& path) { return QFileInfo(path).fileName() == wanted->fileName; });
    m_finishedPath = known == m_knownPaths.cend() ? QString() : *known;
    show(*wanted);
    Q_EMIT didChange();
}

bool ZLFitDraft::canStart() const
{
    return m_document && !isWorking() && !m_finishedPath.isEmpty() && isSourceThere();
}

bool ZLFitDraft::isSourceThere() const
{
    switch (m_source) {
    case Source::HeardAlong:
        return hasHeardAlong();
    case Source::RecorderFiles:
        return !recorderFiles().isEmpty();
    case Source::Recording:
        break;
    }
    return !m_recordingPath.isEmpty();
}

void ZLFitDraft::start()
{
    if (!canStart())
        return;
    forgetFit();
    m_state = State::Working;
    m_job = std::make_unique<ZLFitJob>(hearing(), m_finishedPath);
    connect(m_job.get(), &ZLFitJob::didEnd, this, &ZLFitDraft::takeFinding);
    m_job->start();
    Q_EMIT didChange();
}

void ZLFitDraft::cancel()
{
    if (m_job)
        m_job->cancel();
    if (m_zeroJob)
        m_zeroJob->cancel();
}

double ZLFitDraft::fraction() const
{
    if (m_zeroJob)
        return m_zeroJob->fraction();
    return m_job ? m_job->fraction() : 0.0;
}

bool ZLFitDraft::isApplied() const
{
    return m_fit && m_document && ZLKeptFits::followed(m_document->extras()) == m_kept->identifier
        && std::ranges::all_of(m_fit->chapters, &isWhereItBelongs);
}

void ZLFitDraft::apply()
{
    Q_EMIT m_document->typing().typedTextShouldBeCommitted();
    fitAgain();
    if (canApply())
        ZLFitApplication::apply(*m_document, *m_fit, m_kept->identifier);
}

ZLDocumentContents ZLFitDraft::contentsOfFittedDocument() const
{
    return m_fit ? ZLFitApplication::contentsOf(*m_fit) : ZLDocumentContents();
}

ZLFitJob::Hearing ZLFitDraft::hearing() const
{
    if (m_source == Source::HeardAlong)
        return [kept = keptHearing()](ZLWorkProgress&) { return ZLHeardSound::heardAlong(kept); };
    if (m_source == Source::RecorderFiles)
        return [files = recorderFiles()](ZLWorkProgress& progress) { return ZLHeardSound::recorded(files, progress); };
    return [path = m_recordingPath, zero = m_zero](ZLWorkProgress& progress) -> ZLResult<ZLHeardShow> {
        auto fingerprint = ZLHeardSound::fingerprintOf(path, progress);
        if (!fingerprint)
            return fingerprint.error();
        return ZLHeardShow { std::move(fingerprint).value(), zero };
    };
}

ZLClockStartJob::Search ZLFitDraft::zeroSearch() const
{
    if (hasHeardAlong())
        return [path = m_recordingPath, kept = keptHearing()](ZLWorkProgress& progress) -> ZLResult<double> {
            const auto heard = ZLHeardSound::heardAlong(kept);
            return heard ? ZLClockStart::byHeard(path, heard.value(), progress) : ZLResult<double>(heard.error());
        };
    return [path = m_recordingPath, beep = m_beep](
               ZLWorkProgress& progress) { return ZLClockStart::byBeep(path, beep, progress); };
}

void ZLFitDraft::takeZero(const ZLResult<double>& zero)
{
    const bool isCancelled = m_zeroJob->isCancelled();
    m_zeroJob.release()->deleteLater();
    m_state = State::Choosing;
    if (isCancelled)
        m_message = tr("The search was cancelled.");
    else if (zero)
        m_zero = zero.value();
    else
        fail(zero.error().message);
    Q_EMIT didChange();
    Q_EMIT didFindZero();
}

void ZLFitDraft::takeFinding(const ZLResult<ZLFitFinding>& finding)
{
    const bool isCancelled = m_job->isCancelled();
    m_job.release()->deleteLater();
    m_state = State::Choosing;
    if (!m_document)
        return;
    if (isCancelled)
        m_message = tr("The fit was cancelled.");
    else if (!finding)
        fail(finding.error().message);
    else if (!finding.value().alignment.isTheShow())
        fail(tr("%1 is not this show: too little of %2 is in it.")
                .arg(QFileInfo(m_finishedPath).fileName(), showName()));
    else
        keep(finding.value());
    Q_EMIT didChange();
    Q_EMIT didEnd();
}

void ZLFitDraft::keep(const ZLFitFinding& finding)
{
    show(ZLKeptFits::keep(m_document->extras(),
        { .identifier = ZLChapter::generateUUID(),
            .fileName = QFileInfo(m_finishedPath).fileName(),
            .madeAt = double(m_document->wallClockTime().toMSecsSinceEpoch()) / millisecondsPerSecond,
            .zero = finding.zero,
            .alignment = finding.alignment }));
}

void ZLFitDraft::show(const ZLKeptFit& kept)
{
    m_kept = kept;
    m_state = State::Ready;
    m_message.clear();
    m_fit = ZLFit::of(ZLFitNotes::marksOf(m_document->chapterManager().allChapters(), m_document->extras()),
        kept.alignment, kept.zero);
}

void ZLFitDraft::forgetFit()
{
    m_state = State::Choosing;
    m_message.clear();
    m_kept.reset();
    m_fit.reset();
}

void ZLFitDraft::fail(const QString& message)
{
    m_state = State::Failed;
    m_message = message;
}

void ZLFitDraft::fitAgain()
{
    m_isFitDue = false;
    if (m_kept && m_document)
        show(*m_kept);
    Q_EMIT didChange();
}

/// Not at once: a mark must not wait for it.
void ZLFitDraft::fitAgainSoon()
{
    if (!std::exchange(m_isFitDue, true))
        QMetaObject::invokeMethod(this, &ZLFitDraft::fitAgain, Qt::QueuedConnection);
}

QString ZLFitDraft::showName() const
{
    if (m_source == Source::HeardAlong)
        return tr("what was heard along");
    const QString path = m_source == Source::RecorderFiles ? recorderFiles().value(0).path : m_recordingPath;
    return QFileInfo(path).fileName();
}

QVariant ZLFitDraft::keptHearing() const
{
    return m_document ? m_document->extras().value(ZLListeningData::Key) : QVariant();
}
