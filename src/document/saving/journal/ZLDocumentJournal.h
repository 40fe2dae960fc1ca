#pragma once

#include "document/ZLChapterDocument.h"
#include "document/saving/journal/ZLChapterListShadow.h"
#include "document/saving/journal/ZLJournalBase.h"
#include "document/saving/journal/ZLJournalChange.h"
#include "document/saving/journal/ZLJournalFile.h"
#include "document/saving/journal/ZLJournalTail.h"
#include "document/saving/journal/ZLKnownVersions.h"
#include "document/saving/journal/ZLLongHandOver.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>

/// Journals one document: whatever changes in it is handed to the kernel before the document tells its listeners, and
/// synced by a thread of the journal's own. While no file is begun it only watches.
class ZLDocumentJournal : public QObject {
    Q_OBJECT

public:
    static constexpr int TickInterval = 1000; ///< Milliseconds between readings of a running clock.
    static constexpr int TicksPerSync = 5;
    static constexpr qint64 SmallSize = 1024 * 1024; ///< Bytes up to which a journal is never begun anew.

    /// `document` has to outlive the journal.
    ZLDocumentJournal(ZLChapterDocument& document, ZLJournalDisk disk);

    [[nodiscard]] bool isBegun() const { return m_file != nullptr; }
    /// The file under way, for others that write to it beside the journal; null when none is begun.
    [[nodiscard]] const std::shared_ptr<ZLJournalFile>& file() const { return m_file; }
    /// Which folder does not take the journal and why; empty while it does, and while none is begun.
    [[nodiscard]] QString failureText() const { return m_file ? m_file->failureText() : QString(); }
    /// Whether a wait for the hand-over of changes has run out, and they are not handed over yet.
    [[nodiscard]] bool isLagging() const { return m_file && m_file->isLagging(); }
    /// Whether a record is being handed over that takes its time.
    [[nodiscard]] bool isHandingOver() const { return m_longHandOver.isUnderWay(); }
    [[nodiscard]] ZLProgress progress() const { return m_file ? m_file->progress() : ZLProgress(); }
    /// The document as it is now, in bytes that are there already: a journal that is begun after the next change starts
    /// from them. To be called while no file is begun.
    void setBase(const QByteArray& bytes);
    /// Begins the journal at `journalPath`. `filePath` is the user's file, empty for none, and `versions` what that may
    /// hold. Waits until the kernel has it, unless the document is long.
    void begin(const QString& journalPath, const QString& filePath, const ZLKnownVersions& versions);
    /// Begins it anew, from a new snapshot, when it is broken or has outgrown the last one several times.
    void tidy(const ZLKnownVersions& versions);
    /// Stops journaling and leaves the file as it is. Returns false when its disk does not take everything before
    /// `deadline`.
    bool end(QDeadlineTimer deadline);

    /// Whether the document differs from what it was at the last call, or at the beginning. To be asked while no file
    /// is begun.
    [[nodiscard]] bool noticeChange();
    /// Journals what differs from the last record, and waits until the kernel has it, unless that is a long list.
    void note();
    /// Makes the call when the kernel has everything: at once, or as soon as a long list is handed over.
    void whenHandedOver(std::function<void()> call) { m_longHandOver.whenOver(std::move(call)); }
    /// Journals the reading of a running clock; without waiting.
    void noteReading();

private:
    enum class Length { Short, Long };
    struct ClockState {
        bool isRunning = false;
        double startTime = 0.0;
        double duration = 0.0;
        std::optional<ZLInterruptedRecording> interruption {};

        bool operator==(const ClockState&) const = default;
    };

    [[nodiscard]] ClockState clockState() const;
    void followClock();
    void rememberDocument();
    [[nodiscard]] ZLJournalDifference readingNow() const;
    /// Hands the record to the file, and to the memory that outlives the process.
    void append(const ZLJournalDifference& change, ZLJournalFile::Sync sync);
    /// What differs from the last call; absent for nothing.
    [[nodiscard]] std::optional<ZLJournalDifference> takeDifference();
    /// Returns how long that is with which it begins.
    [[nodiscard]] Length beginFile(const ZLKnownVersions& versions);
    /// For a record of that length: on the spot, or beside for one that takes its time.
    void waitForHandOver(Length length);

    ZLChapterDocument& m_document;
    const ZLJournalDisk m_disk;
    std::shared_ptr<ZLJournalFile> m_file;
    std::optional<ZLJournalTail> m_tail;
    /// That of the newest change. It begins at random, so that no other journal has the same ones.
    qint64 m_number;
    QString m_filePath;
    ZLChapterListShadow m_chapters;
    ZLChapterListShadow m_templates;
    ClockState m_clock;
    /// Absent when the document has become different in more than one step since.
    std::optional<ZLJournalBase> m_base;
    std::optional<ZLJournalDifference> m_changeSinceBase;
    ZLLongHandOver m_longHandOver;
    QTimer m_tickTimer { this };
    int m_ticks = 0;
};
