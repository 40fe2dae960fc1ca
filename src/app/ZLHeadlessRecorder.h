#pragma once

#include "app/ZLCommandLine.h"
#include "app/ZLDocumentController.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class ZLChapterChanges;
class ZLHeadlessSavingReports;
class ZLLineReader;
class ZLOSCController;
class ZLSignalWatcher;
struct ZLRemoteAction;

/// Where a recorder without a window reads its commands and says what became of them.
struct ZLHeadlessStreams {
    /// Commands, one a line; -1 for none.
    int inputDescriptor = -1;
    std::function<void(const QString& line)> print;
    std::function<void(const QString& line)> complain;

    /// Standard input, output and error.
    [[nodiscard]] static ZLHeadlessStreams standard();
};

/// Records into one document without a window; what else is open stands behind it. It obeys commands from its input and
/// says in a line what became of each, also of those that reach the document by another way. The end of the input ends
/// nothing, since a service has none.
class ZLHeadlessRecorder : public QObject {
    Q_OBJECT

public:
    /// `controller` has to outlive the recorder.
    ZLHeadlessRecorder(ZLDocumentController& controller, ZLHeadlessStreams streams, QObject* parent = nullptr);
    ~ZLHeadlessRecorder() override;

    /// Makes the recorder say on which port it listens, at the start, when that changes and on demand. `oscController`
    /// has to outlive the recorder.
    void showRemoteControl(const ZLOSCController& oscController);

    /// Opens `file`; without one, what was open before or a new document. It says so when it made a missing one. From
    /// here on SIGINT, SIGTERM and SIGHUP end the program as terminate() does.
    ZLStatus start(const std::optional<QString>& file, ZLHeadlessStart headlessStart,
        ZLMissingFile missingFile = ZLMissingFile::Create);

    /// One command, as it comes from the input.
    void handleLine(const QString& line);
    /// Saves a running clock with its reading, which it does not stop, and asks for the end of the program.
    void terminate();

Q_SIGNALS:
    /// The program should end with this exit status.
    void didFinish(int exitStatus);

private:
    /// A command of the recorder's own, beside the actions of a remote control.
    struct Command {
        QString name;
        /// Untranslated, as the next.
        const char* description;
        /// Said when the command left everything as it was; null when it always says something.
        const char* withoutEffect;
        void (ZLHeadlessRecorder::*perform)(const QString& argument);
    };
    /// What was told last, to see what has changed since.
    struct Snapshot {
        bool isRecording = false;
        ZLChapterPointer selectedChapter;
    };

    [[nodiscard]] static const std::vector<Command>& commands();

    void performAction(const ZLRemoteAction& action);
    void setTitle(const QString& title);
    void continueRecording(const QString& argument);
    void keepPaused(const QString& argument);
    void addSleptTime(const QString& argument);
    void leaveSleptTime(const QString& argument);
    void keepMine(const QString& argument);
    void takeTheirs(const QString& argument);
    void keepBoth(const QString& argument);
    void printStatus(const QString& argument);
    void printHelp(const QString& argument);
    void quit(const QString& argument);

    void settleConflict(const std::function<ZLStatus(ZLDocumentSaver&)>& decision);
    void reportReadOnlyFile();
    void reportInterruption();
    void reportSleep();
    void printOtherDocuments();
    void printPort();

    ZLStatus openDocuments(const std::optional<QString>& file, ZLMissingFile missingFile);
    void openInput();
    void watchDocuments();
    void scheduleReport();
    /// Prints what has changed since the last report.
    void report();
    void reportChapters();
    void print(const QString& line);
    [[nodiscard]] Snapshot takeSnapshot() const;

    ZLDocumentController& m_controller;
    ZLHeadlessStreams m_streams;
    const ZLOSCController* m_oscController = nullptr;
    ZLHeadlessSavingReports* m_savingReports;
    ZLChapterDocument* m_document = nullptr;
    std::unique_ptr<ZLChapterChanges> m_chapterChanges;
    ZLLineReader* m_input = nullptr;
    ZLSignalWatcher* m_signals = nullptr;
    Snapshot m_reported;
    bool m_isReportDue = false;
    bool m_hasPrinted = false;
};
