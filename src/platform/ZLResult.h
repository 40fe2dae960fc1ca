#pragma once

#include <QString>

#include <optional>
#include <utility>

/// What went wrong, in one sentence that a person can read.
struct ZLError {
    QString message;
};

/// A value or the reason why there is none. Failures are returned through it, never thrown.
template <typename Value>
class [[nodiscard]] ZLResult {
public:
    ZLResult(Value value)
        : m_value(std::move(value))
    {
    }
    ZLResult(ZLError error)
        : m_error(std::move(error))
    {
    }

    [[nodiscard]] bool isOk() const { return m_value.has_value(); }
    explicit operator bool() const { return isOk(); }

    /// The value; only to be asked for when isOk().
    [[nodiscard]] const Value& value() const& { return *m_value; }
    [[nodiscard]] Value&& value() && { return std::move(*m_value); }

    /// The reason; only meaningful when not isOk().
    [[nodiscard]] const ZLError& error() const { return m_error; }

private:
    std::optional<Value> m_value;
    ZLError m_error;
};

/// A success without a value, for operations that are done for their effect.
struct ZLDone { };
using ZLStatus = ZLResult<ZLDone>;
