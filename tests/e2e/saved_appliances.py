# Made-up appliances of all documents, of fixed seeds: saved, applied to an empty appliance and saved again, they are the
# same to the byte, as settings and as documents. The first ones, and examples of what is wanted and what can't be, are
# held against the installed JSON Schema. Prints what is not as it should be.
#
#     saved_appliances.py COUNT
import json
import os
import pathlib
import random
import shutil
import subprocess
import sys
import warnings

# What takes the resolver's place is not in Debian 12 yet.
warnings.simplefilter("ignore", DeprecationWarning)
from jsonschema import Draft202012Validator, RefResolver

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))
from tables import drivers_with_document

DIRECTORIES = {"CHANNEL": "rendermgr", "OUTPUT": "outputs", "INPUT": "inputs", "ROUTER": "routing"}
# What somebody may have set, by what the member is in a document.
TEXTS = {
    "boolean": ["0", "1", "-1", "yes"], "integer": ["0", "7", "-3", "007", "3000000000", "many"],
    "number": ["0.5", "25", "-6.50", "1e3", "nan"], "array": ["/mnt/main/a.ts", "media//b/", "/"],
    "string": ["text", "7", "25/1p", " a b ", "\u00e9\u2028", "None"],
    "object": ["16:9", "25:1p", "30000:1001li bff", "90s", "1.5f", "50 33.5", "top left", "linear", "decibelm5", "item"],
}
ODD_TEXTS = ["", "=", "a=b=c", "#", "\t", "\x01\x7f\"\\", "\udcff\udc80", "x" * 900, "driver=x11"]
ODD_KEYS = ["unknown", "titel", " title", "a.b", "\udcfe", "\u00fc", "\x1b", "0", "x11.title", "autostart"]
X11 = {"driver": "x11"}
# What may be wanted, and what check appliance and the schema refuse alike.
TAKEN = [
    {"inputs": {"studio": {"type": "video-passthru", "settings": {"interface": "sdi"}, "state": "running"}},
     "channels": {"channel1": {"settings": {"channel name": "News", "item": "/mnt/main/media/news.ts"}}},
     "outputs": {"monitor": {"driver": "x11", "document": {"x11": {"title": "Control room"}}, "state": "running",
                             "supervised": True}}},
    {}, {"routers": {}}, {"outputs": {"a~\n": {}, "b\n": {"settings": {"driver": "x11", "a": ["1", ""], "b": None, "c": ""}}}},
    {"channels": {"channel1": {"driver": "channel", "document": {"name": "One"}}}},
    {"outputs": {"a": {"settings": X11, "document": {"x11": {"title": "One"}}}}}, {"outputs": {"a": {"document": X11}}},
    {"inputs": {"a": {"driver": "trigger_rs232", "document": {}}, "b": {"type": "video-passthru", "settings": X11}}},
]
REFUSED = [
    {"output": {}}, {"outputs": []}, {"outputs": {"a": {"setting": {}}}}, {"outputs": {"": {}}}, {"outputs": {"all": {}}},
    {"outputs": {"a/b": {}}}, {"outputs": {".a": {}}}, {"outputs": {"a~": {}}}, {"outputs": {"a" * 256: {}}}, {"outputs": {"a": 7}},
    {"channels": {"channel0": {}}}, {"channels": {"channel1\n": {}}}, {"channels": {"channel1": {"driver": "x11"}}},
    {"outputs": {"a": {"type": "video-passthru"}}}, {"inputs": {"a": {"type": "teapot"}}}, {"outputs": {"a": {"document": {}}}},
    {"inputs": {"a": {"type": "trigger-rs232", "driver": "video_passthru"}}}, {"outputs": {"a": {"driver": 7}}},
    {"inputs": {"a": {"type": "trigger-rs232", "document": {"interface": "sdi"}}}}, {"outputs": {"a": {"state": "on"}}},
    {"outputs": {"a": {"supervised": "yes"}}}, {"outputs": {"a": {**X11, "document": {"x11": {"titel": "One"}}}}},
    {"outputs": {"a": {"driver": "newtek_ndi", "document": {}}}}, {"outputs": {"a": {"driver": "alsa", "document": X11}}},
    {"outputs": {"a": {"settings": {"driver": "newtek_ndi"}, "document": {}}}}, {"channels": {"channel1": {"document": []}}},
    *({"outputs": {"a": {"settings": {key: "1"}}}} for key in ["", "#a", "+a", "-a", "&a", "a=b", "a\nb", "a\rb"]),
    *({"outputs": {"a": {"settings": {"a": value}}}} for value in [7, {}, [], [7], "1\n2", "1\r", "x" * 1021, ["", "1"], ["1\n"]]),
]


