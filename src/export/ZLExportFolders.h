#pragma once

#include <QString>

/// Remembers for each format in which folder it was written last, in the user's state folder. Losing it costs nothing
/// but comfort, so failures are not reported.
class ZLExportFolders {
public:
    explicit ZLExportFolders(const QString& stateFolder);

    /// Where the dialog of the format starts: in the folder of its last export, else in that of the document, else
    /// where the user keeps documents. A folder that is gone does not count; `documentPath` is empty for an untitled
    /// document.
    [[nodiscard]] QString folderFor(const QString& formatName, const QString& documentPath) const;
    /// To be called when the format was written to `path`.
    void remember(const QString& formatName, const QString& path) const;

private:
    QString m_stateFolder;
    QString m_path;
};
