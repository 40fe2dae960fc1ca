#pragma once

#include "document/saving/ZLBackgroundWrite.h"
#include "document/saving/journal/ZLJournalFile.h"
#include "platform/ZLAtomicFile.h"
#include "platform/ZLHostClock.h"

#include <functional>
#include <memory>

/// What a saver works with; tests replace what they want to control.
struct ZLSavingMachinery {
    ZLFileWriter writeFile = ZLAtomicFile::write;
    ZLJournalDisk journalDisk {};
    /// Carries a write out beside the event loop, in the order of the calls; when empty, a thread of the saver's own.
    std::function<void(std::function<void()>)> executor;
    std::shared_ptr<const ZLHostClock> clock = std::make_shared<ZLSteadyHostClock>();
};
