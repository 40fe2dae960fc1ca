#include "app/ZLFileCommands.h"

#include "app/ZLChapterListing.h"
#include "app/ZLErrorLines.h"
#include "app/ZLExportOutput.h"
#include "app/ZLFitCommand.h"
#include "app/ZLWriteCommand.h"
#include "delivery/ZLMediaImport.h"
#include "document/ZLStoredDocument.h"
#include "document/saving/ZLWriteProtection.h"
#include "export/ZLSessionCopy.h"
#include "export/formats/ZLExportAdvice.h"
#include "model/ZLChapterManager.h"
#include "platform/ZLBoundedFile.h"
#include "platform/ZLFileError.h"
#include "platform/ZLFileIdentity.h"
#include "platform/media/file/ZLMediaFile.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct FileCommandTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLFileCommands)
};

/// A document, or an audio file as one.
ZLResult<ZLDocumentContents> readDocument(const QString& path)
{
    if (ZLMediaFile::isMediaFile(path))
        return ZLMediaImport::read(path);
    return ZLStoredDocument::contentsOf(path);
}

ZLChapterSequence sortedChapters(const QVariantList& dictionaries)
{
    return ZLChapterManager(dictionaries).allChapters();
}

ZLChapterSequence chaptersAsStored(const QVariantList& dictionaries)
{
    ZLChapterManager manager;
    manager.setWantsSortedChapters(false);
    manager.loadChapters(dictionaries);
    return manager.allChapters();
}

}

ZLFileCommands::ZLFileCommands(QList<ZLExporterClass> exporterClasses, QTextStream& out, QTextStream& err)
    : m_exporterClasses(std::move(exporterClasses))
    , m_out(out)
    , m_err(err)
{
}

int ZLFileCommands::run(const ZLCommandLine& commandLine)
{
    Q_ASSERT(commandLine.isFileCommand());
    switch (commandLine.command) {
    case ZLCommand::ListFormats:
        return listFormats();
    case ZLCommand::ExportFile:
        return exportFile(commandLine);
    case ZLCommand::ShowFile:
        return showFile(commandLine);
    case ZLCommand::WriteChapters:
        return writeChapters(commandLine);
    case ZLCommand::FitChapters:
        return fitChapters(commandLine);
    case ZLCommand::ImportChapters:
        return importCommand().run(commandLine);
    case ZLCommand::PrintVersion:
        return print(u"Zelta %1\n"_s.arg(QStringLiteral(ZELTA_VERSION)));
    case ZLCommand::PrintHelp:
    case ZLCommand::OpenWindows:
    case ZLCommand::RecordHeadless:
    case ZLCommand::SendAction:
        break;
    }
    return print(ZLCommandLine::helpText());
}

int ZLFileCommands::refuseUsage(const ZLError& error)
{
    return fail(ZLExitStatus::WrongUsage, error.message);
}

int ZLFileCommands::listFormats()
{
    QString text;
    for (const ZLExporterClass& exporterClass : std::as_const(m_exporterClasses))
        text += exporterClass.format().name + u'\t' + exporterClass.format().fileType + u'\n';
    return print(text);
}

int ZLFileCommands::exportFile(const ZLCommandLine& commandLine)
{
    const auto exporterClass = exporterClassFor(commandLine);
    if (!exporterClass)
        return refuseUsage(exporterClass.error());
    const bool needsFile = exporterClass.value().format().dialogKind == ZLExportDialogKind::Open;
    if (needsFile && ZLExportOutput(commandLine.outputPath).isStandardOutput())
        return refuseUsage({ FileCommandTexts::tr("\"%1\" rewrites a session, so --output needs its file.")
                .arg(exporterClass.value().format().name) });
    const ZLStatus status = writeExport(exporterClass.value(), commandLine);
    return status ? ZLExitStatus::Done : fail(ZLExitStatus::Failed, status.error().message);
}

ZLResult<ZLExporterClass> ZLFileCommands::exporterClassFor(const ZLCommandLine& commandLine) const
{
    QStringList names;
    for (const ZLExporterClass& exporterClass : m_exporterClasses) {
        const ZLExportFormat& format = exporterClass.format();
        names.append(format.name);
        if (format.name.compare(commandLine.formatName, Qt::CaseInsensitive) != 0)
            continue;
        if (commandLine.exportOption == ZLExportOption::On && !format.hasOption())
            return ZLError { FileCommandTexts::tr("The format \"%1\" has no option.").arg(format.name) };
        if (!commandLine.linePattern.isEmpty() && !format.hasLinePattern())
            return ZLError { FileCommandTexts::tr("The format \"%1\" has no line pattern.").arg(format.name) };
        return exporterClass;
    }
    return ZLError { FileCommandTexts::tr("There is no format \"%1\"; the formats are: %2.")
            .arg(commandLine.formatName, names.join(", "_L1)) };
}

