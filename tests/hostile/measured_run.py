"""Runs the program and says what that took."""

import os
import subprocess
from typing import NamedTuple


class Run(NamedTuple):
    status: int
    out: str
    err: str
    memory: int  # KiB at the peak, of the run or of a child of it, whichever had more
    cpu: float  # seconds of both


def run(program, folder, arguments, prepare=None):
    done = run_without_reading(program, folder, arguments, prepare)
    return done._replace(out=(folder / "out").read_bytes().decode("utf-8", "replace"))


def run_without_reading(program, folder, arguments, prepare=None, zone="UTC", now=1709294400):
    """The document stays in the file `out` of the folder. The kernel counts memory that this process
    has, or once had, as the program's: who measures large documents should not hold them."""
    with open(folder / "out", "wb") as out, open(folder / "err", "wb") as err:
        child = subprocess.Popen(
            [program, *arguments, "--time", str(now)],
            cwd=folder,
            stdout=out,
            stderr=err,
            env=os.environ | {"TZ": zone, "NOW": str(now)},
            preexec_fn=prepare,
        )
        _, status, usage = os.wait4(child.pid, 0)
        child.returncode = os.waitstatus_to_exitcode(status)
    err = (folder / "err").read_bytes().decode("utf-8", "replace")
    return Run(child.returncode, "", err, usage.ru_maxrss, usage.ru_utime + usage.ru_stime)
