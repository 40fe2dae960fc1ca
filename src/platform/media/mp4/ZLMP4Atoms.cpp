#include "platform/media/mp4/ZLMP4Atoms.h"

#include "platform/media/ZLBytes.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct AtomTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLMP4Atoms)
};

constexpr qint64 smallHeader = 8;
constexpr qint64 largeHeader = 16;
constexpr qsizetype mostAtomsInside = 500;

ZLMP4Atom atomIn(const QByteArray& bytes, qint64 offset, qint64 end)
{
    const auto size = ZLBytes::big<quint32>(bytes, 0);
    ZLMP4Atom atom { .type = bytes.mid(4, 4), .offset = offset, .size = qint64(size) };
    if (size == 0) {
        atom.size = end - offset;
        atom.isOpen = true;
    } else if (size == 1) {
        atom.headerSize = largeHeader;
        atom.size = ZLBytes::big<qint64>(bytes, 8);
    }
    return atom;
}

}

ZLResult<ZLMP4AtomList> ZLMP4Atoms::between(const ZLMediaSource& source, qint64 begin, qint64 end, qsizetype most)
{
    ZLMP4AtomList atoms;
    for (qint64 at = begin; at + smallHeader <= end;) {
        const QByteArray bytes = source.read(at, std::min(largeHeader, end - at));
        // Lists in files of QuickTime end with a zero.
        if (bytes.startsWith(QByteArray(8, '\0')))
            break;
        const ZLMP4Atom atom = atomIn(bytes, at, end);
        if (atom.size < atom.headerSize || atom.size > end - at)
            return ZLError { AtomTexts::tr("The part \"%1\" of this file is damaged, or the file ends early.")
                    .arg(QString::fromLatin1(atom.type)) };
        if (atoms.size() == most)
            return ZLError { AtomTexts::tr("This file has too many parts.") };
        atoms.append(atom);
        at = atom.end();
    }
    return atoms;
}

ZLResult<ZLMP4AtomList> ZLMP4Atoms::inside(const ZLMediaSource& source, const ZLMP4Atom& atom)
{
    return between(source, atom.begin(), atom.end(), mostAtomsInside);
}

const ZLMP4Atom* ZLMP4Atoms::find(const ZLMP4AtomList& atoms, const QByteArray& type)
{
    const auto found = std::ranges::find(atoms, type, &ZLMP4Atom::type);
    return found == atoms.end() ? nullptr : &*found;
}

std::optional<ZLMP4Atom> ZLMP4Atoms::find(
    const ZLMediaSource& source, const ZLMP4Atom& atom, std::initializer_list<QByteArray> path)
{
    ZLMP4Atom found = atom;
    for (const QByteArray& type : path) {
        const auto atoms = inside(source, found);
        const ZLMP4Atom* next = atoms ? find(atoms.value(), type) : nullptr;
        if (!next)
            return std::nullopt;
        found = *next;
    }
    return found;
}

QByteArray ZLMP4Atoms::contents(const ZLMediaSource& source, const std::optional<ZLMP4Atom>& atom, qint64 most)
{
    return atom ? source.read(atom->begin(), std::min(atom->size - atom->headerSize, most)) : QByteArray();
}

QByteArray ZLMP4Atoms::header(const QByteArray& type, qint64 sizeOfContents)
{
    constexpr qint64 largestSmall = 0xFFFFFFFF - smallHeader;
    if (sizeOfContents <= largestSmall)
        return ZLBytes::fromBig(quint32(sizeOfContents + smallHeader)) + type;
    return ZLBytes::fromBig(quint32(1)) + type + ZLBytes::fromBig(sizeOfContents + largeHeader);
}

QByteArray ZLMP4Atoms::atom(const QByteArray& type, const QByteArray& contents)
{
    return header(type, contents.size()) + contents;
}
