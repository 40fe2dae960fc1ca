#include "delivery/fit/ZLFitReport.h"

#include "model/ZLTimeText.h"
#include "platform/ZLShownText.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <ranges>

using namespace Qt::StringLiterals;

namespace {

struct FitReportTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLFitReport)
};

QString stateWord(ZLMomentState state)
{
    switch (state) {
    case ZLMomentState::Kept:
        return u"kept"_s;
    case ZLMomentState::Seam:
        return u"seam"_s;
    case ZLMomentState::Cut:
        return u"cut"_s;
    case ZLMomentState::NotFound:
        break;
    }
    return u"notFound"_s;
}

/// To the millisecond, which is finer than what is found.
double rounded(double seconds)
{
    return std::round(seconds * 1000.0) / 1000.0;
}

QJsonObject objectOf(const ZLFittedChapter& found)
{
    const bool isFound = found.isFound();
    return { { u"uuid"_s, found.mark.chapter->uuid() }, { u"oldTime"_s, rounded(found.oldTime()) },
        { u"newTime"_s, isFound ? QJsonValue(rounded(found.place.fileTime)) : QJsonValue() },
        { u"state"_s, stateWord(found.place.state) }, { u"confidence"_s, rounded(found.place.confidence) } };
}

QJsonObject objectOf(const ZLSoundPiece& piece)
{
    return { { u"showStart"_s, rounded(piece.showStart) }, { u"fileStart"_s, rounded(piece.fileStart) },
        { u"length"_s, rounded(piece.length) } };
}

QJsonArray arrayOf(const std::vector<ZLSoundPiece>& pieces)
{
    QJsonArray array;
    for (const ZLSoundPiece& piece : pieces)
        array.append(objectOf(piece));
    return array;
}

QString clock(double seconds)
{
    return ZLTimeText::hoursMinutesSeconds(ZLTimeText::truncated(std::round(seconds)));
}

/// Of a file with many parts that were moved, so many are told.
constexpr int mostMovedTold = 3;

}

QString ZLFitReport::stateText(ZLMomentState state)
{
    switch (state) {
    case ZLMomentState::Kept:
        return FitReportTexts::tr("kept");
    case ZLMomentState::Seam:
        return FitReportTexts::tr("moved to the seam");
    case ZLMomentState::Cut:
        return FitReportTexts::tr("cut");
    case ZLMomentState::NotFound:
        break;
    }
    return FitReportTexts::tr("not found");
}

QString ZLFitReport::table(const ZLFit& fit)
{
    const ZLChapterSequence fitted = fit.fittedChapters();
    QString text;
    for (qsizetype index = 0; index < fitted.size(); ++index) {
        const ZLFittedChapter& found = fit.chapters[index];
        const bool isFound = found.isFound();
        text += u"%1  %2  %3  %4  %5\n"_s.arg(found.mark.chapter->timeString(),
            isFound ? fitted[index]->timeString() : u"–"_s.leftJustified(12),
            stateText(found.place.state).leftJustified(17),
            u"%1 %"_s.arg(std::lround(found.place.confidence * 100.0)).rightJustified(5),
            ZLShownText::asOneLine(ZLShownText::shortened(found.mark.chapter->title())));
    }
    const QString moved = movedText(fit);
    return moved.isEmpty() ? text : text + moved + u'\n';
}

QString ZLFitReport::movedText(const ZLFit& fit)
{
    QStringList sentences;
    for (const ZLSoundPiece& piece : fit.alignment.movedPieces | std::views::take(mostMovedTold))
        sentences.append(FitReportTexts::tr("At %1 the file also has %2 to %3 of the show.")
                .arg(clock(piece.fileStart), clock(piece.showStart - fit.zero), clock(piece.showEnd() - fit.zero)));
    return sentences.join(u' ');
}

QByteArray ZLFitReport::json(const ZLFit& fit)
{
    QJsonArray chapters;
    for (const ZLFittedChapter& found : fit.chapters)
        chapters.append(objectOf(found));
    QJsonObject report { { u"chapters"_s, chapters }, { u"pieces"_s, arrayOf(fit.alignment.pieces) } };
    if (!fit.alignment.movedPieces.empty())
        report.insert(u"moved"_s, arrayOf(fit.alignment.movedPieces));
    return QJsonDocument(report).toJson();
}
