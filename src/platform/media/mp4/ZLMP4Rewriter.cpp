#include "platform/media/mp4/ZLMP4Rewriter.h"

#include "platform/media/ZLBytes.h"
#include "platform/media/mp4/ZLMP4ChapterList.h"
#include "platform/media/mp4/ZLMP4TextTrack.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace {

struct RewriterTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLMP4Rewriter)
};

constexpr qint64 sizeOfHeader = 8;

ZLFilePieces inAtom(const QByteArray& type, const ZLFilePieces& contents)
{
    ZLFilePieces pieces;
    pieces.append(ZLMP4Atoms::header(type, contents.size()));
    pieces.append(contents);
    return pieces;
}

bool isFree(const ZLMP4Atom& atom)
{
    return atom.type == "free" || atom.type == "skip";
}

ZLMediaChapters formerChapters(const ZLMediaSource& source, const ZLMP4Movie& movie)
{
    const QList<ZLMP4Track> tracks = movie.chapterTracks();
    const auto texts = std::ranges::find_if(tracks, &ZLMP4Track::hasTexts);
    return texts == tracks.end() ? ZLMediaChapters() : ZLMP4TextTrack::read(source, *texts, movie.timescale);
}

}

ZLMP4Rewriter::ZLMP4Rewriter(const ZLMediaSource& source, const ZLMP4Movie& movie, const ZLMediaChapters& chapters)
    : m_source(source)
    , m_movie(movie)
    , m_chapters(chapters)
{
    const bool keepsThem = keepsPictures(formerChapters(source, movie), chapters);
    for (const ZLMP4Track& track : movie.chapterTracks())
        (track.hasTexts() || !keepsThem ? m_removedTracks : m_keptTracks).append(track.id);
    m_newTrack = 1;
    for (const ZLMP4Track& track : movie.tracks) {
        if (!isRemoved(track.id))
            m_newTrack = std::max(m_newTrack, track.id + 1);
    }
}

bool ZLMP4Rewriter::keepsPictures(const ZLMediaChapters& former, const ZLMediaChapters& chapters)
{
    return !chapters.isEmpty()
        && std::ranges::equal(former, chapters, {}, &ZLMediaChapter::start, &ZLMediaChapter::start);
}

/// Whether the atom has nothing but the titles of the chapters that go.
bool ZLMP4Rewriter::isFormerTexts(const ZLMP4Atom& atom) const
{
    if (atom.type != "mdat")
        return false;
    qint64 at = atom.begin();
    for (const ZLMP4Track& track : m_movie.tracks) {
        if (!isRemoved(track.id))
            continue;
        for (const ZLMP4Sample& sample : ZLMP4TextTrack::samples(m_source, track)) {
            if (sample.offset == at)
                at += sample.size;
        }
    }
    return at == atom.end() && at > atom.begin();
}

/// Behind what stays: not the description when it is last, and not texts that nothing points to any longer.
qint64 ZLMP4Rewriter::endOfKept() const
{
    ZLMP4AtomList kept = m_movie.atoms;
    if (kept.last().offset == m_movie.moov.offset)
        kept.removeLast();
    if (!kept.isEmpty() && kept.last().offset != m_movie.moov.offset && isFormerTexts(kept.last()))
        kept.removeLast();
    const bool hasAll = kept.size() == m_movie.atoms.size();
    return hasAll ? m_source.size() : kept.isEmpty() ? 0 : kept.last().end();
}

/// The place of the description with the free space right behind it.
qint64 ZLMP4Rewriter::roomForDescription() const
{
    qint64 end = m_movie.moov.end();
    for (const ZLMP4Atom& atom : m_movie.atoms) {
        if (atom.offset == end && isFree(atom))
            end = atom.end();
    }
    return end - m_movie.moov.offset;
}

ZLFilePieces ZLMP4Rewriter::wholeAtom(const ZLMP4Atom& atom) const
{
    ZLFilePieces pieces;
    pieces.appendRange(atom.offset, atom.size);
    return pieces;
}

ZLFilePieces ZLMP4Rewriter::movieHeader(const ZLMP4Atom& header) const
{
    constexpr qint64 sizeOfId = 4;
    const bool isIdUsed = !m_chapters.isEmpty() && m_movie.nextTrackId <= m_newTrack;
    if (!isIdUsed || header.size < header.headerSize + sizeOfId)
        return wholeAtom(header);
    ZLFilePieces pieces;
    pieces.appendRange(header.offset, header.size - sizeOfId);
    pieces.append(ZLBytes::fromBig(m_newTrack + 1));
    return pieces;
}

/// What the track says of others, with the new chapters in place of the former ones.
ZLFilePieces ZLMP4Rewriter::references(const ZLMP4Track& track) const
{
    ZLFilePieces contents;
    const auto former = ZLMP4Atoms::find(m_source, track.atom, { "tref" });
    const auto atoms = former ? ZLMP4Atoms::inside(m_source, *former) : ZLResult(ZLMP4AtomList());
    for (const ZLMP4Atom& atom : atoms ? atoms.value() : ZLMP4AtomList()) {
        if (atom.type != "chap")
            contents.append(wholeAtom(atom));
    }
    QByteArray chapters;
    if (!m_chapters.isEmpty())
        chapters += ZLBytes::fromBig(m_newTrack);
    for (const quint32 kept : m_keptTracks)
        chapters += ZLBytes::fromBig(kept);
    if (!chapters.isEmpty())
        contents.append(ZLMP4Atoms::atom("chap", chapters));
    return contents.size() > 0 ? inAtom("tref", contents) : ZLFilePieces();
}

