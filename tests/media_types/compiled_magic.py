"""Reads compiled databases of libmagic's, to write into a head what their rules look for."""

import struct

MAGIC_NUMBER = 0xF11E041C
# The versions of the layout, of an entry each: that of libmagic 5.44 begins with the level and the
# flags, that of 5.46 with the flags and the level.
LEVEL_FIRST, FLAGS_FIRST = 18, 20
ENTRIES = {LEVEL_FIRST: struct.Struct("<HBBBBBBBBBBiiIQ128s64s80s8s64s"),
           FLAGS_FIRST: struct.Struct("<HBBBBBBBBBBiiIQ128s64s80s8s120s")}
HEAD_SIZE = 4096

INDIRECT, RELATIVE, FROM_END = 0x01, 0x02, 0x80
STRING, PASCAL_STRING, REGEX, STRING16_BIG, STRING16_LITTLE, SEARCH, GUID = 5, 13, 17, 18, 19, 20, 49
# Types of numbers: their size, and whether they are big-endian
NUMBERS = {1: (1, False), 2: (2, False), 4: (4, False), 6: (4, False), 7: (2, True), 8: (4, True),
           9: (4, True), 10: (2, False), 11: (4, False), 12: (4, False), 24: (8, False),
           25: (8, False), 26: (8, True)}


class Rule:
    """One line of a rule file."""

    def __init__(self, version, entry):
        (first, second, _, relation, length, self.kind, _, _, self.mask_operation, _, _,
         self.offset, _, self.line, self.mask, value, description, mime, _, _) = entry
        self.level, self.flags = (first, second) if version == LEVEL_FIRST else (second, first)
        self.relation = chr(relation)
        self.text = value[:length]
        self.number = int.from_bytes(value[:8], "little")
        self.guid = value[:16]
        self.description = description.split(b"\0")[0].decode("latin-1")
        self.mime = mime.split(b"\0")[0].decode("latin-1")

    def wanted_text(self, random):
        """Bytes that a test of a text looks for."""
        if self.kind == GUID:
            return self.guid
        text = self.text
        if self.kind == REGEX:  # the digits of the simple ones
            return text.strip(b"^$").replace(b"[0-9]", b"7").replace(b"\\.", b".")
        if self.relation in "<>" and text:
            step = 1 if self.relation == ">" else -1
            text = text[:-1] + bytes([min(max(text[-1] + step, 0), 255)])
        if self.kind == PASCAL_STRING:
            return bytes([len(text)]) + text
        if self.kind == STRING16_LITTLE:
            return b"".join(bytes([byte, 0]) for byte in text)
        if self.kind == STRING16_BIG:
            return b"".join(bytes([0, byte]) for byte in text)
        if self.kind == SEARCH and random.random() < 0.5:
            distance = random.randrange(max(min(self.mask & 0xFFFFFFFF, 200), 1))
            return random.randbytes(distance) + text
        return text

    def wanted_number(self, old):
        """The number that a test looks for, with the bits of the old one that it does not look at."""
        size, is_big = NUMBERS[self.kind]
        order = "big" if is_big else "little"
        every_bit = (1 << 8 * size) - 1
        number = self.number + {">": 1, "<": -1, "!": 1, "^": -1}.get(self.relation, 0) & every_bit
        if self.mask and self.mask_operation & 7 == 0:
            number = number & self.mask | int.from_bytes(old, order) & ~self.mask & every_bit
        return number.to_bytes(size, order)

    def plant(self, head, random):
        """Changes the head so that the rule matches, as far as that can be seen from the rule alone;
        whether its place lies within a head."""
        if self.flags & (INDIRECT | RELATIVE) or self.relation == "x":
            return True
        offset = self.offset
        if self.flags & FROM_END:
            offset = len(head) - abs(offset)
        if offset < 0 or offset >= HEAD_SIZE:
            return False
        if self.kind in NUMBERS:
            size = NUMBERS[self.kind][0]
            head.extend(bytes(max(offset + size - len(head), 0)))
            wanted = self.wanted_number(head[offset:offset + size])
        elif self.kind in (STRING, PASCAL_STRING, REGEX, STRING16_BIG, STRING16_LITTLE, SEARCH, GUID):
            if self.relation == "!":
                return True
            wanted = self.wanted_text(random)
            head.extend(bytes(max(offset + len(wanted) - len(head), 0)))
        else:
            return True
        head[offset:offset + len(wanted)] = wanted
        return len(head) <= HEAD_SIZE


def read_rules(compiled):
    """The rules of a compiled database, each a list that begins with the line of level 0 and goes on
    with those below it, the named ones last; none when its layout is another version's."""
    number, version, count, named = struct.unpack_from("<4I", compiled)
    if number != MAGIC_NUMBER or version not in ENTRIES:
        return []
    layout = ENTRIES[version]
    rules = []
    for i in range(1, count + named + 1):
        line = Rule(version, layout.unpack_from(compiled, i * layout.size))
        if line.level == 0:
            rules.append([line])
        else:
            rules[-1].append(line)
    return rules


def paths(rule):
    """From the line of level 0 to each of the rule's lines."""
    path = []
    for line in rule:
        path = [above for above in path if above.level < line.level] + [line]
        yield path
