#include "export/formats/ZLSessionMarkers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using Markers = QSet<ZLSessionMarker>;

}

TEST(ZLSessionMarkers, AreReadWithTheirTimesAndNames)
{
    EXPECT_EQ(ZLSessionMarkers::in("<Session><Markers>\n"
                                   "<Marker Id=\"1\" Name=\"News &amp; weather\" Time=\"65.500\" Type=\"Chapter\"/>\n"
                                   "<Marker Time='0' Name='&lt;&#246;&#x1F600;&quot;&apos;&gt;'></Marker>"
                                   "</Markers></Session>"),
        (Markers { { 65500, u"News & weather"_s }, { 0, u"<ö\U0001F600\"'>"_s } }));
    EXPECT_EQ(ZLSessionMarkers::in("<Markers><Marker Name=\"A\" Time=\"-1.0006\"/></Markers>"),
        (Markers { { -1001, u"A"_s } }));
}

TEST(ZLSessionMarkers, AQuoteThatWasNotEscapedEndsNoName)
{
    EXPECT_EQ(ZLSessionMarkers::in("<Marker Id=\"1\" Name=\"the \"end\"\" Time=\"1.000\" Type=\"Chapter\"/>"),
        (Markers { { 1000, u"the \"end\""_s } }));
}

TEST(ZLSessionMarkers, WhatIsBrokenHasNone)
{
    for (const QByteArray& broken : { QByteArray(), QByteArray("<Marker "), QByteArray("<Marker Name=\"A\"/>"),
             QByteArray("<Marker Name=\"A\" Time=\"\"/>"), QByteArray("<Marker Name=\"A\" Time=\"nan\"/>"),
             QByteArray("<Marker Name=\"A\" Time=\"1e300\"/>"), QByteArray("<Marker Name=\"A Time=1"),
             QByteArray("<Marker Name==\"A\" Time=\"1\"/>"), QByteArray("<Markers Name=\"A\" Time=\"1\"/>") })
        EXPECT_EQ(ZLSessionMarkers::in(broken), Markers()) << broken.constData();
    EXPECT_EQ(ZLSessionMarkers::in("<Marker Name=\"broken <Marker Name=\"A&\" Time=\"1\"/>"),
        (Markers { { 1000, u"A&"_s } }));
}
