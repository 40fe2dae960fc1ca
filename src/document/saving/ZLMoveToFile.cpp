#include "document/saving/ZLMoveToFile.h"

#include "document/saving/ZLSilentDisk.h"

#include <utility>

ZLMoveToFile::ZLMoveToFile(ZLChapterDocument& document, const ZLDocumentPlace& place, const ZLWriteSchedule& schedule,
    ZLFileUpdating& updating, ZLFileWriter writer, Move move)
    : m_document(document)
    , m_place(place)
    , m_schedule(schedule)
    , m_updating(updating)
    , m_writer(std::move(writer))
    , m_move(std::move(move))
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(ZLSilentDisk::CommandPatience);
    connect(&m_patience, &QTimer::timeout, this, &ZLMoveToFile::noteSilence);
    connect(&m_writer, &ZLDocumentWriter::didWrite, this, &ZLMoveToFile::noteOutcome);
    connect(&m_updating, &ZLFileUpdating::didPause, this, &ZLMoveToFile::write);
}

void ZLMoveToFile::start(const QString& path, ZLWhenDone whenDone)
{
    m_path = path;
    m_whenDone = std::move(whenDone);
    m_rounds = 0;
    m_patience.start();
    m_updating.pause();
    // A disk that hangs is not waited for once more.
    if (isUnderWay() && m_updating.isUnderWay() && m_updating.commandDeadline().hasExpired())
        noteSilence();
}

void ZLMoveToFile::settle(QDeadlineTimer deadline)
{
    if (isUnderWay() && !m_writer.isUnderWay() && !m_updating.settle(deadline))
        leaveHangingFile();
    write();
    while (isUnderWay() && m_writer.settle(deadline)) {
        // One that had not begun was called off.
        write();
    }
    if (isUnderWay())
        giveUp();
}

void ZLMoveToFile::write()
{
    if (!isUnderWay() || m_writer.isUnderWay())
        return;
    m_patience.start();
    m_writer.start(nextOrder());
}

ZLWriteOrder ZLMoveToFile::nextOrder()
{
    m_state = m_document.snapshot();
    return { .path = m_path, .snapshot = m_state, .revision = m_schedule.revision() };
}

void ZLMoveToFile::noteOutcome(const ZLWriteOrder& order, const ZLWriteOutcome& outcome)
{
    if (!outcome) {
        finish(outcome.status);
        return;
    }
    if (order.revision != m_schedule.revision()) {
        m_patience.start();
        if (++m_rounds < MostRounds)
            m_writer.start(nextOrder());
        else
            (void)m_writer.write(nextOrder(), QDeadlineTimer(ZLSilentDisk::CommandPatience));
        return;
    }
    m_move({ .path = m_path,
        .bytes = outcome.bytes,
        .digest = outcome.digest,
        .state = *m_state,
        .revision = order.revision });
    finish(ZLDone {});
}

void ZLMoveToFile::noteSilence()
{
    if (!m_writer.isUnderWay())
        leaveHangingFile();
    // The bytes of a long document take their time; only the disk is lost patience with.
    else if (m_writer.progress().isAtDisk)
        giveUp();
    else
        m_patience.start();
}

void ZLMoveToFile::leaveHangingFile()
{
    if (m_path == m_place.path())
        finish(m_updating.noteHangingFile());
    else
        write();
}

void ZLMoveToFile::giveUp()
{
    m_writer.abandon();
    finish(ZLSilentDisk::error(m_path));
}

void ZLMoveToFile::finish(const ZLStatus& status)
{
    m_patience.stop();
    m_state.reset();
    const ZLWhenDone whenDone = std::exchange(m_whenDone, nullptr);
    m_updating.resume();
    whenDone(status);
}
