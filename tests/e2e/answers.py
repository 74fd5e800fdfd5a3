# What zelmctl get and zelmctl metrics print of the items that are there, beside the installed schemas, what
# "list --json" prints, and a parser of Prometheus. Prints what is not as it should be.
import json
import pathlib
import re
import subprocess
import warnings

# What takes the resolver's place is not in Debian 12 yet.
warnings.simplefilter("ignore", DeprecationWarning)
from jsonschema import Draft202012Validator, RefResolver
from prometheus_client.parser import text_string_to_metric_families

TOOLS = {"channels": "zelm_chctl", "inputs": "zelm_inctl", "outputs": "zelm_outctl", "routers": "zelm_routectl"}
SECRETS = re.compile(r'"((?:second_)?rtmp_push_key|(?:post|ftp1|ftp2)_url|url)": ')


# Names may be of any bytes.
def output_of(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, encoding="utf-8", errors="surrogateescape").stdout


def document_of_list(kind, name):
    return json.loads(output_of(TOOLS[kind], "-c", "list", "--json", "--timeout", "1", "-o", name))


schemas = {path.name: json.loads(path.read_text()) for path in pathlib.Path("/usr/share/zelmctl/schemas").iterdir()}
shape = schemas["zelmctl-get.schema.json"]
Draft202012Validator.check_schema(shape)
validator = Draft202012Validator(shape, resolver=RefResolver.from_schema(
    shape, store={schema["$id"]: schema for schema in schemas.values()}))

text = output_of("zelmctl", "get", "--timeout", "1")
if SECRETS.search(text) or "s3cret" in text:
    print("tells secrets", text)
if "s3cret" in output_of("zelmctl", "get", "--settings", "--timeout", "1"):
    print("settings tell secrets")
answer = json.loads(output_of("zelmctl", "get", "--settings", "--secrets", "--timeout", "1"))
for told in answer, json.loads(text), json.loads(output_of("zelmctl", "get", "router")):
    for error in validator.iter_errors(told):
        print(list(error.path), error.message)
for kind, items in answer.items():
    for name, item in items.items():
        if item.get("document") and item["document"] != document_of_list(kind, name):
            print(kind, name, "has another document in a listing")
for broken in ({"running": True}, {"driver": "x12", "document": {}}, {"settings": {"a": 1}}, {"b": 1}):
    item = {"driver": "x11", "running": False, "document": None if "driver" in broken else {"driver": "x11"}, **broken}
    if validator.is_valid({"channels": {}, "inputs": {}, "outputs": {"a": item}, "routers": {}}):
        print("the schema takes", item)

samples = [sample for family in text_string_to_metric_families(output_of("zelmctl", "metrics", "--timeout", "1"))
           for sample in family.samples]


def utf8(name):
    return re.sub("[\ud800-\udfff]", "\ufffd", name)


def rows(metric):
    return {(s.labels["kind"] + "s", s.labels["name"], s.labels["driver"]): s.value for s in samples if s.name == metric}


told = {(kind, utf8(name), utf8(item["driver"])): item for kind, items in answer.items() for name, item in items.items()}
running = {key: item for key, item in told.items() if item["running"]}
starts = rows("zelm_item_start_time_seconds")
now = float(output_of("date", "+%s.%N"))
if rows("zelm_item_running") != {key: item["running"] for key, item in told.items()}:
    print("runs:", rows("zelm_item_running"))
if rows("zelm_item_answers") != {key: item["answers"] for key, item in running.items()}:
    print("answers:", rows("zelm_item_answers"))
if starts.keys() != running.keys() or any(abs(now - starts[key] - running[key]["uptime"]) > 10 for key in running):
    print("starts:", starts)
counts = {(s.labels["kind"] + "s", s.labels["state"]): s.value for s in samples if s.name == "zelm_items"}
states = [(key[0], "stopped" if not item["running"] else "running" if item["answers"] else "hung")
          for key, item in told.items()]
if counts != {(kind, state): states.count((kind, state)) for kind in TOOLS for state in ("running", "stopped", "hung")}:
    print("counts:", counts)