ZLFilePieces ZLMP4Rewriter::trackWithReference(const ZLMP4Track& track) const
{
    ZLFilePieces contents;
    ZLFilePieces references = this->references(track);
    const auto parts = ZLMP4Atoms::inside(m_source, track.atom);
    for (const ZLMP4Atom& part : parts ? parts.value() : ZLMP4AtomList()) {
        if (part.type == "mdia")
            contents.append(std::exchange(references, {}));
        if (part.type != "tref")
            contents.append(wholeAtom(part));
    }
    return inAtom("trak", contents);
}

ZLFilePieces ZLMP4Rewriter::userData(const ZLMP4Atom* former) const
{
    ZLFilePieces contents;
    qint64 end = former ? former->begin() : 0;
    const auto parts = former ? ZLMP4Atoms::inside(m_source, *former) : ZLResult(ZLMP4AtomList());
    for (const ZLMP4Atom& part : parts ? parts.value() : ZLMP4AtomList()) {
        if (part.type != "chpl")
            contents.append(wholeAtom(part));
        end = part.end();
    }
    if (!m_chapters.isEmpty())
        contents.append(ZLMP4Atoms::atom("chpl", ZLMP4ChapterList::bytes(m_chapters)));
    if (former)
        contents.appendRange(end, former->end() - end);
    return contents.size() > 0 || former ? inAtom("udta", contents) : ZLFilePieces();
}

ZLFilePieces ZLMP4Rewriter::description(qint64 placeOfTexts) const
{
    ZLFilePieces contents;
    qsizetype tracks = 0;
    const ZLMP4Atom* data = ZLMP4Atoms::find(m_movie.parts, "udta");
    for (const ZLMP4Atom& part : m_movie.parts) {
        if (part.type == "mvhd") {
            contents.append(movieHeader(part));
        } else if (part.type == "trak") {
            const ZLMP4Track& track = m_movie.tracks.at(tracks++);
            const bool refers = track.handler == "soun" || !track.chapterTracks.isEmpty();
            if (!isRemoved(track.id))
                contents.append(refers ? trackWithReference(track) : wholeAtom(part));
            if (tracks == m_movie.tracks.size() && !m_chapters.isEmpty())
                contents.append(ZLMP4TextTrack::track(m_chapters, m_newTrack, m_movie.timescale, placeOfTexts));
        } else {
            contents.append(&part == data ? userData(data) : wholeAtom(part));
        }
    }
    if (!data)
        contents.append(userData(nullptr));
    return inAtom("moov", contents);
}

ZLFilePieces ZLMP4Rewriter::withDescriptionInPlace(const ZLFilePieces& description, qint64 end) const
{
    ZLFilePieces pieces;
    pieces.appendRange(0, m_movie.moov.offset);
    pieces.append(description);
    if (const qint64 spare = roomForDescription() - description.size(); spare > 0)
        pieces.append(ZLMP4Atoms::header("free", spare - sizeOfHeader));
    // Free space may have any bytes.
    pieces.appendRange(pieces.size(), end - pieces.size());
    return pieces;
}

ZLFilePieces ZLMP4Rewriter::withFreedDescription(qint64 end) const
{
    ZLFilePieces pieces;
    const qint64 placeOfType = m_movie.moov.offset + 4;
    pieces.appendRange(0, std::min(end, placeOfType));
    if (end > placeOfType) {
        pieces.append("free");
        pieces.appendRange(placeOfType + 4, end - placeOfType - 4);
    }
    return pieces;
}

ZLResult<ZLFilePieces> ZLMP4Rewriter::pieces() const
{
    const ZLMP4Atom& last = m_movie.atoms.last();
    const qint64 end = endOfKept();
    if (last.end() != m_source.size() || (last.isOpen && last.end() == end))
        return ZLError { RewriterTexts::tr(
            "It is not clear where the last part of this file ends, so nothing can be put "
            "behind it.") };
    const QByteArray samples = ZLMP4TextTrack::texts(m_chapters);
    const QByteArray texts = samples.isEmpty() ? QByteArray() : ZLMP4Atoms::atom("mdat", samples);
    const ZLFilePieces newDescription = description(end + sizeOfHeader);
    const qint64 spare = roomForDescription() - newDescription.size();
    const bool staysInPlace = end > m_movie.moov.offset && (spare == 0 || spare >= sizeOfHeader);
    ZLFilePieces pieces = staysInPlace ? withDescriptionInPlace(newDescription, end) : withFreedDescription(end);
    pieces.append(texts);
    if (!staysInPlace)
        pieces.append(newDescription);
    return pieces;
}
