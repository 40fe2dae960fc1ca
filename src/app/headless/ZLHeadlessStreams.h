#pragma once

#include <QString>

#include <functional>

/// Where a recorder without a window reads its commands and says what became of them.
struct ZLHeadlessStreams {
    /// Commands, one a line; -1 for none.
    int inputDescriptor = -1;
    std::function<void(const QString& line)> print;
    std::function<void(const QString& line)> complain;

    /// Standard input, output and error.
    [[nodiscard]] static ZLHeadlessStreams standard();
};
