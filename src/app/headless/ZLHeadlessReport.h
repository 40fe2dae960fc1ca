#pragma once

#include "app/ZLChapterChanges.h"
#include "app/ZLDocumentController.h"
#include "app/headless/ZLHeadlessStreams.h"

#include <QObject>

#include <functional>

class ZLOSCController;

/// Says in lines what becomes of one document: whatever changes in it, by whatever way, and on demand how it stands.
class ZLHeadlessReport : public QObject {
    Q_OBJECT

public:
    /// All but `streams` have to outlive the object.
    ZLHeadlessReport(ZLDocumentController& controller, ZLChapterDocument& document, const ZLHeadlessStreams& streams,
        QObject* parent = nullptr);

    /// Makes it say on which port the program listens, when that changes and as part of the status.
    void showRemoteControl(const ZLOSCController& oscController);

    void print(const QString& line);
    /// Whether something was printed since the last call.
    [[nodiscard]] bool takeHasPrinted();
    /// Makes the call when a kill cannot take back any more what it is to tell: at once, or behind a long list.
    void whenSafe(std::function<void()> call);
    /// Prints what has changed since the last report.
    void printChanges();
    /// Each with what it is about in the place of "%1".
    /// @{
    void printSelectedChapter(const QString& sentence);
    void printClock(const QString& sentence);
    /// @}
    void printFile();
    void printStatus();

private:
    /// What was told last, to see what has changed since.
    struct Snapshot {
        bool isRecording = false;
        ZLChapterPointer selectedChapter;
    };

    [[nodiscard]] Snapshot takeSnapshot() const;
    void printChangesSoon();
    void printSafeChanges();
    void printChangedChapters();
    void printOtherDocuments();
    void printPort();

    ZLDocumentController& m_controller;
    ZLChapterDocument& m_document;
    const ZLHeadlessStreams m_streams;
    const ZLOSCController* m_oscController = nullptr;
    ZLChapterChanges m_chapterChanges;
    Snapshot m_reported;
    bool m_isReportDue = false;
    bool m_hasPrinted = false;
};
