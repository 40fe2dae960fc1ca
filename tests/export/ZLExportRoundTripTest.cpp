// What one of the eight formats wrote, the import reads, for thousands of lists whose texts the format can hold.
#include "export/ZLExportCase.h"
#include "export/formats/ZLRegisterExporters.h"
#include "lists/ZLReadText.h"

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

namespace {

/// A format that is both written and read.
struct BothWays {
    QString format;
    /// The name of the form as which it is read.
    QString form;
    /// Characters that its texts cannot hold.
    QString forbidden;
    bool hasLinks = false;
    /// Seconds.
    double precision = 0.001;
};

const QList<BothWays>& formatsBothWays()
{
    static const QList<BothWays> all {
        { u"Podlove Simple Chapters"_s, u"Podlove Simple Chapters"_s, u""_s, true },
        { u"Auphonic"_s, u"mp4chaps"_s, u"<>"_s, true },
        { u"JSON"_s, u"JSON"_s, u""_s },
        { u"Hindenburg"_s, u"Hindenburg"_s, u"<>\""_s, true },
        { u"Final Cut Pro X"_s, u"Final Cut Pro X"_s, u""_s },
        { u"YouTube"_s, u"Simple List"_s, u"<>"_s, true, 1.0 },
    };
    return all;
}

/// Lists that a format can hold, the same in every run unless ZELTA_TEST_SEED is set.
class FittingDocuments {
public:
    explicit FittingDocuments(const BothWays& format)
        : m_format(format)
    {
    }

    [[nodiscard]] ZLExportInput next()
    {
        QList<double> times;
        for (int left = 1 + below(8); left > 0; --left)
            times.append(below(4) == 0 ? below(100) : below(400'000'000) / 1000.0);
        std::ranges::sort(times);
        ZLExportInput input { .duration = times.constLast() + 1.0,
            .fileBaseName = u"Show 12"_s,
            .existingBytes = "<Session>\n</Session>\n" };
        for (const double time : std::as_const(times))
            input.chapters.append(ZLExportCase::chapter(time, title(), link()));
        return input;
    }

private:
    int below(int limit) { return int(m_random() % std::uint32_t(limit)); }

    /// It begins and ends with a word: blanks at the ends go, and a number there may be a time.
    QString title() { return u"Neues"_s + pieces(true) + u"世界"_s; }

    QString link()
    {
        if (!m_format.hasLinks || below(2) == 0)
            return {};
        return u"https://example.org/?a=%C3%BC"_s + pieces(false) + u'b';
    }

    QString pieces(bool hasBlanks)
    {
        static const QStringList all { u"&"_s, u"<"_s, u">"_s, u"\""_s, u"'"_s, u"&amp;"_s, u"]]>"_s, u"%1"_s, u"%@"_s,
            u"\\"_s, u","_s, u"["_s, u"]("_s, u"*"_s, u"{title}"_s, u"🎙"_s, u"👩‍👩‍👧"_s, u"مرحبا"_s,
            u"e\u0301"_s, u"#"_s, u"="_s, u"CHAPTER01="_s, u" "_s, u" – "_s };
        QString text;
        for (int left = below(6); left > 0; --left) {
            const QString& piece = all.at(below(int(all.size())));
            const bool holds = std::ranges::none_of(piece, [&](QChar character) {
                return m_format.forbidden.contains(character) || (!hasBlanks && character.isSpace());
            });
            if (holds)
                text += piece;
        }
        return text;
    }

    BothWays m_format;
    std::mt19937 m_random { std::uint32_t(std::max(qEnvironmentVariableIntValue("ZELTA_TEST_SEED"), 1)) };
};

/// Two of the formats tell times as numbers of single precision, in its arithmetic.
double toleranceAt(double time, double precision)
{
    return precision + time * 2.4e-7;
}

}

TEST(ZLExportRoundTrip, TheImportReadsWhatTheEightFormatsWrite)
{
    if (ZLExporter::allExporters().isEmpty())
        ZLRegisterExporters();
    constexpr int documentsEach = 1000;
    for (const BothWays& format : formatsBothWays()) {
        FittingDocuments documents(format);
        for (int number = 0; number < documentsEach; ++number) {
            const ZLExportInput input = documents.next();
            const QByteArray bytes = ZLExportCase::exported(format.format, input);
            const ZLReadLists read = readText(QString::fromUtf8(bytes));
            ASSERT_EQ(read.formName, format.form) << bytes.constData();
            ASSERT_EQ(read.lists.size(), 1);
            const QList<ZLListedChapter>& found = read.lists.constFirst().chapters;
            ASSERT_EQ(found.size(), input.chapters.size()) << bytes.constData();
            for (qsizetype row = 0; row < found.size(); ++row) {
                const ZLChapter& wanted = *input.chapters.at(row);
                ASSERT_EQ(found.at(row).title, wanted.title()) << bytes.constData();
                ASSERT_EQ(found.at(row).link, wanted.link()) << bytes.constData();
                ASSERT_NEAR(found.at(row).start, wanted.timeStamp(), toleranceAt(wanted.timeStamp(), format.precision))
                    << bytes.constData();
            }
        }
    }
}
