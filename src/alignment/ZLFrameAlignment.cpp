#include "alignment/ZLFrameAlignment.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>

namespace {

using ZLFrameAlignment::Frames;
using ZLFrameAlignment::WorthlessShare;

constexpr float costOfGap = 2.0F;
constexpr float costOfFrameInGap = 0.0005F;
constexpr float costOfSecondGap = 0.5F;
/// Of memory, and about as many steps.
constexpr std::int64_t mostCells = 12'000'000;
/// Where the sum has fallen so far below its best, what is the same has ended.
constexpr double mostFall = 3.0;
constexpr float impossible = -1e9F;

float worth(std::uint32_t show, std::uint32_t file)
{
    return float(WorthlessShare) - float(std::popcount(show ^ file)) / 32.0F;
}

/// How the best way to a cell ends: with a pair of frames, a frame of the show alone, a frame of the file alone.
enum State : std::uint8_t { Pair, ShowAlone, FileAlone };

struct Choice {
    float score;
    State former;
};

Choice better(Choice left, Choice right)
{
    return right.score > left.score ? right : left;
}

class Grid {
public:
    Grid(Frames show, Frames file)
        : m_show(show)
        , m_file(file)
        , m_width(file.size() + 1)
        , m_former((show.size() + 1) * m_width)
    {
    }

    [[nodiscard]] std::vector<ZLFrameRun> runs()
    {
        fill();
        std::vector<ZLFrameRun> runs;
        size_t row = m_show.size();
        size_t column = m_file.size();
        State state = m_last;
        while (row > 0 || column > 0) {
            const State former = formerOf(row, column, state);
            if (state == Pair)
                addPair(runs, --row, --column);
            else if (state == ShowAlone)
                --row;
            else
                --column;
            state = former;
        }
        std::ranges::reverse(runs);
        return runs;
    }

private:
    struct Row {
        explicit Row(size_t width) { scores.fill(std::vector<float>(width, impossible)); }

        std::array<std::vector<float>, 3> scores {};
    };

    void fill()
    {
        Row above(m_width);
        Row current(m_width);
        for (size_t row = 0; row <= m_show.size(); ++row) {
            for (size_t column = 0; column < m_width; ++column)
                fillCell(row, column, above, current);
            std::swap(above, current);
        }
        const std::array<float, 3> ends { above.scores[Pair].back(), above.scores[ShowAlone].back(),
            above.scores[FileAlone].back() };
        m_last = State(std::ranges::max_element(ends) - std::ranges::begin(ends));
    }
    void fillCell(size_t row, size_t column, const Row& above, Row& current)
    {
        if (row == 0 && column == 0) {
            current.scores[Pair][0] = 0.0F;
            current.scores[ShowAlone][0] = current.scores[FileAlone][0] = impossible;
            return;
        }
        const Choice pair = row > 0 && column > 0 ? pairAt(row, column, above) : Choice { impossible, Pair };
        const Choice showAlone = row > 0 ? gapAfter(above, column, ShowAlone) : Choice { impossible, Pair };
        const Choice fileAlone = column > 0 ? gapAfter(current, column - 1, FileAlone) : Choice { impossible, Pair };
        current.scores[Pair][column] = pair.score;
        current.scores[ShowAlone][column] = showAlone.score;
        current.scores[FileAlone][column] = fileAlone.score;
        m_former[row * m_width + column] =
            std::uint8_t(pair.former | (showAlone.former << 2U) | (fileAlone.former << 4U));
    }
    [[nodiscard]] Choice pairAt(size_t row, size_t column, const Row& above) const
    {
        const Choice best = better({ above.scores[Pair][column - 1], Pair },
            better({ above.scores[ShowAlone][column - 1], ShowAlone },
                { above.scores[FileAlone][column - 1], FileAlone }));
        return { best.score + worth(m_show[row - 1], m_file[column - 1]), best.former };
    }
    [[nodiscard]] static Choice gapAfter(const Row& row, size_t column, State gap)
    {
        const State other = gap == ShowAlone ? FileAlone : ShowAlone;
        Choice best = better({ row.scores[gap][column], gap },
            better({ row.scores[Pair][column] - costOfGap, Pair },
                { row.scores[other][column] - costOfSecondGap, other }));
        best.score -= costOfFrameInGap;
        return best;
    }
    [[nodiscard]] State formerOf(size_t row, size_t column, State state) const
    {
        return State((m_former[row * m_width + column] >> (2U * state)) & 3U);
    }
    /// From the end to the beginning.
    static void addPair(std::vector<ZLFrameRun>& runs, size_t row, size_t column)
    {
        if (!runs.empty() && runs.back().showFrame == std::int64_t(row) + 1
            && runs.back().fileFrame == std::int64_t(column) + 1) {
            --runs.back().showFrame;
            --runs.back().fileFrame;
            ++runs.back().count;
            return;
        }
        runs.push_back({ std::int64_t(row), std::int64_t(column), 1 });
    }

    Frames m_show;
    Frames m_file;
    size_t m_width;
    /// Of each cell the former state of each of its three, two bits each.
    std::vector<std::uint8_t> m_former;
    State m_last = Pair;
};

/// The number of frames, taken by `pairWorth` from the first on, whose sum is highest.
template <typename PairWorth>
std::int64_t highestSum(std::int64_t count, PairWorth pairWorth)
{
    double sum = 0.0;
    double best = 0.0;
    std::int64_t bestCount = 0;
    for (std::int64_t frame = 0; frame < count && sum > best - mostFall; ++frame) {
        sum += double(pairWorth(frame));
        if (sum > best) {
            best = sum;
            bestCount = frame + 1;
        }
    }
    return bestCount;
}

}

std::vector<ZLFrameRun> ZLFrameAlignment::between(Frames show, Frames file)
{
    if (std::int64_t(show.size() + 1) * std::int64_t(file.size() + 1) <= mostCells)
        return Grid(show, file).runs();
    const std::int64_t beginning = sameAtBeginning(show, file);
    const std::int64_t end = sameAtEnd(show.subspan(size_t(beginning)), file.subspan(size_t(beginning)));
    return { { 0, 0, beginning }, { std::int64_t(show.size()) - end, std::int64_t(file.size()) - end, end } };
}

std::int64_t ZLFrameAlignment::sameAtBeginning(Frames show, Frames file)
{
    return highestSum(std::int64_t(std::min(show.size(), file.size())),
        [&](std::int64_t frame) { return worth(show[size_t(frame)], file[size_t(frame)]); });
}

std::int64_t ZLFrameAlignment::sameAtEnd(Frames show, Frames file)
{
    return highestSum(std::int64_t(std::min(show.size(), file.size())), [&](std::int64_t frame) {
        return worth(show[show.size() - 1 - size_t(frame)], file[file.size() - 1 - size_t(frame)]);
    });
}

double ZLFrameAlignment::agreement(Frames show, Frames file)
{
    return double(show.size()) * (WorthlessShare - differingShare(show, file));
}

double ZLFrameAlignment::differingShare(Frames show, Frames file)
{
    if (show.empty())
        return 1.0;
    std::int64_t differences = 0;
    for (size_t frame = 0; frame < show.size(); ++frame)
        differences += std::popcount(show[frame] ^ file[frame]);
    return double(differences) / (32.0 * double(show.size()));
}
