"""First bytes of media files, of each kind that the small database knows: what the formats' fields
may hold is drawn at random."""

import struct


def number(random, size, least=0, most=None):
    most = 256**size - 1 if most is None else most
    return random.randint(least, most).to_bytes(size, "big")


def little(random, size, least=0, most=None):
    return number(random, size, least, most)[::-1]


def file_type(random, brand):
    """The box that an MP4 file begins with: its length, brand, minor version and other brands."""
    version = random.choice([b"\0\0\0\0", b"\0\0\2\0", b"\0\0\0\1", b"\x20\5\3\0"])
    brands = b"".join(random.choice([b"isom", b"iso2", b"avc1", b"mp41", b"mp42", b"qt  ", b"M4A "])
                      for _ in range(random.randint(0, 6)))
    head = b"ftyp" + brand + version + brands
    return struct.pack(">I", 4 + len(head)) + head + random.choice(
        [b"\0\0\0\x08free\0\0\x04\xd2mdat", b"\0\0\x0a\x1fmoov\0\0\0\x6cmvhd", b"\0\0\0\x08wide"])


def ebml(random, kind, is_long):
    kind = bytes([0x80 + len(kind)]) + kind
    content = (bytes.fromhex("42868101 42f78101 42f28104 42f38108 4282") + kind +
               b"\x42\x87\x81" + number(random, 1, 1, 4) + b"\x42\x85\x81" + number(random, 1, 1, 2))
    length = struct.pack(">Q", 1 << 56 | len(content)) if is_long else bytes([0x80 + len(content)])
    return (b"\x1aE\xdf\xa3" + length + content + b"\x18\x53\x80\x67\x01" + number(random, 7) +
            b"\x11\x4d\x9b\x74")


def riff(random, content):
    return b"RIFF" + little(random, 4, 100, 0x5FFFFFFF) + content


def wave_format(random):
    codec = random.choice([1, 2, 3, 6, 7, 0x50, 0x55, 0xFFFE])
    return b"fmt " + struct.pack("<IHHIIHH", 16, codec, 2, 48000, 192000, 4, 16) + b"data"


def ogg(random, packet):
    return (b"OggS\0\2" + bytes(8) + number(random, 4) + bytes(4) + number(random, 4) + b"\1" +
            bytes([len(packet)]) + packet)


def flac_stream(random):
    sizes = sorted(random.choice([256, 576, 1152, 2304, 4096, 4608]) for _ in range(2))
    return struct.pack(">HH", *sizes) + number(random, 6) + b"\x0a\xc4\x42\xf0" + number(random, 4)


def mp3(random):
    """A frame that tells of the others, in half of the heads behind a tag of at most 4,000 bytes."""
    frame = (b"\xff" + random.choice([b"\xfa", b"\xfb"]) + number(random, 1, 0x80, 0xEF) +
             number(random, 1) + bytes(32) + random.choice([b"Xing", b"Info"]) + b"\0\0\0\x0f")
    if random.random() < 0.5:
        return frame
    title = b"\3" + b"The Last Ferry"[:random.randint(1, 14)]
    text = random.choice([b"TIT2", b"TSSE", b"TALB"]) + struct.pack(">IH", len(title), 0) + title
    padding = bytes(random.randint(0, 4000 - len(text)))
    size = len(text + padding)
    version = random.choice([b"\3", b"\4"])
    return (b"ID3" + version + b"\0\0\0\0" + bytes([size >> 7, size & 0x7F]) + text + padding +
            frame)


def program_stream_2(random):
    clock = number(random, 1) + bytes([random.randrange(256) | 4]) + number(random, 1)
    return (b"\0\0\1\xba\x44" + clock + bytes([random.randrange(256) | 4, random.randrange(256) | 1]) +
            number(random, 2) + bytes([random.randrange(256) | 3]) + b"\xf8\0\0\1\xbb")


def program_stream_1(random):
    def odd():
        return bytes([random.randrange(256) | 1])

    return (b"\0\0\1\xba\x21" + number(random, 1) + odd() + number(random, 1) + odd() +
            b"\x80" + number(random, 1) + odd() + b"\0\0\1\xbb")


