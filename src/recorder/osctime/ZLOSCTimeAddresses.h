#pragma once

#include <QString>
#include <QStringView>

/// Under which addresses a recorder sends where it is. `*` stands for any signs and `?` for one; an empty address is
/// sent by nobody.
struct ZLOSCTimeAddresses {
    /// Seconds, as a number.
    QString time {};
    /// 1 while it plays, 0 while it does not; likewise the two others.
    QString play {};
    QString record {};
    QString pause {};

    /// As REAPER sends them with its pattern file "Default".
    [[nodiscard]] static ZLOSCTimeAddresses reaper();
    /// The time and nothing else: it records while the time goes on.
    [[nodiscard]] static ZLOSCTimeAddresses timeAlone();

    /// Whether a message with this address is one of the four.
    [[nodiscard]] bool contain(QStringView address) const;
    [[nodiscard]] static bool isMatch(QStringView pattern, QStringView address);

    bool operator==(const ZLOSCTimeAddresses&) const = default;
};
