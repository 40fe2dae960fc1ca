#include "app/ZLHeadlessRecorder.h"
#include "app/ZLSleepText.h"

void ZLHeadlessRecorder::reportSleep()
{
    const QString sentence = ZLSleepText::sentence(m_document->undecidedSleeps());
    if (!sentence.isEmpty())
        m_streams.complain(
            tr("%1 \"addsleep\" adds that time to it and to the chapters after it, \"leavesleep\" leaves it.")
                .arg(sentence));
}

void ZLHeadlessRecorder::addSleptTime(const QString&)
{
    if (m_document->undecidedSleeps().isEmpty())
        return;
    m_document->addSleptTime();
    print(tr("the clock reads %1").arg(m_document->clockText()));
}

void ZLHeadlessRecorder::leaveSleptTime(const QString&)
{
    if (m_document->undecidedSleeps().isEmpty())
        return;
    m_document->leaveSleptTime();
    print(tr("the clock reads %1").arg(m_document->clockText()));
}
