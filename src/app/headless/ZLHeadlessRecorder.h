#pragma once

#include "app/ZLCommandLine.h"
#include "app/ZLDocumentController.h"
#include "app/headless/ZLHeadlessConcerns.h"
#include "app/headless/ZLHeadlessStreams.h"

#include <QObject>

#include <optional>

class ZLFollowing;
class ZLHeadlessCommands;
class ZLHeadlessFollowing;
class ZLHeadlessReport;
class ZLOSCController;

/// Records into one document without a window; what else is open stands behind it. It obeys commands from its input and
/// says in a line what became of each, also of those that reach the document by another way. The end of the input ends
/// nothing, since a service has none.
class ZLHeadlessRecorder : public QObject {
    Q_OBJECT

public:
    /// `controller` has to outlive the recorder.
    ZLHeadlessRecorder(ZLDocumentController& controller, ZLHeadlessStreams streams, QObject* parent = nullptr);

    /// Makes the recorder say on which port it listens, at the start, when that changes and on demand. `oscController`
    /// has to outlive the recorder.
    void showRemoteControl(const ZLOSCController& oscController) { m_oscController = &oscController; }

    /// Makes the document follow the recorder with this word from start() on. `following` has to outlive the recorder.
    void follow(ZLFollowing& following, const QString& word);

    /// Opens `file`; without one, what was open before or a new document. It says so when it made a missing one. From
    /// here on SIGINT, SIGTERM and SIGHUP end the program as terminate() does.
    ZLStatus start(const std::optional<QString>& file, ZLHeadlessStart headlessStart,
        ZLMissingFile missingFile = ZLMissingFile::Create);

    /// One command, as it comes from the input. Only after start().
    void handleLine(const QString& line);
    /// Saves a running clock with its reading, which it does not stop, and asks for the end of the program.
    void terminate();

Q_SIGNALS:
    /// The program should end with this exit status.
    void didFinish(int exitStatus);

private:
    void watchSignals();
    [[nodiscard]] ZLResult<ZLChapterDocument*> openDocument(
        const std::optional<QString>& file, ZLMissingFile missingFile);
    [[nodiscard]] ZLChapterDocument* restoreSession();
    void equip(ZLChapterDocument& document);
    void openInput();
    void quit();

    ZLDocumentController& m_controller;
    const ZLHeadlessStreams m_streams;
    const ZLOSCController* m_oscController = nullptr;
    ZLHeadlessConcerns m_concerns;
    /// Null where nothing is followed.
    ZLHeadlessFollowing* m_following = nullptr;
    /// Both are there from start() on.
    ZLHeadlessReport* m_report = nullptr;
    ZLHeadlessCommands* m_commands = nullptr;
};
