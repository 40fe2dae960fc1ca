#include "document/saving/ZLDocumentSaver.h"

#include "document/ZLUnreadableDocument.h"
#include "platform/ZLBoundedFile.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

bool ZLDocumentSaver::canRevert()
{
    return !m_document.isRecording() && !m_revertBytes.isEmpty() && currentBytes() != m_revertBytes;
}

ZLStatus ZLDocumentSaver::revert()
{
    if (m_document.isRecording())
        return ZLError { tr("The clock is running. Pause the recording before you revert.") };
    if (!canRevert())
        return ZLDone {};
    const auto contents = ZLDocumentFile::decode(m_revertBytes);
    if (!contents)
        return contents.error();
    m_document.revertToContents(contents.value());
    return ZLDone {};
}

QList<ZLDocumentState> ZLDocumentSaver::formerStates() const
{
    return m_history ? m_history->states() : QList<ZLDocumentState>();
}

ZLStatus ZLDocumentSaver::revertTo(const ZLDocumentState& state)
{
    if (m_document.isRecording())
        return ZLError { tr("The clock is running. Pause the recording before you revert.") };
    const auto contents = ZLDocumentHistory::contentsOf(state);
    if (!contents)
        return contents.error();
    if (currentBytes() == ZLDocumentFile::encode(contents.value()))
        return ZLDone {};
    // Who went back by mistake finds what was there before, also after the next start.
    m_lastStateKept.reset();
    m_document.revertToContents(contents.value());
    return ZLDone {};
}

ZLStatus ZLDocumentSaver::keepMine()
{
    if (m_state != ZLSavingState::Conflict)
        return ZLDone {};
    // Once: what comes there after this moment is again nobody's to overwrite.
    const auto theirs = ZLBoundedFile::read(m_path, ZLFileBound::Document);
    m_fileDigest = theirs ? ZLJournalRecords::digestOf(theirs.value()) : QByteArray();
    // What is overwritten on purpose is a state to go back to all the same.
    m_bytesOnDisk = theirs ? theirs.value() : QByteArray();
    m_timeOfBytes = timeOfFile(m_path);
    m_lastStateKept.reset();
    setState(ZLSavingState::Waiting);
    return saveNow();
}

ZLStatus ZLDocumentSaver::takeTheirs()
{
    if (m_state != ZLSavingState::Conflict)
        return ZLDone {};
    const auto theirs = ZLBoundedFile::read(m_path, ZLFileBound::Document);
    if (!theirs)
        return theirs.error();
    const auto contents = ZLDocumentFile::decode(theirs.value());
    if (!contents)
        return ZLUnreadableDocument::error(m_path, theirs.value(), contents.error().message);
    (void)m_history->keep(currentBytes(), m_document.wallClockTime(), theirs.value());
    m_fileDigest = ZLJournalRecords::digestOf(theirs.value());
    m_bytesOnDisk.clear();
    setState(ZLSavingState::Waiting);
    m_document.adoptContents(contents.value());
    // Theirs as this program writes it, so that it is seen whether there is anything to go back to. The time of a clock
    // that runs is none of theirs.
    m_revertBytes = m_document.isRecording() ? theirs.value() : currentBytes();
    return ZLDone {};
}

ZLResult<QString> ZLDocumentSaver::keepBoth()
{
    const QFileInfo file(m_path);
    QString path;
    for (int number = 2; path.isEmpty() || QFile::exists(path); ++number)
        path = pathWithExtension(
            u"%1/%2 %3.%4"_s.arg(file.path(), file.completeBaseName(), QString::number(number), file.suffix()));
    if (const ZLStatus saved = saveAs(path); !saved)
        return saved.error();
    return path;
}
