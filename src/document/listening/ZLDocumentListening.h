#pragma once

#include "document/ZLChapterDocument.h"
#include "document/listening/ZLListeningJournal.h"
#include "document/saving/ZLDocumentSaver.h"
#include "listening/ZLListening.h"
#include "listening/ZLSpanListener.h"

#include <QObject>

/// Listens along to the show of one document: what the chosen input hears while the document's clock runs becomes a
/// fingerprint. As long as it runs that is kept beside the journal, and in the document from its stop on.
class ZLDocumentListening : public QObject {
    Q_OBJECT

public:
    /// All three have to outlive the object.
    ZLDocumentListening(ZLListening& listening, ZLChapterDocument& document, const ZLDocumentSaver& saver);
    /// What was heard last is kept beside the journal.
    ~ZLDocumentListening() override;

    /// Whether there is anything for removeData().
    [[nodiscard]] bool hasData() const;
    /// Takes what was heard out of the document, as an undoable step, and forgets what the run under way has heard.
    void removeData();

    /// What `extras`, those of a document, have of listening along, and what a run that was cut off has left at `path`.
    static void recover(QVariantMap& extras, const QString& path);

private:
    /// Samples of the input between two notes in the journal: a second.
    static constexpr std::size_t SamplesPerNote = ZLSoundInput::SamplesPerSecond;

    void followClock();
    void hear(const ZLHeardBlock& block);
    void noteInJournal();
    void finishRun();
    void followSleeps();
    [[nodiscard]] ZLListeningData storedData() const;
    /// Whether the clock was set since the run began, be it by a start.
    [[nodiscard]] bool wasClockSet() const;

    ZLListening& m_listening;
    ZLChapterDocument& m_document;
    const ZLDocumentSaver& m_saver;
    ZLSpanListener m_listener;
    ZLListeningJournal m_journal;
    /// Of the run under way.
    double m_clockSetting = 0.0;
    std::size_t m_samplesSinceNote = 0;
    /// As they were after the last change, to see which ones a command adds to the clock.
    QList<ZLSleepWhileRecording> m_sleeps;
    double m_duration = 0.0;
};
