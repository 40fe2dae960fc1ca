#pragma once

#include "document/saving/journal/ZLJournalRecord.h"

#include <QByteArray>
#include <QString>

/// The newest records of a journal once more, in memory that outlives the process: a file in the session's runtime
/// folder. A kill loses nothing of it, while a disk that is slow, full or hanging may not have them yet. Where the
/// session has no such folder, it holds nothing. To be used by one thread.
class ZLJournalTail {
public:
    /// Bytes that it may grow to while the disk takes nothing.
    static constexpr qint64 LargestSize = 16LL * 1024 * 1024;

    /// Of the journal at this path, whose name is unlike that of any other one.
    explicit ZLJournalTail(const QString& journalPath);
    /// Leaves the file, unless it was removed.
    ~ZLJournalTail();
    Q_DISABLE_COPY_MOVE(ZLJournalTail)

    /// `isRestJournaled` says that the journal holds all records before this one, which are left out then. Nothing is
    /// kept before that was so for the first time: an older tail may still be needed.
    void append(const ZLJournalRecord& record, bool isRestJournaled);

    /// Deletes the tail of the journal at this path, if there is one.
    static void remove(const QString& journalPath);
    /// Its bytes; none where there is none. In the form of a journal, but without its beginning.
    [[nodiscard]] static QByteArray read(const QString& journalPath);

private:
    void beginAnew();
    void write(const QByteArray& bytes);

    const QByteArray m_nativePath;
    int m_descriptor = -1;
    quint32 m_nextSequence = 0;
    qint64 m_size = 0;
    /// It follows what the journal holds, without a gap.
    bool m_isWhole = false;
};
