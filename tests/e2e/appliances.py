# Random pairs of appliances: appliances.py COUNT. The first is there, the second is what a file says; apply has to do
# what plan has said, and plan nothing. Prints what is not so.
import json
import pathlib
import random
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path("/mnt/main/tv")
DIRECTORIES = {"channels": "rendermgr", "outputs": "outputs", "inputs": "inputs", "routers": "routing"}
NAMES = {"channels": ["channel1", "channel7"]}
DRIVERS = {"outputs": ["x11", "alsa", "internet_mpeg", "newtek_ndi"], "routers": ["knox_rsii", "knox_rs8x8hb"]}
TYPES = ["video-passthru", "video-passthru-v2", "trigger-rs232"]
KEYS = ["title", "url", "autostart", "k", "a key", "driver alike", "\u00e9\u00e8", "#", " "]
TEXTS = ["", "1", "a=b", " x ", "#multiline", "+1", "\u00e9\u65e5", "\udc80", "x" * 900, "\x00", "\ttab", "\\"]
# What a document holds, and the settings that it comes to.
DOCUMENTS = [
    ("outputs", "x11", {"x11": {"title": "Two", "keepAbove": True}}, {"title": "Two", "always on top": "1"}),
    ("outputs", "x11", {"driver": "x11", "x11": {"title": None}}, {"title": "Tavorn 4 X11/XVideo output"}),
    ("outputs", "alsa", {"alsa_output": "hw:0"}, {"alsa output": "hw:0"}),
    ("inputs", "video_passthru", {"interface": "sdi", "url": ""}, {"interface": "sdi", "url": None}),
    ("channels", "channel", {"name": "News"}, {"channel name": "News"}),
]
TRACER = ["env", "ASAN_OPTIONS=detect_leaks=0", "strace", "-f", "-qq", "-o", "/run/trace"]
CHANGING = re.compile(r"O_CREAT|O_TMPFILE|O_WRONLY|O_RDWR|^(mkdir|unlink|rename|link|symlink|chmod|chown|truncate|flock)")


def value(choose):
    lines = choose.choices(TEXTS, k=choose.choice([1, 1, 1, 2, 3]))
    return None if choose.random() < 0.1 else lines[0] if len(lines) == 1 else ["first", *lines[1:]]


def item(choose, kind, known_type):
    settings = {key: value(choose) for key in choose.sample(KEYS[:-2], choose.randrange(5))}
    made = {"settings": settings}
    if kind == "inputs":
        made["type"] = known_type
    elif kind in DRIVERS and choose.random() < 0.8:
        made["driver"] = choose.choice(DRIVERS[kind])
    for of, driver, document, flat in choose.sample(DOCUMENTS, 2):
        whose = made.get("driver", {"video-passthru": "video_passthru"}.get(made.get("type"), kind[:-1]))
        if (of, driver) == (kind, whose) and not set(settings) & set(flat):
            made["document"] = document
    return made


def appliance(choose):
    kinds = choose.sample(sorted(DIRECTORIES), choose.randrange(1, 5))
    return {kind: {name: item(choose, kind, TYPES[i % 3]) for i, name in enumerate(NAMES.get(kind, ["a", "b c", "\u00e9", "d"]))
                   if choose.random() < 0.6} for kind in kinds}


def flat(kind, made):
    settings = dict(made["settings"])
    if kind in DRIVERS and "driver" in made:
        settings["driver"] = made["driver"]
    for of, driver, document, stored in DOCUMENTS:
        if made.get("document") is document:
            settings.update(stored)
    return {key: "\n".join(text) if isinstance(text, list) else text for key, text in settings.items()}


# What comes of the first appliance by the second.
def merged(first, second, exact, prune):
    after = {kind: dict(items) for kind, items in first.items()}
    for kind, items in second.items():
        was = after.get(kind, {})
        after[kind] = {} if prune else dict(was)
        for name, made in items.items():
            wanted = flat(kind, made)
            kept = {key: text for key, text in was.get(name, {}).items() if not exact or key == "driver"}
            after[kind][name] = {key: text for key, text in (kept | wanted).items() if text is not None}
    return {kind: items for kind, items in after.items() if items}


def stored():
    found = {}
    for kind, directory in DIRECTORIES.items():
        for path in sorted((ROOT / directory).glob("[!.]*")):
            settings, last = {}, None
            for line in path.read_bytes().decode(errors="surrogateescape").split("\n")[:-1]:
                key, _, text = line.partition("=")
                if not line.startswith("#"):
                    settings[key] = settings[key] + "\n" + text if key == last else text
                    last = key
            found.setdefault(kind, {})[path.name] = settings
    return found


def states():
    found = {path: path.lstat() for path in ROOT.rglob("*")}
    return {path: (at.st_ino, at.st_mtime_ns, at.st_ctime_ns, at.st_size) for path, at in found.items()}


def run(words, file):
    text = json.dumps(file, ensure_ascii=False).encode(errors="surrogateescape")
    done = subprocess.run(words + ["-"], input=text, capture_output=True)
    return done.returncode, done.stdout.decode(errors="surrogateescape"), done.stderr.decode()


def steps_of(text):
    steps = json.loads(text)["steps"]
    return [{name: step[name] for name in step if name != "done"} for step in steps]


def one(seed):
    choose = random.Random(seed)
    for directory in DIRECTORIES.values():
        shutil.rmtree(ROOT / directory, ignore_errors=True)
    first, second = appliance(choose), appliance(choose)
    exact, prune = choose.random() < 0.5, choose.random() < 0.5
    switches = ["--exact"] * exact + ["--prune"] * prune
    if run(["zelmctl", "apply"], first)[0] != 0 or stored() != merged({}, first, False, False):
        return "the first appliance"
    before, there = states(), stored()
    tracer = TRACER if seed % 8 == 0 else []
    status, said, told = run([*tracer, "zelmctl", "plan", "--json", *switches], second)
    if tracer and any(CHANGING.search(call.split(" ", 1)[1]) for call in open("/run/trace") if "= -1" not in call):
        return "plan made a call that changes something"
    if states() != before:
        return "plan changed something"
    after = merged(there, second, exact, prune)
    if status != (after != there) or status != bool(steps_of(said)):
        return f"plan ended with {status}: {told}{said}"
    done, did, told = run(["zelmctl", "apply", "--json", *switches], second)
    if done != 0 or steps_of(did) != steps_of(said):
        return f"apply did something else than the plan: {told}{did}"
    if stored() != after:
        return f"apply left {stored()} and not {after}"
    again, said, _ = run(["zelmctl", "plan", *switches], second)
    return "" if (again, said) == (0, "") else f"the second plan is {said}"


if subprocess.run([*TRACER, "true"], capture_output=True).returncode:
    TRACER = []
for number in range(int(sys.argv[1])):
    fault = one(number)
    if fault:
        print(f"seed {number}: {fault}")
