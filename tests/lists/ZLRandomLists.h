#pragma once

#include "lists/ZLListForm.h"

#include <random>

/// Lists that a form can hold, the same in every run: times on its units, texts within its limits.
class ZLRandomLists {
public:
    explicit ZLRandomLists(const ZLListForm& form)
        : m_form(form)
    {
    }

    [[nodiscard]] ZLListToWrite next();

private:
    int below(int limit) { return int(m_random() % std::uint32_t(limit)); }
    [[nodiscard]] double time();
    [[nodiscard]] QString text();
    [[nodiscard]] bool holds(const QString& text) const;

    ZLListForm m_form;
    std::mt19937 m_random { 20261121 };
};
