#pragma once

#include "document/saving/ZLDiskWatch.h"
#include "document/saving/ZLDocumentPlace.h"
#include "document/saving/ZLKnownFile.h"
#include "document/saving/journal/ZLDocumentJournal.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QTimer>

/// Gives a document a journal in the recovery folder from its first change on, replaces one that the folder lost, and
/// tells when the folder does not take it.
class ZLJournaling : public QObject {
    Q_OBJECT

public:
    static constexpr int RetryInterval = 2000; ///< Milliseconds between two attempts to write to a folder that fails.

    /// All of them have to outlive the object.
    ZLJournaling(ZLChapterDocument& document, ZLDocumentPlace& place, const ZLKnownFile& knownFile,
        ZLDiskWatch& diskWatch, ZLJournalDisk disk);

    [[nodiscard]] ZLProgress progress() const { return m_journal.progress(); }
    /// Which recovery folder does not take the journal and why; empty while all is well.
    [[nodiscard]] const QString& failureText() const { return m_failureText; }
    /// Whether the newest changes are in no journal yet.
    [[nodiscard]] bool isBehind() const { return m_journal.isLagging() || !m_failureText.isEmpty(); }
    /// The file that the journal is written to, which a write of the document tells what it writes; null for none.
    [[nodiscard]] const std::shared_ptr<ZLJournalFile>& file() const { return m_journal.file(); }

    /// The document as it is now, in bytes that are there already. To be called while no journal is begun.
    void setBase(const QByteArray& bytes) { m_journal.setBase(bytes); }
    /// Journals what changed, and waits until the kernel has it, unless that is a long list. An untitled document
    /// without content has no journal.
    void note();
    /// Makes the call when a kill cannot take back any more what was noted: at once, or behind a long list.
    void whenHandedOver(std::function<void()> call) { m_journal.whenHandedOver(std::move(call)); }
    /// Begins a journal from the document as it is now.
    void begin();
    /// note() for a folder that failed, and a new beginning for a journal that grew too long.
    void retry();
    /// Journals the reading of a running clock; without waiting.
    void noteReading() { m_journal.noteReading(); }
    void followDiskWatch();

    /// Sees to it that the document has a name in the recovery folder, which may have been taken away.
    [[nodiscard]] ZLStatus ensureRecoveryFile();
    /// Ends the journal and deletes what the document holds in the recovery folder.
    void removeRecoveryFile();
    /// Ends the journal and leaves it where it is. Returns false when its disk does not take everything before
    /// `deadline`.
    [[nodiscard]] bool end(QDeadlineTimer deadline);

Q_SIGNALS:
    void retryIsDue();
    void failureTextDidChange();

private:
    [[nodiscard]] bool isWanted() const;
    [[nodiscard]] bool isDue();
    [[nodiscard]] QDeadlineTimer patience() const;
    void setFailureText(const QString& text);

    ZLChapterDocument& m_document;
    ZLDocumentPlace& m_place;
    const ZLKnownFile& m_knownFile;
    ZLDiskWatch& m_diskWatch;
    ZLDocumentJournal m_journal;
    QTimer m_retryTimer;
    QString m_failureText;
    /// Something changed that only a journal would hold.
    bool m_isDue = false;
};
