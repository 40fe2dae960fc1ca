#pragma once

#include "import/ZLDocumentImport.h"
#include "platform/ZLDiskWork.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>

class ZLChapterDocumentWindow;
class ZLImportSheet;

/// Brings chapters from files, the clipboard and dropped texts into a document, in its window. A sheet shows what will
/// come before anything is changed.
class ZLImportDisplay : public QObject {
    Q_OBJECT

public:
    /// Belongs to `window`.
    explicit ZLImportDisplay(ZLChapterDocumentWindow& window);

    /// Asks for a file.
    void chooseFile();
    /// Shows what is in the file at `path`, or says why there is nothing. The file is read beside the main thread,
    /// since its disk may not answer and it may be long; what is named later takes its place.
    void importFile(const QString& path);
    /// The same for a text.
    void importText(const QString& text);
    void importFromClipboard();
    /// The first list among them is imported; documents are asked to be opened.
    void takeDroppedFiles(const QStringList& paths);

Q_SIGNALS:
    void openRequested(const QStringList& paths);

private:
    void readSource(const QString& name, const std::function<ZLResult<ZLImportSource>()>& find,
        const std::function<void(const QString& reason)>& sayWhyThereIsNone);
    void read(ZLDiskWork::Work work, const QString& name);
    void takeSortedFiles(const QStringList& documents, const QStringList& lists);
    void takeSource(const ZLImportSource& source, const ZLImportPlan& plan, const QString& name);
    void makeSheet();
    void carryOut();
    [[nodiscard]] static QString textFor(const ZLDocumentImport::Outcome& outcome);
    void close();

    ZLChapterDocumentWindow& m_window;
    /// Null until it is wanted.
    ZLImportSheet* m_sheet = nullptr;
    std::unique_ptr<ZLDiskWork> m_reading;
    QTimer m_slowReading;
};
