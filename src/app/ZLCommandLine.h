#pragma once

#include "export/ZLExporter.h"
#include "platform/ZLResult.h"
#include "settings/ZLOSCDestination.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// What the program tells the shell when it ends.
namespace ZLExitStatus {
inline constexpr int Done = 0;
inline constexpr int Failed = 1;
inline constexpr int WrongUsage = 2;
}

enum class ZLCommand {
    OpenWindows,
    RecordHeadless,
    ListFormats,
    ExportFile,
    ShowFile,
    WriteChapters,
    FitChapters,
    ImportChapters,
    SendAction,
    PrintHelp,
    PrintVersion,
};

enum class ZLHeadlessStart { Paused, Recording };

enum class ZLShowForm { Table, Json };

enum class ZLImportMode { NewDocument, AddToDocument };

/// What the user asked for when starting the program. Entries that the command has no use for keep their defaults.
struct ZLCommandLine {
    ZLCommand command = ZLCommand::OpenWindows;
    /// Any number for OpenWindows, at most one for RecordHeadless, exactly one for ExportFile, ShowFile
    /// and ImportChapters. For WriteChapters the one with the chapters and then the audio files.
    QStringList files {};
    /// For OpenWindows: a new, empty document as well.
    bool wantsNewDocument = false;
    ZLHeadlessStart headlessStart = ZLHeadlessStart::Paused;
    /// For RecordHeadless: the input to listen along to, empty for the default one; nothing for none.
    std::optional<QString> listeningSource {};
    QString formatName {};
    ZLExportOption exportOption = ZLExportOption::Off;
    /// Of the lines of a format that has such a pattern; empty for its usual one.
    QString linePattern {};
    /// For ExportFile, ImportChapters and WriteChapters; the latter replaces the audio file when it is empty.
    QString outputPath {};
    /// For WriteChapters and ImportChapters: how many seconds later the chapters stand where they are put.
    double shift = 0.0;
    ZLImportMode importMode = ZLImportMode::NewDocument;
    /// For ImportChapters and ShowFile: which of several shows in the file, from 1.
    std::optional<int> item {};
    /// For FitChapters: the finished file, the raw recording of the show, and the place in seconds at which the
    /// recording clock's zero lies in the latter. Without a recording the document knows how the show sounded.
    QString finishedPath {};
    QString heardPath {};
    double zero = 0.0;
    /// For ShowFile and FitChapters.
    ZLShowForm showForm = ZLShowForm::Table;
    /// For SendAction: the command word of an action, see ZLRemoteActions.
    QString action {};
    /// For RecordHeadless: the word of the recorder to follow, see ZLRecorderKind; empty for none.
    QString follow {};
    /// The OSC input to open, 0 for any that is free; for SendAction the one to speak to instead of the recorder that
    /// runs here.
    std::optional<quint16> oscPort {};
    /// Where to send the state in this run, instead of the stored outputs.
    std::optional<QList<ZLOSCDestination>> oscOutputs {};

    /// Reads `arguments`, the name of the program first. The error is what is wrong with them, in one line. No
    /// application object is needed: which one to make may depend on the answer.
    ///
    /// A word such as "show" is a command only as the very first argument; a file of that name is given as "./show".
    [[nodiscard]] static ZLResult<ZLCommandLine> parse(const QStringList& arguments);

    [[nodiscard]] static QString helpText();

    /// Whether ZLFileCommands carries it out, without a display.
    [[nodiscard]] bool isFileCommand() const;
};
