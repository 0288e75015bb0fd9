"""Files that the hostile tests of the checker and of the grabber have in common."""

import os
import resource
import subprocess
from pathlib import Path

MIB = 2**20
ITEM = "{\n  item = %s\n  start = %d\n  end = %d\n}\n"
# A line feed ends a line and a "/" a folder's name; blanks at the ends of a value do not count.
BYTES = [byte for byte in range(1, 256) if byte not in b"\n/"]
TEXT = b"a" + bytes(BYTES) + b"z"


def write_hostile_media(folder, first):
    """Media that are made to cost much, and a schedule that names every third of them; the other
    programs read them by the code that hostile.media tries with all."""
    (folder / "media").mkdir()
    make_media = Path(__file__).resolve().parents[1] / "hostile/make_media"
    made = subprocess.run([make_media, folder / "media"], check=True, stdout=subprocess.PIPE, text=True)
    names = [line.split()[0] for line in made.stdout.splitlines()][first::3]
    (folder / "day.schedule").write_text("*daily\n" + "".join(
        ITEM % (f"media/{name}", number * 60, number * 60 + 60) for number, name in enumerate(names)))
    return names


def write_odd_names(folder):
    """Items whose paths, labels and titles hold every byte that they may."""
    (folder / "media").mkdir()
    schedule = b"*daily\n"
    for number, half in enumerate((BYTES[:125], BYTES[125:])):
        name = b"a" + bytes(half) + b"z"
        path = os.fsencode(folder / "media") + b"/" + name
        with open(path, "wb") as media, open(path + b".metadata", "wb") as sidecar:
            media.write(b"plain words\n")
            sidecar.write(b"title = " + TEXT + b"\n")
        schedule += (b"{\n  item = media/" + name + b"\n  label = " + TEXT +
                     b"\n  start = %d:00\n  end = %d:00\n}\n" % (number, number + 1))
    (folder / "day.schedule").write_bytes(schedule)


def write_large(path, piece, size, head=""):
    """A file of at least `size` bytes: the head, then the piece again and again."""
    block = piece * max(1, MIB // len(piece))
    with open(path, "w") as file:
        file.write(head)
        while file.tell() < size:
            file.write(block)


class Run:
    """A run, what it printed, and what it took: memory (KiB at the peak, of the run or of a child of it)
    and processor time (seconds of both)."""

    def __init__(self, command, folder, environment=None, limit_kib=None):
        limits = (lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (limit_kib * 1024,) * 2)
                  ) if limit_kib else None
        with open(folder / "out", "wb") as out, open(folder / "err", "wb") as err:
            child = subprocess.Popen(command, cwd=folder, stdin=subprocess.DEVNULL, stdout=out,
                                     stderr=err, preexec_fn=limits,
                                     env=os.environ | {"TZ": "UTC", "NOW": "1781092800"} | (environment or {}))
            _, status, usage = os.wait4(child.pid, 0)
        self.status = os.waitstatus_to_exitcode(status)
        child.returncode = self.status
        self.out = (folder / "out").read_bytes()
        self.err = (folder / "err").read_bytes()
        self.memory = usage.ru_maxrss
        self.cpu = usage.ru_utime + usage.ru_stime
