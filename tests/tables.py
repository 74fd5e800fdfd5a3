"""What the tables of the sources say: the switches of the tools, and the drivers."""

import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent


def rows_of(source, row):
    rows = re.findall(row, (ROOT / "src" / source).read_text(), re.MULTILINE)
    assert rows, f"the table of {source} looks different"
    return rows


def tool_switches():
    """Each switch as people write it, and whether it takes a value."""
    rows = rows_of("control/command_line.cpp", r'^    \{"([a-z0-9-]+)", (true|false), ')
    return {("-" if len(name) == 1 else "--") + name: value == "true"
            for name, value in [*rows, ("h", "false"), ("help", "false")]}


def drivers_with_document(kind):
    """The words of those that drive items of the kind, such as OUTPUT, and have a document of their own."""
    return [word for word, of in rows_of("schema/drivers.def", r"^DRIVER\((\w+), (\w+),") if of == kind]
