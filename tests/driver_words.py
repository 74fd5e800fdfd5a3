"""The drivers as the list of the sources has them."""

import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent
ROW = re.compile(r"^DRIVER\((\w+), (\w+),", re.MULTILINE)


def drivers_with_document(kind):
    """The words of those that drive items of the kind, such as OUTPUT, and have a document of their own."""
    rows = ROW.findall((ROOT / "src/schema/drivers.def").read_text())
    assert rows, "the list of drivers looks different"
    return [word for word, of in rows if of == kind]
