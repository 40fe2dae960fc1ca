#include "app/headless/ZLHeadlessListening.h"

#include <utility>

ZLHeadlessListening::ZLHeadlessListening(ZLShowListening& shows, ZLHeadlessStreams streams, QObject* parent)
    : QObject(parent)
    , m_shows(shows)
    , m_streams(std::move(streams))
{
    connect(&shows, &ZLShowListening::didChange, this, &ZLHeadlessListening::report);
}

void ZLHeadlessListening::begin(const QString& source)
{
    m_shows.listening().listenTo(source);
}

void ZLHeadlessListening::report()
{
    const ZLListeningState state = m_shows.listening().state();
    const QString trouble = m_shows.trouble();
    if (std::exchange(m_trouble, trouble) != trouble && !trouble.isEmpty())
        m_streams.complain(trouble);
    // Said again when there was a reason to doubt it.
    const bool isHearing = state == ZLListeningState::Hearing && trouble.isEmpty();
    if (std::exchange(m_isHearing, isHearing) != isHearing && isHearing)
        m_streams.print(tr("listening along: %1").arg(m_shows.listening().sourceName()));
}
