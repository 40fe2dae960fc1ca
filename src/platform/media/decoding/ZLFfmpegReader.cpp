#include "platform/media/decoding/ZLFfmpegReader.h"

#include <QCoreApplication>
#include <QProcess>
#include <QStandardPaths>

#include <sys/resource.h>

#include <cstring>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct FfmpegTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLFfmpegReader)
};

constexpr int millisecondsOfPatience = 200;
/// A program that gives nothing for so long hangs.
constexpr int mostSilentWaits = 150;
constexpr qsizetype mostMessage = 300;
/// A file whose length is not told within it has none that is worth waiting for.
constexpr int patienceForLength = 5000;
/// Of a program, in bytes. For files that people have it takes a third of it. One that claims a sample a second would
/// have it make thousands of times as many in one go.
constexpr rlim_t mostMemory = 160U * 1024U * 1024U;

QStringList arguments(const QString& path, int samplesPerSecond, double start)
{
    // Other protocols could reach the network from within a file.
    return { u"-nostdin"_s, u"-v"_s, u"error"_s, u"-protocol_whitelist"_s, u"file,pipe"_s, u"-ss"_s,
        QString::number(start, 'f', 3), u"-i"_s, u"file:"_s + path, u"-vn"_s, u"-sn"_s, u"-dn"_s, u"-ac"_s, u"1"_s,
        u"-ar"_s, QString::number(samplesPerSecond), u"-f"_s, u"f32le"_s, u"-"_s };
}

QStringList questionOfLength(const QString& path)
{
    return { u"-v"_s, u"error"_s, u"-protocol_whitelist"_s, u"file,pipe"_s, u"-show_entries"_s, u"format=duration"_s,
        u"-of"_s, u"default=noprint_wrappers=1:nokey=1"_s, u"file:"_s + path };
}

void startWithinBound(QProcess& process, const QString& program, const QStringList& arguments)
{
    process.setChildProcessModifier([] {
        const rlimit limit { mostMemory, mostMemory };
        setrlimit(RLIMIT_DATA, &limit);
    });
    process.start(program, arguments, QIODevice::ReadOnly);
}

/// The last line that the program has to say.
QString reasonOf(QProcess& process)
{
    const QByteArray said = process.readAllStandardError().right(4 * mostMessage).trimmed();
    return QString::fromUtf8(said.mid(said.lastIndexOf('\n') + 1)).left(mostMessage).simplified();
}

/// Hands on the whole samples of what has arrived and keeps the rest.
class Samples {
public:
    explicit Samples(const ZLSoundDecoder::Sink& sink)
        : m_sink(sink)
    {
    }
    [[nodiscard]] bool take(const QByteArray& bytes)
    {
        m_bytes += bytes;
        const auto count = size_t(m_bytes.size()) / sizeof(float);
        m_samples.resize(count);
        // Where nothing is whole yet, there is no place to copy to.
        if (count > 0)
            std::memcpy(m_samples.data(), m_bytes.constData(), count * sizeof(float));
        m_bytes.remove(0, qsizetype(count) * qsizetype(sizeof(float)));
        m_count += double(count);
        return m_sink(m_samples);
    }
    [[nodiscard]] double count() const { return m_count; }

private:
    const ZLSoundDecoder::Sink& m_sink;
    QByteArray m_bytes {};
    std::vector<float> m_samples {};
    double m_count = 0.0;
};

}

ZLStatus ZLFfmpegReader::decode(
    const QString& path, int samplesPerSecond, const ZLSoundDecoder::Sink& sink, double start)
{
    const QString program = QStandardPaths::findExecutable(u"ffmpeg"_s);
    if (program.isEmpty())
        return ZLError { FfmpegTexts::tr("This form can be read when the program ffmpeg is installed.") };
    QProcess process;
    startWithinBound(process, program, arguments(path, samplesPerSecond, start));
    Samples samples(sink);
    int silentWaits = 0;
    bool isWanted = true;
    while (isWanted && samples.count() < ZLSoundDecoder::MostSeconds * samplesPerSecond) {
        const bool isMore = process.waitForReadyRead(millisecondsOfPatience);
        const QByteArray bytes = process.readAllStandardOutput();
        if (bytes.isEmpty() && process.state() == QProcess::NotRunning)
            break;
        silentWaits = isMore ? 0 : silentWaits + 1;
        if (silentWaits > mostSilentWaits)
            return ZLError { FfmpegTexts::tr("The program ffmpeg does not answer.") };
        isWanted = samples.take(bytes);
    }
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished();
        return ZLDone {};
    }
    if (samples.count() > 0.0)
        return ZLDone {};
    const QString reason = reasonOf(process);
    return ZLError { reason.isEmpty() ? FfmpegTexts::tr("There is no sound in it.") : reason };
}

std::optional<double> ZLFfmpegReader::claimedSeconds(const QString& path)
{
    const QString program = QStandardPaths::findExecutable(u"ffprobe"_s);
    if (program.isEmpty())
        return std::nullopt;
    QProcess process;
    startWithinBound(process, program, questionOfLength(path));
    if (!process.waitForFinished(patienceForLength)) {
        process.kill();
        process.waitForFinished();
        return std::nullopt;
    }
    bool isNumber = false;
    const double seconds = process.readAllStandardOutput().trimmed().toDouble(&isNumber);
    const bool makesSense = isNumber && seconds > 0.0 && seconds <= ZLSoundDecoder::MostSeconds;
    return makesSense ? std::optional(seconds) : std::nullopt;
}