def mpeg_video(random):
    shape = bytes([random.randint(1, 4) << 4 | random.randint(1, 8)])
    rate = number(random, 2) + bytes([random.randrange(256) | 0x20]) + number(random, 1)
    return b"\0\0\1\xb3" + number(random, 3) + shape + rate + b"\0\0\1\xb5"


def digital_video(random):
    header = b"\x1f\7\0" + random.choice([b"\x3f", b"\xbf"]) + number(random, 1) + b"xxx"
    return header + b"\xff" * 72 + random.choice([b"\x3f", b"\x27"]) + b"\7\0" + b"\xff" * 77


def flash(kind):
    return lambda random: (b"FLV\1" + random.choice([b"\1", b"\4", b"\5"]) + b"\0\0\0\x09" + bytes(4) +
                           bytes([kind]) + number(random, 3) + bytes(4))


def gif(random):
    return (random.choice([b"GIF87a", b"GIF89a"]) + little(random, 2, 1, 8191) +
            little(random, 2, 1, 8191) + number(random, 1, 0x80) + number(random, 1) + b"\0")


def tiff(random, tag, order):
    count = random.randint(8, 40)
    if order == "big":
        return b"MM\0*\0\0\0\x08" + struct.pack(">HHH", count, tag, 4)
    return b"II*\0\x08\0\0\0" + struct.pack("<HHH", count, tag, 4)


def brands(*choices):
    return lambda random: file_type(random, random.choice(choices))


