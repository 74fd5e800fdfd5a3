# The installed JSON Schemas against the documents that the tools print, and the manifests against what drivers
# report. Prints what is not as it should be.
import json
import pathlib
import re
import subprocess
import sys
from jsonschema import Draft202012Validator

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))
from tables import drivers_with_document

# Tool, directory, what a program's name begins with, and kind of its items.
TOOLS = [
    ("zelm_chctl", "rendermgr", "zelm_rendermgr", "CHANNEL"),
    ("zelm_outctl", "outputs", "zelm_out_", "OUTPUT"),
    ("zelm_inctl", "inputs", "zelm_", "INPUT"),
    ("zelm_routectl", "routing", "zelm_", "ROUTER"),
]
# What was typed by hand. Two keys end a listing whose text is none of theirs.
TEXTS = ["", "1", "-2.5", "loud", "3000000000", "1e999", "nan", "15", "25/1p", "text", "decibelm5", "/a//b/", "a b"]
SAFE = {"audio meter": "-inf,-3", "video aspect ratio": "16:9"}
# What is stored as it stands, and what is not: the schema and zelmctl check are of one mind.
TAKEN = [
    ("knox_rsii", {"inputs": 8}), ("x11", {"driver": None}), ("alsa", {"driver": "alsa", "alsa_output": None}),
    ("x11", {"video": {"rate": "25"}, "x11": {"title": 7.5, "fullscreen": {"position": {"x": -3}}}}),
    ("drmkms", {"kms": {"connector": {"type": "displayport", "card": {"select": "0"}}}}),
    ("internet_mpeg", {"enc": [None, {"asi": [None], "audio": {"encoder": "opus", "rate": 48000}}]}),
    ("internet_mpeg", {"audio_normalizer_map_mode": "cubic"}), ("video_passthru", {"driver": None, "width": 720}),
    ("channel", {"behavior": {"systemDelay": {"count": "2", "units": "frames"}}, "audio": {"ducking": {"level": "-6.5"}}}),
    ("channel", {"regions": {"music": {"policy": "sometimes"}, "global": [{"enable": False}, None]}}),
    ("channel", {"video": {"aspect": {"width": 16, "height": "9"}, "subsampling": "4:2:1"}}),
]
REFUSED = [
    ("x11", {"x11": {"keepAbov": True}}), ("x11", {"x11": {"keepAbove": "yes"}}), ("x11", {"behaviour": {}}),
    ("x11", {"driver": "alsa"}), ("x11", {"source": "/mnt/one"}), ("shoutcast", {"enc": [{}, {"codec": "mp3"}]}),
    ("drmkms", {"kms": {"connector": {"card": {"select": True}}}}), ("internet_mpeg", {"enc": [{}, {}, {}, {}]}),
    ("internet_mpeg", {"enc": [{"asi": [{"path": False}]}]}), ("channel", {"behavior": {"systemDelay": {"unit": "s"}}}),
    ("channel", {"audio": {"normalizer": {"passes": [{}, {"minimum": -3}]}}}), ("x11", {"video": {"rate": "025"}}),
    ("channel", {"regions": {"main": {"kind": "items"}}}), ("channel", {"regions": {"item": {"policy": "never"}}}),
    ("alsa", {"driver": None}), ("alsa", {"driver": "oss"}), ("internet_mpeg", {"driver": ""}), ("x11", {"x11": None}),
    ("shoutcast", {"driver": "alsa"}), ("shoutcast", {"enc": None}), ("video_passthru", {"driver": "trigger_rs232"}),
    ("x11", {"video": {"rate": 2.5}}), ("x11", {"video": {"rate": 3e9}}), ("channel", {"audio": {"ducking": {"level": "loud"}}}),
]
MEMBERS = [
    ("x11", ["x11", "active"], {"type": ["boolean", "null"], "readOnly": True, "title": "active",
                                "description": "Status, whether X11 window is active", "x-key": "active"}),
    ("x11", ["driver"], {"type": ["string", "null"], "enum": ["x11", None], "default": "x11", "title": "driver"}),
    ("drmkms", ["kms", "connector", "type"], {
        "anyOf": [{"enum": ["hdmi", "vga", "dvi-d", "lvds"]}, {"type": ["string", "number", "null"]}],
        "default": "hdmi", "title": "connector", "x-key": "connector",
        "description": "What kind of connector to use on the card"}),
    ("internet_mpeg", ["audio_normalizer_map_mode"], {
        "type": ["string", "number", "null"], "default": "", "title": "audio normalizer map mode",
        "x-key": "audio normalizer map mode",
        "description": "Set audio normalization mapping mode. Decibel (log) mode can provide higher quality at the cost"
                       " of some additional CPU load."}),
    ("channel", ["debug", "burnIn"], {
        "type": ["string", "number", "null"], "default": None, "writeOnly": True, "title": "burn in", "x-key": "burn in",
        "description": "Render debug info into the frame"}),
]
# One is stored twice, and the key of the other ends in a "=": what is stored of them is not what was given.
TWOFOLD = {"audio.normalizer.enable", "audio.normalizer.passes.1.upper"}
# A null of one of them alone is nothing.
TOGETHER = {"caption.conversion.enable", "caption.conversion.force"}
# How many members of each document only tell something.
READ_ONLY = {"alsa": 5, "blackmagic_decklink_sdi": 5, "channel": 61, "drmkms": 7, "fbdev": 5, "internet_mpeg": 29, "oss": 3,
             "pulseaudio": 3, "schedule_push": 4, "shoutcast": 10, "video_passthru": 11, "video_passthru_v2": 11, "x11": 8}


