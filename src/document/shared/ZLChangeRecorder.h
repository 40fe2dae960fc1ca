#pragma once

#include "document/shared/ZLDocumentChange.h"

/// Keeps what changes in a document. The document calls it before it sends a signal, so a listener never hears of a
/// change that a crash could take back.
class ZLChangeRecorder {
public:
    virtual void recordChange(const ZLDocumentChange& change) = 0;

protected:
    ~ZLChangeRecorder() = default;
};
