// How exactly the end of the start beep is reported, see bench/sound-report. Prints two numbers a round, both in
// milliseconds: from the press to the reported end, beyond the length of the beep; and the silence that an output hears
// between the beep and a second one that starts at the reported end.
#include "platform/sound/ZLOutputRecording.h"
#include "platform/sound/ZLPrivateSoundServer.h"
#include "platform/sound/ZLSoundServer.h"
#include "resources/sounds/ZLSoundResource.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTest>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr double beepMilliseconds = 450;
constexpr int deadlineMilliseconds = 20000;

bool measureRound(ZLSoundServer& server, const QString& output)
{
    ZLOutputRecording recording(output);
    const QByteArray file = ZLSoundResource::named(u"beep.aiff"_s);
    const auto beep = server.sound(file);
    const auto next = server.sound(file);
    beep->setPlaybackDeviceIdentifier(output);
    next->setPlaybackDeviceIdentifier(output);
    QElapsedTimer sincePress;
    double reported = 0;
    bool isOver = false;
    QObject::connect(beep.get(), &ZLSound::didFinishPlaying, next.get(), [&] {
        reported = double(sincePress.nsecsElapsed()) / 1e6;
        next->play();
    });
    QObject::connect(next.get(), &ZLSound::didFinishPlaying, next.get(), [&] { isOver = true; });
    if (!recording.isRunning())
        return false;
    sincePress.start();
    beep->play();
    if (!QTest::qWaitFor([&isOver] { return isOver; }, deadlineMilliseconds) || !recording.goesOnFor(0.3))
        return false;
    const auto heard = recording.stretches();
    if (heard.size() != 2)
        return false;
    const int silence = heard.last().start - heard.first().end();
    std::printf("%.2f %.2f\n", reported - beepMilliseconds, 1000.0 * silence / ZLOutputRecording::Rate);
    return true;
}

}

int main(int argc, char** argv)
{
    const QCoreApplication events(argc, argv);
    const ZLPrivateSoundServer system;
    if (!system.error().isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(system.error()));
        return 1;
    }
    const auto server = ZLSoundServer::create();
    if (!server->isReachable())
        return 1;
    const int rounds = events.arguments().value(1, u"20"_s).toInt();
    for (int i = 0; i < rounds; ++i) {
        if (!measureRound(*server, u"right_card"_s))
            return 1;
    }
    return 0;
}
