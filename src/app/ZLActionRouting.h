#pragma once

#include <QString>

class ZLChapterDocument;

/// Which operation of a document carries out which remote action.
namespace ZLActionRouting {

using Operation = void (ZLChapterDocument::*)();

/// Null unless `action` is one of the published identifiers itself.
[[nodiscard]] Operation operationForAction(const QString& action);

}
