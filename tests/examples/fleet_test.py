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
# Items that can't be brought about: what is said of each, whether anything was changed, and what was done until then.
FAILING = [
    ({"kind": "output", "name": "cup", "settings": {"driver": "teapot"}, "state": "running"},
     'no output has the driver "teapot"', False, []),
    ({"kind": "output", "name": "monitor", "driver": "x11", "document": {"x11": {"titel": "Lost"}}}, 'did you mean "x11.title"?', False, []),
    ({"kind": "input", "name": "cup", "type": "teapot"}, 'unknown type of input "teapot"', False, []),
    ({"kind": "router", "name": "cup", "settings": {"port": 9990}, "state": "running"}, "start: ended at once", True,
     ["create", "set"]),
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
for item, words, changed, done in FAILING:
    told = shell(f"{PLAY} -e '{json.dumps({'playout_items': [item]})}'")
    result = json.loads(re.search(r"failed: .* => (\{.*\})", told)[1])
    steps = [step["do"] for step in result["steps"] if step["done"]]
    assert (words in result["msg"], result["changed"], steps) == (True, changed, done), told
