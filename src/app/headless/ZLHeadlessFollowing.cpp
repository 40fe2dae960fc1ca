#include "app/headless/ZLHeadlessFollowing.h"

#include "platform/ZLShownText.h"

#include <utility>

ZLHeadlessFollowing::ZLHeadlessFollowing(
    ZLFollowing& following, QString word, ZLHeadlessStreams streams, QObject* parent)
    : QObject(parent)
    , m_following(following)
    , m_word(std::move(word))
    , m_streams(std::move(streams))
{
    // What a recorder says of itself must not give orders to the terminal.
    connect(&following, &ZLFollowing::didHappen, this,
        [this](const QString& sentence) { m_streams.print(ZLShownText::asOneLine(sentence)); });
}

ZLStatus ZLHeadlessFollowing::begin(ZLChapterDocument& document)
{
    return m_following.follow(document, m_word);
}
