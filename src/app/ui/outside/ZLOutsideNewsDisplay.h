#pragma once

#include "commands/ZLRemoteActions.h"
#include "remote/ZLRemoteSource.h"

#include <QObject>

class ZLChapterDocument;
class ZLDocumentWindows;
class ZLOutsideCommands;

/// Tells in the windows what commands from outside did: the chapter that came, in the status line of its window, and a
/// command that could do nothing, in a bar of each other window that records meanwhile. The bar goes when commands
/// reach the document of its window.
class ZLOutsideNewsDisplay : public QObject {
    Q_OBJECT

public:
    /// Both have to outlive the object.
    ZLOutsideNewsDisplay(ZLOutsideCommands& commands, ZLDocumentWindows& windows, QObject* parent = nullptr);

private:
    void tellOfChapter(ZLChapterDocument* document, const ZLRemoteSource& source) const;
    void tellOfNothing(ZLChapterDocument* document, const ZLRemoteAction& action, const ZLRemoteSource& source);
    /// Commands reach this document, which may be null.
    void forgetElsewhere(ZLChapterDocument* document) const;

    ZLOutsideCommands& m_commands;
    ZLDocumentWindows& m_windows;
};
