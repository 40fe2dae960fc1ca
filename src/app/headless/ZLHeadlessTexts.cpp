#include "app/headless/ZLHeadlessTexts.h"

#include "platform/ZLShownText.h"

QString ZLHeadlessTexts::nameOf(const ZLChapterDocument& document, const ZLDocumentSaver& saver)
{
    return saver.isUntitled() ? document.displayName() : saver.path();
}

QString ZLHeadlessTexts::describe(const ZLDocumentSaver& saver)
{
    switch (saver.state()) {
    case ZLSavingState::Saved:
        return tr("saved");
    case ZLSavingState::Waiting:
    case ZLSavingState::Saving:
        return tr("saving");
    case ZLSavingState::Failed:
    case ZLSavingState::Conflict:
        break;
    }
    return tr("not saved: %1").arg(saver.failureText());
}

QString ZLHeadlessTexts::describe(qsizetype index, const ZLChapter& chapter)
{
    return tr("chapter %1 at %2 \"%3\"")
        .arg(QString::number(index + 1), chapter.timeString(), ZLShownText::asOneLine(chapter.title()));
}
