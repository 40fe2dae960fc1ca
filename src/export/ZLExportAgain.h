#pragma once

#include "export/ZLExportTargets.h"

/// Writes the files once more that a document was exported to.
class ZLExportAgain {
public:
    /// Why a person is asked before a target is written.
    enum class Doubt {
        None,
        Gone,
        Changed, ///< It holds something else than what was written.
        Open, ///< Another program has the file open.
        Unreadable,
    };

    struct Outcome {
        QList<ZLExportTarget> written {};
        /// A sentence each.
        QStringList problems {};
    };

    /// Of `targets` those whose format is one of `exporterClasses` are taken. A session, which is rewritten in place,
    /// is left out: its chapters would come once more.
    ZLExportAgain(const QList<ZLExportTarget>& targets, const QList<ZLExporterClass>& exporterClasses);

    [[nodiscard]] const QList<ZLExportTarget>& targets() const { return m_targets; }
    /// Paths of the sessions that are left out.
    [[nodiscard]] const QStringList& sessions() const { return m_sessions; }

    [[nodiscard]] static Doubt doubtAbout(const ZLExportTarget& target);

    /// Writes `targets`. `input` has the chapters and the recorded time.
    [[nodiscard]] Outcome write(const QList<ZLExportTarget>& targets, const ZLExportInput& input) const;

private:
    [[nodiscard]] const ZLExporterClass* classOf(const ZLExportTarget& target) const;
    [[nodiscard]] ZLResult<QByteArray> writeOne(const ZLExportTarget& target, ZLExportInput input) const;

    QList<ZLExporterClass> m_exporterClasses;
    QList<ZLExportTarget> m_targets;
    QStringList m_sessions;
};
