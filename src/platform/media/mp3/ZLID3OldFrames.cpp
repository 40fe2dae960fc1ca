#include "platform/media/mp3/ZLID3OldFrames.h"

#include "platform/media/ZLBytes.h"

#include <QHash>

#include <algorithm>

namespace {

constexpr qsizetype oldHeaderSize = 6;

const QHash<QByteArray, QByteArray>& newNames()
{
    static const QHash<QByteArray, QByteArray> names {
        { "BUF", "RBUF" },
        { "CNT", "PCNT" },
        { "COM", "COMM" },
        { "CRA", "AENC" },
        { "EQU", "EQUA" },
        { "ETC", "ETCO" },
        { "GEO", "GEOB" },
        { "GP1", "GRP1" },
        { "IPL", "IPLS" },
        { "MCI", "MCDI" },
        { "MLL", "MLLT" },
        { "MVI", "MVIN" },
        { "MVN", "MVNM" },
        { "PCS", "PCST" },
        { "PIC", "APIC" },
        { "POP", "POPM" },
        { "REV", "RVRB" },
        { "RVA", "RVAD" },
        { "SLT", "SYLT" },
        { "STC", "SYTC" },
        { "TAL", "TALB" },
        { "TBP", "TBPM" },
        { "TCM", "TCOM" },
        { "TCO", "TCON" },
        { "TCP", "TCMP" },
        { "TCR", "TCOP" },
        { "TCT", "TCAT" },
        { "TDA", "TDAT" },
        { "TDR", "TDRL" },
        { "TDS", "TDES" },
        { "TDY", "TDLY" },
        { "TEN", "TENC" },
        { "TFT", "TFLT" },
        { "TID", "TGID" },
        { "TIM", "TIME" },
        { "TKE", "TKEY" },
        { "TKW", "TKWD" },
        { "TLA", "TLAN" },
        { "TLE", "TLEN" },
        { "TMT", "TMED" },
        { "TOA", "TOPE" },
        { "TOF", "TOFN" },
        { "TOL", "TOLY" },
        { "TOR", "TORY" },
        { "TOT", "TOAL" },
        { "TP1", "TPE1" },
        { "TP2", "TPE2" },
        { "TP3", "TPE3" },
        { "TP4", "TPE4" },
        { "TPA", "TPOS" },
        { "TPB", "TPUB" },
        { "TRC", "TSRC" },
        { "TRD", "TRDA" },
        { "TRK", "TRCK" },
        { "TS2", "TSO2" },
        { "TSA", "TSOA" },
        { "TSC", "TSOC" },
        { "TSI", "TSIZ" },
        { "TSP", "TSOP" },
        { "TSS", "TSSE" },
        { "TST", "TSOT" },
        { "TT1", "TIT1" },
        { "TT2", "TIT2" },
        { "TT3", "TIT3" },
        { "TXT", "TEXT" },
        { "TXX", "TXXX" },
        { "TYE", "TYER" },
        { "UFI", "UFID" },
        { "ULT", "USLT" },
        { "WAF", "WOAF" },
        { "WAR", "WOAR" },
        { "WAS", "WOAS" },
        { "WCM", "WCOM" },
        { "WCP", "WCOP" },
        { "WFD", "WFED" },
        { "WPB", "WPUB" },
        { "WXX", "WXXX" },
    };
    return names;
}

/// A picture names its kind by three letters in version 2.2 and by a media type in version 2.3.
QByteArray convertedPicture(const QByteArray& contents)
{
    const QByteArray kind = contents.mid(1, 3).toLower();
    const QByteArray type = kind == "-->" ? kind : "image/" + (kind == "jpg" ? QByteArrayLiteral("jpeg") : kind);
    return contents.left(1) + type + '\0' + contents.mid(4);
}

ZLID3Frame converted(const QByteArray& newName, QByteArray contents)
{
    if (newName == "APIC")
        contents = convertedPicture(contents);
    return { newName, newName + ZLBytes::fromBig(quint32(contents.size())) + QByteArray(2, '\0') + contents };
}

bool isOldName(const QByteArray& name)
{
    return name.size() == 3 && std::ranges::all_of(name, [](char letter) {
        return (letter >= 'A' && letter <= 'Z') || (letter >= '0' && letter <= '9');
    });
}

}

QList<ZLID3Frame> ZLID3OldFrames::converted(const QByteArray& body, qsizetype most, int& lost)
{
    QList<ZLID3Frame> frames;
    lost = 0;
    for (qsizetype at = 0; at + oldHeaderSize <= body.size() && frames.size() + lost < most;) {
        const QByteArray name = body.mid(at, 3);
        const qsizetype size = qsizetype(ZLBytes::big<quint32>(body, at + 2) & 0xFFFFFFU);
        if (!isOldName(name) || size > body.size() - at - oldHeaderSize)
            break;
        const QByteArray newName = newNames().value(name);
        if (newName.isEmpty())
            ++lost;
        else
            frames.append(::converted(newName, body.mid(at + oldHeaderSize, size)));
        at += oldHeaderSize + size;
    }
    return frames;
}
