"""A station's web site in a scratch folder: its channel, the programs and the wrapper."""
import os
import shutil
import subprocess
import tempfile
from pathlib import Path

WRAPPER = "examples/web/guide.cgi"


def fill(text, settings):
    """The text of a shipped file with this site's settings in place of the ones it stands with."""
    for shipped, ours in settings.items():
        if shipped not in text:
            raise AssertionError(f"no {shipped!r} in the shipped file")
        text = text.replace(shipped, ours)
    return text


class Site:
    """Belongs to an unprivileged user, as do the servers: `ownership` is for Popen."""

    def __init__(self, source, publisher):
        self.source = Path(source)
        self.folder = Path(tempfile.mkdtemp(prefix="web_test."))
        self.channel = self.folder / "channel"
        self.wrapper = self.folder / "guide.cgi"
        self.documents = self.folder / "documents"
        (self.folder / "bin").mkdir()
        shutil.copy(publisher, self.folder / "bin")
        self.use_recipe("")
        shutil.copytree(self.source / "examples/channel", self.channel)
        subprocess.run(["chmod", "-R", "a+rX", self.channel], check=True)
        self.ownership = {}
        if os.geteuid() == 0:
            shutil.chown(self.folder, "nobody", "nogroup")
            self.ownership = {"user": "nobody", "group": "nogroup", "extra_groups": []}

    def use_recipe(self, recipe):
        """The servers that start from now on have this kind of shipped file: "" or "static-"."""
        self.recipe = recipe
        self.places = ({"/var/www/guide": str(self.documents)} if recipe else
                       {"/usr/lib/cgi-bin/guide.cgi": str(self.wrapper)})

    def remove(self):
        shutil.rmtree(self.folder)

    def add_program(self, name, text):
        path = self.folder / name
        path.write_text(text)
        path.chmod(0o755)
        return path

    def copy_program(self, program):
        copy = self.folder / "program"
        shutil.copyfile(program, copy)
        copy.chmod(0o755)
        return copy

    def install_wrapper(self, program, schedule="week.schedule", more=None, **keys):
        """The shipped wrapper, with `more` replaced in it, for a station with one channel of this
        schedule, whose section also has `keys`. The publisher runs `program`."""
        printer = self.folder / "bin/nv8x_schedule_to_xml"
        printer.unlink(missing_ok=True)
        printer.symlink_to(program)
        values = {"zone": "Europe/London", "folder": self.channel, "schedule": schedule,
                  "station-id": "KBT1", **keys}
        configuration = self.folder / "station.conf"
        configuration.write_text("[kbt1]\n" + "".join(f"{key} = {value}\n"
                                                      for key, value in values.items()))
        settings = {"/usr/bin/nv8x_schedule_publish": f"{self.folder}/bin/nv8x_schedule_publish",
                    "/etc/nv8x/station.conf": str(configuration)}
        text = fill((self.source / WRAPPER).read_text(), {**settings, **(more or {})})
        self.add_program("next.cgi", text).rename(self.wrapper)
