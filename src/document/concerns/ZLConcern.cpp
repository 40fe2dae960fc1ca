#include "document/concerns/ZLConcern.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

QString ZLConcern::sentenceWithWords() const
{
    QStringList effects;
    for (const ZLConcernAction action : choices) {
        const ZLConcernChoice& choice = ZLConcernChoices::of(action);
        if (choice.wordText)
            effects.append(QCoreApplication::translate("ZLConcern", "\"%1\" %2").arg(choice.word(), choice.effect()));
    }
    return effects.isEmpty() ? sentence : u"%1 %2."_s.arg(sentence, effects.join(u", "_s));
}
