#pragma once

#include "document/saving/journal/ZLJournalFile.h"
#include "listening/ZLListeningData.h"

#include <QString>

#include <memory>
#include <vector>

/// Keeps what is heard in the recovery folder while the clock runs, so that a kill or a crash loses no more than what
/// came since the last note.
class ZLListeningJournal {
public:
    /// How often what was heard is synced: with each that many notes.
    static constexpr int NotesPerSync = 5;

    explicit ZLListeningJournal(ZLJournalDisk disk = {});
    /// Waits until the disk has everything, but not longer than a command does.
    ~ZLListeningJournal();
    Q_DISABLE_COPY_MOVE(ZLListeningJournal)

    /// Writes at `path` what is new of `spans`, which are those of one run of the clock. At another path than before,
    /// and where the file is broken or was taken away, it begins anew with all of them.
    void note(const QString& path, const std::vector<ZLListeningSpan>& spans);
    /// The run of the clock is over. The next one is added to the file.
    void endRun();
    /// Deletes the file at `path`, also what is still on its way there. The next note begins a new one.
    void remove(const QString& path);

    /// Adds what is at `path` to `data`, where that has not as much already; nothing where there is no such file. A
    /// torn end, or whatever is no span, ends it.
    static void addTo(ZLListeningData& data, const QString& path);

private:
    void openFile(const QString& path);
    void beginFile(const std::vector<ZLListeningSpan>& spans);
    void closeFile();

    const ZLJournalDisk m_disk;
    std::shared_ptr<ZLJournalFile> m_file;
    QString m_path;
    /// Nothing is written to the file yet.
    bool m_isNew = true;
    bool m_wasThere = false;
    /// Of runs that are over.
    std::size_t m_formerSpans = 0;
    /// What is written of this run: its spans, and the frames of the last of them.
    std::size_t m_spanCount = 0;
    std::size_t m_frameCount = 0;
    int m_notes = 0;
};
