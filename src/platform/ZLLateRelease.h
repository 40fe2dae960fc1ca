#pragma once

#include <QByteArray>
#include <QList>
#include <QThreadPool>

#include <utility>

/// Gives things up on another thread: what a long document consists of takes its time to free, and nobody waits for it.
/// What is given up must belong to no thread.
namespace ZLLateRelease {

/// A list of fewer entries goes at once, and so do fewer bytes.
inline constexpr qsizetype ShortList = 1000;
inline constexpr qsizetype FewBytes = 100'000;

template <typename Value>
void of(Value value)
{
    QThreadPool::globalInstance()->start([released = std::move(value)] { });
}

template <typename Entry>
void of(QList<Entry> list)
{
    if (list.size() >= ShortList)
        QThreadPool::globalInstance()->start([released = std::move(list)] { });
}

inline void of(QByteArray bytes)
{
    if (bytes.size() >= FewBytes)
        QThreadPool::globalInstance()->start([released = std::move(bytes)] { });
}

}
