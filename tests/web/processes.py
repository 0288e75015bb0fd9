"""The processes that descend from this one, orphans among them."""
import ctypes
from pathlib import Path
from typing import NamedTuple

PR_SET_CHILD_SUBREAPER = 36


class Process(NamedTuple):
    pid: int
    parent: int
    name: str
    state: str


def adopt_orphans():
    """Lets what outlives its parent become our own child instead of leaving our sight."""
    if ctypes.CDLL(None, use_errno=True).prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0) != 0:
        raise OSError(ctypes.get_errno(), "PR_SET_CHILD_SUBREAPER")


def read_process(folder):
    try:
        text = (folder / "stat").read_text(errors="replace")
    except (FileNotFoundError, ProcessLookupError):
        return None  # it ended meanwhile
    name = text[text.index("(") + 1:text.rindex(")")]
    state, parent = text[text.rindex(")") + 2:].split()[:2]
    return Process(int(folder.name), int(parent), name, state)


def descendants(ancestor):
    found = [read_process(folder) for folder in Path("/proc").glob("[0-9]*")]
    children = {}
    for process in filter(None, found):
        children.setdefault(process.parent, []).append(process)
    reached, to_visit = [], [ancestor]
    while to_visit:
        young = children.get(to_visit.pop(), [])
        reached += young
        to_visit += [process.pid for process in young]
    return reached


def leftovers(ancestor, allowed_names):
    """Zombies, and processes that are none of the servers'."""
    return [process for process in descendants(ancestor)
            if process.state == "Z" or process.name not in allowed_names]
