"""The switches of the tools as their command line has them."""

import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent
ROW = re.compile(r'^    \{"([a-z0-9-]+)", (true|false), ', re.MULTILINE)


def tool_switches():
    """Each switch as people write it, and whether it takes a value."""
    rows = ROW.findall((ROOT / "src/control/command_line.cpp").read_text())
    assert rows, "the table of switches looks different"
    rows += [("h", "false"), ("help", "false")]
    return {("-" if len(name) == 1 else "--") + name: value == "true" for name, value in rows}
