#pragma once

#include "document/ZLChapterDocument.h"
#include "document/saving/ZLStateRhythm.h"

#include <QCoreApplication>

/// Takes a document back, undoably, to what it was. Only while its clock stands.
class ZLReverting {
    Q_DECLARE_TR_FUNCTIONS(ZLReverting)

public:
    /// Both have to outlive the object.
    ZLReverting(ZLChapterDocument& document, ZLStateRhythm& states)
        : m_document(document)
        , m_states(states)
    {
    }

    /// Where revert() leads: a document in its file form; empty when it leads nowhere.
    void setPoint(const QByteArray& bytes) { m_point = bytes; }

    /// Whether the document differs from that point. Never while the clock runs.
    [[nodiscard]] bool canRevert() const;
    ZLStatus revert();
    /// Goes to a former state. What is left is kept with the next write, also after the next start.
    ZLStatus revertTo(const ZLDocumentState& state);

private:
    [[nodiscard]] bool leadsElsewhere(ZLDocumentContents contents) const;
    [[nodiscard]] static ZLError clockIsRunning();

    ZLChapterDocument& m_document;
    ZLStateRhythm& m_states;
    QByteArray m_point;
};
