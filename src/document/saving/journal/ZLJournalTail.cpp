#include "document/saving/journal/ZLJournalTail.h"

#include "platform/ZLBoundedFile.h"
#include "platform/ZLRuntimeFolder.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// Empty where there is no place for it.
QString pathOfTail(const QString& journalPath)
{
    const QString folder = ZLRuntimeFolder::pathInMemory();
    return folder.isEmpty() ? QString() : folder + u"/zelta-"_s + QFileInfo(journalPath).fileName();
}

}

ZLJournalTail::ZLJournalTail(const QString& journalPath)
    : m_nativePath(QFile::encodeName(pathOfTail(journalPath)))
{
}

ZLJournalTail::~ZLJournalTail()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

void ZLJournalTail::append(const ZLJournalRecord& record, bool isRestJournaled)
{
    if (isRestJournaled)
        beginAnew();
    if (m_isWhole)
        write(ZLJournalRecords::encoded(m_nextSequence++, record));
}

void ZLJournalTail::beginAnew()
{
    if (m_descriptor < 0 && !m_nativePath.isEmpty())
        m_descriptor = open(m_nativePath.constData(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600);
    m_isWhole = m_descriptor >= 0 && ftruncate(m_descriptor, 0) == 0;
    m_nextSequence = 0;
    m_size = 0;
    if (m_isWhole)
        write(ZLJournalRecords::Signature);
}

void ZLJournalTail::write(const QByteArray& bytes)
{
    // What follows a gap could not be understood, so it is left out until the journal has caught up.
    m_isWhole = m_size + bytes.size() <= LargestSize
        && pwrite(m_descriptor, bytes.constData(), size_t(bytes.size()), m_size) == bytes.size();
    m_size += bytes.size();
}

void ZLJournalTail::remove(const QString& journalPath)
{
    if (const QString path = pathOfTail(journalPath); !path.isEmpty())
        QFile::remove(path);
}

QByteArray ZLJournalTail::read(const QString& journalPath)
{
    const QString path = pathOfTail(journalPath);
    return path.isEmpty() ? QByteArray() : ZLBoundedFile::find(path, ZLFileBound::Document, ZLFileLinks::Refuse).bytes;
}
