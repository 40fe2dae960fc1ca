#include "document/saving/ZLDocumentHistory.h"

#include "document/ZLStoredDocument.h"
#include "document/saving/journal/ZLJournalRecord.h"
#include "listening/ZLListeningData.h"
#include "platform/ZLAtomicFile.h"
#include "platform/ZLBoundedFile.h"
#include "platform/ZLPrivateFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QTimeZone>

#include <algorithm>
#include <optional>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(historyLog, "zelta.document.history", QtInfoMsg)

const QString historiesFolderName = QStringLiteral("states");
/// Holds the path of the document, so that one that is no longer there can be told.
const QString documentNoteName = QStringLiteral("document");
const QString stateTimeFormat = QStringLiteral("yyyyMMdd-HHmmsszzz");
constexpr qsizetype shortDigestLength = 16;

QString shortDigest(QByteArrayView bytes)
{
    return QString::fromLatin1(ZLJournalRecords::digestOf(bytes).toHex().first(shortDigestLength));
}

/// Time, number of chapters and digest: a list of states needs nothing but names, and a torn one betrays itself.
QString stateFileName(const QDateTime& time, qsizetype chapterCount, const QByteArray& bytes)
{
    return u"%1-%2-%3.%4"_s.arg(time.toUTC().toString(stateTimeFormat), QString::number(chapterCount),
        shortDigest(bytes), ZLDocumentFile::Extension);
}

std::optional<ZLDocumentState> stateFromName(const QFileInfo& file)
{
    const QString name = file.completeBaseName();
    const QString timeText = name.left(stateTimeFormat.size());
    QDateTime time = QDateTime::fromString(timeText, stateTimeFormat);
    time.setTimeZone(QTimeZone::utc());
    const QStringList parts = name.mid(timeText.size()).split(u'-');
    bool isCount = false;
    const int chapterCount = parts.value(1).toInt(&isCount);
    if (!time.isValid() || parts.size() != 3 || !isCount || chapterCount < 0)
        return std::nullopt;
    return ZLDocumentState { .path = file.filePath(), .time = time, .chapterCount = chapterCount };
}

/// By their names alone, newest first.
QList<ZLDocumentState> namedStates(const QString& folderPath)
{
    QList<ZLDocumentState> states;
    const auto files =
        QDir(folderPath).entryInfoList({ u"*."_s + ZLDocumentFile::Extension }, QDir::Files | QDir::NoSymLinks);
    for (const QFileInfo& file : files) {
        if (const auto state = stateFromName(file))
            states.append(*state);
    }
    std::ranges::stable_sort(states, std::ranges::greater(), &ZLDocumentState::time);
    return states;
}

bool isWholeState(const ZLDocumentState& state)
{
    const auto bytes = ZLBoundedFile::read(state.path, ZLFileBound::Document, ZLFileLinks::Refuse);
    return bytes && QFileInfo(state.path).completeBaseName().endsWith(u'-' + shortDigest(bytes.value()));
}

/// What was heard of a show is large and the same in all of its states, so that none has it.
QByteArray withoutListeningData(const QByteArray& document, ZLDocumentContents contents)
{
    return contents.extras.remove(ZLListeningData::Key) > 0 ? ZLDocumentFile::encode(contents) : document;
}

/// Of states, newest first, the one whose loss is felt least: near to a moment they stand close, far from it wide
/// apart. The newest stays, and the oldest too, unless it stems from a time long gone.
qsizetype leastMissedState(const QList<ZLDocumentState>& states)
{
    const QDateTime newest = states.first().time;
    const qsizetype last = states.size() - 1;
    if (states.at(last).time.daysTo(newest) > ZLDocumentHistory::DaysKept)
        return last;
    const auto loss = [&](qsizetype index) {
        const double gap = double(states.at(index + 1).time.msecsTo(states.at(index - 1).time));
        const double age = double(states.at(index).time.msecsTo(newest));
        return gap / (age + 1.0);
    };
    qsizetype found = 1;
    for (qsizetype index = 2; index < last; ++index) {
        if (loss(index) < loss(found))
            found = index;
    }
    return found;
}

}

ZLDocumentHistory::ZLDocumentHistory(const ZLRecoveryFolder& folder, const QString& name, const QString& documentPath)
    : m_recoveryPath(folder.path())
    , m_folderPath(u"%1/%2/%3"_s.arg(folder.path(), historiesFolderName, name))
    , m_documentPath(documentPath)
{
}

ZLDocumentHistory ZLDocumentHistory::ofFile(const ZLRecoveryFolder& folder, const QString& path)
{
    const QString canonicalPath = QFileInfo(path).canonicalFilePath();
    const QString documentPath = canonicalPath.isEmpty() ? path : canonicalPath;
    return { folder, u"file-"_s + shortDigest(documentPath.toUtf8()), documentPath };
}

