#include "app/ZLApplication.h"

#include "document/ZLChapterImport.h"
#include "document/saving/journal/ZLJournalReader.h"
#include "platform/ZLBoundedFile.h"
#include "remote/ZLCommandSocket.h"
#include "support/ZLFakeHostClock.h"
#include "support/ZLTemporarySettings.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTemporaryDir>
#include <QThread>
#include <QUdpSocket>

#include <gtest/gtest.h>

#include <atomic>
#include <semaphore>

using namespace Qt::StringLiterals;

namespace {

constexpr int safeTellingPatience = 60'000;
constexpr qsizetype importedChapters = 500;

}

/// A running clock, and a journal whose disk hangs when it is told to.
class ZLSafeTellingTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_surface.bind(QHostAddress::LocalHost));
        m_application = std::make_unique<ZLApplication>(setup(), ZLApplication::StandardFontSize,
            ZLRemoteSetup {
                .oscPort = 0, .oscOutputs = { { ZLOSCDestination { u"127.0.0.1"_s, m_surface.localPort() } } } });
        const auto opened =
            m_application->documentController().openDocument(m_folder.filePath(u"show.zelta"_s), ZLMissingFile::Create);
        ASSERT_TRUE(opened);
        m_document = opened.value();
        m_document->startRecordingWithTime(m_clock->now());
        ASSERT_TRUE(m_application->documentController().saverOf(m_document)->saveNow())
            << "which ends when the journal has everything";
        // A new surface is told the whole state first.
        passTime();
        (void)toldTitles();
    }

    /// Longer than the journal's record is looked for, which is every two milliseconds.
    static void passTime()
    {
        const QDeadlineTimer moment(200);
        while (!moment.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }

    [[nodiscard]] ZLDocumentControllerSetup setup()
    {
        ZLDocumentControllerSetup result;
        result.environment.hostClock = m_clock;
        result.machinery.executor = [](const std::function<void()>& task) { task(); };
        result.machinery.journalDisk.longestHandOver = std::chrono::minutes(1);
        result.machinery.journalDisk.write = [this](int descriptor, const void* bytes, size_t count) {
            if (m_isHanging.exchange(false))
                m_disk.acquire();
            return ::write(descriptor, bytes, count);
        };
        result.stateFolder = m_folder.path();
        result.sessionExecutor = [](const std::function<void()>& task) { task(); };
        return result;
    }

    void importWhileTheDiskHangs()
    {
        m_isHanging = true;
        ZLChapterImport::importChapters(
            *m_document, QList<ZLListedChapter>(importedChapters), ZLChapterImport::Way::Add);
    }

    /// What a process that is killed now leaves.
    [[nodiscard]] qsizetype chaptersAfterAKill() const
    {
        const ZLRecoveryFolder folder(m_folder.filePath(u"recovery"_s));
        const QString path = folder.journaledFiles().value(0) + ZLRecoveryFile::JournalSuffix;
        const auto bytes = ZLBoundedFile::read(path, ZLFileBound::Document);
        const auto journaled = ZLJournalReader::read(bytes ? bytes.value() : QByteArray());
        return journaled ? journaled.value().contents.chapters.size() : -1;
    }

    /// How many messages about the last title have come to the surface since the last call.
    [[nodiscard]] int toldTitles()
    {
        int count = 0;
        while (m_surface.hasPendingDatagrams()) {
            QByteArray datagram(m_surface.pendingDatagramSize(), '\0');
            m_surface.readDatagram(datagram.data(), datagram.size());
            count += datagram.startsWith("/zl/lastChapterTitle") ? 1 : 0;
        }
        return count;
    }

    template <typename Condition>
    [[nodiscard]] static bool comesTrue(const Condition& condition)
    {
        const QDeadlineTimer deadline(safeTellingPatience);
        while (!condition() && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        return condition();
    }

    const ZLTemporarySettings m_settings;
    const QTemporaryDir m_folder;
    const std::shared_ptr<ZLFakeHostClock> m_clock = std::make_shared<ZLFakeHostClock>();
    std::binary_semaphore m_disk { 0 };
    std::atomic<bool> m_isHanging = false;
    QUdpSocket m_surface;
    std::unique_ptr<ZLApplication> m_application;
    ZLChapterDocument* m_document = nullptr;
};

TEST_F(ZLSafeTellingTest, AMarkBehindALongCommandIsAnsweredWhenAKillCannotTakeItBack)
{
    importWhileTheDiskHangs();
    const qsizetype before = m_document->chapterManager().count();
    ZLResult<QString> answer = ZLError { u"none"_s };
    const std::unique_ptr<QThread> remote(QThread::create([&answer] {
        answer = ZLCommandSocket::send(
            ZLOSCMessage(u"/zl/newChapter"_s, { 1.0F }), ZLCommandSocket::defaultPath(), safeTellingPatience);
    }));
    remote->start();
    ASSERT_TRUE(comesTrue([&] { return m_document->chapterManager().count() == before + 1; }));
    passTime();
    EXPECT_FALSE(remote->isFinished()) << "answered before it is safe";
    EXPECT_LT(chaptersAfterAKill(), before);
    m_disk.release();
    ASSERT_TRUE(comesTrue([&] { return remote->isFinished(); }));
    ASSERT_TRUE(answer) << qPrintable(answer.error().message);
    EXPECT_FALSE(answer.value().isEmpty());
    EXPECT_EQ(chaptersAfterAKill(), before + 1);
}

TEST_F(ZLSafeTellingTest, TheSurfacesAreToldOfALongCommandWhenAKillCannotTakeItBack)
{
    importWhileTheDiskHangs();
    m_document->addChapterButtonPressed();
    passTime();
    int told = toldTitles();
    EXPECT_EQ(told, 0);
    m_disk.release();
    EXPECT_TRUE(comesTrue([&] { return (told += toldTitles()) >= 2; }));
    EXPECT_EQ(chaptersAfterAKill(), m_document->chapterManager().count());
}
