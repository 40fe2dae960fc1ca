"""Media files that were made to cost a reader its time or its memory. Large ones have holes instead of contents."""

import struct
import zlib

GIB = 1 << 30
#: Two frames of sound are enough to be an MP3 file; the last of them ends with the file.
MP3_FRAME = bytes((0xFF, 0xFB, 0x90, 0x64)) + bytes(413)
MP3_SOUND = MP3_FRAME * 4


def store(folder, name, *parts, size=None):
    """Writes the parts one behind the other. A number is a hole of so many bytes."""
    path = folder / name
    with open(path, "wb") as stream:
        for part in parts:
            if isinstance(part, int):
                stream.seek(part, 1)
            else:
                stream.write(part)
        stream.truncate(size if size is not None else stream.tell())
    return path


# MP3

def synchsafe(size):
    return bytes([size >> 21 & 127, size >> 14 & 127, size >> 7 & 127, size & 127])


def tag(version, body, size=None, flags=0):
    return b"ID3" + bytes((version, 0, flags)) + synchsafe(len(body) if size is None else size) + body


def frame(name, contents, size=None):
    return name + struct.pack(">IH", len(contents) if size is None else size, 0) + contents


def chapter(contents, name=b"id"):
    return frame(b"CHAP", name + b"\0" + struct.pack(">IIII", 0, 1000, 0xFFFFFFFF, 0xFFFFFFFF) + contents)


def mp3_tag_larger_than_the_file(folder):
    return store(folder, "larger.mp3", tag(3, b"", size=(1 << 28) - 1), MP3_SOUND)


def mp3_tag_of_a_quarter_gigabyte(folder):
    return store(folder, "quarter.mp3", tag(4, b"", size=(1 << 28) - 1), (1 << 28) - 1, MP3_SOUND)


def mp3_picture_of_two_gigabytes(folder):
    body = frame(b"APIC", b"\0image/png\0\3\0" + bytes(100), size=(1 << 31) - 1)
    return store(folder, "picture.mp3", tag(3, body), MP3_SOUND)


def mp3_frames_with_nothing_inside(folder):
    return store(folder, "frames.mp3", tag(3, frame(b"TXXX", b"") * 1_600_000), MP3_SOUND)


def mp3_old_frames_with_nothing_inside(folder):
    return store(folder, "old.mp3", tag(2, b"TT2\0\0\0" * 2_700_000), MP3_SOUND)


def mp3_frames_of_fifteen_megabytes(folder):
    body = frame(b"APIC", b"\0image/png\0\3\0" + bytes(15_000_000)) + chapter(frame(b"TIT2", b"\0title"))
    return store(folder, "heavy.mp3", tag(3, body), MP3_SOUND)


def mp3_many_chapters(folder):
    return store(folder, "chapters.mp3", tag(3, chapter(frame(b"TIT2", b"\0t") * 60) * 19_000), MP3_SOUND)


def mp3_chapters_in_chapters(folder):
    # Each ends with the tag, so that all of them overlap.
    depth = 16_000
    start = b"id\0" + bytes(16)
    total = depth * (10 + len(start))
    body = b"".join(b"CHAP" + struct.pack(">IH", total - level * 29 - 10, 0) + start for level in range(depth))
    return store(folder, "nested.mp3", tag(3, body), MP3_SOUND)


def mp3_chapter_titles_that_share_a_name(folder):
    one = chapter(frame(b"TIT2", b"\1\xff\xfe" + b"\x41\0" * 7_000), b"same")
    return store(folder, "same.mp3", tag(3, one * 1_100), MP3_SOUND)


def mp3_unsynchronised(folder):
    return store(folder, "unsynchronised.mp3", tag(3, b"\xff\0" * 8_000_000, flags=0x80), MP3_SOUND)


def mp3_extended_header_without_end(folder):
    return store(folder, "extended.mp3", tag(3, b"\xff\xff\xff\xff" + bytes(1000), flags=0x40), MP3_SOUND)