def output_of(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, check=True, encoding="utf-8").stdout


# The document with every value null that a document can set; the meter is told alone, and the driver's word is kept.
def with_nulls(value, name=""):
    if isinstance(value, dict):
        return {key: with_nulls(member, key) for key, member in value.items()}
    if isinstance(value, list) and any(isinstance(element, dict) for element in value):
        return [with_nulls(element) for element in value]
    return value if name in ("meter", "driver") else None


# What a form has before anybody types.
def form_of(schema):
    if schema.get("type") == "object":
        forms = {name: form_of(member) for name, member in schema["properties"].items()}
        return {name: form for name, form in forms.items() if form != ()}
    if "prefixItems" in schema:
        return [form_of({**element, "type": "object"}) for element in schema["prefixItems"]]
    if "maxItems" in schema:
        return [form_of({**schema["items"], "type": "object"})] * schema["maxItems"]
    return schema.get("default", ())


def findings(driver, document):
    found = subprocess.run(["zelmctl", "check", "--json", "document", "--driver", driver, "-"], input=json.dumps(document),
                           stdout=subprocess.PIPE, encoding="utf-8").stdout
    return [finding for finding in json.loads(found) if finding.get("member") not in TWOFOLD]


# Each member as it is explained, beside what a document of nulls makes of a setting of its.
def check_explained(tool, path, item, driver):
    before = open(path).read()
    members = json.loads(output_of("zelmctl", "explain", "--json", driver))["members"]
    told = [member for member in members if member["told"] and member["member"] not in TWOFOLD | TOGETHER]
    document = {}
    for member in told:
        *around, name = member["member"].split(".")
        at = document
        for inner in around:
            at = at.setdefault(inner, {})
        at[name] = None
    open(path, "w").write(before + "".join(f"{member['key']}=stored\n" for member in told))
    output_of(tool, "-c", "set", "-o", item, "--json-driver", driver, "--json-out", json.dumps(with_lists(document)))
    stored = dict(line.split("=", 1) for line in open(path).read().splitlines() if "=" in line)
    for member in told:
        left = stored.get(member["key"], "")
        if left != ("stored" if member["null"] is None else member["null"]):
            print(f"{driver}: a null of {member['member']} leaves {left!r}, and is explained as {member['null']!r}")
    open(path, "w").write(before)


