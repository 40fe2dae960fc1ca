#include "lists/forms/ZLListForms.h"

#include "lists/ZLListText.h"
#include "lists/forms/ZLAudacityLabels.h"
#include "lists/forms/ZLCueSheet.h"
#include "lists/forms/ZLFFMetadata.h"
#include "lists/forms/ZLFinalCutProject.h"
#include "lists/forms/ZLHindenburgSession.h"
#include "lists/forms/ZLJSONChapters.h"
#include "lists/forms/ZLMP4ChapsText.h"
#include "lists/forms/ZLMatroskaChapters.h"
#include "lists/forms/ZLNumberedFields.h"
#include "lists/forms/ZLPodcastChapters.h"
#include "lists/forms/ZLPodloveChapters.h"
#include "lists/forms/ZLReaperMarkers.h"
#include "lists/forms/ZLShowNotes.h"
#include "lists/forms/ZLShownDocument.h"
#include "lists/forms/ZLSimpleList.h"
#include "lists/forms/ZLWebVTTChapters.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct FormTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLListForms)
};

QList<const ZLListForm*> formsThatRecognise(const ZLListSource& source)
{
    QList<const ZLListForm*> forms;
    for (const ZLListForm& form : ZLListForms::all()) {
        if (form.isRead() && form.recognises(source))
            forms.append(&form);
    }
    return forms;
}

bool holdsTooMany(const QList<ZLChapterList>& lists)
{
    return std::ranges::any_of(
        lists, [](const ZLChapterList& list) { return list.chapters.size() > ZLListForms::MostChapters; });
}

bool holdTheSame(const QList<ZLChapterList>& left, const QList<ZLChapterList>& right)
{
    return std::ranges::equal(left, right, {}, &ZLChapterList::chapters, &ZLChapterList::chapters);
}

/// Names the forms that would have read something else.
void noteOtherForms(ZLReadLists& read, const QList<const ZLListForm*>& others, const ZLListSource& source)
{
    for (const ZLListForm* other : others) {
        const auto otherwise = other->read(source);
        if (!otherwise || holdTheSame(otherwise.value(), read.lists))
            continue;
        read.remarks.append(
            { 0, FormTexts::tr("This was read as %1. It could also be %2.").arg(read.formName, other->name) });
    }
}

ZLError noForm(const ZLListSource& source)
{
    if (!source.jsonProblem().isEmpty() && source.firstFullLine().trimmed().startsWith(u'{'))
        return { source.jsonProblem() };
    if (!source.xmlRootName().isEmpty())
        return {
            FormTexts::tr("This XML holds no chapters: its outermost element is <%1>.").arg(source.xmlRootName())
        };
    return { FormTexts::tr("No chapters were found: no line has a time, and this is no list that Zelta knows.") };
}

}

const QList<ZLListForm>& ZLListForms::all()
{
    static const QList<ZLListForm> forms {
        ZLPodcastChapters::form(),
        ZLAudacityLabels::form(),
        ZLReaperMarkers::form(),
        ZLShownDocument::form(),
        ZLJSONChapters::form(),
        ZLPodloveChapters::form(),
        ZLHindenburgSession::form(),
        ZLFinalCutProject::form(),
        ZLNumberedFields::form(),
        ZLMP4ChapsText::form(),
        ZLFFMetadata::form(),
        ZLMatroskaChapters::form(),
        ZLWebVTTChapters::form(),
        ZLCueSheet::form(),
        ZLSimpleList::form(),
        ZLShowNotes::form(),
    };
    return forms;
}

QList<ZLListForm> ZLListForms::written()
{
    QList<ZLListForm> forms;
    std::ranges::copy_if(all(), std::back_inserter(forms), &ZLListForm::isWritten);
    return forms;
}

QByteArray ZLListForms::write(const ZLListForm& form, ZLListToWrite list)
{
    constexpr qsizetype ninetyNine = 99;
    erase_if(list.chapters, [](const ZLListedChapter& chapter) { return chapter.start < 0.0; });
    if (form.limits.testFlag(ZLListLimit::NinetyNineChapters) && list.chapters.size() > ninetyNine)
        list.chapters.resize(ninetyNine);
    for (ZLListedChapter& chapter : list.chapters) {
        chapter.title = ZLListText::fitting(chapter.title, form.limits);
        chapter.link =
            form.limits.testFlag(ZLListLimit::Links) ? QString() : ZLListText::fitting(chapter.link, form.limits);
    }
    list.fileBaseName = ZLListText::fitting(list.fileBaseName, form.limits);
    return form.write(list);
}

ZLResult<ZLReadLists> ZLListForms::read(const ZLListSource& source)
{
    QList<const ZLListForm*> forms = formsThatRecognise(source);
    if (forms.isEmpty())
        return noForm(source);
    const ZLListForm* form = forms.takeFirst();
    auto lists = form->read(source);
    if (!lists)
        return lists.error();
    if (holdsTooMany(lists.value()))
        return ZLError { FormTexts::tr("The list holds more than %1 chapters.").arg(MostChapters) };
    ZLReadLists read { form->name, std::move(lists).value(), {} };
    if (source.isGuessedLatin1())
        read.remarks.append({ 0, FormTexts::tr("The text is no UTF-8 and was read as Latin-1.") });
    if (!form->isUnmistakable)
        noteOtherForms(read, forms, source);
    return read;
}
