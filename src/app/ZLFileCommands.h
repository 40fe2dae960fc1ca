#pragma once

#include "app/ZLCommandLine.h"
#include "app/ZLImportCommand.h"
#include "document/ZLDocumentFile.h"

#include <QTextStream>

/// The commands that work on files and end: no window, no display, no running recorder. Each returns a ZLExitStatus;
/// when it is not Done, the last line on the error stream says why and no file was changed. Before it writes, an export
/// says there what the destination will not like.
class ZLFileCommands {
public:
    /// The streams have to outlive the object.
    ZLFileCommands(QList<ZLExporterClass> exporterClasses, QTextStream& out, QTextStream& err);

    /// Carries out a command for which isFileCommand() holds.
    [[nodiscard]] int run(const ZLCommandLine& commandLine);

    /// Tells that the arguments could not be understood.
    [[nodiscard]] int refuseUsage(const ZLError& error);

private:
    [[nodiscard]] int listFormats();
    [[nodiscard]] int exportFile(const ZLCommandLine& commandLine);
    [[nodiscard]] int showFile(const ZLCommandLine& commandLine);
    [[nodiscard]] ZLResult<ZLDocumentContents> readToShow(const ZLCommandLine& commandLine);
    [[nodiscard]] ZLImportCommand importCommand();
    [[nodiscard]] int writeChapters(const ZLCommandLine& commandLine);
    [[nodiscard]] int fitChapters(const ZLCommandLine& commandLine);
    [[nodiscard]] int print(const QString& text);
    [[nodiscard]] int fail(int status, const QString& message);
    void advise(const QStringList& lines);
    void printErrorLine(const QString& message);

    [[nodiscard]] ZLResult<ZLExporterClass> exporterClassFor(const ZLCommandLine& commandLine) const;
    [[nodiscard]] ZLStatus writeExport(const ZLExporterClass& exporterClass, const ZLCommandLine& commandLine);

    QList<ZLExporterClass> m_exporterClasses;
    QTextStream& m_out;
    QTextStream& m_err;
};
