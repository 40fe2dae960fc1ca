#include "document/saving/ZLReverting.h"

#include "listening/ZLListeningData.h"

bool ZLReverting::canRevert() const
{
    if (m_document.isRecording() || m_point.isEmpty() || m_document.dataOfType() == m_point)
        return false;
    if (!m_document.extras().value(ZLListeningData::Key).isValid())
        return true;
    const auto contents = ZLDocumentFile::decode(m_point);
    return !contents || leadsElsewhere(contents.value());
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
    if (!leadsElsewhere(contents.value()))
        return ZLDone {};
    m_states.makeDue();
    m_document.revertToContents(contents.value());
    return ZLDone {};
}

bool ZLReverting::leadsElsewhere(ZLDocumentContents contents) const
{
    contents.extras = ZLListeningData::adopted(contents.extras, m_document.extras().values());
    return m_document.dataOfType() != ZLDocumentFile::encode(contents);
}

ZLError ZLReverting::clockIsRunning()
{
    return { tr("The clock is running. Pause the recording before you revert.") };
}
