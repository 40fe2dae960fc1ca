#pragma once

#include <functional>

class QObject;
class ZLChapterDocument;
class ZLDocumentController;

/// What is told outside the program of a document, which waits until a kill cannot take it back any more.
namespace ZLSafeTelling {

/// Makes the call at once, or when the journal has a long list that `document` was given; not when `context` has gone
/// by then. `document` may be null.
void tell(
    ZLDocumentController& controller, const ZLChapterDocument* document, QObject* context, std::function<void()> call);

}
