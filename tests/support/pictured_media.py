"""Media files with a title and a cover picture, as players and editors write them."""

import struct


def mp4_with_picture(title, picture):
    def box(name, content):
        return struct.pack(">I", 8 + len(content)) + name + content

    def data(kind, content):
        return box(b"data", struct.pack(">II", kind, 0) + content)

    tags = box(b"ilst", box(b"\xa9nam", data(1, title)) + box(b"covr", data(13, picture)))
    movie = box(b"moov", box(b"udta", box(b"meta", bytes(4) + tags)))
    return box(b"ftyp", b"isom\0\0\2\0isomiso2mp41") + movie + box(b"mdat", bytes(50_000))


def mp3_with_picture(title, picture):
    def frame(name, content):
        return name + struct.pack(">IH", len(content), 0) + content

    frames = frame(b"TIT2", b"\0" + title) + frame(b"APIC", b"\0image/jpeg\0\3\0" + picture)
    size = bytes(len(frames) >> shift & 0x7F for shift in (21, 14, 7, 0))
    sound = b"\xff\xfb\x90\x00" + bytes(413)  # a frame of 128 kbit/s at 44.1 kHz
    return b"ID3\3\0\0" + size + frames + sound * 120


def flac_with_picture(title, picture):
    def block(kind, content):
        return bytes([kind]) + struct.pack(">I", len(content))[1:] + content

    stream = struct.pack(">HH", 4096, 4096) + bytes(6) + bytes.fromhex("0ac442f000000000") + bytes(16)
    field = b"TITLE=" + title
    comment = struct.pack("<III", 0, 1, len(field)) + field
    cover = (struct.pack(">II", 3, 10) + b"image/jpeg" + struct.pack(">IIIII", 0, 600, 600, 24, 0)
             + struct.pack(">I", len(picture)) + picture)
    last = 0x80
    return b"fLaC" + block(0, stream) + block(4, comment) + block(6 | last, cover) + bytes(50_000)


KINDS = {"mp4": mp4_with_picture, "mp3": mp3_with_picture, "flac": flac_with_picture}
