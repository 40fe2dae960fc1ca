#pragma once

#include "platform/media/ZLMediaSource.h"

#include <QList>

#include <initializer_list>
#include <optional>

/// One atom (box) of an MP4 file: a size, a type of four letters, and contents that may be atoms again.
struct ZLMP4Atom {
    QByteArray type {};
    qint64 offset = 0;
    qint64 headerSize = 8;
    /// Header and contents.
    qint64 size = 0;
    /// Its size is written as 0, which means up to the end of the file.
    bool isOpen = false;

    [[nodiscard]] qint64 begin() const { return offset + headerSize; }
    [[nodiscard]] qint64 end() const { return offset + size; }
};

using ZLMP4AtomList = QList<ZLMP4Atom>;

namespace ZLMP4Atoms {

/// The atoms between two places; an error where there are more than `most`. A list may end with fewer than eight bytes
/// that are none, or with a zero.
[[nodiscard]] ZLResult<ZLMP4AtomList> between(const ZLMediaSource& source, qint64 begin, qint64 end, qsizetype most);

/// Those inside of an atom.
[[nodiscard]] ZLResult<ZLMP4AtomList> inside(const ZLMediaSource& source, const ZLMP4Atom& atom);

[[nodiscard]] const ZLMP4Atom* find(const ZLMP4AtomList& atoms, const QByteArray& type);

/// Goes down from `atom` by one type after the other.
[[nodiscard]] std::optional<ZLMP4Atom> find(
    const ZLMediaSource& source, const ZLMP4Atom& atom, std::initializer_list<QByteArray> path);

/// The contents, up to `most` bytes.
[[nodiscard]] QByteArray contents(const ZLMediaSource& source, const std::optional<ZLMP4Atom>& atom, qint64 most);

/// The header of an atom with so many bytes of contents.
[[nodiscard]] QByteArray header(const QByteArray& type, qint64 sizeOfContents);
[[nodiscard]] QByteArray atom(const QByteArray& type, const QByteArray& contents);

}
