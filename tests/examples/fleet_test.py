"""The playbook of examples on an appliance of its own, in the sandbox."""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys

if not shutil.which("ansible-playbook"):
    print("ansible-core is not installed: the playbook is not run")
    sys.exit(77)

PLAYBOOK = pathlib.Path(__file__).resolve().parents[2] / "examples/fleet.yml"
PLAY = f"ansible-playbook -i studio1, -c local -e ansible_python_interpreter=/usr/bin/python3 {PLAYBOOK} 2>&1"
# A tool whose set of one item does nothing and says nothing.
SILENT = r"""cd /usr/bin; mv zelm_outctl $HOME/kept
    printf '#!/bin/bash\n[ $2$4 = setmonitor ] || exec -a $0 '$HOME'/kept "$@"\n' >zelm_outctl; chmod +x zelm_outctl"""
# Items that can't be brought about: what is said of each, whether anything was changed, and what was done until then.
FAILING = [
    ({"kind": "output", "name": "cup", "settings": {"driver": "teapot"}, "state": "running"},
     "WARNING: Unrecognized driver teapot", True, ["create", "set", "start"]),
    ({"kind": "input", "name": "cup", "type": "teapot"}, "create ended with 1", False, []),
    ({"kind": "output", "name": "monitor", "settings": {"title": "Lost"}}, "set has had no effect on 'title'", False,
     []),
]
TURNED = "zelm_outctl -c set -o monitor --set title=Other --set caption= --set driver=oss; zelm_inctl -c start -o studio;" \
         "zelm_routectl -c stop -o matrix; zelm_outctl -c create -o old"
RUNNING = "for i in route:matrix in:studio ch:channel1 out:monitor; do zelm_${i%%:*}ctl -c status -o ${i#*:}; done 2>&1"


def shell(command):
    return subprocess.run(command, shell=True, stdout=subprocess.PIPE, text=True).stdout


os.mkdir("/run/e2e.fleet")
os.environ.update(HOME="/run/e2e.fleet", TMPDIR="/run/e2e.fleet")
# What is done meanwhile, how the playbook is run then, and what it changes.
for meanwhile, switch, items in [
        ("", "--check", "matrix studio channel1 monitor"), ("", "", "matrix studio channel1 monitor"), ("", "", ""),
        (TURNED, "", "matrix studio monitor old")]:
    shell(meanwhile)
    told = shell(f"{PLAY} {switch}")
    assert "failed=0" in told and re.findall(r"changed: .*\(item=\S+ (\S+)\)", told) == items.split(), told
    drivers = [] if switch else ["blackmagic_videohub", "channel1", "x11"]
    assert re.findall("Driver (.*) process is running", shell(RUNNING)) == drivers, shell(RUNNING)
assert shell("sort /mnt/main/tv/outputs/*; cat /mnt/main/tv/rendermgr/channel1 | grep name") == (
    "#multiline\nautostart=1\ncaption=first line\ncaption=second line\ndriver=x11\n"
    "item=/mnt/main/tv/rendermgr/channel1\ntitle=Control room\nchannel name=News of studio1\n")
shell(SILENT)
for item, words, changed, done in FAILING:
    told = shell(f"{PLAY} -e '{json.dumps({'playout_items': [item]})}'")
    result = json.loads(re.search(r"failed: .* => (\{.*\})", told)[1])
    assert (words in result["msg"], result["changed"], result["done"]) == (True, changed, done), told
