#include "lists/ZLRandomLists.h"

#include "lists/ZLListText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

ZLRandomLists::ZLRandomLists(const ZLListForm& form)
    : m_form(form)
    , m_random(std::uint32_t(std::max(qEnvironmentVariableIntValue("ZELTA_TEST_SEED"), 1)))
{
}

ZLListToWrite ZLRandomLists::next()
{
    ZLListToWrite list { .fileBaseName = u"Show 12"_s };
    for (int left = below(8); left > 0; --left)
        list.chapters.append({ time(), text(), m_form.limits.testFlag(ZLListLimit::Links) ? QString() : text() });
    std::ranges::stable_sort(list.chapters, {}, &ZLListedChapter::start);
    if (below(2) == 0 && !list.chapters.isEmpty())
        list.end = list.chapters.constLast().start + below(100);
    return list;
}

double ZLRandomLists::time()
{
    constexpr int longest = 400'000;
    const double units = below(longest) * m_form.unitsPerSecond + below(1000);
    return below(6) == 0 ? below(5) : units / m_form.unitsPerSecond;
}

QString ZLRandomLists::text()
{
    static const QStringList pieces { u"News"_s, u"Grüße"_s, u"世界"_s, u"&"_s, u"<"_s, u">"_s, u" <a>"_s, u"\""_s,
        u"'"_s, u"&amp;"_s, u"]]>"_s, u"-->"_s, u"%1"_s, u"\n"_s, u"\r\n"_s, u"\t"_s, u" "_s, u"\\"_s, u","_s, u";"_s,
        u"#"_s, u"="_s, u"["_s, u"🎙"_s, u"👩‍👩‍👧"_s, u"مرحبا"_s, u"e\u0301"_s, u"\u2028"_s, u"\u00a0"_s,
        u"00:01:02.500"_s, u"CHAPTER01="_s, u"TITLE"_s, u"{title}"_s, QString(QChar(0x0b)), QString(QChar(0xFFFE)),
        QString(QChar(0)) };
    QString text;
    for (int left = below(6); left > 0; --left) {
        const QString& piece = pieces.at(below(int(pieces.size())));
        if (holds(piece))
            text += piece;
    }
    return text;
}

bool ZLRandomLists::holds(const QString& text) const
{
    return std::ranges::none_of(std::initializer_list { ZLListLimit::LineBreaks, ZLListLimit::ControlCharacters,
                                    ZLListLimit::AngleBrackets, ZLListLimit::DoubleQuotes },
        [&](ZLListLimit limit) { return m_form.limits.testFlag(limit) && ZLListText::isBeyond(text, limit); });
}
