#pragma once

#include "lists/ZLChapterList.h"
#include "lists/ZLListSource.h"

#include <QByteArray>
#include <QLatin1StringView>

/// One form of a list of chapters: how it is recognised, read and written. Reader and writer of a form stand in one
/// source of `lists/forms`, and ZLListForms has a row for each.
struct ZLListForm {
    /// The name by which the command line knows it; shown as it stands.
    QLatin1StringView name;
    /// Extension of its files without the dot.
    QLatin1StringView fileType;
    /// How finely it tells times: units of which so many make a second.
    double unitsPerSecond = 0.0;
    ZLListLimits limits;
    /// Whether the text is a list of this form; null for a form that is only written. It looks at the content alone.
    bool (*recognises)(const ZLListSource& source) = nullptr;
    /// One list for each show that the text holds, at least one. The error says what is wrong with the text.
    ZLResult<QList<ZLChapterList>> (*read)(const ZLListSource& source) = nullptr;
    /// The bytes of a file; null for a form that is only read, or that is one of the eight exporters.
    QByteArray (*write)(const ZLListToWrite& list) = nullptr;
    /// Whether what it is recognised by stands in no list of another form.
    bool isUnmistakable = false;

    [[nodiscard]] bool isRead() const { return read != nullptr; }
    [[nodiscard]] bool isWritten() const { return write != nullptr; }
};
