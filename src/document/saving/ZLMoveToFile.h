#pragma once

#include "document/ZLChapterDocument.h"
#include "document/saving/ZLDocumentWriter.h"
#include "document/saving/ZLFileUpdating.h"
#include "document/saving/ZLWhenDone.h"
#include "document/saving/ZLWriteSchedule.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>

/// Writes a document into another file, beside the event loop, and lets it move there when that file holds all of it.
/// What changes meanwhile is written there once more. Until the move the document stays where it is, and nothing is
/// written there.
class ZLMoveToFile : public QObject {
    Q_OBJECT

public:
    /// The file to which the document moves, and what it holds.
    struct Destination {
        QString path;
        QByteArray bytes;
        QByteArray digest;
        ZLDocumentSnapshot state;
        quint64 revision = 0;
    };
    using Move = std::function<void(const Destination&)>;

    /// All of them have to outlive the object. `move` is called when the file is written.
    ZLMoveToFile(ZLChapterDocument& document, const ZLDocumentPlace& place, const ZLWriteSchedule& schedule,
        ZLFileUpdating& updating, ZLFileWriter writer, Move move);

    /// Begins as soon as no write to the present file is under way. `path` may be written over.
    void start(const QString& path, ZLWhenDone whenDone);
    [[nodiscard]] bool isUnderWay() const { return m_whenDone != nullptr; }
    /// Waits for the end; one that does not come before `deadline` is a failure.
    void settle(QDeadlineTimer deadline);

private:
    /// A document that changes faster than it is written is written once more while everything waits.
    static constexpr int MostRounds = 4;

    void write();
    [[nodiscard]] ZLWriteOrder nextOrder();
    void noteOutcome(const ZLWriteOrder& order, const ZLWriteOutcome& outcome);
    void noteSilence();
    /// The write to the present file does not end.
    void leaveHangingFile();
    void giveUp();
    void finish(const ZLStatus& status);

    ZLChapterDocument& m_document;
    const ZLDocumentPlace& m_place;
    const ZLWriteSchedule& m_schedule;
    ZLFileUpdating& m_updating;
    ZLDocumentWriter m_writer;
    const Move m_move;
    QString m_path;
    ZLWhenDone m_whenDone;
    std::optional<ZLDocumentSnapshot> m_state;
    int m_rounds = 0;
    QTimer m_patience;
};
