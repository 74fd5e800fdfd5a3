#!/usr/bin/python3
"""The Ansible module behind fleet.yml: an item as "zelmctl plan" and "zelmctl apply" take it."""

import json

from ansible.module_utils.basic import AnsibleModule

DOCUMENTATION = r"""
module: zelm_item
short_description: Creates, configures, starts, stops and deletes an item of a playout appliance
description:
  - Does what C(zelmctl plan) says of the item, by C(zelmctl apply), and nothing else. Check mode stops behind the plan.
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
    description: The type of an input. Needed to create one; another one than it has is a failure.
    type: str
  driver:
    description: The driver of an output or router, also for its document.
    type: str
  settings:
    description:
      - Keys and values as the settings file holds them. An empty value or none removes the key.
      - A value of several lines is a text of several lines. Line feeds at its ends are not stored.
      - Yes and no, in all the forms in which YAML has them, are 1 and 0.
    type: dict
  document:
    description: Members of the driver's document. It may not set what stands in the settings.
    type: dict
  exact:
    description: Whether settings that are not named go.
    type: bool
    default: false
  state:
    description: Whether the item runs, or is not there at all. Nothing is started or stopped without it.
    choices: [running, stopped, absent]
    type: str
  supervised:
    description: Whether the respawn manager looks after it when it runs.
    type: bool
  timeout:
    description: Seconds within which the item has to start or stop.
    type: int
    default: 30
"""

TOOLS = {"channel": "zelm_chctl", "output": "zelm_outctl", "input": "zelm_inctl", "router": "zelm_routectl"}


def stored(value):
    """The value of a setting as the file of an appliance has it."""
    text = "" if value is None else str(int(value) if isinstance(value, bool) else value).strip("\n")
    return text.split("\n") if "\n" in text else text or None


class Item:
    def __init__(self, module):
        self.module = module
        self.wanted = module.params
        self.word = f"{self.wanted['kind']}/{self.wanted['name']}"

    def run(self, *command, fails_above=0, **stream):
        status, output, errors = self.module.run_command(list(command), **stream)
        if status > fails_above:
            self.module.fail_json(msg=f"{self.word}: {errors or output}".rstrip(), changed=False, steps=[])
        return status, output, errors

    def is_there(self):
        return self.run("zelmctl", "save", self.word, fails_above=1)[0] == 0

    def file(self):
        """What is wanted of the item; of one that goes, that it has stopped before."""
        if self.wanted["state"] == "absent":
            item = {"state": "stopped"}
        else:
            item = {name: self.wanted[name] for name in ("type", "driver", "document", "state", "supervised")
                    if self.wanted[name] is not None}
            item["settings"] = {key: stored(value) for key, value in (self.wanted["settings"] or {}).items()}
        return json.dumps({self.wanted["kind"] + "s": {self.wanted["name"]: item}})

    def told(self, subcommand, *switches):
        """The answer to plan or apply, whose status 1 is told by the answer itself."""
        if self.wanted["exact"]:
            switches += ("--exact",)
        _, output, errors = self.run("zelmctl", subcommand, "--json", *switches, "-", data=self.file(), fails_above=1)
        for line in errors.splitlines():
            self.module.warn(f"{self.word}: {line}")
        return json.loads(output)


def bring_about(item):
    """The steps, in check mode those that would be done."""
    goes = item.wanted["state"] == "absent"
    if goes and not item.is_there():
        return []
    steps = item.told("plan")["steps"]
    deletion = [{"item": item.word, "do": "delete"}] if goes else []
    if item.module.check_mode or not steps + deletion:
        return steps + deletion
    if steps:
        steps = item.told("apply", "--timeout", str(item.wanted["timeout"]))["steps"]
    if goes and all(step["done"] for step in steps):
        item.run(TOOLS[item.wanted["kind"]], "-c", "delete", "-o", item.wanted["name"])
        steps += deletion
    return steps


def main():
    module = AnsibleModule(supports_check_mode=True, argument_spec={
        "kind": {"choices": list(TOOLS), "required": True},
        "name": {"required": True},
        "type": {},
        "driver": {},
        "settings": {"type": "dict"},
        "document": {"type": "dict"},
        "exact": {"type": "bool", "default": False},
        "state": {"choices": ["running", "stopped", "absent"]},
        "supervised": {"type": "bool"},
        "timeout": {"type": "int", "default": 30},
    })
    item = Item(module)
    steps = bring_about(item)
    changed = any(step.get("done", True) for step in steps)
    errors = [f"{step['do']}: {step['error']}" for step in steps if "error" in step]
    if errors:
        module.fail_json(msg=f"{item.word}: {', '.join(errors)}", changed=changed, steps=steps)
    difference = "".join(json.dumps(step, ensure_ascii=False) + "\n" for step in steps)
    module.exit_json(changed=changed, steps=steps, diff={"prepared": difference})


if __name__ == "__main__":
    main()
