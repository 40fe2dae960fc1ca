#pragma once

#include "document/saving/ZLDocumentSaver.h"

#include <gtest/gtest.h>

#include <optional>

/// For tests that ask a saver for something as a person does, and go on when it is over.
struct ZLAsksSaver {
    /// What comes of something that a person asks of the saver, which is over when this returns.
    template <typename Ask>
    static ZLStatus outcomeOf(ZLDocumentSaver& saver, Ask ask)
    {
        std::optional<ZLStatus> outcome;
        ask([&outcome](const ZLStatus& status) { outcome = status; });
        saver.settle(QDeadlineTimer(ZLSilentDisk::CommandPatience));
        EXPECT_TRUE(outcome) << "never told";
        return outcome.value_or(ZLError {});
    }
    static ZLStatus saved(ZLDocumentSaver& saver)
    {
        return outcomeOf(saver, [&](const ZLWhenDone& whenDone) { saver.save(whenDone); });
    }
    static ZLStatus savedAs(ZLDocumentSaver& saver, const QString& path)
    {
        return outcomeOf(saver, [&](const ZLWhenDone& whenDone) { saver.saveAs(path, whenDone); });
    }
    static ZLStatus keptMine(ZLDocumentSaver& saver)
    {
        return outcomeOf(saver, [&](const ZLWhenDone& whenDone) { saver.keepMine(whenDone); });
    }
    static ZLStatus tookTheirs(ZLDocumentSaver& saver)
    {
        return outcomeOf(saver, [&](const ZLWhenDone& whenDone) { saver.takeTheirs(whenDone); });
    }
    static ZLStatus keptBoth(ZLDocumentSaver& saver)
    {
        return outcomeOf(saver, [&](const ZLWhenDone& whenDone) { saver.keepBoth(whenDone); });
    }
    static ZLStatus revertedTo(ZLDocumentSaver& saver, const ZLDocumentState& state)
    {
        return outcomeOf(saver, [&](const ZLWhenDone& whenDone) { saver.revertTo(state, whenDone); });
    }
};
