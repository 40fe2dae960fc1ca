#include "import/ZLImportPlan.h"

#include "document/ZLChapterImport.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct PlanTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLImportPlan)
};

}

ZLImportPlan ZLImportPlan::make(const ZLImportSource& source, const ZLImportChoices& choices)
{
    const ZLChapterList& list = source.found.lists.at(choices.item);
    ZLImportPlan plan;
    plan.chapters = ZLChapterImport::chaptersFrom(list.chapters, choices.shift);
    plan.haveUuids = ZLChapterImport::haveUuids(list.chapters);
    std::ranges::stable_sort(plan.chapters, {}, &ZLChapter::timeStamp);
    plan.remarks = source.found.remarks + list.remarks;
    if (choices.makesTemplates)
        plan.templates = source.textsWithoutTime;
    if (plan.templates.isEmpty())
        return plan;
    plan.remarks.removeIf([](const ZLListRemark& remark) { return remark.line > 0; });
    return plan;
}

QString ZLImportPlan::remarkText(const ZLListRemark& remark)
{
    return remark.line > 0 ? PlanTexts::tr("Line %1: %2").arg(remark.line).arg(remark.text) : remark.text;
}
