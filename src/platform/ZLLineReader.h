#pragma once

#include <QByteArray>
#include <QObject>

class QSocketNotifier;

/// Reads lines of UTF-8 text from a file descriptor as they come, without ever blocking the event loop.
class ZLLineReader : public QObject {
    Q_OBJECT

public:
    /// Longer lines are dropped whole, so that a stream without line ends does not fill the memory. Bytes.
    static constexpr qsizetype LongestLine = 64 * 1024;

    /// `descriptor` is not owned.
    explicit ZLLineReader(int descriptor, QObject* parent = nullptr);

Q_SIGNALS:
    /// `line` has no line end; a last line without one counts too.
    void didReadLine(const QString& line);

private:
    void readAvailable();
    void takeBytes(QByteArrayView bytes);
    void finishLine();
    void finish();

    int m_descriptor;
    QSocketNotifier* m_notifier;
    QByteArray m_line;
    bool m_isTooLong = false;
};
