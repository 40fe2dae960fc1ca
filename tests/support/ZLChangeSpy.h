#pragma once

#include "document/ZLChapterDocument.h"

/// Counts what a document tells, as far as it concerns some of its parts.
class ZLChangeSpy {
public:
    ZLChangeSpy(const ZLChapterDocument& document, ZLDocumentChange::Parts parts)
    {
        QObject::connect(
            &document, &ZLChapterDocument::changed, &m_context, [this, parts](const ZLDocumentChange& change) {
                if (change.concerns(parts))
                    m_changes.append(change);
            });
    }

    [[nodiscard]] qsizetype size() const { return m_changes.size(); }
    [[nodiscard]] const QList<ZLDocumentChange>& changes() const { return m_changes; }
    void clear() { m_changes.clear(); }

private:
    QList<ZLDocumentChange> m_changes;
    QObject m_context;
};
