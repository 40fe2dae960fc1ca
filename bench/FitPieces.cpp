// Prints what two sounds share: zelta_fit_pieces SHOW FILE.
//
// A fit says no more of two sounds than that they are not the same show, when they share less than a tenth. This says
// which pieces were accepted nevertheless.

#include "alignment/ZLSoundAlignment.h"
#include "delivery/fit/ZLHeardSound.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

QJsonArray arrayOf(const std::vector<ZLSoundPiece>& pieces)
{
    QJsonArray array;
    for (const ZLSoundPiece& piece : pieces)
        array.append(QJsonObject { { u"showStart"_s, piece.showStart }, { u"fileStart"_s, piece.fileStart },
            { u"length"_s, piece.length }, { u"differingShare"_s, piece.differingShare },
            { u"shareElsewhere"_s, piece.shareElsewhere }, { u"beginDoubt"_s, piece.beginDoubt },
            { u"endDoubt"_s, piece.endDoubt } });
    return array;
}

}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() != 3) {
        std::fputs("zelta_fit_pieces SHOW FILE\n", stderr);
        return 2;
    }
    ZLWorkProgress progress;
    const auto show = ZLHeardSound::fingerprintOf(words[1], progress);
    const auto file = ZLHeardSound::fingerprintOf(words[2], progress);
    if (!show || !file) {
        std::fprintf(stderr, "%s\n", qPrintable((show ? file : show).error().message));
        return 1;
    }
    const auto alignment = ZLSoundAlignment::of(show.value(), file.value(), progress);
    const QJsonObject object { { u"pieces"_s, arrayOf(alignment.pieces) },
        { u"moved"_s, arrayOf(alignment.movedPieces) }, { u"isTheShow"_s, alignment.isTheShow() } };
    std::fputs(QJsonDocument(object).toJson(QJsonDocument::Compact).constData(), stdout);
    return 0;
}
