#include "platform/sound/ZLOutputRecording.h"

#include <QTest>

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <sys/prctl.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int recordingDeadlineMilliseconds = 20000;
/// Of 32767. The beep fades, and what is below this counts as silence.
constexpr int quietestSample = 3;
/// A tone passes zero, and notes may have pauses; silence is longer than this.
constexpr int longestPause = ZLOutputRecording::Rate / 200;

}

ZLOutputRecording::ZLOutputRecording(const QString& outputIdentifier)
{
    m_recorder.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    m_recorder.start(u"parec"_s,
        { u"--device="_s + outputIdentifier + u".monitor"_s, u"--format=s16ne"_s, u"--rate=%1"_s.arg(Rate),
            u"--channels=1"_s, u"--latency-msec=10"_s, u"--raw"_s });
}

ZLOutputRecording::~ZLOutputRecording()
{
    m_recorder.kill();
    m_recorder.waitForFinished(recordingDeadlineMilliseconds);
}

bool ZLOutputRecording::isRunning()
{
    return QTest::qWaitFor([this] { return sampleCount() > 0; }, recordingDeadlineMilliseconds);
}

bool ZLOutputRecording::hearsSomething()
{
    return QTest::qWaitFor([this] { return !stretches().isEmpty(); }, recordingDeadlineMilliseconds);
}

bool ZLOutputRecording::goesOnFor(double seconds)
{
    const int goal = sampleCount() + int(seconds * Rate);
    return QTest::qWaitFor([this, goal] { return sampleCount() >= goal; }, recordingDeadlineMilliseconds);
}

QList<ZLOutputRecording::Stretch> ZLOutputRecording::stretches()
{
    QList<Stretch> found;
    const int count = sampleCount();
    for (int i = 0; i < count; ++i) {
        short sample = 0;
        std::memcpy(&sample, m_bytes.constData() + i * int(sizeof sample), sizeof sample);
        if (std::abs(int(sample)) < quietestSample)
            continue;
        if (found.isEmpty() || i - found.last().end() > longestPause)
            found.append({ i, 1 });
        else
            found.last().length = i + 1 - found.last().start;
    }
    return found;
}

int ZLOutputRecording::sampleCount()
{
    m_bytes += m_recorder.readAllStandardOutput();
    return int(m_bytes.size() / qsizetype(sizeof(short)));
}
