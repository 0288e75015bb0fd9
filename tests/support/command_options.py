"""The options that the program takes, as its own table names them."""
from typing import NamedTuple

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
