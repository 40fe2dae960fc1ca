#include "document/saving/ZLReverting.h"

#include "listening/ZLListeningData.h"
#include "platform/ZLLateRelease.h"

#include <QThreadPool>

#include <memory>
#include <utility>

ZLReverting::~ZLReverting()
{
    ZLLateRelease::of(std::move(m_point));
}

void ZLReverting::setPoint(const ZLDocumentSnapshot& point)
{
    ZLLateRelease::of(std::move(m_point));
    std::promise<Point> known;
    known.set_value(point);
    m_point = known.get_future().share();
}

void ZLReverting::setPointIn(const QByteArray& bytes)
{
    const auto read = std::make_shared<std::promise<Point>>();
    m_point = read->get_future().share();
    QThreadPool::globalInstance()->start([read, bytes] {
        const auto contents = ZLDocumentFile::decode(bytes, ZLDictionaryForm::Archived);
        read->set_value(contents ? Point(ZLDocumentParts::of(contents.value()).snapshot()) : std::nullopt);
    });
}

bool ZLReverting::canRevert() const
{
    return !m_document.isRecording() && m_point.valid() && m_point.get() && leadsElsewhere(*m_point.get());
}

ZLStatus ZLReverting::revert()
{
    if (m_document.isRecording())
        return clockIsRunning();
    if (canRevert())
        m_document.adopt(ZLDocumentParts::of(*m_point.get(), m_document.chapterManager().allChapters()));
    return ZLDone {};
}

void ZLReverting::revertTo(const ZLDocumentState& state, ZLWhenDone whenDone)
{
    if (m_document.isRecording() || m_reading.isUnderWay()) {
        whenDone(m_document.isRecording() ? ZLStatus(clockIsRunning()) : ZLStatus(ZLDone {}));
        return;
    }
    m_reading.start([this, state, whenDone](const ZLDiskWork::Teller& tell) {
        const auto contents = ZLDocumentHistory::contentsOf(state);
        const auto parts = contents ? ZLResult(ZLDocumentParts::of(contents.value())) : contents.error();
        tell([this, parts, whenDone] { whenDone(parts ? revertToParts(parts.value()) : ZLStatus(parts.error())); });
    });
}

ZLStatus ZLReverting::revertToParts(const ZLDocumentParts& state)
{
    if (m_document.isRecording())
        return clockIsRunning();
    if (!leadsElsewhere(state.snapshot()))
        return ZLDone {};
    m_states.makeDue();
    m_document.adopt(state);
    return ZLDone {};
}

bool ZLReverting::leadsElsewhere(const ZLDocumentSnapshot& point) const
{
    const ZLDocumentSnapshot current = m_document.snapshot();
    ZLDocumentSnapshot reached = point;
    reached.extras.values = ZLListeningData::adopted(point.extras.values, current.extras.values);
    return !current.isSameAs(reached);
}

ZLError ZLReverting::clockIsRunning()
{
    return { tr("The clock is running. Pause the recording before you revert.") };
}
