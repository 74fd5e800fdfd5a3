"""What a build made is hardened: hardening_test.py BUILD-DIRECTORY.

Programs show what the linker did. What the compiler did is looked for in our own objects: in a static program the
parts of the C library would show it in any case."""

import collections
import json
import pathlib
import re
import subprocess
import sys

BUILD = pathlib.Path(sys.argv[1]).resolve()
PLAIN_OUTPUT = re.compile(r" U v?(as|f|)printf$", re.M)  # FORTIFY puts its own in place of each of these
WIDE_STEP = re.compile(r"sub +\$0x([0-9a-f]{4,8}),%rsp$", re.M)  # of the stack pointer
PAGE = 0x1000


def output(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout


def faults_of_object(path, symbols):
    if PLAIN_OUTPUT.search(symbols):
        yield "calls functions that FORTIFY replaces"
    if "X86-64" in output("readelf", "-h", path):
        if "IBT, SHSTK" not in output("readelf", "-n", path):
            yield "is not marked for control flow protection"
        if any(int(step, 16) > PAGE for step in WIDE_STEP.findall(output("objdump", "-d", "--no-show-raw-insn", path))):
            yield "takes more than a page of stack without touching it"


def faults_of_program(path):
    told = output("readelf", "-hldW", path)
    for mark, fault in (("DYN (Position-Independent", "has a fixed place"), ("GNU_RELRO", "has no RELRO"),
                        ("BIND_NOW", "binds lazily")):
        if mark not in told:
            yield fault
    if not re.search(r"GNU_STACK.* RW ", told):
        yield "has a stack that can be executed"


def faults():
    rooms = collections.defaultdict(list)
    for entry in json.loads((BUILD / "compile_commands.json").read_text()):
        command = entry["command"]
        path = BUILD / entry["directory"] / re.search(r" -o (\S+)", command)[1]
        # What no program of this build needs is told of there, and not built.
        if BUILD / "tests" not in path.parents and path.exists():
            symbols = output("nm", path)
            rooms[str(path).partition(".dir/")[0]].append(symbols)
            if re.findall(r"-[UD]_FORTIFY_SOURCE\S*", command)[-1:] != ["-D_FORTIFY_SOURCE=3"]:
                yield f"{path}: is compiled without FORTIFY 3"
            yield from (f"{path}: {fault}" for fault in faults_of_object(path, symbols))
    whole_library = BUILD / "src/driver/zelm_driver.o"
    yield from (f"{whole_library}: {fault}" for fault in faults_of_object(whole_library, output("nm", whole_library)))
    # A file may well do without a buffer on the stack, a room of several can't.
    yield from (f"{room}: no function has a protected stack" for room, symbols in rooms.items()
                if len(symbols) > 1 and "__stack_chk_fail" not in "".join(symbols))
    for path in {*BUILD.glob("bin/*"), *BUILD.glob("appliance/*")}:
        if path.is_file() and not path.is_symlink() and path.read_bytes()[:4] == b"\x7fELF":
            yield from (f"{path}: {fault}" for fault in faults_of_program(path))


found = list(faults())
sys.exit("\n".join(found) if found else 0)
