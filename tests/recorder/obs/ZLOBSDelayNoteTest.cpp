#include "recorder/obs/ZLOBSDelayNote.h"

#include <gtest/gtest.h>

#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

TEST(ZLOBSDelayNoteTest, ReadsWhatItWrote)
{
    const std::optional<ZLOBSDelayNote> note = ZLOBSDelayNote::read(ZLOBSDelayNote { 0.567, 1.7e9 }.value());
    ASSERT_TRUE(note);
    EXPECT_EQ(note->encoderDelay, 0.567);
    EXPECT_TRUE(note->isOfRecording(1.7e9 + 1.0));
    EXPECT_FALSE(note->isOfRecording(1.7e9 + 60.0));
}

TEST(ZLOBSDelayNoteTest, WhatMakesNoSenseIsNone)
{
    const QJsonObject right { { u"encoderDelay"_s, 0.5 }, { u"zeroOfFrames"_s, 1.0 } };
    ASSERT_TRUE(ZLOBSDelayNote::read(right));
    for (const QJsonValue& wrong : { QJsonValue(u"x"_s), QJsonValue(-1.0), QJsonValue(1e9), QJsonValue() }) {
        QJsonObject note = right;
        note.insert(u"encoderDelay"_s, wrong);
        EXPECT_FALSE(ZLOBSDelayNote::read(note));
    }
    EXPECT_FALSE(ZLOBSDelayNote::read(QJsonValue()));
    EXPECT_FALSE(ZLOBSDelayNote::read(u"x"_s));
}

}
