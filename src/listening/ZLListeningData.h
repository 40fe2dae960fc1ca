#pragma once

#include "listening/ZLListeningSpan.h"

#include <QString>
#include <QVariant>
#include <QVariantMap>

#include <vector>

/// What was heard of a show, as a fingerprint that goes from the recording clock's zero to the last frame.
struct ZLHeardShow {
    /// Where nothing was heard its frames say so.
    ZLSoundFingerprint fingerprint {};
    /// The place in it, in seconds, at which the recording clock's zero lies: less than a frame.
    double zero = 0.0;
};

/// What a document keeps of listening along. docs/PRIVACY.md describes the stored form byte by byte.
class ZLListeningData {
public:
    /// Of the value at the root of a document.
    static inline const QString Key = QStringLiteral("Listening");
    /// What lies beyond counts as damaged: a hundred hours of the recording clock.
    static constexpr double LongestShow = 360000.0;
    /// An input's clock that goes more wrong than this is no clock.
    static constexpr double WorstDrift = 0.002;

    /// Nothing was heard.
    ZLListeningData() = default;
    /// What is stored under Key. What in it makes no sense is left out.
    [[nodiscard]] static ZLListeningData fromStored(const QVariant& stored);
    /// An invalid value when nothing was heard.
    [[nodiscard]] QVariant stored() const;
    /// What is stored as long as a first run of the clock is being heard: no spans yet.
    [[nodiscard]] static QVariant begun();

    /// Ascending, and none reaches into the next one.
    [[nodiscard]] const std::vector<ZLListeningSpan>& spans() const { return m_spans; }
    [[nodiscard]] bool isEmpty() const { return m_spans.empty(); }
    /// Those extras of a document that has listened along, `own`, and adopts `others`: what was heard stays where the
    /// others have nothing of it.
    [[nodiscard]] static QVariantMap adopted(QVariantMap others, const QVariantMap& own);

    /// Adds what was heard last. What earlier ones have at its start and later goes: the clock was set back since, or
    /// it is the same span once more. One that makes no sense is left out.
    void add(ZLListeningSpan span);
    /// Whether all that was heard in `span` is here, at its place. A frame of it that says nothing may be any other.
    [[nodiscard]] bool has(const ZLListeningSpan& span) const;
    /// The clock was put forward by `seconds`, as of `reading`: what was heard there and later was heard so much later.
    void insertTime(double reading, double seconds);
    /// Takes insertTime() back: what was heard `seconds` after `reading` and later was heard so much earlier.
    void removeTime(double reading, double seconds);

    /// Empty when nothing was heard.
    [[nodiscard]] ZLHeardShow heardShow() const;

    bool operator==(const ZLListeningData&) const = default;

private:
    void forgetFrom(double reading);

    std::vector<ZLListeningSpan> m_spans;
};
