#pragma once

#include "export/ZLExportTargets.h"

#include <QHash>
#include <QObject>

class ZLChapterDocument;
class ZLDocumentController;

/// Where each document was exported to. An untitled document has its targets too: they go with it when it gets a file,
/// and are there again after a new start, as it is itself.
class ZLExportMemory : public QObject {
    Q_OBJECT

public:
    /// Has to be made before any document is open. `controller` has to outlive it.
    explicit ZLExportMemory(ZLDocumentController& controller);

    /// What the targets of `document` are kept under; empty while nothing is kept of it.
    [[nodiscard]] QString nameOf(const ZLChapterDocument* document) const;
    /// In the order of their first exports.
    [[nodiscard]] QList<ZLExportTarget> recall(const QString& name) const { return m_targets.recall(name); }
    /// `target` takes the place of the one with the same format.
    void remember(const QString& name, const ZLExportTarget& target) const { m_targets.remember(name, target); }

private:
    void follow(ZLChapterDocument* document);
    void noteLocation(ZLChapterDocument* document);

    ZLDocumentController& m_controller;
    const ZLExportTargets m_targets;
    /// Of each open document without a file: where it was kept last.
    QHash<const ZLChapterDocument*, QString> m_untitled;
};
