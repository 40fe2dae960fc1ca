#pragma once

#include "app/session/ZLOpenDocuments.h"
#include "document/saving/ZLDocumentSaver.h"

#include <QStringList>

#include <functional>

/// Which documents are open, remembered so that the next start opens them again, and beside them whatever else the
/// recovery folder keeps.
class ZLSession {
public:
    /// How documents are opened. Each returns what went wrong.
    struct Openers {
        std::function<ZLStatus(const QString& path)> openFile;
        std::function<ZLStatus(const QString& path)> openRecoveryFile;
    };

    /// Keeps its memory in `stateFolder`. `recoveryFolder` has to outlive the session.
    ZLSession(const QString& stateFolder, const ZLRecoveryFolder& recoveryFolder, ZLOpenDocuments::Executor executor);

    /// Opens what was open when the program ended, whatever ended it, and what else was kept. Returns what could not be
    /// opened, a sentence each.
    QStringList restore(const Openers& openers);
    /// Opens what was kept, except the files of the recovery folder with these names.
    [[nodiscard]] QStringList restoreKept(const Openers& openers, const QStringList& fileNamesToLeaveOut = {}) const;

    /// Remembers the documents of these savers as open, in order.
    void remember(const QList<const ZLDocumentSaver*>& savers);
    /// From here on, what is remembered stays although documents are closed.
    void keepAsItIs() { m_isKept = true; }
    void followAgain() { m_isKept = false; }
    /// Waits for what was remembered, until `deadline`.
    void end(QDeadlineTimer deadline) { m_openDocuments.end(deadline); }

private:
    const ZLRecoveryFolder& m_recoveryFolder;
    ZLOpenDocuments m_openDocuments;
    bool m_isKept = false;
};
