#pragma once

#include "delivery/ZLDeliveryPlan.h"
#include "delivery/ZLDeliveryReading.h"

#include <memory>
#include <optional>

class ZLChapterDocument;
class ZLDeliveryJob;

/// One audio file that is to get the chapters of a document.
struct ZLDeliveryTarget {
    enum class State {
        Reading,
        Unreadable, ///< `message` says why. It is tried again.
        Ready,
        Writing,
        Written, ///< `message` says what is in the file.
        Failed, ///< `message` says why.
    };

    QString path {};
    State state = State::Reading;
    QString message {};
    /// What writing will do; absent while the file was not read yet, and where it cannot be.
    std::optional<ZLDeliveryPlan> plan {};
};

/// The audio files that are to get the chapters of a document, from their choice until they are written. What will be
/// written follows the document until then. Files are read and written beside the main thread.
class ZLDeliveryDraft : public QObject {
    Q_OBJECT

public:
    using Reader = ZLDeliveryReading::Reader;
    /// The document's chapters at their places in this very file, where those are known.
    using Carrier = std::function<std::optional<ZLChapterSequence>(const QString& path, const ZLMediaContents& file)>;

    /// Without the document it has no targets any more. `reader` may be called on any thread.
    explicit ZLDeliveryDraft(ZLChapterDocument& document, Reader reader = {}, QObject* parent = nullptr);
    ~ZLDeliveryDraft() override;

    /// Takes these files instead of those before, each once, and reads them. Refused while files are being written.
    void setPaths(const QStringList& paths);
    [[nodiscard]] QStringList paths() const;
    [[nodiscard]] const QList<ZLDeliveryTarget>& targets() const { return m_targets; }
    void setCarrier(Carrier carrier) { m_carrier = std::move(carrier); }
    /// Seconds by which the chapters come later in the files than in the document. What the carrier says of a file is
    /// not shifted.
    void setShift(double seconds);
    [[nodiscard]] double shift() const { return m_shift; }

    /// Whether a file is ready that a chapter lies in.
    [[nodiscard]] bool canWrite() const;
    /// Writes all that are ready, as they stand now.
    void write();
    void cancel();
    [[nodiscard]] bool isWriting() const { return m_job != nullptr; }
    /// Of all files that are being written, from 0 to 1.
    [[nodiscard]] double fraction() const;

    /// Reads the chapters of this file into the document, as one undoable step. Returns how many there were.
    qsizetype importChaptersOf(qsizetype index);

Q_SIGNALS:
    /// The files themselves, or what is known of one of them.
    void didChange();
    /// Every file that was to be written has its outcome.
    void didEndWriting();

private:
    void takeContents(const QString& path, const ZLResult<ZLMediaContents>& contents);
    void planAgain();
    void planAgainSoon();
    void updatePlan(ZLDeliveryTarget& target, const ZLMediaContents& contents);
    [[nodiscard]] QList<ZLDeliveryPlan> plansToCarryOut();
    [[nodiscard]] QStringList unreadablePaths() const;
    void noteEndOfFile(int index, bool isWritten, const QString& message);
    void finishWriting();

    ZLChapterDocument& m_document;
    ZLDeliveryReading m_reading;
    Carrier m_carrier;
    QList<ZLDeliveryTarget> m_targets;
    double m_shift = 0.0;
    bool m_isPlanDue = false;
    std::unique_ptr<ZLDeliveryJob> m_job;
    /// Which of the targets the job writes, in its order.
    QList<qsizetype> m_written;
    int m_filesDone = 0;
};
