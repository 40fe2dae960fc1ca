#pragma once

#include <QString>

/// What the user chose about recorders. Every change is written at once. The password of OBS Studio is none of it.
class ZLFollowingSettings {
public:
    /// The word of the recorder that is followed, see ZLRecorderKind; empty for none.
    [[nodiscard]] static QString kind();
    static void setKind(const QString& word);
    /// Whether a press that starts or stops the clock starts and stops the recorder.
    [[nodiscard]] static bool startsRecorder();
    static void setStartsRecorder(bool enabled);
    /// Whether marks are written into the recorder's own file, where it can do that.
    [[nodiscard]] static bool marksChapters();
    static void setMarksChapters(bool enabled);

    /// Where OBS Studio is reached; this computer and its usual port unless something else is stored.
    [[nodiscard]] static QString obsHost();
    static void setOBSHost(const QString& host);
    [[nodiscard]] static quint16 obsPort();
    static void setOBSPort(quint16 port);

    /// One of the addresses of OSC time: "time", "play", "record" or "pause". REAPER's unless something else is stored.
    [[nodiscard]] static QString oscAddress(const QString& purpose);
    static void setOSCAddress(const QString& purpose, const QString& address);
};
