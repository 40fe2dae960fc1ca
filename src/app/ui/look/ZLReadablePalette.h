#pragma once

#include <QPalette>

#include <optional>

/// Lets all windows use the desktop's palette with what cannot be read in it made readable.
class ZLReadablePalette {
public:
    /// To be called at the start and when the desktop changes its palette.
    void apply();

private:
    /// Absent until there was a first time.
    std::optional<QPalette> m_applied;
    bool m_isApplying = false;
};
