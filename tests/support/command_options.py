#!/usr/bin/python3
"""The options that the programs take, as their own tables name them:
command_options.py PROGRAM listed|valued

Prints, one a line, the names of those that the program's usage text lists, or that take a value.
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


GETOPT_TABLES = {"nv8x_schedule_check": source_table.CHECK_OPTIONS,
                 "tv_grab_nv8x": source_table.GRAB_OPTIONS}


def getopt_options(program):
    """By name, of a program with a table for getopt_long. Its usage text lists all of them."""
    rows = source_table.rows(GETOPT_TABLES[program], "option",
                             r'\{(nullptr|"[^"]+"), (\w+), nullptr, \w+\}')
    return {name.strip('"'): Option(True, argument == "required_argument")
            for name, argument in rows if name != "nullptr"}


if __name__ == "__main__":
    program, which = sys.argv[1:]
    options = getopt_options(program) if program in GETOPT_TABLES else command_options()
    place = Option._fields.index({"listed": "is_listed", "valued": "takes_value"}[which])
    print(*(name for name, option in options.items() if option[place]), sep="\n")
