#pragma once

#include "platform/ZLFileLock.h"

#include <QDeadlineTimer>
#include <QList>
#include <QString>
#include <QThreadPool>

#include <functional>
#include <memory>

/// One document that was open.
struct ZLOpenDocumentEntry {
    enum class Kind {
        File, ///< A file of the user's.
        Recovery, ///< An untitled document, kept in the recovery folder.
    };
    Kind kind = Kind::File;
    QString path;

    bool operator==(const ZLOpenDocumentEntry&) const = default;
};

/// Remembers on the disk which documents are open, so that the next start can open them again, however this one ends.
/// One process at a time owns the memory: another that runs beside it reads nothing from it and leaves it alone.
class ZLOpenDocuments {
public:
    using Executor = std::function<void(std::function<void()>)>;

    /// Keeps its file "session.json" in `stateFolder`. Writes are handed to `executor`, when empty to a thread of its
    /// own.
    explicit ZLOpenDocuments(const QString& stateFolder, Executor executor = {});

    [[nodiscard]] bool isOwner() const { return m_lock != nullptr; }
    /// In opening order; empty when nothing is remembered, when it cannot be read or belongs to another process.
    [[nodiscard]] QList<ZLOpenDocumentEntry> load() const;
    /// Does not wait for the disk.
    void store(const QList<ZLOpenDocumentEntry>& entries);
    /// Waits for what was stored, until `deadline`. Nothing may be stored afterwards.
    void end(QDeadlineTimer deadline);

private:
    QString m_path;
    std::unique_ptr<ZLFileLock> m_lock;
    Executor m_executor;
    std::shared_ptr<QThreadPool> m_worker = std::make_shared<QThreadPool>();
};
