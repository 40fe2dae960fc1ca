#pragma once

#include "app/headless/ZLHeadlessRecorder.h"
#include "settings/ZLSettingsManager.h"
#include "support/ZLAsksSaver.h"

#include <QTemporaryDir>
#include <QTimeZone>
#include <gtest/gtest.h>

/// A recorder whose commands come from the test.
class ZLHeadlessRecorderFixture : public testing::Test, protected ZLAsksSaver {
protected:
    struct SettableClock final : ZLHostClock {
        double seconds = 1000.0;
        double now() const override { return seconds; }
    };

    ZLHeadlessRecorderFixture()
    {
        ZLSettingsManager::useFile(temporary.filePath(QStringLiteral("zelta.conf")));
        ZLSettingsManager::setCreateNewChapterOnStart(false);
        ZLSettingsManager::setPlaySoundBeforeRecording(false);
        beginProcess();
    }

    /// The process before, if there was one, ends as if it had been killed.
    void beginProcess()
    {
        recorder.reset();
        controller.reset();
        ZLDocumentControllerSetup setup;
        setup.environment.hostClock = clock;
        setup.environment.bootClock = bootClock;
        setup.environment.wallClock = [this] { return wallClock; };
        setup.machinery.executor = [](const std::function<void()>& task) { task(); };
        // However busy the machine is, what a test looks for has to be there.
        setup.machinery.journalDisk.longestHandOver = std::chrono::minutes(1);
        setup.stateFolder = temporary.filePath(QStringLiteral("state"));
        controller = std::make_unique<ZLDocumentController>(setup);
        recorder = std::make_unique<ZLHeadlessRecorder>(*controller,
            ZLHeadlessStreams {
                .print = [this](const QString& line) { output.append(line); },
                .complain = [this](const QString& line) { errors.append(line); },
            });
        QObject::connect(recorder.get(), &ZLHeadlessRecorder::didFinish, recorder.get(),
            [this](int status) { exitStatus = status; });
    }

    void start(ZLHeadlessStart headlessStart = ZLHeadlessStart::Paused)
    {
        ASSERT_TRUE(recorder->start(path, headlessStart));
        document = controller->currentOrLastDocument();
        output.clear();
    }

    /// What the recorder prints for one line.
    QStringList answerTo(const QString& line)
    {
        output.clear();
        recorder->handleLine(line);
        const auto documents = controller->documents();
        for (const ZLChapterDocument* each : documents)
            controller->saverOf(each)->settle(QDeadlineTimer(ZLSilentDisk::CommandPatience));
        return output;
    }

    QTemporaryDir temporary;
    QString path = temporary.filePath(QStringLiteral("show.zelta"));
    std::shared_ptr<SettableClock> clock = std::make_shared<SettableClock>();
    std::shared_ptr<SettableClock> bootClock = std::make_shared<SettableClock>();
    QDateTime wallClock = QDateTime::fromMSecsSinceEpoch(1'700'000'000'000, QTimeZone::utc());
    std::unique_ptr<ZLDocumentController> controller;
    std::unique_ptr<ZLHeadlessRecorder> recorder;
    ZLChapterDocument* document = nullptr;
    QStringList output;
    QStringList errors;
    std::optional<int> exitStatus;
};
