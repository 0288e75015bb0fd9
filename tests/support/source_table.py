"""Reads the tables of the program's sources."""
import re
import sys
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]
# Below the project's folder; the names of what they hold stand first in each row.
FORMATS = "src/driver/output_formats.cpp"


def rows(source, kind, row):
    """The groups of each row of the one table in a source, a std::array of that kind. A table that
    `row` does not read to the last one ends the run."""
    text = (PROJECT / source).read_text(encoding="utf-8")
    table = re.search(rf"std::array<{kind}, (\d+)> \w+ = \{{\{{\n(.*?)^\}}\}};", text,
                      re.MULTILINE | re.DOTALL)
    if not table:
        sys.exit(f"{source}: no table of {kind}")
    found = [match.groups() for match in re.finditer(row, table[2])]
    names = [name for name, *_ in found]
    if not found or len(found) != int(table[1]) or len(set(names)) != len(found):
        sys.exit(f"{source}: {len(found)} rows of {kind} can be read, not {table[1]}: {names}")
    return found
