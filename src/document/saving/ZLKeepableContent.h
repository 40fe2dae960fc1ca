#pragma once

class ZLChapterDocument;

/// Whether a document holds anything that would be missed.
class ZLKeepableContent {
public:
    [[nodiscard]] static bool isIn(ZLChapterDocument& document);
    /// The same for what can come back by undo or redo, or comes when the beep is over.
    [[nodiscard]] static bool isOrMayBeIn(ZLChapterDocument& document);
};
