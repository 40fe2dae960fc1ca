#include "export/formats/ZLNumberedChapters.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct NumberTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLNumberedChapters)
};

}

QString ZLNumberedChapters::text(const QList<qsizetype>& numbers)
{
    constexpr qsizetype mostNamed = 3;
    if (numbers.size() == 1)
        return NumberTexts::tr("chapter %1").arg(numbers.constFirst());
    QStringList named;
    for (const qsizetype number : numbers.first(std::min(numbers.size(), mostNamed)))
        named.append(QString::number(number));
    const QString last =
        numbers.size() > mostNamed ? NumberTexts::tr("%1 more").arg(numbers.size() - mostNamed) : named.takeLast();
    return NumberTexts::tr("chapters %1 and %2").arg(named.join(", "_L1), last);
}

std::optional<QString> ZLNumberedChapters::that(
    const ZLExportInput& input, const std::function<bool(const ZLChapter&)>& isMeant, Which which)
{
    QList<qsizetype> numbers;
    for (qsizetype i = 0; i < input.chapters.size(); ++i) {
        const ZLChapter& chapter = *input.chapters.at(i);
        if ((which == Which::All || chapter.isEnabled()) && isMeant(chapter))
            numbers.append(i + 1);
    }
    return numbers.isEmpty() ? std::nullopt : std::optional(text(numbers));
}
