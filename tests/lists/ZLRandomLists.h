#pragma once

#include "lists/ZLListForm.h"

#include <random>

/// Lists that a form can hold: times on its units, texts within its limits. They are the same in every run unless
/// ZELTA_TEST_SEED is set.
class ZLRandomLists {
public:
    explicit ZLRandomLists(const ZLListForm& form);

    [[nodiscard]] ZLListToWrite next();

private:
    int below(int limit) { return int(m_random() % std::uint32_t(limit)); }
    [[nodiscard]] double time();
    [[nodiscard]] QString text();
    [[nodiscard]] bool holds(const QString& text) const;

    ZLListForm m_form;
    std::mt19937 m_random;
};
