#pragma once

class QString;

/// Takes a file's name away at once, and frees its blocks on another thread: a long file takes milliseconds for that.
namespace ZLFileRemoval {

/// Does nothing where there is no file of that name. A link goes, and what it leads to stays.
void remove(const QString& path);

}
