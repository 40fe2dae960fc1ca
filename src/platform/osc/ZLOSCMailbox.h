#pragma once

#include <QtGlobal>

#include <deque>
#include <mutex>
#include <optional>

/// A queue between two threads with a bound on its entries and on their weight (bytes, roughly). When it is full the
/// oldest entries go, so the newest, a person's last press, always gets through. Its lock is held for moments only.
template <typename Item>
class ZLOSCMailbox {
public:
    ZLOSCMailbox(qsizetype mostEntries, qsizetype largestWeight)
        : m_mostEntries(mostEntries)
        , m_largestWeight(largestWeight)
    {
    }

    /// Adds an entry and gives how many old ones had to go for it.
    qsizetype push(Item item, qsizetype weight)
    {
        const std::scoped_lock lock(m_mutex);
        qsizetype discarded = 0;
        while (!m_entries.empty() && (length() >= m_mostEntries || m_weight + weight > m_largestWeight)) {
            dropFront();
            ++discarded;
        }
        m_entries.push_back({ std::move(item), weight });
        m_weight += weight;
        m_longest = qMax(m_longest, length());
        return discarded;
    }

    /// The oldest entry; nothing when the queue is empty.
    std::optional<Item> take()
    {
        const std::scoped_lock lock(m_mutex);
        if (m_entries.empty())
            return std::nullopt;
        std::optional<Item> item(std::move(m_entries.front().item));
        dropFront();
        return item;
    }

    [[nodiscard]] bool isEmpty() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_entries.empty();
    }

    /// How many entries it ever held at once.
    [[nodiscard]] qsizetype longest() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_longest;
    }

private:
    struct Entry {
        Item item;
        qsizetype weight;
    };

    qsizetype length() const { return static_cast<qsizetype>(m_entries.size()); }

    void dropFront()
    {
        m_weight -= m_entries.front().weight;
        m_entries.pop_front();
    }

    const qsizetype m_mostEntries;
    const qsizetype m_largestWeight;
    mutable std::mutex m_mutex;
    std::deque<Entry> m_entries;
    qsizetype m_weight = 0;
    qsizetype m_longest = 0;
};
