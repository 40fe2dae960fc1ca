#pragma once

#include "recorder/ZLRecorderReport.h"

#include <QObject>
#include <QString>

/// How a recorder is reached.
enum class ZLRecorderConnection {
    Off, ///< Not asked for.
    Connecting, ///< Asked for; no answer yet, or none any more. It is tried again and again.
    Connected, ///< It reports.
    Refused, ///< It answers, but will not do: a wrong password, another version. Tried again after open() only.
};

/// Another program that records the show. It reports where its recording is; one small class for each kind of program.
/// Everything happens on the thread of the object, and nothing waits.
class ZLRecorder : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Begins to connect and goes on trying until close().
    virtual void open() = 0;
    virtual void close() = 0;

    /// Whether startRecording() and stopRecording() reach it.
    [[nodiscard]] virtual bool canBeStarted() const { return false; }
    virtual void startRecording() { }
    virtual void stopRecording() { }
    /// Whether markChapter() reaches it: it writes chapters into its own file.
    [[nodiscard]] virtual bool canMarkChapters() const { return false; }
    virtual void markChapter(const QString& title) { Q_UNUSED(title); }

Q_SIGNALS:
    /// Several times a second while it records, and at each change of its state.
    void didReport(const ZLRecorderReport& report);
    /// `reason` is a sentence for a person where the connection is none, else empty.
    void connectionDidChange(ZLRecorderConnection connection, const QString& reason);
    /// It records into this file now; a recording that is split tells each of its files. `begin` is the moment that
    /// stands at the beginning of the file, in seconds of the host's clock; an encoder writes it some time later.
    void fileDidChange(const QString& path, double begin);
};