ZLDocumentHistory ZLDocumentHistory::ofRecoveryFile(const ZLRecoveryFolder& folder, const QString& path)
{
    return { folder, u"untitled-"_s + QFileInfo(path).completeBaseName(), path };
}

QList<ZLDocumentState> ZLDocumentHistory::states() const
{
    auto states = namedStates(m_folderPath);
    states.removeIf([](const ZLDocumentState& state) { return !isWholeState(state); });
    return states;
}

ZLResult<ZLDocumentContents> ZLDocumentHistory::contentsOf(const ZLDocumentState& state)
{
    return ZLStoredDocument::contentsOf(state.path, ZLFileLinks::Refuse);
}

ZLStateKeeping ZLDocumentHistory::keep(
    const QByteArray& document, const QDateTime& time, const QByteArray& successor) const
{
    const auto contents = ZLDocumentFile::decode(document);
    const auto next = ZLDocumentFile::decode(successor);
    if (!contents || (contents.value().chapters.isEmpty() && contents.value().templates.isEmpty()))
        return ZLStateKeeping::NothingNew;
    if (next && next.value().chapters == contents.value().chapters
        && next.value().templates == contents.value().templates)
        return ZLStateKeeping::NothingNew;
    const QByteArray bytes = withoutListeningData(document, contents.value());
    const auto kept = namedStates(m_folderPath);
    if (!kept.isEmpty() && QFileInfo(kept.first().path).completeBaseName().endsWith(shortDigest(bytes)))
        return ZLStateKeeping::NothingNew;
    ZLStatus written = prepare();
    if (written)
        written = ZLAtomicFile::writeForOwner(
            m_folderPath + u'/' + stateFileName(time, contents.value().chapters.size(), bytes), bytes);
    if (!written) {
        qCWarning(historyLog) << "no former state kept:" << written.error().message;
        return ZLStateKeeping::Failed;
    }
    dropSuperfluous();
    return ZLStateKeeping::Kept;
}

ZLStatus ZLDocumentHistory::prepare() const
{
    if (const ZLStatus prepared = ZLRecoveryFolder(m_recoveryPath).prepare(); !prepared)
        return prepared;
    if (const ZLStatus prepared = ZLPrivateFolder::prepare(QFileInfo(m_folderPath).path()); !prepared)
        return prepared;
    if (const ZLStatus prepared = ZLPrivateFolder::prepare(m_folderPath); !prepared)
        return prepared;
    const QString notePath = m_folderPath + u'/' + documentNoteName;
    return QFile::exists(notePath) ? ZLStatus(ZLDone {})
                                   : ZLAtomicFile::writeForOwner(notePath, m_documentPath.toUtf8());
}

void ZLDocumentHistory::dropSuperfluous() const
{
    auto states = namedStates(m_folderPath);
    while (states.size() > MostStates)
        QFile::remove(states.takeAt(leastMissedState(states)).path);
}

void ZLDocumentHistory::shareWith(const ZLDocumentHistory& other) const
{
    const auto states = namedStates(m_folderPath);
    if (*this == other || states.isEmpty() || !other.prepare())
        return;
    for (const ZLDocumentState& state : states) {
        // A state is never changed, so that both may have one file.
        const QString target = other.m_folderPath + u'/' + QFileInfo(state.path).fileName();
        if (link(QFile::encodeName(state.path).constData(), QFile::encodeName(target).constData()) != 0)
            qCDebug(historyLog) << target << qt_error_string(errno);
    }
    other.dropSuperfluous();
}

void ZLDocumentHistory::remove() const
{
    QDir(m_folderPath).removeRecursively();
}

void ZLDocumentHistory::removeForgotten(const ZLRecoveryFolder& folder, const QDateTime& now)
{
    const QDir histories(folder.path() + u'/' + historiesFolderName);
    const auto entries = histories.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks);
    for (const QFileInfo& entry : entries) {
        const auto states = namedStates(entry.filePath());
        const QDateTime newest = states.isEmpty() ? entry.lastModified() : states.first().time;
        // The document is looked for last: it may lie where looking takes long.
        if (newest.daysTo(now) <= DaysKept)
            continue;
        const auto documentPath =
            ZLBoundedFile::read(entry.filePath() + u'/' + documentNoteName, ZLFileBound::List, ZLFileLinks::Refuse);
        if (!documentPath || !QFile::exists(QString::fromUtf8(documentPath.value())))
            QDir(entry.filePath()).removeRecursively();
    }
}
