"""What the page and the listings show of an XML document's items, worked out from their rules."""
import re
import time
from dataclasses import dataclass, field

from documents import joined

DAY = 86400
EVENT_PATH = re.compile(rb"event")
BLOCK = re.compile(rb"Block \d")


def last_values(item):
    """The fields that every writer shows: the last entry of a name, in its exact case."""
    return dict(item.entries or [])


def leading_number(text):
    """As strtol reads it, kept to 32 bits."""
    match = re.match(rb"\s*([+-]?\d+)", text)
    return (int(match[1]) + (1 << 31)) % (1 << 32) - (1 << 31) if match else 0


def announce_of(item):
    """Whether the item is announced."""
    if BLOCK.fullmatch(item.path):
        return 1
    values = last_values(item)
    wish = values.get(b"schedule announce", b"")
    if wish:
        return 1 if leading_number(wish) > 0 else 0
    is_media = values.get(b"file type", b"").startswith((b"video/", b"audio/"))
    has_event = EVENT_PATH.search(item.path) is not None
    return 1 if not item.is_default and (item.label or is_media or has_event) else 0


def ordinal(number):
    suffix = {1: "st", 2: "nd", 3: "rd"}.get(number % 10, "th")
    return f"{number}{'th' if 10 <= number % 100 <= 19 else suffix}"


def display_name(item, values):
    name = values.get(b"title") or values.get(b"program") or item.label
    if not name:
        name = item.path.rsplit(b"/", 1)[-1]
        name = name[:-4] if name[-4:].lower() in (b".mp4", b".mov", b".avi") else name
    episode = values.get(b"episode", b"")
    return name + b": " + episode if episode else name


def clock_text(tm, with_seconds):
    seconds = f":{tm.tm_sec:02}" if with_seconds else ""
    half = "pm" if tm.tm_hour > 11 else "am"
    return f"{(tm.tm_hour + 11) % 12 + 1}:{tm.tm_min:02}{seconds} {half}"


def page_days(items):
    """The days of the page: heading, date, and rows of time, rating, name and summary."""
    days, shown_day, carried = [], None, False
    for item in items:
        tm, end = time.localtime(item.start), time.localtime(item.end)
        if (tm.tm_year, tm.tm_yday) != shown_day:
            shown_day = tm.tm_year, tm.tm_yday
            date = f"{time.strftime('%B', tm)} {ordinal(tm.tm_mday)} {tm.tm_year}"
            days.append((time.strftime("%A", tm).upper(), date, []))
        if item.announce < 1:
            continue
        short = (tm.tm_hour, tm.tm_min) == (end.tm_hour, end.tm_min)
        values = last_values(item)
        rating = values.get(b"rating", b"").rsplit(b"/", 1)[-1]
        summary = values.get(b"summary") or values.get(b"description") or b""
        days[-1][2].append((clock_text(tm, short or carried), rating.decode(),
                            display_name(item, values).decode(), summary.decode()))
        carried = short
    return days


