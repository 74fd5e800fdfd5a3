"""The units and the dashboard of examples/prometheus, in the sandbox."""

import json
import pathlib
import re
import shutil
import subprocess
import sys

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples/prometheus"
faults = []
(command, directory), = re.findall(r"^ExecStart=(.* -o (/.*)/.*)$", (EXAMPLES / "zelmctl-metrics.service").read_text(), re.M)
ran = subprocess.run("mkdir /run/collected && " + command.replace(directory, "/run/collected"), shell=True)
told = set(re.findall(r"^# TYPE (\w+)", pathlib.Path("/run/collected/zelmctl.prom").read_text(), re.M))
dashboard = json.loads((EXAMPLES / "dashboard.json").read_text())
for panel in dashboard["panels"]:
    for target in panel["targets"]:
        wanted = set(re.findall(r"zelm_\w+", target["expr"]))
        if not wanted or wanted - told:
            faults.append(f"{panel['title']}: no metric of zelmctl: {target['expr']}")
if shutil.which("systemd-analyze"):
    units = [str(path) for path in EXAMPLES.glob("zelmctl-metrics.*")]
    verified = subprocess.run(["systemd-analyze", "verify", "--man=no", *units], capture_output=True, text=True)
    faults += [line for line in verified.stderr.splitlines() if "zelmctl" in line]
print("\n".join(faults))
sys.exit(ran.returncode or bool(faults))
