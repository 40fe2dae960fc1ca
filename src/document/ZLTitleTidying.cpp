#include "document/ZLTitleTidying.h"

#include "document/ZLChapterDocument.h"

using namespace Qt::StringLiterals;

namespace {

const QString tidyTitlesActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Tidy Titles"));

struct ZLChapterTexts {
    ZLChapterPointer chapter;
    QString title;
    QString link;
};

void exchangeTexts(ZLChapterDocument& document, const QList<ZLChapterTexts>& texts)
{
    const ZLUndoGroup group(document.undoManager());
    ZLChapterSequence tidied;
    QList<ZLChapterTexts> before;
    before.reserve(texts.size());
    for (const ZLChapterTexts& wanted : texts) {
        before.append({ wanted.chapter, wanted.chapter->title(), wanted.chapter->link() });
        wanted.chapter->setTitle(wanted.title);
        wanted.chapter->setLink(wanted.link);
        tidied.append(wanted.chapter);
    }
    document.undoManager().registerStep([&document, before] { exchangeTexts(document, before); });
    document.undoManager().setActionName(tidyTitlesActionName);
    document.templateViewController().tableModel().reload();
    document.noteChange({ ZLDocumentChange::Texts | ZLDocumentChange::TemplateTexts, tidied });
}

}

QString ZLTitleTidying::tidied(const QString& text)
{
    if (text.isNull())
        return text;
    QString visible = text;
    visible.removeIf([](QChar character) { return character.category() == QChar::Other_Control; });
    const QString trimmed = visible.trimmed();
    return trimmed.isNull() ? u""_s : trimmed;
}

qsizetype ZLTitleTidying::tidy(ZLChapterDocument& document)
{
    QList<ZLChapterTexts> changing;
    for (ZLChapterManager* list : { &document.chapterManager(), &document.templateViewController().chapterManager() }) {
        const ZLChapterSequence chapters = list->allChapters();
        for (const ZLChapterPointer& chapter : chapters) {
            const ZLChapterTexts texts { chapter, tidied(chapter->title()), tidied(chapter->link()) };
            if (texts.title != chapter->title() || texts.link != chapter->link())
                changing.append(texts);
        }
    }
    if (!changing.isEmpty())
        exchangeTexts(document, changing);
    return changing.size();
}
