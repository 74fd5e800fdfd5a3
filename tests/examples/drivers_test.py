"""The example drivers as drivers of an item, in the sandbox:
drivers_test.py --program COMMAND ... | --install DIRECTORY-OF-THE-LIBRARY."""

import os
import pathlib
import subprocess
import sys
import time

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"
PROGRAM = pathlib.Path("/usr/bin/zelm_out_newtek_ndi")
WORK = pathlib.Path("/run/e2e.examples")
ENTRY = "/mnt/main/tv/outputs/.x%20y.metadir/.media.item.active.socket"


def run(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout


def tool(command, *arguments):
    return subprocess.run(["zelm_outctl", "-c", command, "-o", "x y", *arguments], stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True).stdout


def comes_to_be(state):
    deadline = time.monotonic() + 30
    while tool("status") != f"Driver newtek_ndi process is {state}\n":
        assert time.monotonic() < deadline, f"it is not {state}"
        time.sleep(0.02)


def by_find_package():
    run("cmake", "--install", sys.argv[2], "--prefix", WORK / "kit", "--component", "driver")
    run("cmake", "-G", "Ninja", "-S", EXAMPLES, "-B", WORK / "build", f"-DCMAKE_PREFIX_PATH={WORK}/kit")
    run("cmake", "--build", WORK / "build")
    return WORK / "build/driver"


def by_pkg_config():
    # A driver has names of its own, which may be those of what lies beneath the library.
    (WORK / "clash.cpp").write_text("int mkdir_p(const char*, unsigned, int) { __builtin_abort(); }")
    os.environ["PKG_CONFIG_PATH"] = str(next(WORK.rglob("zelm_driver.pc")).parent)
    flags = run("pkg-config", "--cflags", "--libs", "zelm_driver").split()
    run(os.environ["CXX"], "-o", WORK / "driver", EXAMPLES / "driver.cpp", WORK / "clash.cpp", *flags)
    return WORK / "driver"


def by_command(*command):
    """A driver of another machine comes with what runs it."""
    (WORK / "driver").write_text(f'#!/bin/sh\nexec {" ".join(command)} "$@"\n')
    (WORK / "driver").chmod(0o755)
    return WORK / "driver"


def check(program):
    checked = subprocess.run(["zelmctl", "check", "driver", "--", program], capture_output=True, text=True)
    assert (checked.returncode, checked.stdout + checked.stderr) == (0, ""), checked
    PROGRAM.unlink()
    PROGRAM.symlink_to(program)
    tool("set", "--set", "driver=newtek_ndi", "--set", "title=One")
    tool("start")
    comes_to_be("running")
    assert "\t*\ttitle=One\n" in tool("list")
    assert tool("set", "--set", "title=Two", "--set", "+title=no") == ""
    assert "\t*\ttitle=Two\n" in tool("list")
    second = subprocess.run([program, "--file", "/mnt/main/tv/outputs/x y"], stderr=subprocess.PIPE, text=True, timeout=30)
    assert second.returncode == 1 and second.stderr.count("\n") == 1 and "=Two" in tool("list"), second
    tool("stop")
    comes_to_be("stopped")
    assert not os.path.lexists(ENTRY), "the entry stays"


WORK.mkdir()
# What the sanitizers keep of what a driver frees is no growth of its own.
os.environ.update(HOME=str(WORK), TMPDIR=str(WORK), ASAN_OPTIONS="quarantine_size_mb=1")
tool("create")
simulated = PROGRAM.resolve()
built = [by_command(*sys.argv[2:])] if sys.argv[1] == "--program" else [
    EXAMPLES / "driver.py", EXAMPLES / "driver.pl", by_find_package(), by_pkg_config()]
for driver in [simulated, *built]:
    check(driver)
