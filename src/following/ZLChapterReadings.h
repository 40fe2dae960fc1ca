#pragma once

#include <QCoreApplication>
#include <QString>

class ZLChapterDocument;

/// Whose time a chapter can have.
enum class ZLReadingOf { Zelta, Recorder };

/// Of each chapter that is marked while a recorder is followed, what Zelta's clock and the recorder read at the mark.
/// Either can be taken later, for all of them at once.
class ZLChapterReadings {
    Q_DECLARE_TR_FUNCTIONS(ZLChapterReadings)

public:
    /// `document` has to outlive it.
    explicit ZLChapterReadings(ZLChapterDocument& document);

    /// Keeps both readings of the chapters that were marked in the last seconds and have none yet. The recorder is
    /// `ahead` seconds ahead of the clock. Returns the titles of those chapters.
    QStringList noteNewChapters(double ahead);
    /// Keeps the recorder's readings anew of the chapters from `reading` on, which was noticed afterwards.
    void noteAgainSince(double reading, double ahead);

    [[nodiscard]] bool hasAny() const;
    /// Gives each chapter with both readings the wanted one, as one undoable step. One that was moved by hand is moved
    /// by the difference of both.
    void takeForAll(ZLReadingOf wanted);

private:
    ZLChapterDocument& m_document;
};

/// The keys under which they are kept of a chapter.
namespace ZLReadingKey {
inline const QString Recorder = QStringLiteral("RecorderTime");
inline const QString Zelta = QStringLiteral("ZeltaTime");
/// "Recorder" where the chapter has the recorder's time.
inline const QString Taken = QStringLiteral("TakenTime");
}
