#include "delivery/fit/ZLHeardSound.h"
#include "delivery/fit/ZLShowSounds.h"

#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ZLHeardSoundTest, ProgressIsToldWhateverProgramDecodesTheFile)
{
    const QTemporaryDir folder;
    const QString sound = folder.filePath(u"show.wav"_s);
    ASSERT_TRUE(ZLShowSounds::write(sound, ZLShowSounds::show(1, 20.0)));
    const QString video = folder.filePath(u"show.m4a"_s);
    ASSERT_EQ(QProcess::execute(u"ffmpeg"_s, { u"-v"_s, u"error"_s, u"-i"_s, sound, u"-c:a"_s, u"aac"_s, video }), 0);
    for (const QString& path : { sound, video }) {
        ZLWorkProgress progress;
        ASSERT_TRUE(ZLHeardSound::fingerprintOf(path, progress)) << qPrintable(path);
        EXPECT_GT(progress.fraction(), 0.95) << qPrintable(path);
    }
}
