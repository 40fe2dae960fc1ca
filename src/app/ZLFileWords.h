#pragma once

#include "app/ZLCommandLine.h"
#include "app/ZLDocumentController.h"

/// What the words on the command line stand for that are taken as the names of files.
namespace ZLFileWords {

/// Whether `name` is meant as a file, there or not: it has a folder, or the extension of a document.
[[nodiscard]] bool isNameOfFile(const QString& name);

/// Fails for a word that is neither a file nor a command, with the commands that come near. Only what opens windows or
/// records without one has such words.
[[nodiscard]] ZLStatus check(const ZLCommandLine& commandLine);

/// Only who asks for a recorder without a window, and gives the whole name of a document, gets a new one.
[[nodiscard]] ZLMissingFile missingFile(const ZLCommandLine& commandLine);

}
