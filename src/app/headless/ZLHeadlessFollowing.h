#pragma once

#include "app/headless/ZLHeadlessStreams.h"
#include "following/ZLFollowing.h"

#include <QObject>

/// Follows a recorder without a window: a line for each thing that happens.
class ZLHeadlessFollowing : public QObject {
    Q_OBJECT

public:
    /// `following` has to outlive the object. `word` is that of a kind.
    ZLHeadlessFollowing(ZLFollowing& following, QString word, ZLHeadlessStreams streams, QObject* parent = nullptr);

    /// The error says that there is no such kind.
    ZLStatus begin(ZLChapterDocument& document);

private:
    ZLFollowing& m_following;
    const QString m_word;
    const ZLHeadlessStreams m_streams;
};
