#include "alignment/ZLPauseShares.h"

#include "alignment/ZLPauseEvidence.h"
#include "alignment/ZLPieceEvidence.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <utility>

namespace {

using ZLFrameAlignment::Frames;

constexpr double secondsPerFrame = ZLSoundFingerprint::SecondsPerFrame;
/// In frames: of a longer pause a piece takes no more.
constexpr std::int64_t mostFramesTaken = 150;
/// Logarithms of how rare it is, at a seam, that something came in, and that nothing was cut.
constexpr double costOfInsertion = 4.0;
constexpr double costOfCut = 1.0;
/// Sound that is in both may be drowned in the noise of the room. So rare is a frame of it ...
constexpr double costOfDrowned = 0.1;
/// ... of which so many bits differ, hardly fewer than by chance.
constexpr double shareOfDrowned = 0.43;
/// No piece is heard better than with so many differing bits.
constexpr double leastShareOfSound = 0.2;
/// Of the same kind: so rare is it that a piece goes on behind a pause, within what may be taken of it. Chance does not
/// reach it.
constexpr double costOfGoingOn = 6.0;
/// On each side of a frame in the file that is asked whether it is a pause.
constexpr std::int64_t framesBeside = 5;
/// Where the pauses of the speech are not known, a gap in the file as short as this is one. In frames.
constexpr std::int64_t mostOfUnknownPause = 75;
/// In seconds. The window of a frame reaches over an end by half, and so does the time to the frame that it is compared
/// with. So sound is recognised a little way into what came in.
constexpr double blurOfEnd = 0.05;
/// In seconds. Where the file has more between two pieces, something came in.
constexpr double leastThatCameIn = 0.3;
/// What came in may begin and end with pauses too, or with music that is taken for one. So the doubt about an end
/// beside it is so many times what the piece takes there.
constexpr double doubtOfShare = 2.0;
/// In seconds. A window and what it is compared with are as long: an end is never surer.
constexpr double leastDoubt = ZLSoundPiece().endDoubt;

/// What a piece takes of the frames beside one of its ends, in seconds.
struct Share {
    double seconds = 0.0;
    double doubt = leastDoubt;
};

/// What lies between two pieces, or beside one of them, in frames. A piece that is not there is null.
struct Gap {
    const ZLSoundPiece* former;
    const ZLSoundPiece* next;
    std::int64_t showBegin;
    std::int64_t showEnd;
    std::int64_t fileBegin;
    std::int64_t fileEnd;

    [[nodiscard]] std::int64_t inShow() const { return showEnd - showBegin; }
    [[nodiscard]] std::int64_t inFile() const { return fileEnd - fileBegin; }
    [[nodiscard]] std::int64_t least() const { return std::max<std::int64_t>(std::min(inShow(), inFile()), 0); }
};

Gap gapBetween(const ZLSoundPiece* former, const ZLSoundPiece* next, Frames show, Frames file)
{
    return { former, next, former ? ZLSoundFingerprint::frameAt(former->showEnd()) : 0,
        next ? ZLSoundFingerprint::frameAt(next->showStart) : std::int64_t(show.size()),
        former ? ZLSoundFingerprint::frameAt(former->fileEnd()) : 0,
        next ? ZLSoundFingerprint::frameAt(next->fileStart) : std::int64_t(file.size()) };
}

/// The mean of a number of frames, and how far it is off.
class Distribution {
public:
    void add(double frames, double weight)
    {
        m_weight += weight;
        m_sum += weight * frames;
        m_squares += weight * frames * frames;
    }
    [[nodiscard]] Share share() const
    {
        const double mean = m_sum / m_weight;
        const double variance = std::max(m_squares / m_weight - mean * mean, 0.0);
        return { mean * secondsPerFrame, std::hypot(std::sqrt(variance) * secondsPerFrame, leastDoubt) };
    }

private:
    double m_weight = 0.0;
    double m_sum = 0.0;
    double m_squares = 0.0;
};

/// How well frames beside a piece fit as a part of it: sums from the piece on.
struct Fits {
    /// Where a pause can be a part of it, and sound behind that pause which is the same in both.
    std::vector<double> asPause { 0.0 };
    /// The best of these sums that end in a pause, and in sound.
    /// @{
    double inPause = 0.0;
    double inSound = -std::numeric_limits<double>::infinity();
    /// @}
    /// Where nothing came in, so that what is no pause may be drowned sound.
    std::vector<double> asAnything { 0.0 };
};

/// Weighs all ways in which both pieces may share a gap.
class Sharing {
public:
    Sharing(const Gap& gap, const ZLPauseEvidence& evidence, Frames show, Frames file)
        : m_gap(gap)
        , m_evidence(evidence)
        , m_show(show)
        , m_file(file)
    {
        const std::int64_t most = std::min(gap.least(), mostFramesTaken);
        for (std::int64_t frame = 0; gap.former && frame < most; ++frame)
            add(m_former, gap.former->differingShare, gap.showBegin + frame, gap.fileBegin + frame);
        for (std::int64_t frame = 1; gap.next && frame <= most; ++frame)
            add(m_next, gap.next->differingShare, gap.showEnd - frame, gap.fileEnd - frame);
    }

