#pragma once

#include "document/saving/journal/ZLJournalFile.h"

#include <QDeadlineTimer>
#include <QList>
#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>

/// Waits until a journal's file has a record that takes its time, and all behind it, without holding the caller up.
/// What may be told only when a kill cannot take it back any more is told then.
class ZLLongHandOver : public QObject {
    Q_OBJECT

public:
    /// Milliseconds after which a disk that hangs is waited for no longer; what was to be told is told then.
    static constexpr int LongestWait = 3000;

    explicit ZLLongHandOver(QObject* parent = nullptr);

    /// Waits for everything that was appended to `file` until now.
    void follow(std::shared_ptr<const ZLJournalFile> file);
    [[nodiscard]] bool isUnderWay() const { return m_file != nullptr; }
    /// Makes the call: at once, or when the wait is over.
    void whenOver(std::function<void()> call);
    /// Ends the wait and makes the calls.
    void end();

private:
    /// Milliseconds between two looks.
    static constexpr int LookInterval = 2;

    void look();

    std::shared_ptr<const ZLJournalFile> m_file;
    quint64 m_wanted = 0;
    QDeadlineTimer m_deadline;
    QTimer m_lookTimer { this };
    QList<std::function<void()>> m_calls;
};