class Unit:
    """Positions of a schedule in calendar time, by mktime."""

    def __init__(self, kind, unit_start):
        self.kind = kind
        if kind == "endless":
            unit_start = time.mktime((2020, 1, 1, 0, 0, 0, 0, 0, -1))
        self.base = time.localtime(unit_start)

    def time_of(self, x):
        """-1 when the position falls into a gap."""
        base, summer = self.base, self.base.tm_isdst
        clock = base.tm_hour * 3600 + base.tm_min * 60 + base.tm_sec + x % DAY
        days, clock = divmod(clock, DAY)
        fields = (base.tm_year, base.tm_mon + x // (31 * DAY),
                  base.tm_mday + x // DAY % 31 + days, clock // 3600, clock // 60 % 60, clock % 60)
        for _ in range(3):
            t = int(time.mktime(fields + (0, 0, summer)))
            if time.localtime(t).tm_isdst == summer:
                return t
            summer = time.localtime(t).tm_isdst
        return -1

    def position_of(self, t):
        tm = time.localtime(t)
        days = {"daily": 0, "weekly": (tm.tm_wday + 1) % 7, "monthly": tm.tm_mday - 1}.get(
            self.kind, (tm.tm_mon - 1) * 31 + tm.tm_mday - 1)
        if self.kind == "endless":
            days += max(tm.tm_year - 2020, 0) * 372
        return days * DAY + tm.tm_hour * 3600 + tm.tm_min * 60 + tm.tm_sec


def airings(unit, item):
    """The item cut at each midnight, as starts and ends."""
    start, end = item.start, item.end
    last = time.localtime(end)
    cursor, reached = time.localtime(start), start
    while end >= reached and (cursor.tm_year, cursor.tm_yday) != (last.tm_year, last.tm_yday):
        midnight = int(time.mktime((cursor.tm_year, cursor.tm_mon, cursor.tm_mday + 1, 0, 0, 0,
                                    0, 0, -1)))
        if midnight <= reached:
            break  # a zone that left out a day
        cut = unit.time_of(unit.position_of(midnight))
        yield start, cut
        start, reached, cursor = cut, midnight, time.localtime(midnight)
    yield start, end


@dataclass
class Row:
    start: int
    end: int
    title: bytes
    description: bytes
    values: dict = field(repr=False)

    def lasts(self):
        return self.end - self.start


def whole_minute(t):
    return t + 30 - time.localtime(t + 30).tm_sec


def title_of(item, values):
    title = values.get(b"program", values.get(b"title", b"")).strip(b" \t")
    if title:
        return title
    name = item.path.rsplit(b"/", 1)[-1]
    stem, dot, ending = name.rpartition(b".")
    name = stem if dot and len(ending) <= 3 else name
    return name.translate(bytes.maketrans(b"\"'\\_", b"    "))


def fold(rows):
    """Joins runs of rows of less than five minutes that follow each other without a gap."""
    rows, i = list(rows), 0
    while i + 1 < len(rows):
        row, following = rows[i], rows[i + 1]
        if row.lasts() > 299 or following.lasts() > 299 or row.end != following.start:
            i += 1
            continue
        row.end = following.end
        if following.title and following.title != row.title:
            row.title += b" / " + following.title
        if following.description and following.description != row.description:
            row.description += b" / " + following.description
        del rows[i + 1]
    return rows


def stretch_and_close(rows):
    for p, q in zip(rows, rows[1:]):
        if p.lasts() < 300:
            p.end = min(p.start + 300, q.start)
    rows = [row for row in rows if row.lasts() >= 300]
    latest = 0
    for p, q in zip(rows, rows[1:]):
        p.start = max(p.start, latest)
        p.end = max(p.end, p.start)
        if p.end + 300 >= q.start:
            p.end = q.start
        latest = max(latest, p.end)
    return rows


def listing_rows(unit, items, describe):
    """The cleaned rows of all announced items; describe(values) gives the description to join."""
    rows = []
    for item in items:
        if item.announce < 1:
            continue
        values = joined([(name.lower(), value) for name, value in item.entries or []])
        rows += [Row(whole_minute(start), whole_minute(end), title_of(item, values),
                     describe(values), values) for start, end in airings(unit, item)]
    return stretch_and_close(fold(row for row in rows if row.start != row.end))


def first_second(t, is_wanted):
    """The first minute within a day of t whose local date is wanted."""
    minute = t - time.localtime(t).tm_sec - 27 * 3600
    while not is_wanted(time.localtime(minute)[:3]):
        minute += 60
    return minute


def horizon(now):
    """From the start of today to the end of the day 21 days ahead."""
    today, last = time.localtime(now)[:3], time.localtime(now + 21 * DAY)[:3]
    return (first_second(now, lambda date: date == today),
            first_second(now + 21 * DAY, lambda date: date > last) - 1)


def quoted(text):
    return b'"' + text.replace(b"\n", b" ").replace(b'"', b'""') + b'"' if text else b""


def is_yes(text):
    return text[:1].upper() in (b"1", b"T", b"Y")


def local_text(form, t):
    return time.strftime(form, time.localtime(t)).encode()


def rovi_description(values):
    if b"description" in values:
        return values[b"description"]
    if b"title" in values and b"summary" in values:
        return values[b"title"] + b" - " + values[b"summary"]
    return values.get(b"title", values.get(b"summary", b""))


def rovi_fields(row, station):
    v, none = row.values, b""
    genre = v.get(b"rovi category", b"").lower()
    known = {b"children's": b"Children's", b"childrens": b"Children's", b"children": b"Children's"}
    plain = (b"lifestyle", b"movie", b"music", b"news", b"sports")
    category = known.get(genre, genre.capitalize() if genre in plain else b"Other")
    start_minute = row.start - time.localtime(row.start).tm_sec
    minutes = (row.end - time.localtime(row.end).tm_sec - start_minute) // 60
    rating = re.sub(rb"\Aunited states/", b"US TV:", v.get(b"rating", b""))
    return [station, local_text("%F", row.start), local_text("%R", row.start),
            local_text("%R", row.end), b"%d" % (minutes % (1 << 64)), quoted(row.title),
            quoted(row.description), category, b"Other", b"Local", none,
            v.get(b"episode", v.get(b"title", b"")), none, none, rating, none,
            b"CC" if is_yes(v.get(b"cc", b"")) else none, none, none, none, none]


def gracenote_fields(row, station):
    v, none = row.values, b""
    live = {b"new": b"New", b"live": b"Live"}.get(v.get(b"newliverepeat"), b"Repeat")
    hd = v.get(b"hd", b"")
    flags = [is_yes(hd) or leading_number(hd) > 0, is_yes(v.get(b"cc", b"")),
             is_yes(v.get(b"dvs", b""))]
    return [station, *map(quoted, [
        local_text("%F", row.start), local_text("%R", row.start), row.title or b"(untitled)",
        v.get(b"episode", b""), live]), none, quoted(v.get(b"season", b"")), none, *map(quoted, [
            v.get(b"description", b"")[100:], row.description, v.get(b"hosts", b""),
            v.get(b"guests", b""), v.get(b"producers", b""), v.get(b"genre", b"unknown")]),
            b"%d" % (max(row.lasts(), 0) // 60), none, none,
            *(b"Y" if flag else b"N" for flag in flags), quoted(v.get(b"rating", b"None"))]
