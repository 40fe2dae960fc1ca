#pragma once

#include <QList>
#include <QString>

/// A chapter as a media file has it.
struct ZLMediaChapter {
    /// Milliseconds from the beginning of the file.
    qint64 start = 0;
    /// Where it ends, in milliseconds; where a file keeps no ends, the start of the next chapter or the file's end.
    qint64 end = 0;
    QString title {};
    QString link {};

    bool operator==(const ZLMediaChapter&) const = default;
};

using ZLMediaChapters = QList<ZLMediaChapter>;
