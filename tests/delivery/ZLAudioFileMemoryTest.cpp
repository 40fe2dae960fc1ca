#include "delivery/ZLAudioFileMemory.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLAudioFileMemoryTest : public testing::Test {
protected:
    QTemporaryDir m_folder;
    const ZLAudioFileMemory m_memory { m_folder.filePath(u"state"_s), ZLAudioFileMemory::WrittenFiles };
    const ZLRememberedAudio m_audio { .paths = { u"/a/ä.mp3"_s, u"/a/b.m4a"_s }, .shift = -12.345 };
};

TEST_F(ZLAudioFileMemoryTest, RemembersTheFilesAndTheShiftOfEachDocument)
{
    m_memory.remember(u"/one.zelta"_s, m_audio);
    m_memory.remember(u"/two.zelta"_s, { .paths = { u"/other.ogg"_s } });
    EXPECT_EQ(m_memory.recall(u"/one.zelta"_s), m_audio);
    EXPECT_EQ(m_memory.recall(u"/two.zelta"_s).paths, QStringList { u"/other.ogg"_s });
    m_memory.remember(u"/two.zelta"_s, m_audio);
    EXPECT_EQ(m_memory.recall(u"/two.zelta"_s), m_audio);
    EXPECT_EQ(m_memory.recall(u"/three.zelta"_s), ZLRememberedAudio());
}

TEST_F(ZLAudioFileMemoryTest, ADocumentWithoutAFileIsNotRemembered)
{
    m_memory.remember({}, m_audio);
    EXPECT_EQ(m_memory.recall({}), ZLRememberedAudio());
    EXPECT_FALSE(QFile::exists(m_folder.filePath(u"state/audio-files.json"_s)));
}

TEST_F(ZLAudioFileMemoryTest, TheOldestAreForgotten)
{
    for (int number = 0; number <= ZLAudioFileMemory::MostDocuments; ++number)
        m_memory.remember(u"/%1.zelta"_s.arg(number), m_audio);
    EXPECT_EQ(m_memory.recall(u"/0.zelta"_s), ZLRememberedAudio());
    EXPECT_EQ(m_memory.recall(u"/1.zelta"_s), m_audio);
}

TEST_F(ZLAudioFileMemoryTest, WhatIsNoListReadsAsNothing)
{
    m_memory.remember(u"/one.zelta"_s, m_audio);
    QFile file(m_folder.filePath(u"state/audio-files.json"_s));
    ASSERT_TRUE(file.open(QFile::WriteOnly | QFile::Truncate));
    file.write("[1, {\"document\": \"/one.zelta\", \"files\": [3, \"\"], \"shift\": \"x\"}, ");
    file.close();
    EXPECT_EQ(m_memory.recall(u"/one.zelta"_s), ZLRememberedAudio());
    m_memory.remember(u"/one.zelta"_s, m_audio);
    EXPECT_EQ(m_memory.recall(u"/one.zelta"_s), m_audio);
}
