"""Media files by several encoders, and by hand where no encoder at hand makes them, for the tests of chapters in them."""

import base64
import struct
import subprocess
import zlib

import mutagen.flac
import mutagen.id3
import mutagen.mp3
import mutagen.mp4
import mutagen.oggopus
import mutagen.oggvorbis

SECONDS = 30


def run(*command, **options):
    subprocess.run([str(part) for part in command], check=True, capture_output=True, timeout=120, **options)


def picture(side=8):
    """A PNG file of one colour, with noise behind it where it shall be large."""
    rows = b"".join(b"\0" + bytes((row * 37 + column * 91 + row * column) % 256 for column in range(side * 3))
                    for row in range(side))

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    header = struct.pack(">IIBBBBB", side, side, 8, 2, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows, 0)) + chunk(b"IEND", b""))


def sound(folder, rate=44100, channels=2):
    path = folder / f"sound-{rate}-{channels}.wav"
    if not path.exists():
        run("sox", "-R", "-n", "-r", rate, "-c", channels, "-b", 16, path, "synth", SECONDS, "pinknoise", "vol", 0.2)
    return path


# MP3

def lame(folder, name, *options):
    path = folder / name
    run("lame", "--quiet", *options, sound(folder), path)
    return path


def mp3_without_tag(folder):
    return lame(folder, "bare.mp3", "-b", 64)


def mp3_variable(folder):
    return lame(folder, "variable.mp3", "-V", 6, "--tt", "Show", "--ta", "We", "--add-id3v2")


def mp3_variable_without_count(folder):
    return lame(folder, "uncounted.mp3", "-V", 6, "-t")


def mp3_ffmpeg(folder):
    path = folder / "ffmpeg.mp3"
    run("ffmpeg", "-v", "error", "-y", "-i", sound(folder), "-b:a", "64k", "-metadata", "title=Töne 日本", "-id3v2_version", 4,
        path)
    return path


def mp3_rich(folder):
    """Version 2.3 with a picture, a comment, frames that no program knows, the old tag at the end and an APE tag."""
    path = lame(folder, "rich.mp3", "-b", 64)
    tags = mutagen.id3.ID3()
    tags.add(mutagen.id3.TIT2(encoding=1, text="Épisode 12"))
    tags.add(mutagen.id3.TYER(encoding=0, text="2026"))
    tags.add(mutagen.id3.RVAD(adjustments=[0, 0]) if hasattr(mutagen.id3, "RVAD") else
             mutagen.id3.COMM(encoding=0, lang="eng", desc="x", text="y"))
    tags.add(mutagen.id3.APIC(encoding=0, mime="image/png", type=3, desc="", data=picture()))
    tags.add(mutagen.id3.PRIV(owner="somebody", data=bytes(range(256))))
    tags.add(mutagen.id3.USLT(encoding=1, lang="deu", desc="", text="Grüße\n日本"))
    tags.save(path, v2_version=3, v1=2, padding=lambda info: 1500)
    content = path.read_bytes()
    path.write_bytes(insert_frame(content, b"XZEL" + struct.pack(">IH", 7, 0) + b"unknown"))
    old = path.read_bytes()
    ape = b"APETAGEX" + struct.pack("<IIIIQ", 2000, 32 + 15, 1, 0, 0) + struct.pack("<II", 3, 0) + b"Key\0" + b"abc" + bytes(0)
    path.write_bytes(old[:-128] + ape + old[-128:] if old[-128:-125] == b"TAG" else old + ape)
    return path


def insert_frame(content, frame):
    """Puts a frame in front of the others of a tag of version 2.3, at the cost of its padding."""
    size = sum((byte & 127) << shift for byte, shift in zip(content[6:10], (21, 14, 7, 0)))
    body = frame + content[10:10 + size]
    assert body.endswith(bytes(len(frame)))
    return content[:10] + body[:size] + content[10 + size:]


def mp3_with_v2_2(folder):
    path = lame(folder, "old.mp3", "-b", 64)
    frames = b""
    for name, text in (b"TT2", "Old tag"), (b"TP1", "Somebody"), (b"TCP", "1"):
        data = b"\0" + text.encode("latin-1")
        frames += name + len(data).to_bytes(3, "big") + data
    data = b"\0PNG\x03\0" + picture()
    frames += b"PIC" + len(data).to_bytes(3, "big") + data
    size = len(frames)
    header = b"ID3\x02\0\0" + bytes([size >> 21 & 127, size >> 14 & 127, size >> 7 & 127, size & 127])
    path.write_bytes(header + frames + path.read_bytes())
    return path


