#pragma once

#include "delivery/fit/ZLClockStartJob.h"
#include "delivery/fit/ZLFit.h"
#include "delivery/fit/ZLFitJob.h"
#include "delivery/fit/ZLKeptFit.h"
#include "document/ZLDocumentFile.h"
#include "document/shared/ZLRecorderFiles.h"

#include <QStringList>

#include <memory>
#include <optional>

class ZLChapterDocument;

/// The fit of a document's chapters to a finished file, from the choice of the file until it is applied. What it found
/// is kept with the document at once, and what is shown of it follows the chapters.
class ZLFitDraft : public QObject {
    Q_OBJECT

public:
    enum class State {
        Choosing, ///< A file is to be chosen, or the fit to be started.
        Working,
        Failed, ///< message() says why there is no fit.
        Ready, ///< fit() is there.
    };
    /// Where it is known from how the show sounded.
    enum class Source {
        HeardAlong, ///< The program listened along.
        RecorderFiles, ///< The files of the recorder that the clock followed.
        Recording, ///< The raw recording, as a file.
    };

    /// Without the document it has nothing to show any more.
    explicit ZLFitDraft(ZLChapterDocument& document, QObject* parent = nullptr);
    ~ZLFitDraft() override;

    /// The file may have been fitted before: then the kept fit is shown soon. Refused while one is being made, as all
    /// choices are.
    void setFinishedPath(const QString& path);
    [[nodiscard]] const QString& finishedPath() const { return m_finishedPath; }
    void setSource(Source source);
    [[nodiscard]] Source source() const { return m_source; }
    /// Whether the document has what was heard along.
    [[nodiscard]] bool hasHeardAlong() const;
    /// Those that the document knows of, in their order.
    [[nodiscard]] QList<ZLRecorderFile> recorderFiles() const;
    /// The one from which most is known: what was heard along, else the files of the recorder, else a file to choose.
    void takeBestSource();
    void setRecordingPath(const QString& path);
    [[nodiscard]] const QString& recordingPath() const { return m_recordingPath; }
    /// The place of the recording clock's zero in the recording, in seconds.
    void setZero(double seconds);
    [[nodiscard]] double zero() const { return m_zero; }
    /// The bytes of the sound file that is heard before the clock starts.
    void setBeep(const QByteArray& beep) { m_beep = beep; }
    [[nodiscard]] bool canFindZero() const;
    /// Looks for it in the recording: by what was heard along, where there is such, else by the beep.
    void findZero();

    /// Finished files that were chosen before: their folders are not in the document.
    void setKnownPaths(const QStringList& paths) { m_knownPaths = paths; }
    [[nodiscard]] const QStringList& knownPaths() const { return m_knownPaths; }
    [[nodiscard]] QList<ZLKeptFit> keptFits() const;
    void showKeptFit(const QString& identifier);
    /// Of the fit that is shown; empty while there is none.
    [[nodiscard]] QString shownIdentifier() const { return m_kept ? m_kept->identifier : QString(); }

    [[nodiscard]] bool canStart() const;
    void start();
    void cancel();
    [[nodiscard]] bool isWorking() const { return m_state == State::Working; }
    /// Of the fit that is being made, from 0 to 1.
    [[nodiscard]] double fraction() const;
    [[nodiscard]] State state() const { return m_state; }
    /// One sentence: why there is no fit.
    [[nodiscard]] const QString& message() const { return m_message; }

    /// Absent unless State::Ready.
    [[nodiscard]] const std::optional<ZLFit>& fit() const { return m_fit; }
    /// Whether the chapters follow this file already, and none of them came later or was moved since.
    [[nodiscard]] bool isApplied() const;
    [[nodiscard]] bool canApply() const { return m_fit && !m_fit->chapters.isEmpty() && !isApplied(); }
    void apply();
    /// What a document of the finished file has; only while there is a fit.
    [[nodiscard]] ZLDocumentContents contentsOfFittedDocument() const;

Q_SIGNALS:
    /// The choices, the state, or the fit.
    void didChange();
    /// A fit that was started has its outcome.
    void didEnd();
    void didFindZero();

private:
    void lookForKeptFit();
    void showKeptFitOf(const QString& path, std::optional<double> length);
    [[nodiscard]] bool isSourceThere() const;
    [[nodiscard]] ZLFitJob::Hearing hearing() const;
    [[nodiscard]] ZLClockStartJob::Search zeroSearch() const;
    void takeZero(const ZLResult<double>& zero);
    void takeFinding(const ZLResult<ZLFitFinding>& finding);
    void keep(const ZLFitFinding& finding);
    void show(const ZLKeptFit& kept);
    void forgetFit();
    void fail(const QString& message);
    void fitAgain();
    void fitAgainSoon();
    [[nodiscard]] QString showName() const;

    [[nodiscard]] QVariant keptHearing() const;

    /// Null once it is gone.
    ZLChapterDocument* m_document;
    QString m_finishedPath;
    Source m_source = Source::Recording;
    QString m_recordingPath;
    double m_zero = 0.0;
    QByteArray m_beep;
    QStringList m_knownPaths;
    State m_state = State::Choosing;
    QString m_message;
    /// Finds out how long the chosen file is.
    std::unique_ptr<ZLDiskWork> m_lookUp;
    std::unique_ptr<ZLClockStartJob> m_zeroJob;
    std::unique_ptr<ZLFitJob> m_job;
    std::optional<ZLKeptFit> m_kept;
    std::optional<ZLFit> m_fit;
    bool m_isFitDue = false;
};