    [[nodiscard]] std::pair<Share, Share> shares() const
    {
        double best = -std::numeric_limits<double>::infinity();
        forAll([&](size_t, size_t, double fit) { best = std::max(best, fit); });
        Distribution former;
        Distribution next;
        forAll([&](size_t ofFormer, size_t ofNext, double fit) {
            const double weight = std::exp(fit - best);
            former.add(double(ofFormer), weight);
            next.add(double(ofNext), weight);
        });
        return { former.share(), next.share() };
    }

private:
    void add(Fits& fits, double shareOfPiece, std::int64_t showFrame, std::int64_t fileFrame) const
    {
        const double pause = m_evidence.ofShow(showFrame, showFrame + 1) + m_evidence.ofFile(fileFrame, fileFrame + 1);
        const int differing = std::popcount(m_show[size_t(showFrame)] ^ m_file[size_t(fileFrame)]);
        const double drowned = evidenceOf(differing, shareOfDrowned) - costOfDrowned;
        const double sound = evidenceOf(differing, std::clamp(shareOfPiece, leastShareOfSound, shareOfDrowned));
        const double formerPause = fits.inPause;
        fits.inPause = pause + std::max(formerPause, fits.inSound - costOfGoingOn);
        fits.inSound = sound + std::max(fits.inSound, formerPause - costOfGoingOn);
        const double isPause =
            1.0 / (1.0 + std::exp(-m_evidence.ofFile(fileFrame - framesBeside, fileFrame + framesBeside + 1)));
        fits.asPause.push_back(std::max(fits.inPause, fits.inSound));
        fits.asAnything.push_back(fits.asAnything.back() + isPause * pause + (1.0 - isPause) * drowned);
    }
    /// The logarithm of how many times as likely so many bits differ in a frame of sound that is in both, of which the
    /// share differs as a rule, as by chance.
    [[nodiscard]] static double evidenceOf(int differing, double share)
    {
        const double likelihood = double(ZLSoundFingerprint::BitsPerFrame - differing) * std::log((1.0 - share) / 0.5)
            + double(differing) * std::log(share / 0.5);
        return ZLPauseEvidence::ShareOfFrame * likelihood;
    }
    [[nodiscard]] double fitOf(size_t ofFormer, size_t ofNext) const
    {
        const auto both = std::int64_t(ofFormer + ofNext);
        const double cut = both < m_gap.inShow() ? costOfCut : 0.0;
        if (both == m_gap.inFile())
            return m_former.asAnything[ofFormer] + m_next.asAnything[ofNext] - cut;
        return m_former.asPause[ofFormer] + m_next.asPause[ofNext] - cut - costOfInsertion;
    }
    template <typename Take>
    void forAll(Take take) const
    {
        for (size_t ofFormer = 0; ofFormer < m_former.asPause.size(); ++ofFormer) {
            const size_t most = std::min(m_next.asPause.size() - 1, size_t(m_gap.least()) - ofFormer);
            for (size_t ofNext = 0; ofNext <= most; ++ofNext)
                take(ofFormer, ofNext, fitOf(ofFormer, ofNext));
        }
    }

