#!/usr/bin/python3
"""The options that the programs take, as their own tables name them:
command_options.py listed|valued|check|check-valued

Prints, one a line, the names of those that the usage text of nv8x_schedule_to_xml lists, or that
take a value; or all of nv8x_schedule_check, or those that take a value.
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


def check_options():
    """Of nv8x_schedule_check, by name. Its usage text lists all of them."""
    rows = source_table.rows(source_table.CHECK_OPTIONS, "option",
                             r'\{(nullptr|"[^"]+"), (\w+), nullptr, \w+\}')
    return {name.strip('"'): Option(True, argument == "required_argument")
            for name, argument in rows if name != "nullptr"}


if __name__ == "__main__":
    options = check_options() if sys.argv[1].startswith("check") else command_options()
    place = {"listed": 0, "check": 0, "valued": 1, "check-valued": 1}[sys.argv[1]]
    print(*(name for name, option in options.items() if option[place]), sep="\n")