def mp3_tags_behind_tags(folder):
    return store(folder, "tags.mp3", tag(3, b"") * 1_000_000, MP3_SOUND)


def mp3_beginnings_of_frames_only(folder):
    return store(folder, "beginnings.mp3", bytes((0xFF, 0xFB, 0x90, 0x64)) * 16_000, MP3_SOUND)


def mp3_with_a_hole_of_100_gigabytes(folder):
    return store(folder, "hole.mp3", MP3_SOUND, 100 * GIB, MP3_SOUND)


def mp3_with_nothing_behind(folder):
    """Zeros that are no hole."""
    return store(folder, "zeros.mp3", MP3_SOUND, bytes(100_000_000))


def mp3_with_ones_behind(folder):
    return store(folder, "ones.mp3", MP3_SOUND, b"\xff" * 50_000_000)


def mp3_that_counts_too_many_frames(folder):
    first = bytearray(MP3_FRAME)
    first[36:48] = b"Xing" + struct.pack(">II", 1, 0xFFFFFFFF)
    return store(folder, "count.mp3", bytes(first), MP3_SOUND)


# MP4

def atom(kind, *contents):
    inside = b"".join(contents)
    return struct.pack(">I", len(inside) + 8) + kind + inside


def numbers(*values):
    return struct.pack(f">{len(values)}I", *values)


FTYP = atom(b"ftyp", b"M4A \0\0\0\0")
MVHD = atom(b"mvhd", numbers(0, 0, 0, 1000, 60_000), bytes(76), numbers(3))


def track(identity, handler, tables=b"", references=b"", more=b""):
    media = atom(b"mdia", atom(b"mdhd", numbers(0, 0, 0, 1000, 60_000, 0)), atom(b"hdlr", numbers(0, 0), handler, bytes(13)),
                 atom(b"minf", atom(b"stbl", tables)))
    return atom(b"trak", atom(b"tkhd", numbers(0, 0, 0, identity, 0, 60_000), bytes(60)), references, media, more)


def names(*identities):
    return atom(b"tref", atom(b"chap", numbers(*identities)))


def movie(*parts):
    return atom(b"moov", MVHD, *parts)


SOUND = track(1, b"soun", references=names(2))


def mp4_atoms_with_nothing_inside(folder):
    return store(folder, "atoms.m4a", FTYP, atom(b"free") * 2_000_000, movie(SOUND))


def mp4_parts_with_nothing_inside(folder):
    return store(folder, "parts.m4a", FTYP, movie(SOUND, atom(b"free") * 2_000_000))


def mp4_tracks_with_many_parts(folder):
    filled = [track(number, b"soun", references=names(*range(1, 100)), more=atom(b"free") * 480) for number in range(1, 100)]
    return store(folder, "tracks.m4a", FTYP, movie(*filled))


def mp4_texts_with_many_parts(folder):
    """Every track names every other one as its chapters."""
    tables = atom(b"free") * 480
    filled = [track(number, b"text", tables, names(*range(1, 100))) for number in range(2, 100)]
    return store(folder, "texts.m4a", FTYP, movie(SOUND, *filled))


def mp4_fragments_without_end(folder):
    return store(folder, "fragments.m4a", FTYP, movie(SOUND), (atom(b"moof") + atom(b"mdat")) * 40_000)


def mp4_atoms_in_atoms(folder):
    inside = b""
    for _ in range(60_000):
        inside = struct.pack(">I", len(inside) + 8) + b"udta" + inside
        if len(inside) > 400_000:
            break
    return store(folder, "deep.m4a", FTYP, movie(SOUND, inside))


def mp4_sizes_without_end(folder):
    tables = atom(b"stts", numbers(0, 1, 0xFFFFFFFF, 0xFFFFFFFF)) + atom(b"stsz", numbers(0, 0xFFFF, 0xFFFFFFFF)) \
        + atom(b"stsc", numbers(0, 1, 1, 0xFFFFFFFF, 1)) + atom(b"stco", numbers(0, 1, 8))
    return store(folder, "samples.m4a", FTYP, movie(SOUND, track(2, b"text", tables)), size=200_000_000)


