#pragma once

#include <QtGlobal>

#include <algorithm>

namespace ZLPadding {

/// The size for `needed` bytes in place of `former` ones: the same where they fit, and otherwise more by whole blocks
/// of a disk. So what follows keeps its place within a block, and a file system can share the blocks of both files.
[[nodiscard]] inline qint64 paddedSize(qint64 needed, qint64 former)
{
    constexpr qint64 block = 4096;
    const qint64 missing = std::max(needed - former, qint64(0));
    return former + (missing + block - 1) / block * block;
}

}
