"""Holds the published schemas to the program's and to the shipped files: schema_test.py PARLOR ROOT

A library's validator reads them. The files are those that .vscode/settings.json connects.
"""
import json
import re
import subprocess
import sys
from pathlib import Path

import yaml
from jsonschema import Draft7Validator

ITEM = {"icon": "icon_dice", "title": "T", "subtitle": "S", "isSelected": False}
BAD_LISTS = [
    {}, [{}], [[]], [{"sectionTitle": "A"}], [{"sectionTitle": None, "items": []}], [{"sectionTitle": "A", "items": {}}],
    *([{"sectionTitle": "A", "items": [item]}] for item in (
        {**ITEM, "titel": "T"}, {**ITEM, "icon": "icon_dyce"}, {**ITEM, "isSelected": "true"}, {**ITEM, "title": 1},
        {key: value for key, value in ITEM.items() if key != "subtitle"})),
]
BAD_FLOWS = [
    "devise: se", "- tapOnn: x", "- 3", "- tapOn", "- {tapOn: a, wait: 1}", "- wait: soon", "- wait: -1", "- setStyle: big",
    "- launchApp: {loading: 3}", "- tapOn: {point: middle}", "- tapOn: {text: [a]}", "- swipe: ['10,10']", "- openBubble",
    "- repeat: {times: 2}", "- assertDebug: {a: b}",
]


class Reader(yaml.SafeLoader):
    """YAML 1.2, as flows and editors read it: no dates, no yes and no."""

    yaml_implicit_resolvers = {}


Reader.add_implicit_resolver("tag:yaml.org,2002:bool", re.compile("true|false$"), None)
Reader.add_implicit_resolver("tag:yaml.org,2002:null", re.compile("$"), None)
Reader.add_implicit_resolver("tag:yaml.org,2002:int", re.compile("-?[0-9]+$"), None)


def validator(parlor, root, kind):
    file = root / "schemas" / f"{kind}.schema.json"
    made = subprocess.run([parlor, "schema", kind], check=True, stdout=subprocess.PIPE, text=True).stdout
    assert file.read_text() == made, f"{file} is not what the program makes: parlor schema {kind} > schemas/{file.name}"
    Draft7Validator.check_schema(json.loads(made))
    return Draft7Validator(json.loads(made))


def check(validates, documents, bad):
    assert documents, "nothing was validated"
    for name, document in documents:
        for error in validates.iter_errors(document):
            raise AssertionError(f"{name}: {list(error.absolute_path)}: {error.message[:300]}")
    for document in bad:
        assert not validates.is_valid(document), f"the schema has nothing against {document}"


def main(parlor, root):
    settings = json.loads((root / ".vscode/settings.json").read_text())
    lists = [file for schema in settings["json.schemas"] for glob in schema["fileMatch"] for file in root.glob(glob[1:])]
    flows = [file for globs in settings["yaml.schemas"].values() for glob in globs for file in root.glob(glob)]
    check(validator(parlor, root, "content"), [(file, json.loads(file.read_text())) for file in lists], BAD_LISTS)
    check(validator(parlor, root, "flow"), [(file, part) for file in flows for part in yaml.load_all(file.read_text(), Reader)],
          [yaml.load(text, Reader) for text in BAD_FLOWS])


if __name__ == "__main__":
    main(Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve())
