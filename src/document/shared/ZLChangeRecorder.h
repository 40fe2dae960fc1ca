#pragma once

#include "document/shared/ZLDocumentChange.h"

/// Keeps what changes in a document. The document calls it before it tells anybody else, so that nobody hears of a
/// change that a crash could take back.
class ZLChangeRecorder {
public:
    virtual void recordChange(const ZLDocumentChange& change) = 0;

protected:
    ~ZLChangeRecorder() = default;
};
