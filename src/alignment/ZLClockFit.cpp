#include "alignment/ZLClockFit.h"

#include "alignment/ZLFrameAlignment.h"
#include "alignment/ZLPieceEvidence.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

using ZLFrameAlignment::Frames;

/// Of the show, one place is measured in each.
constexpr std::int64_t framesOfPlace = 50;
/// Devices differ by less.
constexpr double mostClockDifference = 1e-3;
/// In frames. Shorter pieces say nothing about a clock.
constexpr double leastSpread = 1500.0;
/// A piece that is as long has a speed of its own.
constexpr double longPiece = 9000.0;
/// In frames. A place that was measured wrongly is farther off.
constexpr double mostResidual = 1.0;

struct Point {
    double show;
    double file;
};

/// Where between two frames they agree best: the vertex of the parabola through three places.
double vertexOf(const std::array<double, 3>& differing)
{
    const double bend = differing[0] - 2.0 * differing[1] + differing[2];
    return bend > 1e-6 ? std::clamp(0.5 * (differing[0] - differing[2]) / bend, -1.0, 1.0) : 0.0;
}

std::vector<Point> pointsOf(const ZLDriftingRuns& piece, Frames show, Frames file)
{
    std::vector<Point> points;
    for (const ZLFrameRun& run : piece) {
        const std::int64_t places = std::max<std::int64_t>(run.count / framesOfPlace, 1);
        const std::int64_t length = std::min(run.count, framesOfPlace);
        for (std::int64_t place = 0; place < places; ++place) {
            const std::int64_t showFrame = run.showFrame + place * framesOfPlace;
            const std::int64_t fileFrame = showFrame + run.shift();
            if (fileFrame < 1 || fileFrame + length + 1 > std::int64_t(file.size()))
                continue;
            std::array<double, 3> differing {};
            for (size_t step = 0; step < differing.size(); ++step)
                differing[step] = ZLFrameAlignment::differingShare(show.subspan(size_t(showFrame), size_t(length)),
                    file.subspan(size_t(fileFrame - 1) + step, size_t(length)));
            const double middle = double(length) / 2.0;
            points.push_back({ double(showFrame) + middle, double(fileFrame) + middle + vertexOf(differing) });
        }
    }
    if (points.empty())
        points.push_back({ double(piece.front().showFrame), double(piece.front().fileFrame) });
    return points;
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

/// The file's frame at the show's frame 0, if the clock runs at `rate`.
double offsetOf(const std::vector<Point>& points, double rate)
{
    std::vector<double> offsets;
    offsets.reserve(points.size());
    for (const Point& point : points)
        offsets.push_back(point.file - rate * point.show);
    return median(offsets);
}

/// Least squares over pieces that share their slope alone. Nothing when they are too short for it.
double rateOf(const std::vector<std::vector<Point>>& pieces, double guess)
{
    double both = 0.0;
    double square = 0.0;
    double spread = 0.0;
    for (const auto& points : pieces) {
        const double offset = offsetOf(points, guess);
        std::vector<Point> good;
        std::ranges::copy_if(points, std::back_inserter(good),
            [&](const Point& point) { return std::abs(point.file - guess * point.show - offset) < mostResidual; });
        if (good.size() < 2)
            continue;
        Point mean {};
        for (const Point& point : good)
            mean = { mean.show + point.show / double(good.size()), mean.file + point.file / double(good.size()) };
        for (const Point& point : good) {
            both += (point.show - mean.show) * (point.file - mean.file);
            square += (point.show - mean.show) * (point.show - mean.show);
        }
        spread += good.back().show - good.front().show;
    }
    if (spread < leastSpread || square <= 0.0)
        return guess;
    return std::clamp(both / square, 1.0 - mostClockDifference, 1.0 + mostClockDifference);
}

/// The speed at which most pieces agree, among those that devices have.
double firstGuess(const std::vector<std::vector<Point>>& pieces)
{
    std::vector<double> slopes;
    for (const auto& points : pieces) {
        const double distance = points.back().show - points.front().show;
        if (distance >= leastSpread)
            slopes.push_back((points.back().file - points.front().file) / distance);
    }
    return slopes.empty() ? 1.0 : std::clamp(median(slopes), 1.0 - mostClockDifference, 1.0 + mostClockDifference);
}

}

std::vector<ZLSoundPiece> ZLClockFit::timesOf(const std::vector<ZLDriftingRuns>& pieces, Frames show, Frames file)
{
    std::vector<std::vector<Point>> points;
    points.reserve(pieces.size());
    for (const ZLDriftingRuns& piece : pieces)
        points.push_back(pointsOf(piece, show, file));
    const double common = rateOf(points, firstGuess(points));
    std::vector<ZLSoundPiece> times;
    for (size_t index = 0; index < pieces.size(); ++index) {
        const ZLFrameRun& first = pieces[index].front();
        const ZLFrameRun& last = pieces[index].back();
        const std::int64_t length = last.showEnd() - first.showFrame;
        const double rate = double(length) >= longPiece ? rateOf({ points[index] }, common) : common;
        const double begin = offsetOf(points[index], rate) + rate * double(first.showFrame);
        double differing = 0.0;
        std::int64_t count = 0;
        for (const ZLFrameRun& run : pieces[index]) {
            differing += double(run.count)
                * ZLFrameAlignment::differingShare(show.subspan(size_t(run.showFrame), size_t(run.count)),
                    file.subspan(size_t(run.fileFrame), size_t(run.count)));
            count += run.count;
        }
        times.push_back({ double(first.showFrame) * ZLSoundFingerprint::SecondsPerFrame,
            std::max(begin, 0.0) * ZLSoundFingerprint::SecondsPerFrame,
            double(length) * ZLSoundFingerprint::SecondsPerFrame, rate, differing / double(count),
            ZLPieceEvidence::shareElsewhere(pieces[index], show, file) });
    }
    return times;
}
