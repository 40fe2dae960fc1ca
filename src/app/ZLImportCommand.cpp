#include "app/ZLImportCommand.h"

#include "document/ZLChapterImport.h"
#include "document/ZLStoredDocument.h"
#include "document/saving/ZLWriteProtection.h"
#include "import/ZLImportPlan.h"
#include "model/ZLChapterManager.h"
#include "platform/ZLAtomicFile.h"
#include "platform/ZLBoundedFile.h"
#include "platform/ZLFileError.h"
#include "platform/ZLFileIdentity.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct ImportTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLImportCommand)
};

/// "1 First show (12), 2 Second show (3)", with the number of chapters of each.
QString itemsOf(const QList<ZLChapterList>& lists)
{
    constexpr qsizetype mostNamed = 20;
    QStringList items;
    for (qsizetype i = 0; i < std::min(lists.size(), mostNamed); ++i)
        items.append(u"%1 %2 (%3)"_s.arg(
            QString::number(i + 1), lists.at(i).name.simplified(), QString::number(lists.at(i).chapters.size())));
    if (lists.size() > mostNamed)
        items.append(u"…"_s);
    return items.join(u", "_s);
}

ZLResult<qsizetype> chosenItem(const QList<ZLChapterList>& lists, const std::optional<int>& number)
{
    if (number && *number <= lists.size())
        return qsizetype(*number) - 1;
    if (!number && lists.size() == 1)
        return qsizetype(0);
    if (!number)
        return ZLError { ImportTexts::tr("There are %1 shows in it, choose one with --item: %2.")
                .arg(lists.size())
                .arg(itemsOf(lists)) };
    return ZLError { ImportTexts::tr("There is no show %1 in it: %2.").arg(*number).arg(itemsOf(lists)) };
}

/// A chapter that comes a second time gets a UUID of its own.
QVariantList joined(const QVariantList& present, const QVariantList& added)
{
    const ZLChapterSequence chapters = ZLChapterManager(added).allChapters();
    ZLChapterManager all(present);
    ZLChapterImport::makeUnique(chapters, all.allChapters());
    all.setChapters(all.allChapters() + chapters);
    return ZLChapterSnapshots::archivedRepresentations(all.snapshot());
}

}

ZLImportCommand::ZLImportCommand(std::function<int(const QString&)> print, std::function<void(const QString&)> warn)
    : m_print(std::move(print))
    , m_warn(std::move(warn))
{
}

int ZLImportCommand::run(const ZLCommandLine& commandLine)
{
    const auto outcome = write(commandLine);
    if (outcome)
        return m_print(outcome.value() + u'\n');
    m_warn(outcome.error().message);
    return ZLExitStatus::Failed;
}

ZLResult<ZLDocumentContents> ZLImportCommand::contents(
    const ZLImportSource& source, const ZLCommandLine& commandLine) const
{
    const QString& path = commandLine.files.constFirst();
    const auto item = chosenItem(source.found.lists, commandLine.item);
    if (!item)
        return ZLFileError::because(path, item.error().message);
    const ZLImportPlan plan = ZLImportPlan::make(source, { .item = item.value(), .shift = commandLine.shift });
    for (const ZLListRemark& remark : plan.remarks)
        m_warn(u"%1: %2"_s.arg(path, ZLImportPlan::remarkText(remark)));
    ZLDocumentContents contents;
    if (source.duration > 0.0)
        contents.duration = std::max(0.0, source.duration + commandLine.shift);
    for (const ZLChapterPointer& chapter : plan.chapters)
        contents.chapters.append(chapter->dictionaryRepresentation());
    return contents;
}

ZLResult<ZLDocumentContents> ZLImportCommand::contentsBefore(const ZLCommandLine& commandLine)
{
    const QString& target = commandLine.outputPath;
    if (commandLine.importMode == ZLImportMode::NewDocument) {
        const QFileInfo file(target);
        if (file.exists() || file.isSymLink())
            return ZLError { ImportTexts::tr("%1 is there already; --add adds the chapters to it.").arg(target) };
        return ZLDocumentContents();
    }
    return ZLStoredDocument::contentsOf(target, ZLFileLinks::Follow, ZLDictionaryForm::Archived);
}

ZLResult<QString> ZLImportCommand::write(const ZLCommandLine& commandLine) const
{
    const QString& path = commandLine.files.constFirst();
    const QString& target = commandLine.outputPath;
    // Told before the source is read: it may be long.
    auto before = contentsBefore(commandLine);
    if (!before)
        return before.error();
    if (ZLFileIdentity::of(path) == ZLFileIdentity::of(target) && QFileInfo::exists(path))
        return ZLError { ImportTexts::tr("%1: a document cannot be added to itself.").arg(target) };
    const auto source = ZLImportSource::fromFile(path);
    if (!source)
        return source.error();
    const auto found = contents(source.value(), commandLine);
    if (!found)
        return found.error();
    if (const ZLStatus allowed = ZLWriteProtection::check(target); !allowed)
        return allowed.error();
    ZLDocumentContents after = std::move(before).value();
    after.chapters = joined(after.chapters, found.value().chapters);
    after.duration = std::max(after.duration, found.value().duration);
    if (const ZLStatus written = ZLAtomicFile::write(target, ZLDocumentFile::encode(after)); !written)
        return written.error();
    return ImportTexts::tr("Chapters read as %2: %1.")
        .arg(found.value().chapters.size())
        .arg(source.value().found.formName);
}
