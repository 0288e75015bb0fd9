"""Random channels: a schedule file with what lies beside it, from a seed."""
import json
import random
import time
from pathlib import Path

TYPES = {"daily": 1, "weekly": 7, "monthly": 31, "yearly": 372, "endless": 15 * 372}  # days
DAY = 86400
ODD_ZONES = [
    "Pacific/Apia", "Pacific/Kiritimati", "Australia/Lord_Howe", "Antarctica/Troll",
    "Asia/Kathmandu", "Atlantic/Azores", "America/Havana", "Africa/Cairo", "America/Sao_Paulo",
    "Asia/Beirut", "Africa/Casablanca", "Europe/Dublin", "America/St_Johns", "Europe/Berlin",
    "America/New_York", "UTC",
]
MEDIA = [f"media/{name}" for name in (
    "morning_show's.mp4", "clip1.mp4", "clip2.MOV", "clip3.mpeg", "song.ogg", "card.png",
    "ünïcode.avi", "event-final.mp4", "event.live", "noext", "a\"b\\c.mp4", "gone.mp4")]
SUBSCHEDULES = ["subs/outer.sched", "subs/middle.sched", "subs/inner.sched"]
NAMES = ["title", "program", "episode", "summary", "description", "rating", "genre", "cc", "hd",
         "dvs", "rovi category", "rovi subcategory", "newliverepeat", "season", "hosts", "guests",
         "producers", "schedule announce", "file type", "Title", "CC", "odd name"]
TEXTS = ["News", "sports", "Children", "yes", "no", "1", "0", "2", "true", "new", "live", "Live",
         "US/TV-PG", "united states/TV-14", "TV/", "video/mp4", "audio/ogg", "text/plain", "a, b",
         "say \"hi\"", "Tom & Jerry's <b>", "Übermut", "x" * 99 + "é" + "y" * 60, "abc", "-1"]
MP4 = b"\0\0\0\x18ftypmp42\0\0\0\0mp42isom\0\0\0\x08moov"  # a whole file, without tags


def zone_names():
    lines = Path("/usr/share/zoneinfo/tzdata.zi").read_text().splitlines()
    words = [line.split() for line in lines if line[:1] in ("Z", "L")]
    return sorted({word[1] if word[0] == "Z" else word[2] for word in words})


def offset_at(t):
    return time.localtime(t).tm_gmtoff


def report_time(rng):
    """A time of 2020 to 2033 in the zone that is set, mostly around a clock change."""
    t = rng.randint(1577836800, 2019686400)
    if rng.random() < 0.3:
        return t
    days = (d for d in range(t, t + 366 * DAY, DAY) if offset_at(d) != offset_at(d + DAY))
    before = next(days, t)
    after = before + DAY
    while after - before > 1:
        middle = (before + after) // 2
        is_before = offset_at(middle) == offset_at(before)
        before, after = (middle, after) if is_before else (before, middle)
    reach = rng.choice([2, 3600, DAY])
    return after + rng.randint(-reach, reach)


def position_now(kind, t):
    """Schedule seconds of a time, by type."""
    tm = time.localtime(t)
    clock = tm.tm_hour * 3600 + tm.tm_min * 60 + tm.tm_sec
    month_day = (tm.tm_mday - 1) * DAY + clock
    return {
        "daily": clock,
        "weekly": (tm.tm_wday + 1) % 7 * DAY + clock,
        "monthly": month_day,
        "yearly": (tm.tm_mon - 1) * 31 * DAY + month_day,
        "endless": max(tm.tm_year - 2020, 0) * 372 * DAY + (tm.tm_mon - 1) * 31 * DAY + month_day,
    }[kind]


def item_text(rng, start, end, path):
    lines = [f"item = {path}", f"start = {start}", f"end = {end}"]
    if rng.random() < 0.5:
        lines.append(f"label = Label {rng.randint(1, 5)}")
    if "event" in path:
        lines.append("event id = E1")
    rng.shuffle(lines)
    return "{\n" + "\n".join(lines) + "\n}\n"