def unsynchronised(data):
    result = bytearray()
    for index, byte in enumerate(data):
        result.append(byte)
        following = data[index + 1] if index + 1 < len(data) else 0
        if byte == 0xFF and (following == 0 or following >= 0xE0):
            result.append(0)
    return bytes(result)


def mp3_unsynchronised(folder):
    """Version 2.3 with a whole tag that is unsynchronised, with bytes in it that need that."""
    path = lame(folder, "unsynchronised.mp3", "-b", 64)
    title = b"\x01\xff\xfe" + "Tïtle".encode("utf-16-le")
    private = b"owner\0" + b"\xff\xfb\xff\x00\xff\xff" * 20
    frames = b"TIT2" + struct.pack(">IH", len(title), 0) + title + b"PRIV" + struct.pack(">IH", len(private), 0) + private
    body = unsynchronised(frames)
    size = len(body)
    header = b"ID3\x03\0\x80" + bytes([size >> 21 & 127, size >> 14 & 127, size >> 7 & 127, size & 127])
    path.write_bytes(header + body + path.read_bytes())
    return path


def mp3_unsynchronised_v2_4(folder):
    path = lame(folder, "unsynchronised4.mp3", "-b", 64)
    private = unsynchronised(b"owner\0" + b"\xff\xfb\xff\x00\xff\xff" * 20)

    def synchsafe(size):
        return bytes([size >> 21 & 127, size >> 14 & 127, size >> 7 & 127, size & 127])

    frame = b"PRIV" + synchsafe(len(private)) + b"\0\x02" + private
    path.write_bytes(b"ID3\x04\0\x80" + synchsafe(len(frame)) + frame + path.read_bytes())
    return path


MP3_FILES = [mp3_without_tag, mp3_variable, mp3_variable_without_count, mp3_ffmpeg, mp3_rich, mp3_with_v2_2,
             mp3_unsynchronised, mp3_unsynchronised_v2_4]


# Ogg and FLAC

def vorbis_oggenc(folder):
    path = folder / "oggenc.ogg"
    run("oggenc", "-Q", "-q", 1, "-t", "Show", "-c", "Comment=Grüße", "-o", path, sound(folder))
    return path


def vorbis_ffmpeg(folder):
    path = folder / "ffmpeg.ogg"
    run("ffmpeg", "-v", "error", "-y", "-i", sound(folder), "-c:a", "libvorbis", "-q:a", 1, "-metadata", "title=Show", path)
    return path


def opus_opusenc(folder):
    path = folder / "opusenc.opus"
    run("opusenc", "--quiet", "--bitrate", 48, "--title", "Show", "--padding", 0, sound(folder, 48000), path)
    return path


def opus_with_picture(folder):
    """Its texts need several pages already, so that the chapters make one more and all pages get a new number."""
    image = folder / "picture.png"
    image.write_bytes(picture(180))
    path = folder / "picture.opus"
    run("opusenc", "--quiet", "--bitrate", 48, "--picture", image, "--padding", 0, sound(folder, 48000), path)
    return path


def opus_ffmpeg(folder):
    path = folder / "ffmpeg.opus"
    run("ffmpeg", "-v", "error", "-y", "-i", sound(folder, 48000), "-c:a", "libopus", "-b:a", "48k", "-metadata",
        "title=Show", path)
    return path


def vorbis_with_picture(folder):
    path = vorbis_oggenc(folder).rename(folder / "picture.ogg")
    file = mutagen.oggvorbis.OggVorbis(path)
    block = mutagen.flac.Picture()
    block.data, block.type, block.mime = picture(150), 3, "image/png"
    file["metadata_block_picture"] = [base64.b64encode(block.write()).decode()]
    file.save(padding=lambda info: 0)
    return path


def flac_flac(folder):
    path = folder / "flac.flac"
    run("flac", "-s", "-f", "-0", "-T", "TITLE=Show", "-T", "Comment=Grüße", "-o", path, sound(folder))
    return path


def flac_without_padding(folder):
    path = folder / "tight.flac"
    run("flac", "-s", "-f", "-0", "--no-padding", "-o", path, sound(folder))
    file = mutagen.flac.FLAC(path)
    block = mutagen.flac.Picture()
    block.data, block.type, block.mime = picture(), 3, "image/png"
    file.add_picture(block)
    file.save(padding=lambda info: 0)
    return path


