#include "app/ZLCommandLine.h"

#include "commands/ZLRemoteActions.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QLocale>

#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct CommandLineTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLCommandLine)
};

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
            return ZLError { CommandLineTexts::tr("A file name is empty.") };
        if (const QString problem = fillIn(); !problem.isEmpty())
            return ZLError { problem };
        return m_result;
    }

protected:
    /// Takes over what the options say; returns what is wrong with them, or nothing.
    virtual QString fillIn() = 0;

    void addPortOption() { m_parser.addOption({ u"osc-port"_s, {}, u"port"_s }); }

    void addShiftOption() { m_parser.addOption({ u"shift"_s, {}, u"seconds"_s }); }
    void addItemOption() { m_parser.addOption({ u"item"_s, {}, u"number"_s }); }

    /// Takes over --shift when it is there; returns what is wrong with it, or nothing.
    QString fillInShift()
    {
        bool isNumber = true;
        if (m_parser.isSet(u"shift"_s))
            m_result.shift = QLocale::c().toDouble(m_parser.value(u"shift"_s), &isNumber);
        if (isNumber && std::isfinite(m_result.shift))
            return {};
        return CommandLineTexts::tr("--shift needs a number of seconds, such as 12.5 or -3.");
    }

    /// The same for --item.
    QString fillInItem()
    {
        if (!m_parser.isSet(u"item"_s))
            return {};
        bool isNumber = false;
        const int item = m_parser.value(u"item"_s).toInt(&isNumber);
        if (!isNumber || item < 1)
            return CommandLineTexts::tr("--item needs a number from 1 on.");
        m_result.item = item;
        return {};
    }

    /// Takes over --osc-port when it is there; returns what is wrong with it, or nothing.
    QString fillInPort(quint16 lowest)
    {
        if (!m_parser.isSet(u"osc-port"_s))
            return {};
        bool isNumber = false;
        const quint16 port = m_parser.value(u"osc-port"_s).toUShort(&isNumber);
        if (!isNumber || port < lowest)
            return CommandLineTexts::tr("--osc-port needs a number from %1 to 65535.").arg(lowest);
        m_result.oscPort = port;
        return {};
    }

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
        return m_result.files.isEmpty() ? QString() : CommandLineTexts::tr("\"formats\" takes no file.");
    }
};

class ExportReader final : public CommandReader {
public:
    ExportReader()
        : CommandReader(ZLCommand::ExportFile)
    {
        m_parser.addOptions({ { u"format"_s, {}, u"name"_s }, { u"option"_s, {} }, { u"pattern"_s, {}, u"text"_s },
            { u"output"_s, {}, u"file"_s } });
    }

private:
    QString fillIn() override
    {
        m_result.formatName = m_parser.value(u"format"_s);
        m_result.outputPath = m_parser.value(u"output"_s);
        m_result.linePattern = m_parser.value(u"pattern"_s);
        if (m_parser.isSet(u"pattern"_s) && m_result.linePattern.isEmpty())
            return CommandLineTexts::tr("--pattern needs a text, such as \"({time}) {title} {link}\".");
        if (m_parser.isSet(u"option"_s))
            m_result.exportOption = ZLExportOption::On;
        if (m_result.formatName.isEmpty())
            return CommandLineTexts::tr("\"export\" needs --format with the name of a format, see \"zelta formats\".");
        if (m_result.outputPath.isEmpty())
            return CommandLineTexts::tr("\"export\" needs --output with the file to write.");
        if (m_result.files.size() != 1)
            return CommandLineTexts::tr("\"export\" needs exactly one file to read.");
        return {};
    }
};

class ShowReader final : public CommandReader {
public:
    ShowReader()
        : CommandReader(ZLCommand::ShowFile)
    {
        m_parser.addOption({ u"json"_s, {} });
        addItemOption();
    }

private:
    QString fillIn() override
    {
        if (m_parser.isSet(u"json"_s))
            m_result.showForm = ZLShowForm::Json;
        if (const QString problem = fillInItem(); !problem.isEmpty())
            return problem;
        return m_result.files.size() == 1 ? QString() : CommandLineTexts::tr("\"show\" needs exactly one file.");
    }
};

class WriteReader final : public CommandReader {
public:
    WriteReader()
        : CommandReader(ZLCommand::WriteChapters)
    {
        m_parser.addOption({ u"output"_s, {}, u"file"_s });
        addShiftOption();
    }

private:
    QString fillIn() override
    {
        m_result.outputPath = m_parser.value(u"output"_s);
        if (const QString problem = fillInShift(); !problem.isEmpty())
            return problem;
        if (m_result.files.size() < 2)
            return CommandLineTexts::tr("\"write\" needs the file with the chapters and an audio file.");
        if (m_parser.isSet(u"output"_s) && m_result.outputPath.isEmpty())
            return CommandLineTexts::tr("The name of a file is empty.");
        if (m_parser.isSet(u"output"_s) && m_result.files.size() > 2)
            return CommandLineTexts::tr("--output goes with one audio file only.");
        return {};
    }
};

