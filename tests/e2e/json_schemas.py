# The installed JSON Schemas against the documents that the tools print, and the manifests against what drivers
# report. Prints what is not as it should be.
import json
import re
import subprocess
from jsonschema import Draft202012Validator

OUTPUTS = "alsa blackmagic_decklink_sdi drmkms fbdev internet_mpeg oss pulseaudio schedule_push shoutcast x11"
ROUTERS = "blackmagic_videohub knox_rs16x16hb knox_rs8x8hb knox_rsii sierra_video_aspen_hdsdi"
# Tool, directory, what a program's name begins with, and drivers.
DRIVERS = [
    ("zelm_chctl", "rendermgr", "zelm_rendermgr", "channel"),
    ("zelm_outctl", "outputs", "zelm_out_", OUTPUTS),
    ("zelm_inctl", "inputs", "zelm_", "trigger_rs232 video_passthru video_passthru_v2"),
    ("zelm_routectl", "routing", "zelm_", ROUTERS),
]
# What was typed by hand. Two keys end a listing whose text is none of theirs.
TEXTS = ["", "1", "-2.5", "loud", "3000000000", "1e999", "nan", "15", "25/1p", "text", "decibelm5", "/a//b/", "a b"]
SAFE = {"audio meter": "-inf,-3", "video aspect ratio": "16:9"}
REFUSED = [
    ("x11", {"x11": {"keepAbov": True}}), ("x11", {"x11": {"keepAbove": "yes"}}), ("x11", {"behaviour": {}}),
    ("x11", {"driver": "alsa"}), ("x11", {"source": "/mnt/one"}), ("shoutcast", {"enc": [{}, {"codec": "mp3"}]}),
    ("drmkms", {"kms": {"connector": {"card": {"select": True}}}}), ("internet_mpeg", {"enc": [{}, {}, {}, {}]}),
    ("internet_mpeg", {"enc": [{"asi": [{"path": 5}]}]}), ("channel", {"behavior": {"systemDelay": {"unit": "s"}}}),
    ("channel", {"audio": {"normalizer": {"passes": [{}, {"minimum": -3}]}}}),
    ("channel", {"regions": {"main": {"kind": "items"}}}), ("channel", {"regions": {"item": {"policy": "never"}}}),
]
MEMBERS = [
    ("x11", ["x11", "active"], {"type": ["boolean", "null"], "default": False, "readOnly": True,
                                "description": "Status, whether X11 window is active"}),
    ("x11", ["driver"], {"type": ["string", "null"], "enum": ["x11", None], "default": "x11"}),
    ("drmkms", ["kms", "connector", "type"], {
        "type": ["string", "null"], "examples": ["hdmi", "vga", "dvi-d", "lvds"], "default": "hdmi",
        "description": "What kind of connector to use on the card"}),
    ("channel", ["reporting", "interval"], {
        "type": ["number", "null"], "default": 5,
        "description": "How frequently to send updates to the reporting service in seconds"}),
    ("channel", ["debug", "burnIn"], {"type": ["string", "null"], "default": None, "writeOnly": True,
                                      "description": "Render debug info into the frame"}),
]


def output_of(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, check=True, encoding="utf-8").stdout


# The document with every value null that a document can set; the meter is told alone.
def with_nulls(value, name=""):
    if isinstance(value, dict):
        return {key: with_nulls(member, key) for key, member in value.items()}
    if isinstance(value, list) and any(isinstance(element, dict) for element in value):
        return [with_nulls(element) for element in value]
    return value if name == "meter" else None


def schema_of(driver):
    schema = json.load(open(f"/usr/share/zelmctl/schemas/{driver}.schema.json", encoding="utf-8"))
    Draft202012Validator.check_schema(schema)
    return schema


def check(tool, directory, program, driver):
    item = "channel1" if driver == "channel" else driver

    def document():
        return json.loads(output_of(tool, "-c", "list", "--json", "-o", item))

    first_line = {"zelm_chctl": "", "zelm_inctl": "#!" + driver.replace("_", "-")}.get(tool, "driver=" + driver)
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
    validator = Draft202012Validator(schema_of(driver))
    for errors in (validator.iter_errors(form) for whole in documents for form in (whole, with_nulls(whole))):
        for error in errors:
            print(driver, list(error.path), error.message)


for tool, directory, program, drivers in DRIVERS:
    for driver in drivers.split():
        check(tool, directory, program if driver == "channel" else program + driver, driver)
for driver, document in REFUSED:
    if Draft202012Validator(schema_of(driver)).is_valid(document):
        print(f"{driver} takes {document}")
for driver, path, expected in MEMBERS:
    member = schema_of(driver)
    for name in path:
        member = member["properties"][name]
    if member != expected:
        print(f"{driver} {path} is {member}")