def flac_ffmpeg(folder):
    path = folder / "ffmpeg.flac"
    run("ffmpeg", "-v", "error", "-y", "-i", sound(folder), "-c:a", "flac", "-metadata", "title=Show", path)
    return path


OGG_FILES = [vorbis_oggenc, vorbis_ffmpeg, vorbis_with_picture, opus_opusenc, opus_ffmpeg, opus_with_picture]
FLAC_FILES = [flac_flac, flac_without_padding, flac_ffmpeg]


# WAV

def wave_sox(folder):
    return sound(folder).rename(folder / "sox.wav")


def wave_ffmpeg(folder):
    path = folder / "ffmpeg.wav"
    run("ffmpeg", "-v", "error", "-y", "-i", sound(folder, 48000, 1), "-c:a", "pcm_s24le", "-metadata", "title=Show", path)
    return path


def wave_broadcast(folder):
    path = folder / "broadcast.wav"
    run("ffmpeg", "-v", "error", "-y", "-i", sound(folder), "-write_bext", 1, "-metadata", "description=Show", path)
    return path


def wave_rf64(folder):
    path = folder / "rf64.wav"
    run("ffmpeg", "-v", "error", "-y", "-i", sound(folder), "-rf64", "always", path)
    return path


def wave_with_markers_in_front(folder):
    """Markers with a note in front of the sound, as some recorders write them."""
    source = sound(folder).read_bytes()
    point = struct.pack("<II4sIII", 7, 1000, b"data", 0, 0, 1000)
    cue = b"cue " + struct.pack("<I", 28) + struct.pack("<I", 1) + point
    label = b"labl" + struct.pack("<I", 8) + struct.pack("<I", 7) + b"old\0"
    note = b"note" + struct.pack("<I", 10) + struct.pack("<I", 7) + b"hello\0"
    texts = b"adtl" + label + note
    chunks = cue + b"LIST" + struct.pack("<I", len(texts)) + texts
    data = source.index(b"data")
    body = source[12:data] + chunks + source[data:]
    path = folder / "front.wav"
    path.write_bytes(b"RIFF" + struct.pack("<I", len(body) + 4) + b"WAVE" + body)
    return path


WAVE_FILES = [wave_sox, wave_ffmpeg, wave_broadcast, wave_rf64, wave_with_markers_in_front]


# MP4

def aac(folder, name, *options):
    path = folder / name
    run("ffmpeg", "-v", "error", "-y", "-i", sound(folder), "-c:a", "aac", "-b:a", "64k", *options, path)
    return path


def mp4_plain(folder):
    return aac(folder, "plain.m4a", "-metadata", "title=Show", "-metadata", "comment=Grüße")


def mp4_description_first(folder):
    return aac(folder, "first.m4a", "-movflags", "+faststart", "-metadata", "title=Show")


def mp4_description_first_with_room(folder):
    """Free space behind the description: the new one fits into its place."""
    path = aac(folder, "room.m4a", "-movflags", "+faststart")
    content = path.read_bytes()
    room = 4096
    end = content.index(b"moov") - 4
    end += struct.unpack(">I", content[end:end + 4])[0]
    moved = move_chunks(content[:end], room)
    path.write_bytes(moved + struct.pack(">I", room) + b"free" + bytes(room - 8) + content[end:])
    return path


def mp4_book(folder):
    return aac(folder, "book.m4b", "-f", "ipod")


def mp4_with_picture(folder):
    path = aac(folder, "picture.m4a")
    file = mutagen.mp4.MP4(path)
    file["covr"] = [mutagen.mp4.MP4Cover(picture(), mutagen.mp4.MP4Cover.FORMAT_PNG)]
    file["----:com.example:Own"] = [b"some bytes"]
    file.save()
    return path


def mp4_with_chapters(folder):
    """Chapters in both forms already, by ffmpeg."""
    texts = folder / "chapters.txt"
    texts.write_text(";FFMETADATA1\n[CHAPTER]\nTIMEBASE=1/1000\nSTART=0\nEND=9000\ntitle=old one\n"
                     "[CHAPTER]\nTIMEBASE=1/1000\nSTART=9000\nEND=30000\ntitle=old two\n")
    plain = aac(folder, "without.m4a")
    path = folder / "chapters.m4a"
    run("ffmpeg", "-v", "error", "-y", "-i", plain, "-i", texts, "-map_chapters", 1, "-c", "copy", path)
    return path


