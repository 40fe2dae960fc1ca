#pragma once

#include "SavingFixture.h"

#include <memory>

/// The parts of a saver without the saver that puts them together, for a document in a file or without one.
class SavingPartsFixture : public SavingFixture {
protected:
    struct Parts {
        Parts(SavingPartsFixture& test, const QString& path)
            : document(test.document)
            , machinery(test.machinery)
            , place(test.recoveryFolder, path, nullptr)
        {
            if (path.isEmpty())
                return;
            const QByteArray bytes = document.dataOfType();
            EXPECT_TRUE(ZLAtomicFile::write(path, bytes));
            knownFile = ZLKnownFile(test.asRead(), document.wallClockTime());
            journaling.setBase(bytes);
        }

        ZLChapterDocument& document;
        const ZLSavingMachinery machinery;
        ZLDocumentPlace place;
        ZLKnownFile knownFile;
        ZLStateRhythm states { machinery.clock };
        ZLReverting reverting { document, states };
        ZLWriteSchedule schedule { machinery.clock };
        ZLSavingReport report { document, place, schedule };
        ZLDiskWatch diskWatch { machinery.clock, [this] { return journaling.progress(); },
            [this] { return updating.progress(); } };
        ZLJournaling journaling { document, place, knownFile, diskWatch, machinery.journalDisk };
        ZLWriteOrders orders { document, place, knownFile, states, journaling, schedule };
        ZLFileUpdating updating { orders, schedule, report, diskWatch, machinery.writeFile, machinery.executor };
        ZLConflictDecisions decisions { document, place, knownFile, orders, reverting, report };
    };

    std::unique_ptr<Parts> titledParts() { return std::make_unique<Parts>(*this, path); }
    std::unique_ptr<Parts> untitledParts() { return std::make_unique<Parts>(*this, QString()); }

    const QString path = filePath("show.zelta");
};