ZLStatus ZLFileCommands::writeExport(const ZLExporterClass& exporterClass, const ZLCommandLine& commandLine)
{
    const QString& source = commandLine.files.constFirst();
    const QString& target = commandLine.outputPath;
    const ZLExportOutput output(target);
    const auto contents = readDocument(source);
    if (!contents)
        return contents.error();
    // The chapters cannot be read back from an export, so it must not take the document's place.
    if (ZLFileIdentity::of(source) == ZLFileIdentity::of(target))
        return ZLError { FileCommandTexts::tr("%1: the export would replace the document itself.").arg(target) };
    ZLExportInput input { .chapters = sortedChapters(contents.value().chapters),
        .duration = contents.value().duration,
        .option = commandLine.exportOption,
        .linePattern = commandLine.linePattern,
        .fileBaseName = ZLExporter::fileBaseName(output.isStandardOutput() ? source : target) };
    if (exporterClass.format().dialogKind == ZLExportDialogKind::Open) {
        auto existing = ZLBoundedFile::read(target, ZLFileBound::Document);
        if (!existing)
            return existing.error();
        input.existingBytes = std::move(existing).value();
    }
    const auto bytes = exporterClass.create()->exportedBytes(input);
    if (!bytes)
        return ZLFileError::because(target, bytes.error().message);
    advise(ZLExportAdvice::lines(exporterClass, input));
    if (exporterClass.format().dialogKind == ZLExportDialogKind::Open) {
        for (const QString& path : { target, ZLSessionCopy::pathFor(target) }) {
            if (const ZLStatus allowed = ZLWriteProtection::check(path); !allowed)
                return allowed;
        }
        if (const ZLStatus kept = ZLSessionCopy::keep(target, input.existingBytes); !kept)
            return kept;
    }
    return output.write(bytes.value());
}

int ZLFileCommands::showFile(const ZLCommandLine& commandLine)
{
    const auto read = readToShow(commandLine);
    if (!read)
        return fail(ZLExitStatus::Failed, read.error().message);
    const ZLDocumentContents& contents = read.value();
    const ZLChapterSequence chapters = sortedChapters(contents.chapters);
    if (commandLine.showForm == ZLShowForm::Table)
        return print(ZLChapterListing::table(chapters, contents.duration));
    return print(
        QString::fromUtf8(ZLChapterListing::json(chapters, contents.duration, chaptersAsStored(contents.templates))));
}

ZLResult<ZLDocumentContents> ZLFileCommands::readToShow(const ZLCommandLine& commandLine)
{
    const QString& path = commandLine.files.constFirst();
    if (!ZLImportSource::isList(path))
        return readDocument(path);
    const auto source = ZLImportSource::fromFile(path);
    return source ? importCommand().contents(source.value(), commandLine) : source.error();
}

ZLImportCommand ZLFileCommands::importCommand()
{
    return { [this](const QString& line) { return print(line); },
        [this](const QString& line) { printErrorLine(line); } };
}

int ZLFileCommands::writeChapters(const ZLCommandLine& commandLine)
{
    const QString& source = commandLine.files.constFirst();
    const auto contents = readDocument(source);
    if (!contents)
        return fail(ZLExitStatus::Failed, contents.error().message);
    const QString& target = commandLine.outputPath;
    if (!target.isEmpty() && ZLFileIdentity::of(source) == ZLFileIdentity::of(target))
        return fail(ZLExitStatus::Failed,
            FileCommandTexts::tr("%1: the audio file would replace the chapters' own file.").arg(target));
    if (const ZLStatus allowed = target.isEmpty() ? ZLDone {} : ZLWriteProtection::check(target); !allowed)
        return fail(ZLExitStatus::Failed, allowed.error().message);
    ZLWriteCommand command(
        [this](const QString& line) { return print(line); }, [this](const QString& line) { printErrorLine(line); });
    return command.run(sortedChapters(contents.value().chapters), commandLine);
}

int ZLFileCommands::fitChapters(const ZLCommandLine& commandLine)
{
    const auto contents = readDocument(commandLine.files.constFirst());
    if (!contents)
        return fail(ZLExitStatus::Failed, contents.error().message);
    ZLFitCommand command(
        [this](const QString& text) { return print(text); }, [this](const QString& line) { printErrorLine(line); });
    return command.run(contents.value(), commandLine);
}

int ZLFileCommands::print(const QString& text)
{
    m_out << text;
    m_out.flush();
    if (m_out.status() != QTextStream::Ok)
        return fail(ZLExitStatus::Failed, FileCommandTexts::tr("The standard output could not be written."));
    return ZLExitStatus::Done;
}

int ZLFileCommands::fail(int status, const QString& message)
{
    printErrorLine(message);
    return status;
}

void ZLFileCommands::advise(const QStringList& lines)
{
    for (const QString& line : lines)
        printErrorLine(line);
}

void ZLFileCommands::printErrorLine(const QString& message)
{
    m_err << ZLErrorLines::line(message) << Qt::flush;
}
