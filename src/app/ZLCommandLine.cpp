#include "app/ZLCommandLine.h"

#include <QCommandLineParser>
#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

QString commandLineText(const char* text)
{
    return QCoreApplication::translate("ZLCommandLine", text);
}

/// The options of one command and how they are filled in.
class CommandReader {
public:
    explicit CommandReader(ZLCommand command)
    {
        m_result.command = command;
        m_parser.addOptions({ { { u"h"_s, u"help"_s }, {} }, { { u"v"_s, u"version"_s }, {} } });
    }
    virtual ~CommandReader() = default;

    ZLResult<ZLCommandLine> read(const QStringList& arguments)
    {
        if (!m_parser.parse(arguments))
            return ZLError { m_parser.errorText().simplified() };
        if (m_parser.isSet(u"help"_s))
            return ZLCommandLine { .command = ZLCommand::PrintHelp };
        if (m_parser.isSet(u"version"_s))
            return ZLCommandLine { .command = ZLCommand::PrintVersion };
        m_result.files = m_parser.positionalArguments();
        if (m_result.files.contains(QString()))
            return ZLError { commandLineText("The name of a file is empty.") };
        if (const QString problem = fillIn(); !problem.isEmpty())
            return ZLError { problem };
        return m_result;
    }

protected:
    /// Takes over what the options say; returns what is wrong with them, or nothing.
    virtual QString fillIn() = 0;

    QCommandLineParser m_parser;
    ZLCommandLine m_result;
};

class FormatsReader final : public CommandReader {
public:
    FormatsReader()
        : CommandReader(ZLCommand::ListFormats)
    {
    }

private:
    QString fillIn() override
    {
        return m_result.files.isEmpty() ? QString() : commandLineText("\"formats\" takes no file.");
    }
};

class ExportReader final : public CommandReader {
public:
    ExportReader()
        : CommandReader(ZLCommand::ExportFile)
    {
        m_parser.addOptions({ { u"format"_s, {}, u"name"_s }, { u"option"_s, {} }, { u"output"_s, {}, u"file"_s } });
    }

private:
    QString fillIn() override
    {
        m_result.formatName = m_parser.value(u"format"_s);
        m_result.outputPath = m_parser.value(u"output"_s);
        if (m_parser.isSet(u"option"_s))
            m_result.exportOption = ZLExportOption::On;
        if (m_result.formatName.isEmpty())
            return commandLineText("\"export\" needs --format with the name of a format, see \"zelta formats\".");
        if (m_result.outputPath.isEmpty())
            return commandLineText("\"export\" needs --output with the file to write.");
        if (m_result.files.size() != 1)
            return commandLineText("\"export\" needs exactly one file to read.");
        return {};
    }
};

class ShowReader final : public CommandReader {
public:
    ShowReader()
        : CommandReader(ZLCommand::ShowFile)
    {
        m_parser.addOption({ u"json"_s, {} });
    }

private:
    QString fillIn() override
    {
        if (m_parser.isSet(u"json"_s))
            m_result.showForm = ZLShowForm::Json;
        return m_result.files.size() == 1 ? QString() : commandLineText("\"show\" needs exactly one file.");
    }
};

class StartReader final : public CommandReader {
public:
    StartReader()
        : CommandReader(ZLCommand::OpenWindows)
    {
        m_parser.addOptions({ { u"headless"_s, {} }, { u"record"_s, {} } });
        letToolkitOptionsPass();
    }

private:
    /// The window toolkit takes these out itself once it starts; a desktop that restores a session uses some.
    void letToolkitOptionsPass()
    {
        m_parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
        const QStringList withValue { u"display"_s, u"geometry"_s, u"platform"_s, u"platformpluginpath"_s,
            u"platformtheme"_s, u"plugin"_s, u"qwindowgeometry"_s, u"qwindowicon"_s, u"qwindowtitle"_s, u"session"_s,
            u"style"_s, u"stylesheet"_s };
        for (const QString& name : withValue)
            m_parser.addOption({ name, {}, u"value"_s });
        m_parser.addOption({ u"reverse"_s, {} });
    }

    QString fillIn() override
    {
        const bool records = m_parser.isSet(u"record"_s);
        if (!m_parser.isSet(u"headless"_s))
            return records ? commandLineText("--record needs --headless.") : QString();
        m_result.command = ZLCommand::RecordHeadless;
        if (records)
            m_result.headlessStart = ZLHeadlessStart::Recording;
        return m_result.files.size() > 1 ? commandLineText("--headless records one file at most.") : QString();
    }
};

template <typename Reader>
ZLResult<ZLCommandLine> readCommand(const QStringList& arguments)
{
    return Reader().read(arguments);
}

}

ZLResult<ZLCommandLine> ZLCommandLine::parse(const QStringList& arguments)
{
    const QString word = arguments.value(1);
    QStringList withoutWord = arguments;
    if (arguments.size() > 1)
        withoutWord.removeAt(1);
    if (word == "formats"_L1)
        return readCommand<FormatsReader>(withoutWord);
    if (word == "export"_L1)
        return readCommand<ExportReader>(withoutWord);
    if (word == "show"_L1)
        return readCommand<ShowReader>(withoutWord);
    return readCommand<StartReader>(arguments.isEmpty() ? QStringList { u"zelta"_s } : arguments);
}

QString ZLCommandLine::helpText()
{
    return commandLineText("Usage:\n"
                           "  zelta [FILE…]                        open documents in windows\n"
                           "  zelta --headless [--record] [FILE]   record without a window, driven by OSC; --record "
                           "starts the clock at once\n"
                           "  zelta formats                        list the export formats: name, tab, file type\n"
                           "  zelta export --format NAME [--option] --output OUT FILE\n"
                           "                                       write the chapters of FILE to OUT; --option ticks "
                           "the format's checkbox\n"
                           "  zelta show [--json] FILE             print the chapters of FILE\n"
                           "  zelta --help | --version\n"
                           "\n"
                           "Exit status: 0 done, 1 failed, 2 wrong usage. A file named like a command is given as "
                           "./NAME.\n");
}

bool ZLCommandLine::isFileCommand() const
{
    return command != ZLCommand::OpenWindows && command != ZLCommand::RecordHeadless;
}
