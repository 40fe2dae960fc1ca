#include "platform/hotkey/ZLPortalShortcut.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ZLPortalShortcut, WritesTheTriggerInTheDesktopsNotation)
{
    EXPECT_EQ(ZLPortalShortcut::preferredTriggerForKeyCombo({ 46, 0x1800 }), u"CTRL+ALT+m"_s);
    EXPECT_EQ(ZLPortalShortcut::preferredTriggerForKeyCombo({ 97, 0 }), u"F6"_s);
    EXPECT_EQ(ZLPortalShortcut::preferredTriggerForKeyCombo({ 116, 0x300 }), u"SHIFT+LOGO+Prior"_s);
    EXPECT_EQ(ZLPortalShortcut::preferredTriggerForKeyCombo({ 55, 0x300 }), QString());
}

TEST(ZLPortalShortcut, ReadsAnythingElseAsAnEmptyList)
{
    EXPECT_TRUE(ZLPortalShortcut::listFromVariant({}).isEmpty());
    EXPECT_TRUE(ZLPortalShortcut::listFromVariant(u"text"_s).isEmpty());
}
