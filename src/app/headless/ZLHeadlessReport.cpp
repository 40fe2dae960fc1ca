#include "app/headless/ZLHeadlessReport.h"

#include "app/ZLSafeTelling.h"
#include "app/headless/ZLHeadlessTexts.h"
#include "remote/ZLOSCController.h"

#include <utility>

ZLHeadlessReport::ZLHeadlessReport(
    ZLDocumentController& controller, ZLChapterDocument& document, const ZLHeadlessStreams& streams, QObject* parent)
    : QObject(parent)
    , m_controller(controller)
    , m_document(document)
    , m_streams(streams)
    , m_chapterChanges(document.chapterManager())
    , m_reported(takeSnapshot())
{
    connect(&document, &ZLChapterDocument::changed, this, [this](const ZLDocumentChange& change) {
        if (change.concerns(ZLDocumentChange::concerningControllers))
            printChangesSoon();
    });
}

void ZLHeadlessReport::showRemoteControl(const ZLOSCController& oscController)
{
    m_oscController = &oscController;
    connect(&oscController.inPort(), &ZLOSCInPort::portDidChange, this, &ZLHeadlessReport::printPort);
}

void ZLHeadlessReport::print(const QString& line)
{
    m_hasPrinted = true;
    m_streams.print(line);
}

bool ZLHeadlessReport::takeHasPrinted()
{
    return std::exchange(m_hasPrinted, false);
}

void ZLHeadlessReport::printChangesSoon()
{
    // The signals come in the middle of an operation; what came of it is to be seen after its end.
    if (std::exchange(m_isReportDue, true))
        return;
    QMetaObject::invokeMethod(this, &ZLHeadlessReport::printChanges, Qt::QueuedConnection);
}

void ZLHeadlessReport::whenSafe(std::function<void()> call)
{
    ZLSafeTelling::tell(m_controller, &m_document, this, std::move(call));
}

void ZLHeadlessReport::printChanges()
{
    m_isReportDue = false;
    whenSafe([this] { printSafeChanges(); });
}

void ZLHeadlessReport::printSafeChanges()
{
    const Snapshot now = takeSnapshot();
    if (now.isRecording != m_reported.isRecording)
        printClock(now.isRecording ? tr("recording from %1") : tr("paused at %1"));
    if (!m_chapterChanges.isEmpty())
        printChangedChapters();
    else if (now.selectedChapter && now.selectedChapter != m_reported.selectedChapter)
        printSelectedChapter(tr("selected %1"));
    m_reported = now;
}

void ZLHeadlessReport::printChangedChapters()
{
    const auto removed = m_chapterChanges.takeRemoved();
    for (const auto& [index, chapter] : removed)
        print(tr("deleted %1").arg(ZLHeadlessTexts::describe(index, *chapter)));
    const auto added = m_chapterChanges.takeAdded();
    for (const auto& [index, chapter] : added)
        print(ZLHeadlessTexts::describe(index, *chapter));
}

void ZLHeadlessReport::printSelectedChapter(const QString& sentence)
{
    const int row = m_document.selectedRow();
    if (const ZLChapterPointer chapter = m_document.chapterManager().chapterAtIndex(row))
        print(sentence.arg(ZLHeadlessTexts::describe(row, *chapter)));
}

void ZLHeadlessReport::printClock(const QString& sentence)
{
    print(sentence.arg(m_document.clockText()));
}

void ZLHeadlessReport::printFile()
{
    const ZLDocumentSaver& saver = *m_controller.saverOf(&m_document);
    print(tr("file: %1, %2").arg(saver.path(), ZLHeadlessTexts::describe(saver)));
}

void ZLHeadlessReport::printStatus()
{
    const ZLDocumentSaver& saver = *m_controller.saverOf(&m_document);
    print(saver.isUntitled() ? tr("document: %1 (not in a file yet, kept safe)").arg(m_document.displayName())
                             : tr("document: %1").arg(saver.path()));
    printClock(m_document.isRecording() ? tr("clock: recording, %1") : tr("clock: paused, %1"));
    print(tr("chapters: %1").arg(m_document.chapterManager().count()));
    printSelectedChapter(tr("selected: %1"));
    print(tr("file: %1").arg(ZLHeadlessTexts::describe(saver)));
    printOtherDocuments();
    printPort();
}

void ZLHeadlessReport::printOtherDocuments()
{
    const auto documents = m_controller.documents();
    for (const ZLChapterDocument* document : documents) {
        const ZLDocumentSaver& saver = *m_controller.saverOf(document);
        if (document != &m_document)
            print(tr("also open: %1, %2")
                    .arg(ZLHeadlessTexts::nameOf(*document, saver), ZLHeadlessTexts::describe(saver)));
    }
}

void ZLHeadlessReport::printPort()
{
    if (!m_oscController)
        return;
    const ZLOSCInPort& port = m_oscController->inPort();
    if (port.port() != 0)
        print(tr("OSC: UDP port %1").arg(port.port()));
    else
        m_streams.complain(tr("OSC: %1").arg(port.failure()));
}

ZLHeadlessReport::Snapshot ZLHeadlessReport::takeSnapshot() const
{
    return {
        .isRecording = m_document.isRecording(),
        .selectedChapter = m_document.chapterManager().chapterAtIndex(m_document.selectedRow()),
    };
}
