#pragma once

#include "app/ZLCommandLine.h"
#include "app/ZLDocumentController.h"

/// What the words on the command line stand for that are taken as the names of files.
namespace ZLFileWords {

/// Whether `name` is meant as a file, there or not: it has a folder, or the extension of a document.
[[nodiscard]] bool isNameOfFile(const QString& name);

/// Fails for a word that is neither a file nor a command, and names the commands that are like it. Other words than
/// commands come only where windows are opened or a recorder without a window is started.
[[nodiscard]] ZLStatus check(const ZLCommandLine& commandLine);

/// A missing file is made for a recorder without a window whose argument is the whole name of a document, else never.
[[nodiscard]] ZLMissingFile missingFile(const ZLCommandLine& commandLine);

}
