#include "following/ZLFollowing.h"

#include "document/ZLChapterDocument.h"
#include "following/ZLFollowingSettings.h"

#include <QLocale>

#include <algorithm>
#include <utility>

ZLFollowing::ZLFollowing(QList<ZLRecorderKind> kinds, std::shared_ptr<const ZLHostClock> hostClock)
    : m_kinds(std::move(kinds))
    , m_hostClock(std::move(hostClock))
{
}

ZLFollowing::~ZLFollowing() = default;

const ZLRecorderKind* ZLFollowing::kindWithWord(const QString& word) const
{
    const auto found = std::ranges::find(m_kinds, word, &ZLRecorderKind::word);
    return found == m_kinds.end() ? nullptr : &*found;
}

ZLStatus ZLFollowing::follow(ZLChapterDocument& document, const QString& word)
{
    const ZLRecorderKind* kind = kindWithWord(word);
    if (!kind)
        return ZLError { tr("There is no recorder “%1” to follow.").arg(word) };
    m_follower.reset();
    m_word = word;
    m_follower = std::make_unique<ZLRecorderFollower>(document,
        ZLFollowerSetup {
            .recorder = kind->make(),
            .recorderName = kind->name,
            .startsRecorder = ZLFollowingSettings::startsRecorder(),
            .marksChapters = ZLFollowingSettings::marksChapters(),
            .hostClock = m_hostClock,
        });
    connect(m_follower.get(), &ZLRecorderFollower::stateDidChange, this, &ZLFollowing::stateDidChange);
    connect(m_follower.get(), &ZLRecorderFollower::didHappen, this, &ZLFollowing::tell);
    tell(tr("“%1” follows %2.").arg(document.displayName(), kind->name));
    m_follower->open();
    Q_EMIT stateDidChange();
    return ZLDone {};
}

void ZLFollowing::followAnew()
{
    if (m_follower)
        (void)follow(m_follower->document(), QString(m_word));
}

void ZLFollowing::stop()
{
    if (!m_follower)
        return;
    const QString name = m_follower->recorderName();
    m_follower.reset();
    m_word.clear();
    tell(tr("%1 is not followed any more.").arg(name));
    Q_EMIT stateDidChange();
}

ZLFollowingState ZLFollowing::state() const
{
    return m_follower ? m_follower->state() : ZLFollowingState::Off;
}

QString ZLFollowing::lampText() const
{
    switch (state()) {
    case ZLFollowingState::Off:
        return {};
    case ZLFollowingState::Connecting:
        return tr("%1: no answer").arg(m_follower->recorderName());
    case ZLFollowingState::Refused:
        return tr("%1: refused").arg(m_follower->recorderName());
    case ZLFollowingState::Ready:
        return tr("%1: ready").arg(m_follower->recorderName());
    case ZLFollowingState::Following:
        return tr("%1: following").arg(m_follower->recorderName());
    case ZLFollowingState::Lost:
        return tr("%1: lost since %2").arg(m_follower->recorderName(), lostSinceText());
    }
    return {};
}

QString ZLFollowing::stateText() const
{
    switch (state()) {
    case ZLFollowingState::Off:
        return tr("No recorder is followed.");
    case ZLFollowingState::Connecting:
    case ZLFollowingState::Refused:
        return m_follower->reason().isEmpty() ? tr("%1 does not answer yet.").arg(m_follower->recorderName())
                                              : m_follower->reason();
    case ZLFollowingState::Ready:
        return tr("%1 is there. Zelta's clock starts with it.").arg(m_follower->recorderName());
    case ZLFollowingState::Following:
        return tr("Zelta's clock goes as that of %1.").arg(m_follower->recorderName());
    case ZLFollowingState::Lost:
        return tr("%1 has been lost since %2. Zelta's clock goes on as it went last.")
            .arg(m_follower->recorderName(), lostSinceText());
    }
    return {};
}

QString ZLFollowing::lostSinceText() const
{
    return QLocale().toString(m_follower->lostSince().toLocalTime().time(), QLocale::ShortFormat);
}

void ZLFollowing::tell(const QString& sentence)
{
    m_log.append(QDateTime::currentDateTimeUtc(), sentence);
    Q_EMIT didHappen(sentence);
}
