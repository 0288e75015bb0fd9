"""The programs' own tables of options, as build/shell_completions prints them."""
import subprocess
from typing import NamedTuple


class Option(NamedTuple):
    value: str  # what its value is called; empty: it takes none
    words: list  # all values, if only some are allowed
    does: str  # empty: it is not offered


def options_of_programs(shell_completions):
    """The options by name, by the program's name."""
    printed = subprocess.run([shell_completions], capture_output=True, text=True, check=True).stdout
    programs = {}
    for line in printed.splitlines():
        program, name, value, words, does = line.split("\t")
        programs.setdefault(program, {})[name] = Option(value, words.split(), does)
    return programs