# The description of each rule, the type that it gives, and what makes heads that it matches.
HEADS = {
    "MP4, a base brand": ("video/mp4", brands(*(b"iso" + bytes([c]) for c in b"m23456789"))),
    "MP4, version 1": ("video/mp4", brands(b"mp41")),
    "MP4, version 2": ("video/mp4", brands(b"mp42")),
    "MP4, AVC": ("video/mp4", brands(b"avc1")),
    "MP4, segments": ("video/mp4", brands(b"dash")),
    "MP4, iTunes video": ("video/x-m4v", brands(b"M4V ")),
    "MP4, iTunes audio": ("audio/x-m4a", brands(b"M4A ")),
    "MP4, iTunes audio book": ("audio/mp4", brands(b"M4B ")),
    "MP4, 3GPP": ("video/3gpp", brands(b"3gp4", b"3gp5", b"3gp6", b"3gp7")),
    "MP4, 3GPP2": ("video/3gpp2", brands(b"3g2a", b"3g2b", b"3g2c")),
    "MP4, QuickTime": ("video/quicktime", brands(b"qt  ")),
    "MP4, HEIF": ("image/heic", brands(b"heic")),
    "MP4, AVIF": ("image/avif", brands(b"avif")),
    "QuickTime, index first": ("video/quicktime", lambda random:
                               b"\0\0" + number(random, 2, 0x1A01, 0x9FFF) + b"moov\0\0\0\x6cmvhd"),
    "WebM": ("video/webm", lambda random: ebml(random, b"webm", False)),
    "WebM, long length": ("video/webm", lambda random: ebml(random, b"webm", True)),
    "Matroska": ("video/x-matroska", lambda random: ebml(random, b"matroska", False)),
    "Matroska, long length": ("video/x-matroska", lambda random: ebml(random, b"matroska", True)),
    "WAV": ("audio/x-wav", lambda random: riff(random, b"WAVE" + wave_format(random))),
    "WAV, Broadcast Wave": ("audio/x-wav", lambda random:
                            riff(random, b"WAVEbext" + little(random, 4, 602, 5000) + b"Title")),
    "WAV, padded": ("audio/x-wav", lambda random:
                    riff(random, b"WAVEJUNK\x1c\0\0\0" + bytes(28) + wave_format(random))),
    "WAV, RF64": ("audio/x-wav", lambda random:
                  b"RF64\xff\xff\xff\xffWAVEds64\x1c\0\0\0" + number(random, 4)),
    "AVI": ("video/x-msvideo", lambda random:
            riff(random, b"AVI LIST" + little(random, 4, 200, 9999) + b"hdrlavih8\0\0\0")),
    "WebP": ("image/webp", lambda random:
             riff(random, b"WEBPVP8" + random.choice([b" ", b"L", b"X"]) + little(random, 4))),
    "AIFF": ("audio/x-aiff", lambda random:
             b"FORM" + number(random, 4, 0x10000, 0x3FFFFFFF) + b"AIFFCOMM\0\0\0\x12\0\2"),
    "AIFF-C": ("audio/x-aiff", lambda random:
               b"FORM" + number(random, 4, 0x10000, 0x3FFFFFFF) + b"AIFCFVER\0\0\0\4\xa2\x80\x51\x40"),
    "FLAC": ("audio/flac", lambda random:
             b"fLaC" + random.choice([b"\0", b"\x80"]) + b"\0\0\x22" + flac_stream(random)),
    "Ogg, Vorbis": ("audio/ogg", lambda random:
                    ogg(random, b"\1vorbis\0\0\0\0\2\x44\xac\0\0" + number(random, 12) + b"\xb8\1")),
    "Ogg, FLAC": ("audio/ogg", lambda random:
                  ogg(random, b"\x7fFLAC\1\0\0\1fLaC\0\0\0\x22" + flac_stream(random))),
    "Ogg, Opus": ("audio/ogg", lambda random:
                  ogg(random, b"OpusHead\1\2" + number(random, 2) + b"\x80\xbb\0\0\0\0\0")),
    "Ogg, Speex": ("audio/ogg", lambda random:
                   ogg(random, b"Speex   1.2" + bytes(17) + b"\1\0\0\0\x50\0\0\0")),
    "Ogg, Theora": ("video/ogg", lambda random:
                    ogg(random, b"\x80theora\3\2\1" + number(random, 32))),
    "MP3": ("audio/mpeg", mp3),
    "MPEG-2 program stream": ("video/mpeg", program_stream_2),
    "MPEG-1 program stream": ("video/mpeg", program_stream_1),
    "MPEG video": ("video/mpeg", mpeg_video),
    "MXF": ("application/mxf", lambda random: bytes.fromhex("060e2b34020501010d01020101") + b"\2" +
            number(random, 1, 1, 4) + b"\0\x83\0\0" + number(random, 1) + b"\0\1\0\3"),
    "ASF": ("video/x-ms-asf", lambda random:
            bytes.fromhex("3026b2758e66cf11a6d900aa0062ce6c") + little(random, 8, 100, 9999) +
            little(random, 4, 4, 9) + b"\1\2"),
    "Flash video, sound first": ("video/x-flv", flash(8)),
    "Flash video, picture first": ("video/x-flv", flash(9)),
    "Flash video, description first": ("video/x-flv", flash(18)),
    "DV": ("video/x-dv", digital_video),
    "JPEG, JFIF": ("image/jpeg", lambda random:
                   b"\xff\xd8\xff\xe0\0\x10JFIF\0\1" + number(random, 1, 0, 2) + b"\1\0\x48\0\x48\0\0"),
    "JPEG, Exif": ("image/jpeg", lambda random:
                   b"\xff\xd8\xff\xe1" + number(random, 2, 16) + b"Exif\0\0" +
                   random.choice([b"MM\0*\0\0\0\x08", b"II*\0\x08\0\0\0"])),
    "PNG": ("image/png", lambda random:
            b"\x89PNG\r\n\x1a\n\0\0\0\rIHDR" + number(random, 4, 1, 9999) +
            number(random, 4, 1, 9999) + b"\x08\6\0\0\0"),
    "GIF": ("image/gif", gif),
    "TIFF, little-endian": ("image/tiff", lambda random: tiff(random, 256, "little")),
    "TIFF, little-endian, with a subfile type": ("image/tiff", lambda random:
                                                 tiff(random, 254, "little")),
    "TIFF, big-endian": ("image/tiff", lambda random: tiff(random, 256, "big")),
    "TIFF, big-endian, with a subfile type": ("image/tiff", lambda random: tiff(random, 254, "big")),
}