class ImportReader final : public CommandReader {
public:
    ImportReader()
        : CommandReader(ZLCommand::ImportChapters)
    {
        m_parser.addOptions({ { u"output"_s, {}, u"file"_s }, { u"add"_s, {} } });
        addShiftOption();
        addItemOption();
    }

private:
    QString fillIn() override
    {
        m_result.outputPath = m_parser.value(u"output"_s);
        if (m_parser.isSet(u"add"_s))
            m_result.importMode = ZLImportMode::AddToDocument;
        if (const QString problem = fillInShift() + fillInItem(); !problem.isEmpty())
            return problem;
        if (m_result.outputPath.isEmpty())
            return CommandLineTexts::tr("\"import\" needs --output with the document to make.");
        return m_result.files.size() == 1 ? QString()
                                          : CommandLineTexts::tr("\"import\" needs exactly one file to read.");
    }
};

class FitReader final : public CommandReader {
public:
    FitReader()
        : CommandReader(ZLCommand::FitChapters)
    {
        m_parser.addOptions({ { u"finished"_s, {}, u"file"_s }, { u"heard"_s, {}, u"file"_s },
            { u"zero"_s, {}, u"seconds"_s }, { u"output"_s, {}, u"file"_s }, { u"json"_s, {} } });
    }

private:
    QString fillIn() override
    {
        m_result.finishedPath = m_parser.value(u"finished"_s);
        m_result.heardPath = m_parser.value(u"heard"_s);
        m_result.outputPath = m_parser.value(u"output"_s);
        if (m_parser.isSet(u"json"_s))
            m_result.showForm = ZLShowForm::Json;
        bool isNumber = true;
        if (m_parser.isSet(u"zero"_s))
            m_result.zero = QLocale::c().toDouble(m_parser.value(u"zero"_s), &isNumber);
        if (!isNumber || !std::isfinite(m_result.zero))
            return CommandLineTexts::tr("--zero needs a number of seconds, such as 12.5.");
        if (m_result.finishedPath.isEmpty())
            return CommandLineTexts::tr("\"fit\" needs --finished with the finished audio file.");
        if (m_parser.isSet(u"heard"_s) && m_result.heardPath.isEmpty())
            return CommandLineTexts::tr("The name of a file is empty.");
        if (m_parser.isSet(u"zero"_s) && m_result.heardPath.isEmpty())
            return CommandLineTexts::tr("--zero needs --heard.");
        if (m_parser.isSet(u"output"_s) && m_result.outputPath.isEmpty())
            return CommandLineTexts::tr("The name of a file is empty.");
        return m_result.files.size() == 1 ? QString()
                                          : CommandLineTexts::tr("\"fit\" needs exactly one file with chapters.");
    }
};

class SendReader final : public CommandReader {
public:
    SendReader()
        : CommandReader(ZLCommand::SendAction)
    {
        addPortOption();
    }

private:
    QString fillIn() override
    {
        const QStringList words = std::exchange(m_result.files, {});
        if (words.size() != 1)
            return CommandLineTexts::tr("\"send\" needs exactly one action: %1.").arg(knownActions());
        m_result.action = words.first();
        if (!ZLRemoteActions::withCommandWord(m_result.action))
            return CommandLineTexts::tr("There is no action \"%1\". The actions are %2.")
                .arg(m_result.action.simplified(), knownActions());
        return fillInPort(1);
    }

    static QString knownActions()
    {
        QStringList words;
        for (const ZLRemoteAction& action : ZLRemoteActions::all())
            words.append(action.commandWord());
        return words.join(u", "_s);
    }
};

