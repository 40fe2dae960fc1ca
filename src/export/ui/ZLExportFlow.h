#pragma once

#include "export/ZLExporter.h"
#include "export/ui/ZLSelectedSession.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <optional>

class QCheckBox;
class QFileDialog;
class ZLChapterDocument;
class ZLExportAdviceView;

/// One export, from the file dialog to the written file. It is made for one menu click, reports once at most and then
/// deletes itself; nothing is remembered for the next export.
class ZLExportFlow : public QObject {
    Q_OBJECT

public:
    explicit ZLExportFlow(const ZLExporterClass& exporterClass, QObject* parent = nullptr);
    ~ZLExportFlow() override;

    /// How a file is opened in the user's text editor; a test hands in something else.
    using FileOpener = std::function<void(const QString& path)>;
    void setFileOpener(FileOpener opener) { m_openFile = std::move(opener); }

    /// Where the dialog starts; the working directory unless it is told.
    void setFolder(const QString& folder) { m_folder = folder; }

    /// Shows the dialog, as a window of its own in front of `window`, and returns at once. The chapters are taken when
    /// the dialog is confirmed. Without a document the format's empty file is written; a document that is closed while
    /// the dialog stands is not exported any more. Does nothing for a format without a file.
    ///
    /// What the destination will not like stands in the dialog and follows the document and the selected file. The
    /// desktop's own dialog has no place for that, so it is never taken, and all exports look alike.
    void exportChapters(ZLChapterDocument* document, QWidget* window = nullptr);

    /// The dialog while it stands, else null.
    [[nodiscard]] QFileDialog* dialog() const;

Q_SIGNALS:
    /// The file at `path` is written.
    void exportDidFinish(const QString& path);
    /// The file at `path` is written, but what it was to get is not in it; `reason` says why in one sentence.
    void exportDidInsertNothing(const QString& path, const QString& reason);
    /// Nothing was written; `message` says why in one sentence. Where the format has an alert for it, the alert is
    /// shown instead.
    void exportDidFail(const QString& message);

private:
    void createDialog(const QString& displayName, QWidget* window);
    void installAdditions();
    void updateAdvice();
    void dialogDidFinish(int result);
    void showAlert(const ZLExportAlert& alert) const;
    [[nodiscard]] bool isDocumentGone() const { return m_document && m_document->isNull(); }
    void exportTo(const QString& path);
    [[nodiscard]] ZLStatus write(const QString& path, const ZLExportInput& input, const QByteArray& bytes) const;
    [[nodiscard]] ZLExportInput inputFor(const QString& path) const;

    ZLExporterClass m_exporterClass;
    FileOpener m_openFile;
    QString m_folder;
    ZLSelectedSession m_session;
    /// Absent when there was no document from the start; null when it was closed since.
    std::optional<QPointer<ZLChapterDocument>> m_document;
    QPointer<QFileDialog> m_dialog;
    QCheckBox* m_optionCheckBox = nullptr;
    ZLExportAdviceView* m_adviceView = nullptr;
};