def mp4_large_offsets(folder):
    """The sound in an atom with a 64-bit size, and its places as 64-bit numbers."""
    content = aac(folder, "small.m4a").read_bytes()
    moov = content.rindex(b"moov") - 4
    mdat = content.index(b"mdat") - 4
    size = struct.unpack(">I", content[mdat:mdat + 4])[0]
    data = struct.pack(">I4sQ", 1, b"mdat", size + 8) + content[mdat + 8:mdat + size]
    path = folder / "large.m4a"
    path.write_bytes(content[:mdat] + data + widen_chunks(content[moov:], 8))
    return path


def atoms(content, begin, end):
    while begin + 8 <= end:
        size = struct.unpack(">I", content[begin:begin + 4])[0]
        yield content[begin + 4:begin + 8], begin, size
        begin += size


PARENTS = (b"moov", b"trak", b"mdia", b"minf", b"stbl")


def rebuilt(content, change):
    """The atoms with `change(kind, contents)` in place of the contents of each that has no others inside."""
    result = b""
    for kind, begin, size in atoms(content, 0, len(content)):
        inside = content[begin + 8:begin + size]
        new_kind, inside = (kind, rebuilt(inside, change)) if kind in PARENTS else change(kind, inside)
        result += struct.pack(">I", len(inside) + 8) + new_kind + inside
    return result


def chunk_places(contents):
    count = struct.unpack(">I", contents[4:8])[0]
    return struct.unpack(f">{count}I", contents[8:8 + 4 * count])


def move_chunks(content, distance):
    def change(kind, contents):
        if kind == b"stco":
            contents = contents[:8] + b"".join(struct.pack(">I", place + distance) for place in chunk_places(contents))
        return kind, contents

    begin = content.index(b"moov") - 4
    return content[:begin] + rebuilt(content[begin:], change)


def widen_chunks(moov, distance):
    def change(kind, contents):
        if kind == b"stco":
            return b"co64", contents[:8] + b"".join(struct.pack(">Q", place + distance) for place in chunk_places(contents))
        return kind, contents

    return rebuilt(moov, change)


def mp4_long_headers(folder):
    """Times of 64 bits in the headers, as other encoders write them."""
    def change(kind, contents):
        if kind in (b"mvhd", b"mdhd"):
            *created, scale, length = struct.unpack(">4I", contents[4:20])
            return kind, b"\1" + contents[1:4] + struct.pack(">QQIQ", *created, scale, length) + contents[20:]
        if kind == b"tkhd":
            *created, track, reserved, length = struct.unpack(">5I", contents[4:24])
            return kind, b"\1" + contents[1:4] + struct.pack(">QQIIQ", *created, track, reserved, length) + contents[24:]
        return kind, contents

    content = aac(folder, "short.m4a").read_bytes()
    moov = content.rindex(b"moov") - 4
    path = folder / "headers.m4a"
    path.write_bytes(content[:moov] + rebuilt(content[moov:], change))
    return path


def mp4_unknown_atoms(folder):
    """Behind the description, the last one empty."""
    path = aac(folder, "unknown.m4a")
    path.write_bytes(path.read_bytes() + struct.pack(">I", 24) + b"uuid" + bytes(range(16)) + struct.pack(">I", 8) + b"skip")
    return path


def mp4_quicktime(folder):
    return aac(folder, "quicktime.mov", "-f", "mov", "-metadata", "title=Show")


def mp4_lossless_with_video(folder):
    path = folder / "video.m4a"
    run("ffmpeg", "-v", "error", "-y", "-f", "lavfi", "-i", f"testsrc=d={SECONDS}:s=64x48:r=10", "-i", sound(folder), "-c:a", "alac",
        "-c:v", "mpeg4", "-f", "mov", path)
    return path


def mp4_open_end(folder):
    """The sound comes last and goes on to the end of the file, whatever its size."""
    path = aac(folder, "open.m4a", "-movflags", "+faststart")
    content = bytearray(path.read_bytes())
    begin = content.rindex(b"mdat") - 4
    content[begin:begin + 4] = bytes(4)
    path.write_bytes(content)
    return path


def mp4_fragmented(folder):
    return aac(folder, "fragments.m4a", "-movflags", "frag_keyframe+empty_moov", "-f", "mp4")


MP4_FILES = [mp4_plain, mp4_description_first, mp4_description_first_with_room, mp4_book, mp4_with_picture,
             mp4_with_chapters, mp4_large_offsets, mp4_long_headers, mp4_unknown_atoms, mp4_quicktime, mp4_lossless_with_video]
