#pragma once

#include <QByteArray>
#include <QList>

#include <optional>

/// Digests of what a file may hold without being the work of another program; absent when whatever it holds may be
/// replaced.
using ZLKnownVersions = std::optional<QList<QByteArray>>;
