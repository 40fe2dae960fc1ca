#pragma once

#include "export/ZLExporter.h"

#include <QObject>
#include <QPointer>

#include <optional>

class QCheckBox;
class QFileDialog;
class ZLChapterDocument;

/// One export, from the file dialog to the written file. It is made for one menu click, reports once at most and then
/// deletes itself; nothing is remembered for the next export.
class ZLExportFlow : public QObject {
    Q_OBJECT

public:
    explicit ZLExportFlow(const ZLExporterClass& exporterClass, QObject* parent = nullptr);
    ~ZLExportFlow() override;

    /// Shows the dialog, as a window of its own in front of `window`, and returns at once. The chapters are taken when
    /// the dialog is confirmed. Without a document the format's empty file is written; a document that is closed while
    /// the dialog stands is not exported any more. Does nothing for a format without a file.
    void exportChapters(ZLChapterDocument* document, QWidget* window = nullptr);

    /// The dialog while it stands, else null.
    [[nodiscard]] QFileDialog* dialog() const;

Q_SIGNALS:
    /// The file at `path` is written.
    void exportDidFinish(const QString& path);
    /// Nothing was written; `message` says why in one sentence.
    void exportDidFail(const QString& message);

private:
    void createDialog(const QString& displayName, QWidget* window);
    void installOptionCheckBox();
    void dialogDidFinish(int result);
    [[nodiscard]] bool isDocumentGone() const { return m_document && m_document->isNull(); }
    [[nodiscard]] ZLStatus writeTo(const QString& path);
    [[nodiscard]] ZLExportInput inputFor(const QString& path) const;

    ZLExporterClass m_exporterClass;
    /// Absent when there was no document from the start; null when it was closed since.
    std::optional<QPointer<ZLChapterDocument>> m_document;
    QPointer<QFileDialog> m_dialog;
    QCheckBox* m_optionCheckBox = nullptr;
};
