#!/usr/bin/python3
"""The Ansible module behind fleet.yml."""

import os
import re
import time

from ansible.module_utils.basic import AnsibleModule

DOCUMENTATION = r"""
module: zelm_item
short_description: Creates, configures, starts, stops and deletes an item of a playout appliance
description:
  - Changes what differs from what is wanted, and nothing else. Check mode tells what would be done.
options:
  kind:
    description: What the item is.
    choices: [channel, output, input, router]
    type: str
    required: true
  name:
    description: The item's name.
    type: str
    required: true
  type:
    description: The type of an input. Needed to create one, and never changed.
    type: str
  settings:
    description:
      - Keys and values as the settings file holds them. An empty value or none removes the key. Keys that are not
        named stay.
      - A value of several lines is a text of several lines. Line feeds at its ends are not stored.
      - Yes and no, in all the forms in which YAML has them, are 1 and 0.
      - While the item runs, its driver may report a key in another form than it was set, and that form counts.
      - An item that runs is stopped before its driver or a value of several lines is changed, and started again.
    type: dict
    default: {}
  state:
    description: Whether the item runs, or is not there at all. Nothing is started or stopped without it.
    choices: [running, stopped, absent]
    type: str
  timeout:
    description: Seconds within which the item has to start or stop.
    type: int
    default: 30
"""

TOOLS = {"channel": "zelm_chctl", "output": "zelm_outctl", "input": "zelm_inctl", "router": "zelm_routectl"}
DIRECTORIES = {"channel": "rendermgr", "output": "outputs", "input": "inputs", "router": "routing"}


class Item:
    def __init__(self, module):
        self.module = module
        self.wanted = module.params
        self.done = []

    def tool(self, command, *arguments):
        return self.module.run_command(
            [TOOLS[self.wanted["kind"]], "-c", command, "-o", self.wanted["name"], *arguments])

    def change(self, command, *arguments, verify=lambda: None):
        """What the tool said. A set that says anything has failed, as its status is always 0. The others may warn."""
        said = ""
        if not self.module.check_mode:
            status, output, errors = self.tool(command, *arguments)
            said = output + errors
            if status != 0 or (errors and command == "set"):
                self.fail(f"{command} ended with {status}: {said}")
            verify()
        self.done.append(command)
        return said

    def settings(self):
        """What a listing shows, or None if there is no such item."""
        lines = self.tool("list", "--no-manifest")[1].split("\n")
        pairs = [line.split("\t", 2)[2].partition("=") for line in lines if line.startswith("\t")]
        found = {}
        for key, _, value in pairs:
            found[key] = f"{found[key]}\n{value}" if key in found else value
        return found if len(lines) > 1 else None

    def runs(self):
        return self.tool("status")[0] == 0

    def move(self, command, *arguments):
        """Starts or stops the item, which neither command waits for to the end."""
        said = self.change(command, *arguments)
        if "Unable to identify driver" in said and command == "start":
            self.fail(f"there is nothing to start: {said}")
        deadline = time.monotonic() + self.wanted["timeout"]
        while not self.module.check_mode and self.runs() != (command == "start"):
            if time.monotonic() > deadline:
                self.fail(f"{command} has had no effect after {self.wanted['timeout']} seconds. {said}")
            time.sleep(0.1)

    def stop(self):
        self.move("stop", "--timeout", str(self.wanted["timeout"]))

    def set(self, settings):
        pairs = [f"{key}={line}" for key, value in settings.items() for line in value.split("\n")]
        if pairs:
            self.change("set", *(word for pair in pairs for word in ("--set", pair)),
                        verify=lambda: self.read_back(settings))

    def read_back(self, settings):
        """From the file: a listing shows what the driver of a running item reports in the place of a setting."""
        path = os.path.join("/mnt/main/tv", DIRECTORIES[self.wanted["kind"]], self.wanted["name"])
        try:
            with open(path, "rb") as file:
                lines = file.read().split(b"\n")
        except OSError as error:
            self.fail(f"it can't be told what set has done: {error}")
        for key, value in settings.items():
            stored = [line for line in lines if line.startswith(os.fsencode(f"{key}="))]
            wanted = [os.fsencode(f"{key}={line}") for line in value.split("\n")] if value else []
            if not set(wanted) <= set(stored) or (stored and not wanted):
                self.fail(f"set has had no effect on {key!r}")

    def fail(self, why):
        self.module.fail_json(msg=f"{self.wanted['kind']} {self.wanted['name']}: {why}".rstrip(),
                              changed=bool(self.done), done=self.done)


def as_text(value):
    return "" if value is None else str(int(value) if isinstance(value, bool) else value).strip("\n")


def remove(item):
    found = item.settings() is not None
    if found and item.runs():
        item.stop()
    if found:
        item.change("delete")
    return {"before": {"state": "present" if found else "absent"}, "after": {"state": "absent"}}


def bring_about(item, wanted):
    """Does what is missing, and says what was found and what is there instead."""
    found = item.settings()
    runs = item.runs()
    before = "absent" if found is None else "running" if runs else "stopped"
    if found is None:
        item.change("create", *(["--type", wanted["type"]] if wanted["type"] else []))
        found = {}
    settings = {key: as_text(value) for key, value in wanted["settings"].items()}
    differing = {key: value for key, value in settings.items() if value != found.get(key, "")}
    long = {key: value for key, value in differing.items() if "\n" in value}
    if runs and (wanted["state"] == "stopped" or "driver" in differing or long):
        item.stop()
    item.set(differing)
    item.set(long)  # again: a file that held no settings took them for values of one line
    after = wanted["state"] or ("running" if runs else "stopped")
    if after == "running" and (not runs or "stop" in item.done):
        item.move("start")
    return {"before": {"state": before, "settings": {key: found.get(key, "") for key in differing}},
            "after": {"state": after, "settings": differing}}


def main():
    module = AnsibleModule(supports_check_mode=True, argument_spec={
        "kind": {"choices": list(TOOLS), "required": True},
        "name": {"required": True},
        "type": {},
        "settings": {"type": "dict", "default": {}},
        "state": {"choices": ["running", "stopped", "absent"]},
        "timeout": {"type": "int", "default": 30},
    })
    item = Item(module)
    if module.params["name"] in ("all", "autostart"):
        item.fail("that name stands for many items")
    for key in module.params["settings"]:
        if not re.fullmatch(r"[^-+&#=\n][^=\n]*", key):
            item.fail(f"{key!r} is no key of a setting")
    difference = remove(item) if module.params["state"] == "absent" else bring_about(item, module.params)
    module.exit_json(changed=bool(item.done), done=item.done, diff=difference)


if __name__ == "__main__":
    main()