class StartReader final : public CommandReader {
public:
    StartReader()
        : CommandReader(ZLCommand::OpenWindows)
    {
        m_parser.addOptions(
            { { u"headless"_s, {} }, { u"record"_s, {} }, { u"new"_s, {} }, { u"osc-send"_s, {}, u"host:port"_s },
                { u"follow"_s, {}, u"recorder"_s }, { u"listen"_s, {}, u"source"_s } });
        addPortOption();
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

    /// Takes over --osc-send, as often as it is there; returns what is wrong with it, or nothing.
    QString fillInOutputs()
    {
        const QStringList texts = m_parser.values(u"osc-send"_s);
        if (texts.isEmpty())
            return {};
        m_result.oscOutputs.emplace();
        for (const QString& text : texts) {
            const auto output = ZLOSCDestination::fromText(text);
            if (!output)
                return CommandLineTexts::tr("--osc-send needs HOST:PORT, not \"%1\".").arg(text.simplified());
            m_result.oscOutputs->append(*output);
        }
        return {};
    }

    /// Takes over --follow when it is there; returns what is wrong with it, or nothing.
    QString fillInFollow()
    {
        if (!m_parser.isSet(u"follow"_s))
            return {};
        m_result.follow = m_parser.value(u"follow"_s);
        if (!QStringList { u"obs"_s, u"jack"_s, u"osc"_s }.contains(m_result.follow))
            return CommandLineTexts::tr("--follow needs obs, jack or osc.");
        return m_parser.isSet(u"headless"_s) ? QString() : CommandLineTexts::tr("--follow needs --headless.");
    }

    /// The same for --listen.
    QString fillInListening()
    {
        if (!m_parser.isSet(u"listen"_s))
            return {};
        m_result.listeningSource = m_parser.value(u"listen"_s);
        if (m_result.listeningSource->isEmpty())
            return CommandLineTexts::tr("--listen needs the name of an input, or \"default\".");
        if (m_result.listeningSource == "default"_L1)
            m_result.listeningSource->clear();
        return {};
    }

    QString fillIn() override
    {
        if (const QString problem = fillInPort(0) + fillInOutputs() + fillInFollow(); !problem.isEmpty())
            return problem;
        const bool records = m_parser.isSet(u"record"_s);
        m_result.wantsNewDocument = m_parser.isSet(u"new"_s);
        if (m_result.wantsNewDocument && m_parser.isSet(u"headless"_s))
            return CommandLineTexts::tr("--new and --headless cannot be used together.");
        if (!m_parser.isSet(u"headless"_s) && m_parser.isSet(u"listen"_s))
            return CommandLineTexts::tr("--listen needs --headless.");
        if (!m_parser.isSet(u"headless"_s))
            return records ? CommandLineTexts::tr("--record needs --headless.") : QString();
        if (const QString problem = fillInListening(); !problem.isEmpty())
            return problem;
        m_result.command = ZLCommand::RecordHeadless;
        if (records)
            m_result.headlessStart = ZLHeadlessStart::Recording;
        return m_result.files.size() > 1 ? CommandLineTexts::tr("--headless records one file at most.") : QString();
    }
};

/// One line an action: its word and what it does.
QString actionsAsHelp()
{
    QString lines;
    for (const ZLRemoteAction& action : ZLRemoteActions::all())
        lines += u"          %1 %2\n"_s.arg(action.commandWord().leftJustified(28), action.summary());
    return lines;
}

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
    if (word == "write"_L1)
        return readCommand<WriteReader>(withoutWord);
    if (word == "import"_L1)
        return readCommand<ImportReader>(withoutWord);
    if (word == "fit"_L1)
        return readCommand<FitReader>(withoutWord);
    if (word == "send"_L1)
        return readCommand<SendReader>(withoutWord);
    return readCommand<StartReader>(arguments.isEmpty() ? QStringList { u"zelta"_s } : arguments);
}

QString ZLCommandLine::helpText()
{
    return CommandLineTexts::tr(
        "Usage:\n"
        "  zelta [--new] [FILE…]                open documents in windows, with --new a new one too\n"
        "  zelta --headless [--record] [FILE]   record without a window, driven by OSC; --record "
        "starts the clock at once;\n"
        "                                       a FILE that is missing is made when its name ends in .zelta\n"
        "        --osc-port N                   listen on this UDP port in this run; 0 for any that "
        "is free\n"
        "        --osc-send HOST:PORT           send the recorder's state there in this run; may be "
        "given several times\n"
        "        --follow obs|jack|osc          start, pause and stop the clock with this recorder, and keep it in "
        "step\n"
        "        --listen SOURCE                keep how the show sounds, as this input of the sound "
        "server hears it;\n"
        "                                       \"default\" for the default one\n"
        "  zelta send ACTION [--osc-port N]     give the running recorder a command, by default the "
        "one of this user;\n"
        "                                       with --osc-port the one on that port of this "
        "computer\n"
        "%1"
        "  zelta formats                        list the export formats: name, tab, file type\n"
        "  zelta export --format NAME [--option] [--pattern TEXT] --output OUT FILE\n"
        "                                       write the chapters of FILE to OUT, - for the standard "
        "output; --option\n"
        "                                       ticks the format's checkbox, --pattern is a line of "
        "Show Notes such as\n"
        "                                       \"({time}) {title} {link}\"\n"
        "  zelta import [--shift SECONDS] [--item N] [--add] --output OUT FILE\n"
        "                                       make the document OUT of the chapters in FILE, a list or an "
        "audio file; with\n"
        "                                       --add, add them to OUT; --item chooses in a feed with several "
        "shows\n"
        "  zelta show [--json] [--item N] FILE  print the chapters of FILE, a document, an audio file or a "
        "list\n"
        "  zelta write [--shift SECONDS] [--output OUT] FILE AUDIO…\n"
        "                                       put the chapters of FILE into each audio file in place "
        "of its own,\n"
        "                                       with --output into a copy of the one that is given\n"
        "  zelta fit --finished AUDIO [--heard RAW [--zero SECONDS]] [--output OUT] [--json] FILE\n"
        "                                       find the chapters of FILE in the finished AUDIO, by what "
        "was heard along\n"
        "                                       or by the raw recording; SECONDS is where the clock's "
        "zero lies in RAW, OUT\n"
        "                                       a new document\n"
        "  zelta --help | --version\n"
        "\n"
        "Exit status: 0 done, 1 failed, 2 wrong usage. A file named like a command is given as "
        "./NAME.\n")
        .arg(actionsAsHelp());
}

bool ZLCommandLine::isFileCommand() const
{
    return command != ZLCommand::OpenWindows && command != ZLCommand::RecordHeadless
        && command != ZLCommand::SendAction;
}
