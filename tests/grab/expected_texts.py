"""What a programme must say of an entry of the XML document: the table of docs/xmltv.md.

An element is a tuple of its name, attributes, text and children."""
import re

LANGUAGE = "en"
LOWER = str.maketrans("ABCDEFGHIJKLMNOPQRSTUVWXYZ", "abcdefghijklmnopqrstuvwxyz")


def clean(text):
    return " ".join(re.split(r"[ \t\r\n]+", text or "")).strip(" ")


def element(name, text="", children=(), **attributes):
    return name, attributes, text, list(children)


def in_language(name, text):
    return element(name, text, lang=LANGUAGE)


def last_of(entries, *names):
    """The last value that is not blank, of the first of the names that has one."""
    values = {name: text for name, text in entries if text}
    return next((values[name] for name in names if name in values), "")


def all_of(entries, *names):
    return [text for name, text in entries if name in names and text]


def file_title(name):
    stem = re.sub(r"\.[^.]{0,3}\Z", "", name, flags=re.DOTALL)
    return clean(re.sub(r"[\"'\\_]", " ", stem)) or "(untitled)"


def titles(entry, entries):
    program, title = last_of(entries, "program"), last_of(entries, "title")
    yield in_language("title", program or title or clean(entry.findtext("label")) or
                      file_title(entry.findtext("name")))
    episode = last_of(entries, "episode")
    if not re.search("[^ /0-9]", episode):
        episode = title if program else ""
    if episode not in ("", program):
        yield in_language("sub-title", episode)


def credits(entries):
    people = [element(role, person)
              for name, role in (("producers", "producer"), ("hosts", "presenter"), ("guests", "guest"))
              for person in all_of(entries, name)]
    return [element("credits", "", people)] if people else []


def dates(entries):
    text = last_of(entries, "date")[:10]
    if parts := re.fullmatch(r"(\d{4})-(\d{1,2})(?:-(\d{1,2}))?(?:[T ].*)?", text):
        text = "".join(part.zfill(2) for part in parts.groups("") if part)
    return [element("date", text)] if re.fullmatch(r"\d{4}|\d{6}|\d{8}", text) else []


def categories(entries):
    first = {}
    for category in all_of(entries, "genre", "rovi category"):
        first.setdefault(category.translate(LOWER), category)
    return [in_language("category", category) for category in first.values()]


def number(text):
    match = re.fullmatch(r" *(\d{1,15}) *(/.*)?", text)
    return int(match[1]) if match else None


def episode_numbers(entries):
    season, episode = number(last_of(entries, "season")), number(last_of(entries, "tvepisode"))
    if episode is None:
        episode = number(last_of(entries, "episode"))
    if season or episode:
        from_0 = [str(count - 1) if count else "" for count in (season, episode)]
        yield element("episode-num", f"{from_0[0]} . {from_0[1]} . ", system="xmltv_ns")
    shown = "".join(f"{letter}{count:02}" for letter, count in (("S", season), ("E", episode))
                    if count is not None)
    if shown:
        yield element("episode-num", shown, system="onscreen")


def ratings(entries):
    system, _, value = last_of(entries, "rating").rpartition("/")
    if not value:
        return []
    attributes = {"system": system} if system else {}
    return [element("rating", "", [element("value", value)], **attributes)]


def texts_of(entry):
    """The elements of the programme, in XMLTV's order."""
    entries = [(child.get("name").translate(LOWER), clean(child.text))
               for child in entry.iterfind("meta/entry")]
    said = list(titles(entry, entries))
    if description := last_of(entries, "description", "summary"):
        said.append(in_language("desc", description))
    said += credits(entries) + dates(entries) + categories(entries)
    if language := last_of(entries, "language"):
        said.append(element("language", language))
    said += episode_numbers(entries)
    if re.match("[1-9tTyY]", last_of(entries, "hd")):
        said.append(element("video", "", [element("quality", "HDTV")]))
    if last_of(entries, "newliverepeat").translate(LOWER) == "repeat":
        said.append(element("previously-shown"))
    if re.match("[1tTyY]", last_of(entries, "cc")):
        said.append(element("subtitles", type="teletext"))
    return said + ratings(entries)