def with_lists(value):
    if not isinstance(value, dict):
        return value
    members = {name: with_lists(member) for name, member in value.items()}
    return list(members.values()) if "0" in members else members


def check_form(tool, path, item, driver):
    before = open(path).readline()
    form = form_of(schema_of(driver))
    output_of(tool, "-c", "set", "-o", item, "--json-driver", driver, "--json-out", json.dumps(form))
    listed = json.loads(output_of(tool, "-c", "list", "--json", "-o", item))
    if listed.get("driver") != form.get("driver") or before not in ("\n", *open(path)):
        print(f"a form of all defaults leaves {driver} with {open(path).read()}")
    for finding in findings(driver, form):
        print(f"a form of all defaults for {driver}: {finding}")


def schema_of(driver):
    schema = json.load(open(f"/usr/share/zelmctl/schemas/{driver}.schema.json", encoding="utf-8"))
    Draft202012Validator.check_schema(schema)
    return schema


def check(tool, directory, program, driver):
    item = "channel1" if driver == "channel" else driver

    def document():
        return json.loads(output_of(tool, "-c", "list", "--json", "-o", item))

    first_line = {"zelm_chctl": "", "zelm_inctl": "#!" + driver.replace("_", "-")}.get(tool, "driver=" + driver)
    open(f"/mnt/main/tv/{directory}/{item}", "w").write(first_line + "\n")
    check_explained(tool, f"/mnt/main/tv/{directory}/{item}", item, driver)
    check_form(tool, f"/mnt/main/tv/{directory}/{item}", item, driver)
    manifest = open(f"/usr/share/tavorn4/arglist/{program}.al", encoding="utf-8").read()
    keys = [key for key in re.findall(r"^\[([^=]*)\]$", manifest, re.M) if key != "driver"]
    documents = [{}]
    for filled in range(4):
        settings = [f"{k}={SAFE.get(k, TEXTS[(i + 4 * filled) % len(TEXTS)])}" for i, k in enumerate(keys) if filled]
        open(f"/mnt/main/tv/{directory}/{item}", "w").write("\n".join([first_line] + settings) + "\n")
        documents.append(document())
    output_of(tool, "-c", "start", "-o", item)
    listings = (output_of(tool, "-c", "list", "--desc", "-o", item) for _ in range(2000))
    listing = next(text for text in listings if "running=1\n" in text)
    for key in re.findall(r"^\t[^<.\n]?\t(.*?)=.*\n(?!\.desc=)", listing, re.M):
        print(f"{driver} has no description of {key}")
    documents.append(document())
    schema = schema_of(driver)
    read_only = json.dumps(schema).count('"readOnly": true')
    if read_only != READ_ONLY.get(driver, 0):
        print(f"{driver} has {read_only} members that only tell something")
    validator = Draft202012Validator(schema)
    for errors in (validator.iter_errors(form) for whole in documents for form in (whole, with_nulls(whole))):
        for error in errors:
            print(driver, list(error.path), error.message)


for tool, directory, program, kind in TOOLS:
    for driver in drivers_with_document(kind):
        check(tool, directory, program if driver == "channel" else program + driver, driver)
for verdict, rows in (True, TAKEN), (False, REFUSED):
    for driver, document in rows:
        if Draft202012Validator(schema_of(driver)).is_valid(document) != verdict:
            print(f"{driver}: the schema is wrong of {document}")
        if (findings(driver, document) == []) != verdict:
            print(f"{driver}: zelmctl check is wrong of {document}: {findings(driver, document)}")
for driver, path, expected in MEMBERS:
    member = schema_of(driver)
    for name in path:
        member = member["properties"][name]
    if member != expected:
        print(f"{driver} {path} is {member}")