def run(*command, given=b""):
    return subprocess.run(command, input=given, stdout=subprocess.PIPE, stderr=subprocess.PIPE)


# Each driver's word, kind and members, as they are explained, and those without a document.
DRIVERS = [(word, kind, [member for member in json.loads(run("zelmctl", "explain", "--json", word).stdout)["members"] if member["key"]])
           for kind in DIRECTORIES for word in drivers_with_document(kind)] + [("newtek_ndi", "OUTPUT", []), ("", "ROUTER", [])]


def text_for(maker, schema):
    words = [word for choice in schema.get("anyOf", [schema]) for word in choice.get("enum", []) if word]
    kind = schema.get("type", "string")
    if maker.random() < 0.1:
        return maker.choice(ODD_TEXTS)
    return maker.choice(words or TEXTS[kind[0] if isinstance(kind, list) else kind])


# The lines of a settings file.
def item_of(maker, driver, kind, members):
    chosen = maker.sample(members, min(len(members), maker.choice([0, 1, 5, 30])))
    settings = {member["key"]: [text_for(maker, member["schema"])] for member in chosen}
    for key in maker.sample(ODD_KEYS, maker.choice([0, 0, 2])):
        settings[key] = [maker.choice(ODD_TEXTS)]
    for lines in settings.values():
        if lines[0] and maker.random() < 0.1:
            lines.extend(maker.choices(ODD_TEXTS, k=2))
    settings.pop("driver", None)
    if kind in ("OUTPUT", "ROUTER") and driver:
        settings["driver"] = [driver]
    shuffled = maker.sample(list(settings), len(settings))
    first = ["#!" + driver.replace("_", "-")] if kind == "INPUT" else []
    return first + ["#multiline"] + [f"{key}={line}" for key in shuffled for line in settings[key]]


def clear():
    for directory in DIRECTORIES.values():
        shutil.rmtree(f"/mnt/main/tv/{directory}", ignore_errors=True)
        os.makedirs(f"/mnt/main/tv/{directory}")


def make(seed):
    maker = random.Random(seed)
    clear()
    for number in range(maker.choice([1, 3, 6])):
        driver, kind, members = maker.choice(DRIVERS) if number else DRIVERS[seed % len(DRIVERS)]
        name = f"channel{number + 1}" if kind == "CHANNEL" else maker.choice(["a b", "\u00fc", "\udcff", '"\\', "\n", "-"]) + str(number)
        lines = item_of(maker, driver, kind, members)
        with open(f"/mnt/main/tv/{DIRECTORIES[kind]}/{name}", "wb") as file:
            file.write(b"".join(line.encode(errors="surrogateescape") + b"\n" for line in lines))


def saved(*switches):
    ran = run("zelmctl", "save", *switches)
    if ran.returncode != 0:
        print("save ended with", ran.returncode, ran.stderr)
    return ran.stdout


schemas = {path.name: json.loads(path.read_text()) for path in pathlib.Path("/usr/share/zelmctl/schemas").iterdir()}
shape = schemas["appliance.schema.json"]
Draft202012Validator.check_schema(shape)
validator = Draft202012Validator(shape, resolver=RefResolver.from_schema(
    shape, store={schema["$id"]: schema for schema in schemas.values()}))
for verdict, rows in (True, TAKEN), (False, REFUSED):
    for wanted in rows:
        checked = run("zelmctl", "check", "appliance", "-", given=json.dumps(wanted).encode())
        if validator.is_valid(wanted) != verdict:
            print("the schema is wrong of", wanted, [error.message for error in validator.iter_errors(wanted)])
        if (checked.returncode == 0) != verdict:
            print("check appliance is wrong of", wanted, checked.stdout, checked.stderr)

for seed in range(int(sys.argv[1])):
    make(seed)
    texts = {switches: saved(*switches) for switches in [(), ("--documents",)]}
    faults = []
    for applied, text in texts.items():
        clear()
        ran = run("zelmctl", "apply", "--exact", "--prune", "-", given=text)
        faults += [ran.stderr] if ran.returncode != 0 else []
        faults += [(applied, switches) for switches, before in texts.items() if saved(*switches) != before]
        if seed < len(DRIVERS):
            faults += [error.message for error in validator.iter_errors(json.loads(text.decode(errors="replace")))]
    if faults:
        print("appliance", seed, faults)
