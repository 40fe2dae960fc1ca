#include "recorder/obs/ZLOBSFrameLag.h"

#include <algorithm>

namespace {

constexpr double memory = 3.0;
/// However often it is looked, no more looks than this are kept.
constexpr std::size_t mostLooks = 300;
constexpr double partThatDecides = 0.6;

}

void ZLOBSFrameLag::take(double hostTime, qint64 lag)
{
    m_looks.push_back({ hostTime, lag });
    while (m_looks.size() > mostLooks || m_looks.front().hostTime < hostTime - memory)
        m_looks.pop_front();
}

double ZLOBSFrameLag::lookedFor() const
{
    return m_looks.empty() ? 0.0 : m_looks.back().hostTime - m_looks.front().hostTime;
}

qint64 ZLOBSFrameLag::usual() const
{
    const auto isLessUsual = [this](const Look& first, const Look& second) {
        return countOf(first.lag) < countOf(second.lag);
    };
    return m_looks.empty() ? 0 : std::ranges::max_element(m_looks, isLessUsual)->lag;
}

bool ZLOBSFrameLag::isDecided() const
{
    return double(countOf(usual())) > partThatDecides * double(m_looks.size());
}

std::size_t ZLOBSFrameLag::countOf(qint64 lag) const
{
    return std::size_t(std::ranges::count(m_looks, lag, &Look::lag));
}
