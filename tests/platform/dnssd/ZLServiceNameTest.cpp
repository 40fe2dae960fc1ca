#include "platform/dnssd/ZLServiceName.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ZLServiceNameTest, KeepsOrdinaryTextAsItIs)
{
    EXPECT_EQ(ZLServiceName::cleaned(u"Über Ton. 日本 <b>&\"🎙️"_s), u"Über Ton. 日本 <b>&\"🎙️"_s);
    EXPECT_EQ(ZLServiceName::fitting(u"Studio #2"_s), u"Studio #2"_s);
}

TEST(ZLServiceNameTest, PutsANameOnOneLineThatRunsInOneDirection)
{
    EXPECT_EQ(ZLServiceName::cleaned(u"a\nb\tc\u202Ed\u2066e\u2028f\u0000g"_s), u"a b c d e f g"_s);
}

TEST(ZLServiceNameTest, CutsBetweenCharactersToWhatANetworkTakes)
{
    EXPECT_EQ(ZLServiceName::fitting(QString(70, u'a')), QString(63, u'a'));
    // 31 letters of two bytes are 62; half a letter more is none.
    EXPECT_EQ(ZLServiceName::fitting(QString(40, u'ä')), QString(31, u'ä'));
    const QString family = u"👩\u200D👩\u200D👧"_s;
    EXPECT_EQ(ZLServiceName::fitting(family.repeated(5)), family.repeated(3));
}

TEST(ZLServiceNameTest, IsEmptyWhenNothingIsLeft)
{
    EXPECT_EQ(ZLServiceName::fitting(u" \n\t "_s), QString());
}
