#!/usr/bin/python3
"""The options that the program takes, as its own table names them: command_options.py listed|valued

Prints the names of those that the usage text lists, or that take a value, one a line.
"""
import sys
from typing import NamedTuple

sys.dont_write_bytecode = True
import source_table

TEXT = r'(nullptr|"(?:[^"\\]|\\.)*")'


class Option(NamedTuple):
    is_listed: bool  # in the usage text
    takes_value: bool


def command_options():
    """By name."""
    rows = source_table.rows(source_table.OPTIONS, "Option",
                             rf'\{{"([^"]+)",\s*{TEXT},\s*{TEXT},\s*\w+\}}')
    return {name: Option(usage != "nullptr", missing_value != "nullptr")
            for name, usage, missing_value in rows}


if __name__ == "__main__":
    place = {"listed": 0, "valued": 1}[sys.argv[1]]
    print(*(name for name, option in command_options().items() if option[place]), sep="\n")
