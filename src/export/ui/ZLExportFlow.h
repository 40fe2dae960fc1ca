#pragma once

#include "export/ZLExporter.h"
#include "export/ui/ZLSelectedSession.h"

#include <QObject>
#include <QPointer>

#include <functional>

class QCheckBox;
class QFileDialog;
class QMessageBox;
class ZLChapterDocument;
class ZLExportAdviceView;
class ZLLinePatternView;

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
    /// What the dialog proposes as the line pattern of a format that has one; empty for the format's usual one.
    void setLinePattern(const QString& pattern) { m_proposedPattern = pattern; }

    /// Shows the dialog, as a window of its own, and returns at once. The chapters are taken when the dialog is
    /// confirmed, or when the document closes before. Without a document the format's empty file is written. `window`
    /// is where an alert of the format will stand. Does nothing for a format without a file.
    ///
    /// What the destination will not like stands in the dialog and follows the document and the selected file. The
    /// desktop's own dialog has no place for that, so it is never taken, and all exports look alike.
    void exportChapters(ZLChapterDocument* document, QWidget* window = nullptr);

    /// To be called before the document goes. The dialog stays, and the export will have what the document held.
    void documentWillClose();

    /// How the file is written, or was: the checkbox and the line pattern of the dialog.
    /// @{
    [[nodiscard]] ZLExportOption option() const;
    [[nodiscard]] QString linePattern() const;
    /// @}

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
    void createDialog(const QString& displayName);
    void installAdditions();
    void addLinePattern();
    void updateAdvice();
    void updatePreview(const ZLExportInput& input);
    void dialogDidFinish(int result);
    void showAlert(const ZLExportAlert& alert);
    void exportTo(const QString& path);
    [[nodiscard]] ZLStatus write(const QString& path, const ZLExportInput& input, const QByteArray& bytes) const;
    [[nodiscard]] ZLExportInput inputFor(const QString& path) const;

    ZLExporterClass m_exporterClass;
    FileOpener m_openFile;
    QString m_folder;
    QString m_proposedPattern;
    ZLSelectedSession m_session;
    /// Null when there was no document from the start, or when it was closed since.
    QPointer<ZLChapterDocument> m_document;
    /// What the document held when it was closed.
    ZLExportInput m_heldAtLast;
    QPointer<QWidget> m_window;
    QPointer<QFileDialog> m_dialog;
    QPointer<QMessageBox> m_alert;
    QCheckBox* m_optionCheckBox = nullptr;
    ZLLinePatternView* m_linePatternView = nullptr;
    ZLExportAdviceView* m_adviceView = nullptr;
};
