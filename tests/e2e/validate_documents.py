# Holds documents against the installed JSON Schemas: validate_documents.py valid|refused FILE, where each line of
# the file is a driver word, a tab and a document. Prints what is not as it should be.
import json
import sys
from jsonschema import Draft202012Validator

verdict, file = sys.argv[1:]
validators = {}


# The document with every value null that a document can set; the meter is told alone.
def with_nulls(value, name=""):
    if isinstance(value, dict):
        return {key: with_nulls(member, key) for key, member in value.items()}
    if isinstance(value, list) and any(isinstance(element, dict) for element in value):
        return [with_nulls(element) for element in value]
    return value if name == "meter" else None


for line in open(file, encoding="utf-8"):
    driver, text = line.rstrip("\n").split("\t", 1)
    if driver not in validators:
        schema = json.load(open(f"/usr/share/zelmctl/schemas/{driver}.schema.json", encoding="utf-8"))
        Draft202012Validator.check_schema(schema)
        validators[driver] = Draft202012Validator(schema)
    document = json.loads(text)
    for document in [document, with_nulls(document)] if verdict == "valid" else [document]:
        errors = [f"{'.'.join(map(str, e.path))}: {e.message}" for e in validators[driver].iter_errors(document)]
        if (not errors) != (verdict == "valid"):
            print(driver, errors or "takes " + text)
