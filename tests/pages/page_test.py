"""Checks a built manual page, in the sandbox: page_test.py BUILT_PAGE.

An example is a literal block of the page's source in which lines after "$ " are commands, those after "> " go on
with them, and all others are what they print. The examples of a page are one shell's, from top to bottom.
"""

import json
import pathlib
import re
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))
from tables import ROOT, tool_switches

END = "\x1fend of output\x1f\n"


def lint(page):
    ran = subprocess.run(["mandoc", "-T", "lint", "-W", "warning", page], capture_output=True, text=True)
    return [ran.stdout + ran.stderr] if ran.returncode or ran.stdout else []


def switches(source):
    """The page describes those of the tool, with a value where they take one, and no others."""
    lines = re.search(r"^# OPTIONS\n(.*?)^# ", source, re.MULTILINE | re.DOTALL)[1].splitlines()
    described = {switch: bool(value) for line in lines if line.startswith("*-")
                 for switch, value in re.findall(r"\*(--?[a-z0-9-]+)\*( _)?", line)}
    differing = sorted(described.items() ^ tool_switches().items())
    return [f"the switches differ: {differing}"] if differing else []


def driver_words(source, candidates):
    """The page has those that completion takes from the tool's own tables, and no others."""
    section = re.search(r"^# DRIVERS\n(.*?)^# ", source, re.MULTILINE | re.DOTALL)[1]
    described = set(re.findall(r"(?<!\S)_([a-z0-9_]+)_(?!\w)", section))
    known = set(" ".join(re.findall(r"(?:drivers|documents)='([^']*)'", candidates)).split())
    return [f"the driver words differ: {sorted(described ^ known)}"] if described != known else []


def secrets(source, schemas):
    """The page names the settings that the schemas tell to give access, and no others."""
    marked = set()

    def note(member):
        if "It gives access" in str(member.get("description")):
            marked.add(member["title"])
        return member

    for path in schemas.glob("*.schema.json"):
        json.loads(path.read_text(), object_hook=note)
    described = set(re.findall(r"_([a-z0-9 ]+)_", re.search(r"^Secret are (.*?)\n\n", source, re.MULTILINE | re.DOTALL)[1]))
    return [f"the secrets differ: {sorted(described ^ marked)}"] if described != marked else []


def line_limits(source):
    """What a line of a file may hold is what the reader of all of them takes."""
    limit = re.search(r"LINE_LIMIT = (\d+);", (ROOT / "src/platform/io.hpp").read_text())[1]
    return [f"a line has {told} bytes, not {limit}" for told in re.findall(r"\b(10\d\d) bytes", source) if told != limit]


def driver_rules(source):
    """The rules are in the order of the sections that tell them, and what they and the check count stands there."""
    sections = dict(re.findall(r"^# ([A-Z ]+)\n(.*?)(?=^# )", source, re.MULTILINE | re.DOTALL))
    rules = re.findall(r"^\d+ ([A-Z ]+): (.*)$", subprocess.run(
        ["zelmctl", "check", "driver", "--list"], stdout=subprocess.PIPE, text=True, check=True).stdout, re.MULTILINE)
    ordered = [name for name in sections for section, _ in rules if section == name]
    faults = [] if ordered == [section for section, _ in rules] else ["the rules have other sections, or another order"]
    counted = [(section, number) for section, sentence in rules for number in re.findall(r"\b(?:0x)?\d+\b", sentence)]
    limits = re.findall(r"(\w+) = ([0-9']+)(?:;|\})", (ROOT / "src/zelmctl/check/driver/limits.hpp").read_text())
    told = " ".join(sections.get(name, "") for name in {section for section, _ in rules})
    faults += [f"{section} doesn't tell {number}" for section, number in counted if not re.search(rf"\b{number}\b", sections.get(section, ""))]
    for name, value in limits:
        number = int(value.replace("'", "")) // (10**6 if name.endswith("_US") else 1)
        faults += [] if number == 1 or re.search(rf"\b{number}\b", told) else [f"{name} isn't told"]
    return faults


def read_examples(source):
    """Commands and what they print."""
    examples = []
    for block in re.findall(r"^```\n(\$ .*?)^```$", source.replace("\\\\", "\\"), re.MULTILINE | re.DOTALL):
        for line in block.splitlines():
            if line.startswith("$ "):
                examples.append([line[2:], ""])
            elif line == ">" or line.startswith("> "):
                examples[-1][0] += "\n" + line[2:]
            else:
                examples[-1][1] += line + "\n"
    return examples


def normal(text):
    return re.sub(r"\b(pid|uptime)=[0-9.]+", r"\1=1", text)


def run_examples(source):
    examples = read_examples(source)
    assert examples, "a page without examples"
    script = "".join(f"{command}\nprintf %s '{END}'\n" for command, _ in examples)
    ran = subprocess.run(["bash"], input=script, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                         timeout=60)
    outputs = ran.stdout.split(END)[:-1]
    return [f"$ {command}\nprints\n{output}instead of\n{shown}"
            for (command, shown), output in zip(examples, outputs, strict=True) if normal(output) != normal(shown)]


page = pathlib.Path(sys.argv[1])
text = (ROOT / "man" / (page.name + ".scd")).read_text()
faults = lint(page) + line_limits(text) + run_examples(text)
if page.name == "zelm_outctl.1":
    faults += switches(text) + driver_words(text, (page.parent.parent / "completions/candidates").read_text())
if page.name == "zelm-packets.5":
    faults += driver_rules(text)
if page.name == "zelmctl.1":
    faults += secrets(text, page.parent.parent / "schemas")
print("\n".join(faults))
sys.exit(bool(faults))
