#pragma once

#include "app/ZLDocumentController.h"

#include <QObject>

#include <functional>
#include <map>

/// Says in a line of each document when its file cannot be written and when that is over, and of the recovery folder,
/// which all of them share.
class ZLHeadlessSavingReports : public QObject {
    Q_OBJECT

public:
    using Complain = std::function<void(const QString& line)>;

    /// `controller` has to outlive the reports.
    ZLHeadlessSavingReports(ZLDocumentController& controller, Complain complain, QObject* parent);

    /// Begins with what is so already. `document` is the one that commands act on; of another nobody can decide here
    /// whose version stays.
    void begin(const ZLChapterDocument* document);

    /// The document's file, or its name while it has none.
    [[nodiscard]] static QString nameOf(const ZLChapterDocument& document, const ZLDocumentSaver& saver);
    /// "saved", "saving", or why it is not.
    [[nodiscard]] static QString describe(const ZLDocumentSaver& saver);

private:
    void watch(const ZLChapterDocument* document);
    void reportFile(const ZLChapterDocument& document, const ZLDocumentSaver& saver);
    void reportRecovery(const ZLChapterDocument& document, const ZLDocumentSaver& saver);
    [[nodiscard]] QString describeFailure(const ZLChapterDocument& document, const ZLDocumentSaver& saver) const;

    ZLDocumentController& m_controller;
    const Complain m_complain;
    const ZLChapterDocument* m_document = nullptr;
    /// What was told last of each document whose file cannot be written.
    std::map<const ZLChapterDocument*, QString> m_failures;
    /// The documents whose journal cannot be written, and why.
    std::map<const ZLChapterDocument*, QString> m_recoveryFailures;
    QString m_recoveryFailure;
};
