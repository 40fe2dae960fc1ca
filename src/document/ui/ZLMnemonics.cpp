#include "document/ui/ZLMnemonics.h"

#include <QAction>
#include <QMenuBar>

void ZLMnemonics::leaveToMenus(const QMenuBar& menus)
{
    const auto items = menus.actions();
    for (const QAction* item : items) {
        const qsizetype mark = item->text().indexOf(u'&');
        if (mark >= 0 && mark + 1 < item->text().size())
            m_taken.insert(item->text().at(mark + 1).toLower());
    }
}

QString ZLMnemonics::withMnemonic(const QString& text)
{
    QString plain = QString(text).remove(u'&');
    for (const bool isBeginningWanted : { true, false }) {
        for (qsizetype place = 0; place < plain.size(); ++place) {
            const QChar letter = plain.at(place).toLower();
            const bool isBeginning = place == 0 || plain.at(place - 1).isSpace();
            if (!letter.isLetter() || (isBeginningWanted && !isBeginning) || m_taken.contains(letter))
                continue;
            m_taken.insert(letter);
            return plain.insert(place, u'&');
        }
    }
    return plain;
}