def item_parts(rng, kind, near, paths):
    """Runs of items that mostly follow each other, some over or into others, some reversed."""
    unit = TYPES[kind] * DAY
    parts, t = [], 0
    for _ in range(rng.randint(0, 50)):
        choice = rng.random()
        if choice < 0.05:
            t = rng.randint(0, unit)
        elif choice < 0.15 or not parts:
            t = near + rng.randint(-2 * DAY, 3 * DAY)
        elif choice < 0.3:
            t += rng.choice([1, 60, 200, 301, 900, -30])
        elif choice < 0.35:
            t = t // DAY * DAY + DAY - rng.choice([0, 1, 600, 3600])
        t = max(0, min(t, unit))
        end = max(0, t + rng.choice([0, 5, 29, 31, 100, 150, 180, 299, 300, 301, 1500, 3600, 30000,
                                     DAY, 3 * DAY, -5]))
        parts.append(item_text(rng, t, end, rng.choice(paths)))
        t = end
    return parts


def block_parts(rng, kind, near):
    parts = []
    for number in range(rng.choice([0, 0, 1, 3])):
        start = max(0, near + rng.randint(-DAY, DAY))
        parts.append(f"schedule block {{\nblock = Block {number}\nstart = {start}\n"
                     f"end = {start + rng.choice([600, 5000, 90000])}\n"
                     f"announce = {rng.choice(['block', 'items', 'any'])}\n}}\n")
    return parts


def schedule_parts(rng, kind, near, paths):
    head = [f"*{kind}\n"]
    if rng.random() < 0.7:
        head.append(f"global default = {rng.choice(MEDIA)}\n")
    if kind == "weekly":
        head.append(f"defaults, day of the week {{\nmon = {rng.choice(MEDIA)}\n}}\n")
    return head + item_parts(rng, kind, near, paths) + block_parts(rng, kind, near)


def sidecar_parts(rng):
    parts = []
    for _ in range(rng.choice([0, 1, 3, 6, 10])):
        if rng.random() < 0.1:
            parts.append(rng.choice(["[tv]\n", "[]\n"]))
        parts.append(f"{rng.choice(NAMES)} = {rng.choice(TEXTS)}\n" * rng.choice([1, 1, 1, 2]))
    return parts


def play_log_part(rng, start, path):
    metadata = {rng.choice(NAMES): rng.choice(TEXTS + ["", "two\nlines"])
                for _ in range(rng.randint(0, 5))}
    return json.dumps({"timestamp": start, "path": path, "metadata": metadata}) + "\n"


class Channel:
    """Options, environment and the parts of all text files, as (file name, text)."""

    def __init__(self, seed):
        rng = random.Random(seed)
        self.rng = rng
        self.zone = rng.choice(ODD_ZONES if rng.random() < 0.5 else zone_names())
        self.kind = rng.choice(list(TYPES))

    def fill(self):
        """The rest, once the zone is set."""
        rng = self.rng
        self.time = report_time(rng)
        self.now = self.time + rng.choice([0, 0, -DAY * 20, DAY, -DAY])
        self.options = rng.choice([[], [], ["--pcn-week"], ["--pcn-month"]])
        near = position_now(self.kind, self.time)
        paths = MEDIA * 2 + (SUBSCHEDULES * 2 if rng.random() < 0.5 else [])
        self.parts = [("main.sched", text)
                      for text in schedule_parts(rng, self.kind, near, paths)]
        # An endless schedule has years of days to go through, wherever it is named.
        types = list(TYPES)[:None if rng.random() < 0.3 else -1]
        for level, kind in enumerate(rng.sample(types, 3)):
            # Schedules that name each other are patched in ten levels deep, which takes long.
            path = SUBSCHEDULES[level]
            inner = MEDIA * 4 + SUBSCHEDULES[0 if rng.random() < 0.02 else level + 1:]
            near_there = position_now(kind, self.time)
            self.parts += [(path, text) for text in schedule_parts(rng, kind, near_there, inner)]
        for path in MEDIA:
            self.parts += [(path + ".metadata", text) for text in sidecar_parts(rng)]

    def has_subschedules(self):
        return any(name == "main.sched" and "subs/" in text for name, text in self.parts)

    def add_play_log(self, items):
        """Lets some of the items have aired; a few entries fit nothing."""
        for start, path in items:
            if self.rng.random() < 0.2:
                self.parts.append(("play.log", play_log_part(self.rng, start, path)))

    def write(self, folder):
        (folder / "media").mkdir()
        (folder / "subs").mkdir()
        for path in MEDIA:
            if "gone" not in path:
                is_video = path.endswith(("mp4", "avi", "MOV"))
                length = len(MP4) - (8 if "clip" in path else 0)  # some are cut off
                (folder / path).write_bytes(MP4[:length] if is_video else b"text\n")
        texts = {"main.sched": ""}
        for name, text in self.parts:
            texts[name] = texts.get(name, "") + text
        for name, text in texts.items():
            (folder / name).write_text(text)
