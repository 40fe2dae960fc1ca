#include "platform/hotkey/ZLHotKeyCenter.h"
#include "platform/hotkey/ZLNullHotKeyBackend.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class RecordingHotKeyCenter final : public ZLHotKeyCenter {
public:
    [[nodiscard]] QString backendName() const override { return u"recording"_s; }
    [[nodiscard]] QString unavailabilityReason() const override { return {}; }

    QStringList active;

protected:
    void activateHotKey(const ZLHotKey& hotKey) override
    {
        active.append(hotKey.identifier);
        setHotKeyState(hotKey.identifier, ZLHotKey::State::Registered);
    }
    void deactivateHotKey(const ZLHotKey& hotKey) override { active.removeOne(hotKey.identifier); }
};

ZLHotKey hotKeyForTest(const QString& identifier, int keyCode)
{
    ZLHotKey hotKey;
    hotKey.identifier = identifier;
    hotKey.keyCombo = { keyCode, ZLHotKeyModifier::control };
    return hotKey;
}

QStringList identifiersOf(const ZLHotKeyCenter& center)
{
    QStringList identifiers;
    for (const ZLHotKey& hotKey : center.allHotKeys())
        identifiers.append(hotKey.identifier);
    return identifiers;
}

}

TEST(ZLHotKeyCenter, KeepsHotKeysInTheOrderOfRegistration)
{
    RecordingHotKeyCenter center;
    EXPECT_TRUE(center.allHotKeys().isEmpty());
    center.registerHotKey(hotKeyForTest(u"b"_s, 1));
    center.registerHotKey(hotKeyForTest(u"a"_s, 2));
    EXPECT_EQ(identifiersOf(center), (QStringList { u"b"_s, u"a"_s }));
    EXPECT_EQ(center.allHotKeys().constFirst().state, ZLHotKey::State::Registered);
    EXPECT_EQ(center.allHotKeys().constFirst().keyCombo, (ZLKeyCombo { 1, ZLHotKeyModifier::control }));
}

TEST(ZLHotKeyCenter, UnregistersOneAndLeavesTheOthers)
{
    RecordingHotKeyCenter center;
    center.registerHotKey(hotKeyForTest(u"a"_s, 1));
    center.registerHotKey(hotKeyForTest(u"b"_s, 2));
    center.unregisterHotKey(u"a"_s);
    center.unregisterHotKey(u"unknown"_s);
    EXPECT_EQ(identifiersOf(center), QStringList { u"b"_s });
    EXPECT_EQ(center.active, QStringList { u"b"_s });
}

TEST(ZLHotKeyCenter, ReplacesAHotKeyOfTheSameIdentifier)
{
    RecordingHotKeyCenter center;
    center.registerHotKey(hotKeyForTest(u"a"_s, 1));
    center.registerHotKey(hotKeyForTest(u"a"_s, 2));
    ASSERT_EQ(center.allHotKeys().size(), 1);
    EXPECT_EQ(center.allHotKeys().constFirst().keyCombo.keyCode, 2);
    EXPECT_EQ(center.active, QStringList { u"a"_s });
}

TEST(ZLHotKeyCenter, RefusesACombinationTwiceUntilTheFirstIsGone)
{
    RecordingHotKeyCenter center;
    center.registerHotKey(hotKeyForTest(u"a"_s, 1));
    center.registerHotKey(hotKeyForTest(u"b"_s, 1));
    EXPECT_EQ(center.active, QStringList { u"a"_s });
    EXPECT_EQ(center.allHotKeys().constLast().state, ZLHotKey::State::Refused);
    EXPECT_EQ(center.allHotKeys().constLast().refusalReason, u"Another shortcut of this program has the same keys."_s);
    center.unregisterHotKey(u"a"_s);
    EXPECT_EQ(center.active, QStringList { u"b"_s });
    EXPECT_EQ(center.allHotKeys().constLast().state, ZLHotKey::State::Registered);
    EXPECT_TRUE(center.allHotKeys().constLast().refusalReason.isEmpty());
}

TEST(ZLHotKeyCenter, RefusesANumberThatIsNoKey)
{
    RecordingHotKeyCenter center;
    for (const int keyCode : { -1, 55, 128 })
        center.registerHotKey(hotKeyForTest(QString::number(keyCode), keyCode));
    EXPECT_TRUE(center.active.isEmpty());
    for (const ZLHotKey& hotKey : center.allHotKeys()) {
        EXPECT_EQ(hotKey.state, ZLHotKey::State::Refused);
        EXPECT_EQ(hotKey.refusalReason, u"Keyboards of this system have no such key."_s);
    }
    center.unregisterHotKey(u"55"_s);
    EXPECT_EQ(center.allHotKeys().size(), 2);
}

TEST(ZLHotKeyCenter, AnnouncesAStateOnlyWhenItIsNew)
{
    RecordingHotKeyCenter center;
    const QSignalSpy changes(&center, &ZLHotKeyCenter::stateDidChange);
    center.registerHotKey(hotKeyForTest(u"a"_s, 1));
    EXPECT_EQ(changes.size(), 1);
    center.unregisterHotKey(u"a"_s);
    EXPECT_EQ(changes.size(), 1);
}

TEST(ZLHotKeyCenter, HasNoneOnAPlatformWithoutThem)
{
    const std::unique_ptr<ZLHotKeyCenter> center = ZLHotKeyCenter::create();
    EXPECT_EQ(center->backendName(), u"none"_s);
    EXPECT_FALSE(center->unavailabilityReason().isEmpty());
    center->registerHotKey(hotKeyForTest(u"a"_s, 46));
    ASSERT_EQ(center->allHotKeys().size(), 1);
    EXPECT_EQ(center->allHotKeys().constFirst().state, ZLHotKey::State::Refused);
    EXPECT_EQ(center->allHotKeys().constFirst().refusalReason, center->unavailabilityReason());
    center->unregisterHotKey(u"a"_s);
    EXPECT_TRUE(center->allHotKeys().isEmpty());
}
