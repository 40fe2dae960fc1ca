#pragma once

#include "platform/ZLResult.h"

#include <QByteArray>
#include <QString>

/// Where an export of the command line goes: a file, a pipe or a device, or with "-" the standard output.
class ZLExportOutput {
public:
    /// `argument` is what the command line says; "/dev/stdout" means "-".
    explicit ZLExportOutput(const QString& argument);

    [[nodiscard]] bool isStandardOutput() const { return m_isStandardOutput; }
    /// A file is replaced as a whole; a pipe without a reader is waited for.
    [[nodiscard]] ZLStatus write(const QByteArray& bytes) const;

private:
    QString m_path;
    bool m_isStandardOutput;
};
