#pragma once

#include <QString>

/// Says for as long as it lives that the document at a path is open, so that nothing else is written over it: see
/// ZLWriteProtection.
class ZLOpenFileNote {
public:
    explicit ZLOpenFileNote(const QString& path);
    ~ZLOpenFileNote();
    Q_DISABLE_COPY_MOVE(ZLOpenFileNote)

    [[nodiscard]] const QString& path() const { return m_path; }

private:
    const QString m_path;
};
