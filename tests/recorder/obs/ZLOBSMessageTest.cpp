#include "recorder/obs/ZLOBSMessage.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

TEST(ZLOBSMessageTest, ThePasswordIsAnsweredAsTheProtocolAsks)
{
    // Worked out with another program.
    EXPECT_EQ(ZLOBSMessage::authentication(u"open sesame ä"_s, u"c2FsdA=="_s, u"Y2hhbGxlbmdl"_s),
        u"SRDGuf+iDJGZEVM7VDCfT1jEr9t/3xTqFZqzZsmvzC0="_s);
}

TEST(ZLOBSMessageTest, ThePasswordItselfIsNotSent)
{
    const QJsonObject challenge { { u"challenge"_s, u"a"_s }, { u"salt"_s, u"b"_s } };
    const ZLOBSMessage message = ZLOBSMessage::identify({ { u"authentication"_s, challenge } }, u"open sesame"_s);
    EXPECT_TRUE(message.data.contains(u"authentication"_s));
    EXPECT_FALSE(message.text().contains(u"sesame"_s));
    EXPECT_FALSE(ZLOBSMessage::identify({}, u"open sesame"_s).data.contains(u"authentication"_s));
}

TEST(ZLOBSMessageTest, WhatIsWrittenIsRead)
{
    const ZLOBSMessage written = ZLOBSMessage::batch({ u"GetStats"_s, u"GetRecordStatus"_s }, u"17"_s);
    const std::optional<ZLOBSMessage> read = ZLOBSMessage::read(written.text());
    ASSERT_TRUE(read);
    EXPECT_EQ(read->kind, ZLOBSMessage::Kind::RequestBatch);
    EXPECT_EQ(read->data.value(u"requests"_s).toArray().size(), 2);
}

TEST(ZLOBSMessageTest, WhatIsNoMessageIsRefused)
{
    for (const QString& text : { u""_s, u"{"_s, u"[]"_s, u"17"_s, u"{\"op\":5}"_s, u"{\"op\":\"5\",\"d\":{}}"_s,
             u"{\"op\":5,\"d\":[]}"_s, QString(100000, u'[') })
        EXPECT_FALSE(ZLOBSMessage::read(text)) << qUtf8Printable(text.left(40));
}

}