def mp4_samples_at_the_same_place(folder):
    count = 10_000
    tables = atom(b"stts", numbers(0, 1, count, 1)) + atom(b"stsz", numbers(0, 0xFFFF, count)) \
        + atom(b"stsc", numbers(0, 1, 1, 1, 1)) + atom(b"stco", numbers(0, count, *[64] * count))
    return store(folder, "overlap.m4a", FTYP, movie(SOUND, track(2, b"text", tables)), b"\xff\xff" + b"x" * 70_000)


def mp4_places_beyond_all_numbers(folder):
    tables = atom(b"stts", numbers(0, 1, 3, 1000)) + atom(b"stsz", numbers(0, 0x7FFFFFFF, 3)) \
        + atom(b"stsc", numbers(0, 1, 1, 1, 1)) + atom(b"co64", numbers(0, 3), b"\x7f" + b"\xff" * 7, b"\xff" * 8, b"\x80" + bytes(7))
    return store(folder, "beyond.m4a", FTYP, movie(SOUND, track(2, b"text", tables)))


def mp4_tables_that_count_too_much(folder):
    tables = b"".join(atom(kind, numbers(0, 0xFFFFFFFF, 0xFFFFFFFF)) for kind in (b"stts", b"stsz", b"stsc", b"stco", b"co64"))
    return store(folder, "tables.m4a", FTYP, movie(SOUND, track(2, b"text", tables)))


def mp4_description_of_100_gigabytes(folder):
    size = 100 * GIB
    return store(folder, "description.m4a", FTYP, struct.pack(">I4sQ", 1, b"moov", size), MVHD, SOUND, size=size + len(FTYP))


def mp4_sound_of_100_gigabytes(folder):
    size = 100 * GIB
    return store(folder, "sound.m4a", FTYP, struct.pack(">I4sQ", 1, b"mdat", size), size - 16, movie(SOUND))


def mp4_size_beyond_all_numbers(folder):
    return store(folder, "size.m4a", FTYP, b"\0\0\0\1mdat" + b"\xff" * 8, movie(SOUND))


def mp4_that_names_itself(folder):
    return store(folder, "itself.m4a", FTYP, movie(track(1, b"soun", references=names(1)), track(2, b"text", references=names(2))))


def mp4_list_that_counts_too_much(folder):
    return store(folder, "list.m4a", FTYP, movie(track(1, b"soun"), atom(b"udta", atom(b"chpl", b"\1\0\0\0\0\0\0\0\xff", b"\xff" * 30))))


# Ogg and FLAC

OGG_TABLE = []
for number in range(256):
    value = number << 24
    for _ in range(8):
        value = (value << 1 ^ 0x04C11DB7 if value & 0x80000000 else value << 1) & 0xFFFFFFFF
    OGG_TABLE.append(value)


def page(segments, contents=b"", flags=0, number=0, position=-1, checksum=True):
    header = b"OggS\0" + struct.pack("<BqIII", flags, position, 7, number, 0) + bytes((len(segments),)) + bytes(segments)
    if checksum:
        value = 0
        for byte in header + contents:
            value = (value << 8 & 0xFFFFFFFF) ^ OGG_TABLE[value >> 24 ^ byte]
        header = header[:22] + struct.pack("<I", value) + header[26:]
    return header + contents


