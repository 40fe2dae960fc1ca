#pragma once

#include "recorder/ZLRecorder.h"

/// A recorder in the hands of the test.
class ZLFakeRecorder final : public ZLRecorder {
public:
    void open() override { Q_EMIT connectionDidChange(ZLRecorderConnection::Connected, {}); }
    void close() override { Q_EMIT connectionDidChange(ZLRecorderConnection::Off, {}); }
    [[nodiscard]] bool canBeStarted() const override { return true; }
    void startRecording() override { ++starts; }
    void stopRecording() override { ++stops; }
    [[nodiscard]] bool canMarkChapters() const override { return true; }
    void markChapter(const QString& title) override { marks.append(title); }

    int starts = 0;
    int stops = 0;
    QStringList marks;
};
