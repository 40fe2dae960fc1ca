#include "platform/media/mp4/ZLMP4Movie.h"

#include "platform/media/ZLBytes.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct MovieTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLMP4Movie)
};

/// A file for streaming has several for each second; it is refused for what it is.
constexpr qsizetype mostAtoms = 100'000;
constexpr qsizetype mostTracks = 100;
constexpr qint64 mostReferences = 4'000;

/// A header atom has its times in four bytes or, from version 1 on, in eight.
bool hasLargeTimes(const QByteArray& header)
{
    return !header.isEmpty() && header.at(0) != 0;
}

qint64 duration(const QByteArray& header, qsizetype small, qsizetype large)
{
    const bool isLarge = hasLargeTimes(header);
    const quint64 number = isLarge ? ZLBytes::big<quint64>(header, large) : ZLBytes::big<quint32>(header, small);
    const quint64 unknown = isLarge ? ~quint64(0) : 0xFFFFFFFFU;
    return number == unknown || number > quint64(1) << 62 ? 0 : qint64(number);
}

QList<quint32> chapterReferences(const ZLMediaSource& source, const ZLMP4Atom& track)
{
    const QByteArray bytes =
        ZLMP4Atoms::contents(source, ZLMP4Atoms::find(source, track, { "tref", "chap" }), mostReferences);
    QList<quint32> ids;
    for (qsizetype at = 0; at + 4 <= bytes.size(); at += 4)
        ids.append(ZLBytes::big<quint32>(bytes, at));
    return ids;
}

ZLMP4Track readTrack(const ZLMediaSource& source, const ZLMP4Atom& atom)
{
    const QByteArray header = ZLMP4Atoms::contents(source, ZLMP4Atoms::find(source, atom, { "tkhd" }), 128);
    const QByteArray media = ZLMP4Atoms::contents(source, ZLMP4Atoms::find(source, atom, { "mdia", "mdhd" }), 64);
    const QByteArray handler = ZLMP4Atoms::contents(source, ZLMP4Atoms::find(source, atom, { "mdia", "hdlr" }), 64);
    return {
        .atom = atom,
        .id = ZLBytes::big<quint32>(header, hasLargeTimes(header) ? 20 : 12),
        .handler = handler.mid(8, 4),
        .timescale = ZLBytes::big<quint32>(media, hasLargeTimes(media) ? 20 : 12),
        .duration = duration(header, 20, 28),
        .chapterTracks = chapterReferences(source, atom),
    };
}

/// What cannot be understood, or nothing.
QString problemWith(const ZLMP4AtomList& atoms)
{
    if (ZLMP4Atoms::find(atoms, "moof") || ZLMP4Atoms::find(atoms, "mvex"))
        return MovieTexts::tr("This file is fragmented, as for streaming. Chapters need an ordinary file, such as "
                              "\"ffmpeg -i IN -c copy OUT\" makes of it.");
    if (ZLMP4Atoms::find(atoms, "cmov"))
        return MovieTexts::tr("The description of this file is compressed, which Zelta does not write to.");
    return {};
}

void readHeader(const ZLMediaSource& source, ZLMP4Movie& movie)
{
    const QByteArray header = ZLMP4Atoms::contents(source, ZLMP4Atoms::find(source, movie.moov, { "mvhd" }), 256);
    movie.timescale = ZLBytes::big<quint32>(header, hasLargeTimes(header) ? 20 : 12);
    movie.duration = duration(header, 16, 24);
    movie.nextTrackId = ZLBytes::big<quint32>(header, header.size() - 4);
}

ZLStatus readTracks(const ZLMediaSource& source, ZLMP4Movie& movie)
{
    for (const ZLMP4Atom& part : std::as_const(movie.parts)) {
        if (part.type != "trak")
            continue;
        if (movie.tracks.size() == mostTracks)
            return ZLError { MovieTexts::tr("This file has too many tracks.") };
        movie.tracks.append(readTrack(source, part));
    }
    return ZLDone {};
}

}

bool ZLMP4Movie::isMovie(const ZLMediaSource& source)
{
    const QByteArray type = source.read(4, 4);
    return type == "ftyp" || type == "moov" || type == "mdat" || type == "wide" || type == "free" || type == "skip";
}

ZLResult<ZLMP4Movie> ZLMP4Movie::read(const ZLMediaSource& source)
{
    ZLMP4Movie movie;
    const auto atoms = ZLMP4Atoms::between(source, 0, source.size(), mostAtoms);
    if (!atoms)
        return atoms.error();
    movie.atoms = atoms.value();
    const ZLMP4Atom* moov = ZLMP4Atoms::find(movie.atoms, "moov");
    if (!moov)
        return ZLError { MovieTexts::tr("There is no description of the sound in this file.") };
    movie.moov = *moov;
    const auto parts = ZLMP4Atoms::inside(source, movie.moov);
    if (!parts)
        return parts.error();
    movie.parts = parts.value();
    for (const ZLMP4AtomList& list : { movie.atoms, movie.parts }) {
        if (const QString problem = problemWith(list); !problem.isEmpty())
            return ZLError { problem };
    }
    readHeader(source, movie);
    if (const ZLStatus tracks = readTracks(source, movie); !tracks)
        return tracks.error();
    if (movie.timescale == 0 || std::ranges::count(movie.tracks, "soun", &ZLMP4Track::handler) == 0)
        return ZLError { MovieTexts::tr("There is no sound in this file.") };
    return movie;
}

const ZLMP4Track* ZLMP4Movie::track(quint32 id) const
{
    const auto found = std::ranges::find(tracks, id, &ZLMP4Track::id);
    return found == tracks.end() ? nullptr : &*found;
}

QList<ZLMP4Track> ZLMP4Movie::chapterTracks() const
{
    QList<ZLMP4Track> found;
    for (const ZLMP4Track& candidate : tracks) {
        const bool isNamed = std::ranges::any_of(
            tracks, [&](const ZLMP4Track& other) { return other.chapterTracks.contains(candidate.id); });
        if (isNamed && candidate.handler != "soun")
            found.append(candidate);
    }
    return found;
}

qint64 ZLMP4Movie::length() const
{
    const auto sound = std::ranges::find(tracks, "soun", &ZLMP4Track::handler);
    const qint64 units = sound->duration > 0 ? sound->duration : duration;
    return qRound64(double(units) * 1000.0 / timescale);
}