def packet_page(contents, **options):
    return page([255] * (len(contents) // 255) + [len(contents) % 255], contents, **options)


OPUS_HEAD = packet_page(b"OpusHead\1\2\0\0" + struct.pack("<I", 48_000) + bytes(3), flags=2, position=0)
OPUS_SOUND = packet_page(b"\xfc", number=9, position=96_000)


def comments(fields, program=b""):
    return struct.pack("<I", len(program)) + program + struct.pack("<I", len(fields)) \
        + b"".join(struct.pack("<I", len(field)) + field for field in fields)


def split_pages(packet):
    """The packet on pages without a checksum, which readers of tags do not look at."""
    pieces = []
    for begin in range(0, len(packet) + 1, 65_025):
        part = packet[begin:begin + 65_025]
        lengths = [255] * (len(part) // 255)
        if len(lengths) < 255:
            lengths.append(len(part) % 255)
        pieces.append(page(lengths, part, flags=1 if begin else 0, number=len(pieces) + 1, position=0, checksum=False))
    return pieces


def ogg_pages_without_end(folder):
    endless = page([255] * 255, checksum=False)
    return store(folder, "endless.opus", OPUS_HEAD, *[endless, 65_025] * 4_000)


def ogg_pages_with_nothing_inside(folder):
    return store(folder, "nothing.opus", OPUS_HEAD, page([], checksum=False) * 3_000_000)


def ogg_texts_of_sixteen_megabytes(folder):
    packet = b"OpusTags" + comments([b"x=" + bytes(160)] * 95_000)
    return store(folder, "texts.opus", OPUS_HEAD, *split_pages(packet), OPUS_SOUND)


def ogg_three_large_packets(folder):
    head = packet_page(b"\1vorbis" + struct.pack("<IBI", 0, 2, 44_100) + bytes(14), flags=2, position=0)
    texts = b"\3vorbis" + comments([b"x=" + bytes(15_000_000)]) + b"\1"
    return store(folder, "three.ogg", head, *split_pages(texts), *split_pages(b"\5vorbis" + bytes(15_000_000)),
                 page([1], b"\0", number=900, position=44_100))


def ogg_texts_that_count_too_many(folder):
    packet = b"OpusTags" + struct.pack("<II", 0, 0xFFFFFFFF)
    return store(folder, "count.opus", OPUS_HEAD, packet_page(packet, number=1), OPUS_SOUND)


def ogg_text_longer_than_the_file(folder):
    packet = b"OpusTags" + struct.pack("<III", 0, 1, 0xFFFFFFFF)
    return store(folder, "long.opus", OPUS_HEAD, packet_page(packet, number=1), OPUS_SOUND)


def ogg_beginnings_of_pages_only(folder):
    """Nothing of it is a page, and the sound has to be numbered anew, since the texts take one more page."""
    packet = b"OpusTags" + comments([b"x=" + b"y" * 64_900])
    return store(folder, "beginnings.opus", OPUS_HEAD, *split_pages(packet), b"OggS" * 5_000_000, OPUS_SOUND)


def ogg_with_a_hole_of_100_gigabytes(folder):
    packet = b"OpusTags" + comments([b"x=y"])
    return store(folder, "hole.opus", OPUS_HEAD, packet_page(packet, number=1, position=0), 100 * GIB, OPUS_SOUND)


def metadata(kind, contents, last=False, size=None):
    return struct.pack(">I", (kind | (0x80 if last else 0)) << 24 | (len(contents) if size is None else size)) + contents


INFO = metadata(0, bytes(10) + struct.pack(">Q", 44_100 << 44 | 1 << 41 | 15 << 36 | 441_000) + bytes(16))


def flac_blocks_with_nothing_inside(folder):
    return store(folder, "blocks.flac", b"fLaC", INFO, metadata(2, b"") * 2_000_000)


def flac_blocks_of_16_megabytes(folder):
    block = metadata(6, b"", size=0xFFFFFF)
    return store(folder, "large.flac", b"fLaC", INFO, *[block, 0xFFFFFF] * 6_000, metadata(1, b"", last=True), bytes(100))


def flac_many_texts(folder):
    texts = comments([b"CHAPTER%03d=00:00:01.000" % (number % 1000) for number in range(99_000)])
    return store(folder, "texts.flac", b"fLaC", INFO, metadata(4, texts), metadata(1, b"", last=True), bytes(100))


def flac_text_of_16_megabytes(folder):
    texts = comments([b"CHAPTER001NAME=" + b"\xf0\x9f\x8e\x99" * 4_000_000])
    return store(folder, "text.flac", b"fLaC", INFO, metadata(4, texts), metadata(1, b"", last=True), bytes(100))


def flac_without_an_end(folder):
    return store(folder, "open.flac", b"fLaC", INFO, metadata(4, b"", size=0xFFFFFF))


# WAV

FORMAT = b"fmt " + struct.pack("<IHHIIHH", 16, 1, 2, 44_100, 176_400, 4, 16)


def chunk(name, contents, size=None):
    return name + struct.pack("<I", len(contents) if size is None else size) + contents + bytes(len(contents) & 1)


def riff(*chunks):
    body = b"".join(chunks)
    return b"RIFF" + struct.pack("<I", len(body) + 4) + b"WAVE" + body


def rf64(size, sound, *chunks):
    return b"RF64\xff\xff\xff\xffWAVE" + chunk(b"ds64", struct.pack("<qqqI", size, sound, 0, 0)) + b"".join(chunks)


DATA = chunk(b"data", bytes(4_000))


def wave_chunks_with_nothing_inside(folder):
    return store(folder, "chunks.wav", riff(FORMAT, DATA, chunk(b"junk", b"") * 2_000_000))


def wave_many_markers(folder):
    points = struct.pack("<I", 600_000) + b"".join(struct.pack("<II4sIII", number, 0, b"data", 0, 0, number)
                                                   for number in range(600_000))
    labels = b"adtl" + b"".join(chunk(b"labl", struct.pack("<I", number) + b"x\0") for number in range(400_000))
    return store(folder, "markers.wav", riff(FORMAT, DATA, chunk(b"cue ", points), chunk(b"LIST", labels)))


def wave_many_lists(folder):
    """A hole for each list of texts, of which every byte would be read."""
    size = 16 * 1024 * 1024
    count = 6_000
    header = b"RF64\xff\xff\xff\xffWAVE" + chunk(b"ds64", struct.pack("<qqqI", count * (size + 8) + 5_000, 4_000, 0, 0))
    return store(folder, "lists.wav", header, FORMAT, DATA, *[b"LIST" + struct.pack("<I", size) + b"adtl", size - 4] * count)


def wave_large_labels(folder):
    """Thirty labels, each as large as a single reading may be."""
    size = 16_000_000
    label = b"LIST" + struct.pack("<I", size + 16) + b"adtllabl" + struct.pack("<I", size + 4)
    lists = [part for number in range(30) for part in (label + struct.pack("<I", number), b"x" * size)]
    return store(folder, "labels.wav", b"RIFF" + struct.pack("<I", 30 * (size + 24) + 4_056) + b"WAVE", FORMAT, DATA, *lists)


def wave_markers_that_count_too_many(folder):
    return store(folder, "count.wav", riff(FORMAT, DATA, chunk(b"cue ", struct.pack("<I", 0xFFFFFFFF), size=0xFFFFFFF0)))


def wave_sound_of_100_gigabytes(folder):
    sound = 100 * GIB
    return store(folder, "large.wav", rf64(sound + 80, sound, FORMAT, b"data\xff\xff\xff\xff"), sound, chunk(b"cue ", bytes(4)))


def wave_sizes_below_nothing(folder):
    return store(folder, "below.wav", rf64(-1, -8, FORMAT, b"data\xff\xff\xff\xff", bytes(100)))


def wave_sizes_beyond_all_numbers(folder):
    return store(folder, "beyond.wav", rf64((1 << 63) - 1, (1 << 63) - 1, FORMAT, b"data\xff\xff\xff\xff", bytes(100)))


# What is none of them

def nothing_of_100_gigabytes(folder):
    return store(folder, "nothing.mp3", size=100 * GIB)


def noise(folder):
    value = zlib.compress(bytes(range(256)) * 1_000, 9)
    return store(folder, "noise.m4a", value * 10_000)


FILES = [make for name, make in sorted(globals().items())
         if name.split("_")[0] in ("mp3", "mp4", "ogg", "flac", "wave", "nothing", "noise") and callable(make)]
