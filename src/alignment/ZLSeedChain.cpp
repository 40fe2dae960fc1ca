#include "alignment/ZLSeedChain.h"

#include "alignment/ZLFrameAlignment.h"

#include <algorithm>
#include <map>

namespace {

constexpr double worthOfShare = 8.0;
constexpr double costOfChange = 1.0;
/// A clock that runs at another speed moves the distance by a frame now and then.
constexpr std::int64_t framesOfDrift = 2;
constexpr double costOfDrift = 0.1;
constexpr std::ptrdiff_t none = -1;

struct Link {
    double score = 0.0;
    std::ptrdiff_t former = none;
};

/// The best chain that ends before a place of the file, for any place: a binary indexed tree of maxima.
class BestBefore {
public:
    explicit BestBefore(size_t places)
        : m_tree(places + 1)
    {
    }
    void insert(size_t place, const Link& link)
    {
        for (size_t node = place + 1; node < m_tree.size(); node += node & (~node + 1)) {
            if (m_tree[node].score < link.score)
                m_tree[node] = link;
        }
    }
    [[nodiscard]] Link before(size_t place) const
    {
        Link best;
        for (size_t node = place; node > 0; node -= node & (~node + 1)) {
            if (m_tree[node].score > best.score)
                best = m_tree[node];
        }
        return best;
    }

private:
    std::vector<Link> m_tree;
};

class Chaining {
public:
    explicit Chaining(const std::vector<ZLAlignmentSeed>& seeds)
        : m_seeds(seeds)
        , m_links(seeds.size())
    {
        for (const ZLAlignmentSeed& seed : seeds)
            m_fileFrames.push_back(seed.fileFrame);
        std::ranges::sort(m_fileFrames);
        const auto duplicates = std::ranges::unique(m_fileFrames);
        m_fileFrames.erase(duplicates.begin(), duplicates.end());
    }

    [[nodiscard]] ZLSeedChain best()
    {
        BestBefore bestBefore(m_fileFrames.size());
        for (size_t begin = 0; begin < m_seeds.size();) {
            size_t end = begin;
            for (; end < m_seeds.size() && m_seeds[end].showFrame == m_seeds[begin].showFrame; ++end)
                m_links[end] = linkOf(end, bestBefore);
            for (; begin < end; ++begin) {
                bestBefore.insert(placeOf(m_seeds[begin]), { m_links[begin].score, std::ptrdiff_t(begin) });
                m_lastWithShift[m_seeds[begin].shift()] = begin;
            }
        }
        return chainTo(std::ranges::max_element(m_links, {}, &Link::score));
    }

private:
    [[nodiscard]] size_t placeOf(const ZLAlignmentSeed& seed) const
    {
        return size_t(std::ranges::lower_bound(m_fileFrames, seed.fileFrame) - m_fileFrames.begin());
    }
    [[nodiscard]] Link linkOf(size_t index, const BestBefore& bestBefore) const
    {
        const ZLAlignmentSeed& seed = m_seeds[index];
        const double worth = (ZLFrameAlignment::WorthlessShare - double(seed.differingShare)) * worthOfShare;
        Link best = bestBefore.before(placeOf(seed));
        best.score = std::max(best.score - costOfChange, 0.0);
        if (best.score == 0.0)
            best.former = none;
        for (std::int64_t drift = -framesOfDrift; drift <= framesOfDrift; ++drift) {
            const auto last = m_lastWithShift.find(seed.shift() + drift);
            if (last == m_lastWithShift.end() || m_seeds[last->second].fileFrame >= seed.fileFrame)
                continue;
            const double score = m_links[last->second].score - (drift == 0 ? 0.0 : costOfDrift);
            if (score > best.score)
                best = { score, std::ptrdiff_t(last->second) };
        }
        return { best.score + worth, best.former };
    }
    [[nodiscard]] ZLSeedChain chainTo(std::vector<Link>::const_iterator last) const
    {
        ZLSeedChain chain;
        if (last == m_links.end())
            return chain;
        chain.score = last->score;
        for (std::ptrdiff_t index = last - m_links.begin(); index != none; index = m_links[size_t(index)].former)
            chain.seeds.push_back(m_seeds[size_t(index)]);
        std::ranges::reverse(chain.seeds);
        return chain;
    }

    const std::vector<ZLAlignmentSeed>& m_seeds;
    std::vector<Link> m_links;
    std::vector<std::int64_t> m_fileFrames {};
    /// The latest seed at each distance between show and file.
    std::map<std::int64_t, size_t> m_lastWithShift {};
};

}

ZLSeedChain ZLSeedChain::best(const std::vector<ZLAlignmentSeed>& seeds)
{
    return Chaining(seeds).best();
}
