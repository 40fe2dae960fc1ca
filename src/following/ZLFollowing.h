#pragma once

#include "following/ZLFollowingLog.h"
#include "following/ZLRecorderFollower.h"
#include "following/ZLRecorderKind.h"
#include "platform/ZLResult.h"

#include <QObject>

#include <memory>

/// Which document follows which recorder: one at a time. It tells what happens, and remembers the choice.
class ZLFollowing : public QObject {
    Q_OBJECT

public:
    explicit ZLFollowing(QList<ZLRecorderKind> kinds,
        std::shared_ptr<const ZLHostClock> hostClock = std::make_shared<ZLSteadyHostClock>());
    ~ZLFollowing() override;

    [[nodiscard]] const QList<ZLRecorderKind>& kinds() const { return m_kinds; }
    /// Null for a word that no kind has.
    [[nodiscard]] const ZLRecorderKind* kindWithWord(const QString& word) const;

    /// Lets the document follow a recorder of this kind by the present settings, in place of what was followed before.
    /// The error says that there is no such kind.
    ZLStatus follow(ZLChapterDocument& document, const QString& word);
    /// The same document and kind with changed settings; nothing where none is followed.
    void followAnew();
    void stop();

    /// Null while no document follows, as is the follower.
    [[nodiscard]] ZLChapterDocument* document() const { return m_follower ? &m_follower->document() : nullptr; }
    [[nodiscard]] const ZLRecorderFollower* follower() const { return m_follower.get(); }
    /// Of the kind that is followed; empty for none.
    [[nodiscard]] const QString& word() const { return m_word; }
    [[nodiscard]] ZLFollowingState state() const;
    [[nodiscard]] ZLFollowingLog& log() { return m_log; }

    /// The lamp in one or two words with the name of the recorder; empty while it is off.
    [[nodiscard]] QString lampText() const;
    /// The same as a sentence that says why.
    [[nodiscard]] QString stateText() const;

Q_SIGNALS:
    void stateDidChange();
    /// A sentence for a person, which is in the log already.
    void didHappen(const QString& sentence);

private:
    [[nodiscard]] QString lostSinceText() const;
    void tell(const QString& sentence);

    const QList<ZLRecorderKind> m_kinds;
    std::shared_ptr<const ZLHostClock> m_hostClock;
    ZLFollowingLog m_log;
    QString m_word;
    std::unique_ptr<ZLRecorderFollower> m_follower;
};
