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
    with open(folder / "out", "wb+") as out, open(folder / "err", "wb+") as err:
        child = subprocess.Popen(
            [program, *arguments, "--time", "1709294400"],
            cwd=folder,
            stdout=out,
            stderr=err,
            env=os.environ | {"TZ": "UTC"},
            preexec_fn=prepare,
        )
        _, status, usage = os.wait4(child.pid, 0)
        child.returncode = os.waitstatus_to_exitcode(status)
    out, err = ((folder / name).read_bytes().decode("utf-8", "replace") for name in ("out", "err"))
    return Run(child.returncode, out, err, usage.ru_maxrss, usage.ru_utime + usage.ru_stime)
