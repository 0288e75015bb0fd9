#!/usr/bin/python3
"""The formats that the program prints, as its own table names them: output_formats.py [TYPE]

Prints the names, one a line; with TYPE those of that content type.
"""
import sys

sys.dont_write_bytecode = True
import source_table


def rows():
    """Of the table, in its order: the name, the content type and the value of OutputFormat."""
    found = source_table.rows(source_table.FORMATS, "OutputFormatInfo",
                              r'\{OutputFormat::(\w+), "([^"]+)", "([^"]+)", \w+\}')
    return [(name, content_type, value) for value, name, content_type in found]


def content_types():
    """By name."""
    return {name: content_type for name, content_type, _ in rows()}


def names():
    return list(content_types())


def listings():
    """The names of those with comma-separated rows and a header line."""
    return [name for name, content_type in content_types().items() if content_type == "text/csv"]


def by_format(what, entries, left_out=None):
    """What somebody knows of each format, by name. Ends the run unless it has an entry for every
    format but those left out (by name, with the reason), and for no other."""
    known, left_out = set(entries), set(left_out or {})
    wrong = [f"lacks {name!r}" for name in names() if name not in known | left_out]
    wrong += [f"names {name!r}, which is no format" for name in sorted((known | left_out) -
                                                                       set(names()))]
    wrong += [f"leaves out {name!r} and has it" for name in sorted(known & left_out)]
    if wrong:
        sys.exit(f"{what}: {', '.join(wrong)}; the formats are those of {source_table.FORMATS}")
    return entries


if __name__ == "__main__":
    print(*(name for name, kind in content_types().items() if kind in sys.argv[1:] or
            not sys.argv[1:]), sep="\n")
