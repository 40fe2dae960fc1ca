#pragma once

#include "platform/ZLFileLock.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

class ZLOpenFileNote;

/// The documents that are open in this process, told to every other process of this user by a file in the state folder.
/// The kernel drops the lock on it when the process ends in whatever way, and with it what it says. One a process; main
/// thread only.
class ZLOpenFileList {
public:
    [[nodiscard]] static ZLOpenFileList& ofThisProcess();

    /// For ZLOpenFileNote.
    /// @{
    void add(const ZLOpenFileNote& note);
    void remove(const ZLOpenFileNote& note);
    /// @}

    /// Paths of the documents that are open in this process, without the one of `except`.
    [[nodiscard]] QStringList pathsHere(const ZLOpenFileNote* except) const;
    /// Paths of the documents that are open in other processes. Lists of processes that died are cleared away.
    [[nodiscard]] QStringList pathsElsewhere() const;

private:
    ZLOpenFileList() = default;

    void publish();
    void takeListFile();

    QList<const ZLOpenFileNote*> m_notes;
    QString m_listPath;
    std::unique_ptr<ZLFileLock> m_listFile;
};
