#pragma once

#include "lists/forms/ZLListForms.h"

#include <gtest/gtest.h>

/// Reads `text` as a person's file; fails the test and gives nothing where that does not work.
inline ZLReadLists readText(const QString& text)
{
    const auto source = ZLListSource::fromText(text);
    EXPECT_TRUE(source.isOk());
    if (!source)
        return {};
    auto read = ZLListForms::read(source.value());
    EXPECT_TRUE(read.isOk()) << qPrintable(read.error().message) << "\n" << qPrintable(text.left(200));
    return read ? std::move(read).value() : ZLReadLists {};
}

/// The chapters of the only list in `text`.
inline QList<ZLListedChapter> chaptersIn(const QString& text)
{
    const ZLReadLists read = readText(text);
    EXPECT_EQ(read.lists.size(), 1);
    return read.lists.value(0).chapters;
}

/// Why `text` is refused; empty where it is not.
inline QString refusalOf(const QString& text)
{
    const auto source = ZLListSource::fromText(text);
    if (!source)
        return source.error().message;
    const auto read = ZLListForms::read(source.value());
    return read ? QString() : read.error().message;
}

inline ZLListForm formNamed(QLatin1StringView name)
{
    for (const ZLListForm& form : ZLListForms::all()) {
        if (form.name == name)
            return form;
    }
    ADD_FAILURE() << "no form " << name.data();
    return {};
}

inline void PrintTo(const ZLListedChapter& chapter, std::ostream* stream)
{
    *stream << chapter.start << " \"" << qPrintable(chapter.title) << "\" <" << qPrintable(chapter.link) << ">"
            << (chapter.isEnabled ? "" : " hidden");
}
