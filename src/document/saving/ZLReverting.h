#pragma once

#include "document/ZLChapterDocument.h"
#include "document/saving/ZLStateRhythm.h"
#include "document/saving/ZLWhenDone.h"
#include "platform/ZLDiskWork.h"

#include <QCoreApplication>

#include <future>
#include <optional>

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
    Q_DISABLE_COPY_MOVE(ZLReverting)
    ~ZLReverting();

    /// Where revert() leads. Before the first one it leads nowhere.
    void setPoint(const ZLDocumentSnapshot& point);
    /// The same for a document in its file form, which is read on another thread; empty for nowhere.
    void setPointIn(const QByteArray& bytes);

    /// Whether the document differs from that point. Never while the clock runs.
    [[nodiscard]] bool canRevert() const;
    ZLStatus revert();
    /// Goes to a former state, which is read beside the event loop. What is left is kept with the next write, also
    /// after the next start.
    void revertTo(const ZLDocumentState& state, ZLWhenDone whenDone);
    /// Waits for that.
    void settle(QDeadlineTimer deadline) { m_reading.settle(deadline); }

private:
    using Point = std::optional<ZLDocumentSnapshot>;

    ZLStatus revertToParts(const ZLDocumentParts& state);
    /// As it is when what was heard since stays.
    [[nodiscard]] bool leadsElsewhere(const ZLDocumentSnapshot& point) const;
    [[nodiscard]] static ZLError clockIsRunning();

    ZLChapterDocument& m_document;
    ZLStateRhythm& m_states;
    std::shared_future<Point> m_point;
    ZLDiskWork m_reading;
};
