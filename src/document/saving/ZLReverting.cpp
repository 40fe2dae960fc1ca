#include "document/saving/ZLReverting.h"

bool ZLReverting::canRevert() const
{
    return !m_document.isRecording() && !m_point.isEmpty() && m_document.dataOfType() != m_point;
}

ZLStatus ZLReverting::revert()
{
    if (m_document.isRecording())
        return clockIsRunning();
    if (!canRevert())
        return ZLDone {};
    const auto contents = ZLDocumentFile::decode(m_point);
    if (!contents)
        return contents.error();
    m_document.revertToContents(contents.value());
    return ZLDone {};
}

ZLStatus ZLReverting::revertTo(const ZLDocumentState& state)
{
    if (m_document.isRecording())
        return clockIsRunning();
    const auto contents = ZLDocumentHistory::contentsOf(state);
    if (!contents)
        return contents.error();
    if (m_document.dataOfType() == ZLDocumentFile::encode(contents.value()))
        return ZLDone {};
    m_states.makeDue();
    m_document.revertToContents(contents.value());
    return ZLDone {};
}

ZLError ZLReverting::clockIsRunning()
{
    return { tr("The clock is running. Pause the recording before you revert.") };
}
