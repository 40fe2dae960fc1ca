#pragma once

#include "document/ZLDocumentSnapshot.h"
#include "platform/ZLResult.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>
#include <vector>

/// The writes that callers asked for and wait for, beside the event loop. Each request is served by the first write
/// that begins after it, whatever made that write begin.
class ZLSavingRequests : public QObject {
    Q_OBJECT

public:
    /// `written` is what was written; null after a failure.
    using WhenWritten = std::function<void(const ZLStatus& status, const ZLDocumentSnapshot* written)>;

    ZLSavingRequests();

    void add(WhenWritten whenWritten);
    [[nodiscard]] bool isEmpty() const { return m_waiting.empty() && m_served.empty(); }
    /// Whether a request waits for a write to begin.
    [[nodiscard]] bool isAnyWaiting() const { return !m_waiting.empty(); }

    /// A write of `state` begins, which serves all that wait.
    void noteBeginning(const ZLDocumentSnapshot& state);
    /// That write has ended.
    void noteEnd(const ZLStatus& status);
    /// Answers all of them.
    void answerAll(const ZLStatus& status);
    /// Gives the disk the same time once more.
    void waitOn() { m_patience.start(); }

Q_SIGNALS:
    /// The oldest request has waited as long as a command waits for a disk.
    void patienceIsOver();

private:
    using Requests = std::vector<WhenWritten>;

    static void answer(const Requests& requests, const ZLStatus& status, const ZLDocumentSnapshot* written);

    Requests m_waiting;
    Requests m_served;
    std::optional<ZLDocumentSnapshot> m_state;
    QTimer m_patience;
};
