"""A station in a scratch folder, and runs of the publisher over it."""

import os
import signal
import subprocess
import sys
import tempfile
from pathlib import Path

NOW = 1772733600  # 5 March 2026, 18:00 UTC
PREFIX = "nv8x_schedule_publish: "
STATE = ".nv8x-publish.state"
LOCK = ".nv8x-publish.lock"
INDEX = "index.html"
TIME_LIMIT = 120  # seconds

failures = []


def expect(what, seen, wanted):
    if seen != wanted:
        failures.append(f"{what}:\n  {str(seen)[:1500]}\n  instead of\n  {str(wanted)[:1500]}")


def items(count, first_hour=0, label="Programme"):
    """So many announced items of one second each."""
    text = ""
    for number in range(count):
        times = [f"{first_hour + at // 3600:02}:{at // 60 % 60:02}:{at % 60:02}" for at in (number, number + 1)]
        text += (f"{{\n  item = media/{number}.mp4\n  label = {label} {number}\n  start = {times[0]}\n"
                 f"  end = {times[1]}\n}}\n")
    return text


def day(count, **more):
    return "*daily\n" + items(count, **more)


class Site:
    """Channels in `channels`, pages in `web`, and their configuration."""

    def __init__(self, program, *channels):
        self.program = os.path.realpath(program)
        self.web = Path("web")
        self.web.mkdir()
        for name in channels:
            self.write(name, day(3))
        self.configure(channels)

    def configure(self, channels, defaults="", sections=None):
        text = (f"[*]\nzone = UTC\nfolder = {os.getcwd()}/channels/%i\nschedule = day.schedule\n"
                f"web-folder = {os.getcwd()}/web\n{defaults}")
        for name in channels:
            text += f"[{name}]\n{(sections or {}).get(name, '')}"
        Path("station.conf").write_text(text, encoding="utf-8")

    @staticmethod
    def write(channel, schedule):
        folder = Path("channels", channel)
        folder.mkdir(parents=True, exist_ok=True)
        data = schedule if isinstance(schedule, bytes) else schedule.encode()
        (folder / "day.schedule").write_bytes(data)

    def command(self, *arguments):
        return [self.program, "--config", "station.conf", *arguments]

    def run(self, *arguments, now=NOW, prefix=(), environment=None, prepare=None):
        variables = {"TZ": "UTC", "NOW": str(now), "PATH": os.environ["PATH"], **(environment or {})}
        process = subprocess.Popen([*prefix, *self.command(*arguments)], env=variables,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE, start_new_session=True, preexec_fn=prepare)
        try:
            out, err = process.communicate(timeout=TIME_LIMIT)
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            process.communicate()
            raise
        return process.returncode, out.decode(), err.decode()

    def pages(self):
        """The pages by name, without that of the station."""
        return {path.name: path.read_bytes() for path in self.web.iterdir()
                if path.name not in (STATE, LOCK, INDEX) and path.is_file()}

    def expect(self, what, arguments, status, said="", **more):
        """One run with this status and these words, and nothing on standard output."""
        seen = self.run(*arguments, **more)
        expect(what, seen, (status, "", "".join(f"{PREFIX}{line}\n" for line in said.splitlines())))


def in_scratch(main):
    """Calls main() in a scratch folder and ends the test."""
    arguments = [os.path.realpath(argument) if os.path.exists(argument) else argument
                 for argument in sys.argv[1:]]
    with tempfile.TemporaryDirectory() as scratch:
        os.chdir(scratch)
        status = main(*arguments)
        os.chdir("/")
    print(*failures, sep="\n")
    sys.exit(1 if failures else status or 0)