    Gap m_gap;
    const ZLPauseEvidence& m_evidence;
    Frames m_show;
    Frames m_file;
    Fits m_former {};
    Fits m_next {};
};

/// Where nothing is known of pauses: a short gap is divided.
std::pair<Share, Share> halvesOf(const Gap& gap)
{
    if (!gap.former || !gap.next || gap.inFile() > mostOfUnknownPause)
        return {};
    const double seconds = double(gap.least()) * secondsPerFrame;
    const Share half { seconds / 2.0, std::hypot(seconds / std::sqrt(12.0), leastDoubt) };
    return { half, half };
}

/// Frames are a grid that times do not keep to: no more is taken than there is.
double shareThatFits(const ZLSoundPiece* former, const ZLSoundPiece* next, double seconds, Frames show, Frames file)
{
    const double inShow =
        (next ? next->showStart : double(show.size()) * secondsPerFrame) - (former ? former->showEnd() : 0.0);
    const double inFile =
        (next ? next->fileStart : double(file.size()) * secondsPerFrame) - (former ? former->fileEnd() : 0.0);
    const double rate = std::max({ former ? former->rate : 1.0, next ? next->rate : 1.0, 1.0 });
    return seconds > 0.0 ? std::clamp(std::min(inShow, inFile / rate) / seconds, 0.0, 1.0) : 0.0;
}

/// A piece that shrinks is as sure as it was.
void grow(ZLSoundPiece& piece, double before, double behind)
{
    const double length = piece.length + before + behind;
    // What was added says nothing, neither for the piece nor against it.
    const double worthless = ZLPieceEvidence::worthlessShare(piece.shareElsewhere);
    piece.differingShare += (worthless - piece.differingShare) * std::max(before + behind, 0.0) / length;
    piece.showStart = std::max(piece.showStart - before, 0.0);
    piece.fileStart = std::max(piece.fileStart - before * piece.rate, 0.0);
    piece.length = length;
}

}

void ZLPauseShares::settle(std::vector<ZLSoundPiece>& pieces, Frames show, Frames file)
{
    const ZLPauseEvidence evidence(pieces, show, file);
    const std::vector<ZLSoundPiece> recognised = pieces;
    for (size_t index = 0; index <= pieces.size() && !pieces.empty(); ++index) {
        const ZLSoundPiece* former = index == 0 ? nullptr : &recognised[index - 1];
        const ZLSoundPiece* next = index == pieces.size() ? nullptr : &recognised[index];
        const Gap gap = gapBetween(former, next, show, file);
        const auto [ofFormer, ofNext] =
            evidence.isKnown() ? Sharing(gap, evidence, show, file).shares() : halvesOf(gap);
        const double fits = shareThatFits(former, next, ofFormer.seconds + ofNext.seconds, show, file);
        const double shared = fits * (ofFormer.seconds + ofNext.seconds);
        const bool cameIn = double(gap.inFile()) * secondsPerFrame - shared >= leastThatCameIn;
        const double blur = cameIn ? blurOfEnd : 0.0;
        const double doubt = cameIn ? fits * doubtOfShare : 0.0;
        if (former) {
            grow(pieces[index - 1], 0.0, fits * ofFormer.seconds - blur);
            pieces[index - 1].endDoubt = std::max(ofFormer.doubt, doubt * ofFormer.seconds);
        }
        if (next) {
            grow(pieces[index], fits * ofNext.seconds - blur, 0.0);
            pieces[index].beginDoubt = std::max(ofNext.doubt, doubt * ofNext.seconds);
        }
    }
}
