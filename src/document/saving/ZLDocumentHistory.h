#pragma once

#include "document/ZLDocumentFile.h"
#include "document/saving/ZLRecoveryFolder.h"
#include "platform/ZLResult.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

/// A former state of a document, kept as a document file.
struct ZLDocumentState {
    QString path {};
    /// When the document came to be so; UTC.
    QDateTime time {};
    qsizetype chapterCount = 0;
};

/// What became of the wish to keep a state.
enum class ZLStateKeeping {
    Kept,
    NothingNew, ///< The state is empty, kept already, or its successor differs in nothing but the clock.
    Failed, ///< Nothing is lost but the state itself.
};

/// The last states of one document, in a folder of its own below the recovery folder. The object is a path and nothing
/// else: each operation works on what stands there, on whatever thread it is called.
class ZLDocumentHistory {
public:
    static constexpr qsizetype MostStates = 10;
    static constexpr int DaysKept = 60;

    /// Of the document in the user's file at `path`.
    [[nodiscard]] static ZLDocumentHistory ofFile(const ZLRecoveryFolder& folder, const QString& path);
    /// Of the untitled document in the file at `path`, which lies in the recovery folder.
    [[nodiscard]] static ZLDocumentHistory ofRecoveryFile(const ZLRecoveryFolder& folder, const QString& path);

    [[nodiscard]] const QString& folderPath() const { return m_folderPath; }
    [[nodiscard]] bool isOfRecoveryFile() const { return m_documentPath.startsWith(m_recoveryPath + u'/'); }
    bool operator==(const ZLDocumentHistory&) const = default;

    /// Newest first. What is torn or no state of ours is left out.
    [[nodiscard]] QList<ZLDocumentState> states() const;
    [[nodiscard]] static ZLResult<ZLDocumentContents> contentsOf(const ZLDocumentState& state);

    /// Keeps `document`, the state since `time`, before `successor` takes its place. What was heard of the show is left
    /// out. When there are more than MostStates, the one goes that leaves the smallest gap in proportion to its age.
    /// Tells what became of the wish.
    [[nodiscard]] ZLStateKeeping keep(
        const QByteArray& document, const QDateTime& time, const QByteArray& successor) const;

    /// Gives the document at another place the same states; those that it has there stay.
    void shareWith(const ZLDocumentHistory& other) const;
    /// Forgets all states.
    void remove() const;

    /// Forgets the states of documents that are no longer there, DaysKept after the newest one.
    static void removeForgotten(const ZLRecoveryFolder& folder, const QDateTime& now);

private:
    ZLDocumentHistory(const ZLRecoveryFolder& folder, const QString& name, const QString& documentPath);

    [[nodiscard]] ZLStatus prepare() const;
    void dropSuperfluous() const;

    QString m_recoveryPath;
    QString m_folderPath;
    QString m_documentPath;
};
