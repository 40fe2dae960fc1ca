#include "app/ZLFileWords.h"

#include "commands/ZLRemoteActions.h"
#include "document/ZLDocumentFile.h"
#include "platform/ZLFileExtension.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct FileWordTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLFileWords)
};

/// A word that may have been meant, and how it is given.
struct KnownWord {
    QString word;
    QString usage;
};

QList<KnownWord> knownWords()
{
    QList<KnownWord> words {
        { u"export"_s, u"zelta export"_s },
        { u"fit"_s, u"zelta fit"_s },
        { u"formats"_s, u"zelta formats"_s },
        { u"import"_s, u"zelta import"_s },
        { u"send"_s, u"zelta send"_s },
        { u"show"_s, u"zelta show"_s },
        { u"write"_s, u"zelta write"_s },
        { u"headless"_s, u"zelta --headless"_s },
        { u"help"_s, u"zelta --help"_s },
        { u"new"_s, u"zelta --new"_s },
        { u"record"_s, u"zelta --headless --record"_s },
        { u"version"_s, u"zelta --version"_s },
    };
    for (const ZLRemoteAction& action : ZLRemoteActions::all())
        words.append({ action.commandWord(), u"zelta send "_s + action.commandWord() });
    return words;
}

/// "export, formats, send": the words that are commands by themselves.
QString listedCommands()
{
    QStringList commands;
    const auto words = knownWords();
    for (const KnownWord& known : words) {
        if (known.usage == "zelta "_L1 + known.word)
            commands.append(known.word);
    }
    return commands.join(", "_L1);
}

/// How many characters have to be put in, left out or exchanged to make one word of the other.
qsizetype distanceBetween(const QString& left, const QString& right)
{
    std::vector<qsizetype> row(size_t(right.size() + 1));
    std::iota(row.begin(), row.end(), 0);
    for (qsizetype i = 1; i <= left.size(); ++i) {
        qsizetype diagonal = std::exchange(row.front(), i);
        for (size_t j = 1; j < row.size(); ++j) {
            const qsizetype exchanged = diagonal + (left.at(i - 1) == right.at(qsizetype(j) - 1) ? 0 : 1);
            diagonal = std::exchange(row.at(j), std::min({ exchanged, row.at(j) + 1, row.at(j - 1) + 1 }));
        }
    }
    return row.back();
}

bool isNear(const QString& word, const QString& known)
{
    constexpr qsizetype leastForBeginning = 3;
    constexpr qsizetype longestMistake = 2;
    // What is longer than any word with its mistakes is not compared character by character.
    if (word.size() > known.size() + longestMistake)
        return false;
    const QString left = word.toLower();
    const QString right = known.toLower();
    if (left.size() >= leastForBeginning && right.startsWith(left))
        return true;
    return distanceBetween(left, right) <= (right.size() > leastForBeginning ? longestMistake : 0);
}

/// "Did you mean "zelta export" or "zelta show"?", or all commands when none comes near.
QString hintFor(const QString& word)
{
    QStringList near;
    const auto words = knownWords();
    for (const KnownWord& known : words) {
        if (isNear(word, known.word))
            near.append(u"\"%1\""_s.arg(known.usage));
    }
    if (near.isEmpty())
        return FileWordTexts::tr("The commands are %1; \"zelta --help\" explains them.").arg(listedCommands());
    const QString last = near.takeLast();
    return near.isEmpty() ? FileWordTexts::tr("Did you mean %1?").arg(last)
                          : FileWordTexts::tr("Did you mean %1 or %2?").arg(near.join(", "_L1), last);
}

}

bool ZLFileWords::isNameOfFile(const QString& name)
{
    return name.contains(u'/') || ZLFileExtension::endsName(name, ZLDocumentFile::Extension);
}

ZLMissingFile ZLFileWords::missingFile(const ZLCommandLine& commandLine)
{
    const bool isNew = commandLine.command == ZLCommand::RecordHeadless
        && ZLFileExtension::endsName(commandLine.files.value(0), ZLDocumentFile::Extension);
    return isNew ? ZLMissingFile::Create : ZLMissingFile::Fail;
}

ZLStatus ZLFileWords::check(const ZLCommandLine& commandLine)
{
    for (const QString& name : commandLine.files) {
        if (isNameOfFile(name) || QFileInfo::exists(name))
            continue;
        if (commandLine.command == ZLCommand::RecordHeadless)
            return ZLError { FileWordTexts::tr("There is no file \"%1\", and the name of a new one ends in .%2.")
                    .arg(name.simplified(), ZLDocumentFile::Extension) };
        return ZLError { FileWordTexts::tr("\"%1\" is neither a file nor a command.").arg(name.simplified()) + u' '
            + hintFor(name) };
    }
    return ZLDone {};
}
