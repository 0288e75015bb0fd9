"""Reads the documents back with Python's own parsers."""
import csv
import io
import json
import xml.etree.ElementTree
from dataclasses import dataclass
from html.parser import HTMLParser


@dataclass
class Item:
    """An item as the XML document shows it; texts are bytes, as the writers see them."""
    start: int
    end: int
    is_default: bool
    announce: int
    path: bytes
    name: bytes
    label: bytes
    entries: list  # (name, value), or None without a metadata set


def signed(text):
    """A time printed as an unsigned number."""
    number = int(text)
    return number - (1 << 64) if number >= 1 << 63 else number


def text_of(element):
    return (element.text or "").encode()


def xml_document(document):
    """Type, window and report time, and the items."""
    root = xml.etree.ElementTree.fromstring(document)
    items = []
    for entry in root.find("list"):
        item, meta = entry.find("item"), entry.find("meta")
        entries = None if meta is None else [(e.get("name").encode(), text_of(e)) for e in meta]
        items.append(Item(
            signed(entry.find("start").get("unix")), signed(entry.find("end").get("unix")),
            item.get("default") == "1", int(item.get("announce")), text_of(item),
            text_of(entry.find("name")), text_of(entry.find("label")), entries))
    times = tuple(signed(root.find(name).get("unix")) for name in ("start", "end", "reporttime"))
    return root.find("type").text, times, items


def joined(entries):
    """Names to values; values of one name in a row are joined, later ones replace."""
    values, previous = {}, b""
    for name, value in entries or []:
        values[name] = values.get(name, b"") + b"\n" + value if name == previous else value
        previous = name
    return values


def in_bytes(text):
    return text.encode("utf-8", "surrogateescape")


def json_document(document):
    """The same as comparable_items gives for the XML document, and the times."""
    root = json.loads(document.decode("utf-8", "surrogateescape"))
    items = [(item["start_unix"]["unix"], item["end_unix"]["unix"], item["default"],
              item["announce"], in_bytes(item["opath"]), in_bytes(item["name"]),
              in_bytes(item["label"]),
              {in_bytes(k): in_bytes(v) for k, v in item["metadata"].items()})
             for item in root["items"]]
    return tuple(root[n]["unix"] for n in ("start_unix", "end_unix", "reporttime")), items


def comparable_items(items):
    return [(item.start, item.end, item.is_default, item.announce, item.path[10:], item.name,
             item.label, joined(item.entries)) for item in items]


class Page(HTMLParser):
    """The days of the programme-guide page, with rows of time, rating, name and summary."""
    CLASSES = {"schedrating": "rating", "schedprogram": "name", "schedsummary": "summary",
               "neversplit scheddayname": "day", "neversplit scheddaydate": "date"}

    def __init__(self, document):
        super().__init__()
        self.days, self.row, self.table = [], None, None
        self.open, self.cells = [], 0
        self.feed(document.decode())

    def handle_starttag(self, tag, attributes):
        what = self.CLASSES.get(dict(attributes).get("class"))
        if tag == "td":
            self.cells += 1
            what = "time" if self.row is not None and self.cells == 1 else None
        if tag == "table":
            self.table = dict(attributes).get("class")
            if self.table == "schedday":
                self.days[-1]["rows"] = []
        elif tag == "tr" and self.table == "schedday":
            self.row, self.cells = dict.fromkeys(("time", "rating", "name", "summary"), ""), 0
            self.days[-1]["rows"].append(self.row)
        elif what == "day":
            self.days.append({"day": "", "date": ""})
        if tag not in ("br", "meta", "polygon"):
            self.open.append(what)

    def handle_endtag(self, tag):
        if tag == "table":
            self.row = None
        if tag not in ("br", "meta", "polygon"):
            self.open.pop()

    def handle_data(self, data):
        whats = [what for what in self.open if what]
        target = self.row if self.row is not None else self.days[-1] if self.days else {}
        if whats and whats[-1] in target:
            target[whats[-1]] += data


def html_document(document):
    return [(day["day"], day["date"], [tuple(row.values()) for row in day["rows"]])
            for day in Page(document).days]


def csv_rows(document):
    text = document.decode("latin-1")
    return [[field.encode("latin-1") for field in row]
            for row in csv.reader(io.StringIO(text, newline=""), strict=True)]
