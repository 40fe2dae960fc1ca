// Prints what a recorder reports, one thing a line, with the moments of the host clock:
//
//   report STATE POSITION HOST-TIME UNCERTAINTY
//   connection NUMBER REASON
//   file PATH
//
// Takes the words open, close, start, stop and "chapter TITLE", one a line, and ends with its input.
//
//   zelta_recorder_probe obs HOST PORT PASSWORD
//   zelta_recorder_probe jack
#include "platform/ZLHostClock.h"
#include "recorder/jack/ZLJackRecorder.h"
#include "recorder/obs/ZLOBSRecorder.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <cstdio>
#include <iostream>
#include <memory>
#include <string>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const char* nameOf(ZLRecorderState state)
{
    switch (state) {
    case ZLRecorderState::Recording:
        return "recording";
    case ZLRecorderState::Paused:
        return "paused";
    case ZLRecorderState::Standing:
        break;
    }
    return "standing";
}

std::unique_ptr<ZLRecorder> recorderFor(const QStringList& arguments, const ZLHostClock& clock)
{
    if (arguments.value(1) == "jack"_L1)
        return std::make_unique<ZLJackRecorder>(clock);
    if (arguments.value(1) != "obs"_L1 || arguments.size() != 5)
        return nullptr;
    return std::make_unique<ZLOBSRecorder>(
        ZLOBSAddress { arguments.at(2), arguments.at(3).toUShort(), arguments.at(4) }, clock);
}

void printSignals(const ZLRecorder& recorder)
{
    QObject::connect(&recorder, &ZLRecorder::didReport, &recorder, [](const ZLRecorderReport& report) {
        std::printf(
            "report %s %.6f %.6f %.6f\n", nameOf(report.state), report.position, report.hostTime, report.uncertainty);
    });
    QObject::connect(&recorder, &ZLRecorder::connectionDidChange, &recorder,
        [](ZLRecorderConnection connection, const QString& reason) {
            std::printf("connection %d %s\n", int(connection), qUtf8Printable(reason));
        });
    QObject::connect(&recorder, &ZLRecorder::fileDidChange, &recorder,
        [](const QString& path) { std::printf("file %s\n", qUtf8Printable(path)); });
}

void obey(ZLRecorder& recorder, const std::string& line)
{
    const std::string chapter = "chapter ";
    if (line == "open")
        recorder.open();
    else if (line == "close")
        recorder.close();
    else if (line == "start")
        recorder.startRecording();
    else if (line == "stop")
        recorder.stopRecording();
    else if (line.starts_with(chapter))
        recorder.markChapter(QString::fromStdString(line.substr(chapter.size())));
}

}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    const ZLSteadyHostClock clock;
    const std::unique_ptr<ZLRecorder> recorder = recorderFor(QCoreApplication::arguments(), clock);
    if (!recorder) {
        std::fputs("zelta_recorder_probe obs HOST PORT PASSWORD | jack\n", stderr);
        return 2;
    }
    printSignals(*recorder);
    const QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, recorder.get(), [&recorder] {
        std::string line;
        if (std::getline(std::cin, line))
            obey(*recorder, line);
        else
            QCoreApplication::quit();
    });
    recorder->open();
    return QCoreApplication::exec();
}
