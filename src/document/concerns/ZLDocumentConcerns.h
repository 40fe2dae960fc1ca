#pragma once

#include "document/concerns/ZLConcern.h"
#include "document/saving/ZLDocumentSaver.h"

#include <QHash>
#include <QObject>

/// Where concerns are read.
enum class ZLConcernReader {
    Window, ///< Of the document alone: its file is called by its name.
    Terminal, ///< Among lines about other documents: the file is called by its path.
};

/// What needs a decision about one document, or is told of it: one derivation and one wording, whatever shows it.
class ZLDocumentConcerns : public QObject {
    Q_OBJECT

public:
    /// `document` and `saver` have to outlive the object.
    ZLDocumentConcerns(
        ZLChapterDocument& document, ZLDocumentSaver& saver, ZLConcernReader reader, QObject* parent = nullptr);

    /// In the order of their urgency at the start.
    [[nodiscard]] QList<ZLConcern> all() const;
    /// Carries out one of the choices of `concern`, except SaveAs. The error says why that could not be done; the
    /// concern is still there then. What works on files goes on beside the event loop.
    void choose(const ZLConcern& concern, ZLConcernAction action, const ZLWhenDone& whenDone);

Q_SIGNALS:
    /// A concern came, went or reads differently, or may have.
    void didChange();

private:
    void followState();
    void followLocation();
    void perform(ZLConcernAction action, const ZLWhenDone& whenDone);
    [[nodiscard]] QString fileText() const;
    [[nodiscard]] ZLConcern conflict() const;
    [[nodiscard]] ZLConcern interruption(const ZLInterruptedRecording& interruption) const;
    [[nodiscard]] ZLConcern openElsewhere() const;
    [[nodiscard]] ZLConcern recoveryFailure() const;
    [[nodiscard]] ZLConcern savingFailure() const;
    [[nodiscard]] ZLConcern readOnlyFile() const;
    [[nodiscard]] ZLConcern sleep() const;
    [[nodiscard]] ZLConcern recorderDifference() const;

    ZLChapterDocument& m_document;
    ZLDocumentSaver& m_saver;
    const ZLConcernReader m_reader;
    /// Why the file could not be written, until it is.
    QString m_failure;
    /// Why the last decision about a conflict was not carried out, until the next one.
    QString m_refusal;
    /// Looked up once, for the disk may be slow.
    bool m_isReadOnly = false;
    /// The sentences that the user has dismissed, by the names of their concerns.
    QHash<QString, QString> m_dismissed;
};
