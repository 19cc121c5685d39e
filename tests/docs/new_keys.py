"""Puts new keys of the table of keys into the page on the clip format and into the JSON Schemas.

new_keys.py PROJECT PROGRAM

PROGRAM prints the table of keys. A key that is a whole number, or true or false, comes after the key
before it in the table. Any other has to be written by hand; the test docs.Bounds names what is missing.
"""

import json
import pathlib
import re
import subprocess
import sys

from bounds import Table
from bounds_of_page import TYPES, Page
from bounds_of_schemas import TYPES as SCHEMA_TYPES

PAGE = "docs/clip-format.md"
SCHEMAS = ("docs/schemas/data.schema.json", "docs/schemas/property.schema.json")


class ByHand(Exception):
    """There is no place for the key, or more than one."""


def value(entry):
    """The initial value as JSON has it."""
    return json.dumps(bool(entry.facts["initial"]) if entry.kind == "flag" else entry.facts["initial"])


def line_of_page(key, entry):
    span = "" if entry.kind == "flag" else "{minimum} to {maximum} ".format(**entry.facts)
    return f"| `{key}` | {TYPES[entry.kind]} | {span}| default: {value(entry)} |"


def line_of_schema(key, entry):
    bounds = "" if entry.kind == "flag" else ' "minimum": {minimum}, "maximum": {maximum},'.format(**entry.facts)
    return f'"{key}": {{ "type": "{SCHEMA_TYPES[entry.kind]}",{bounds} "default": {value(entry)} }}'


def with_line_in_page(text, table, before, key, entry):
    place = Page(table, text).line_of(before)
    if place is None:
        raise ByHand
    lines = text.split("\n")
    return "\n".join([*lines[:place + 1], line_of_page(key, entry), *lines[place + 1:]])


def with_line_in_schema(text, before, key, entry):
    pattern = re.compile(rf'^( *)("{before[1]}": \{{.*\}})(,?)$', re.MULTILINE)
    if len(pattern.findall(text)) != 1:
        raise ByHand
    return pattern.sub(lambda line: f"{line[1]}{line[2]},\n{line[1]}{line_of_schema(key, entry)}{line[3]}", text)


def is_in_page(table, text, row):
    return Page(table, text).line_of(row) is not None or f"`{row[1]}`" in text


def put_in(texts, table, before, row):
    """The texts with the key in the page and in one schema, as far as it is not there."""
    entry = table.rows[row]
    changed = dict(texts)
    if not is_in_page(table, texts[PAGE], row):
        changed[PAGE] = with_line_in_page(texts[PAGE], table, before, row[1], entry)
    if not any(f'"{row[1]}": ' in texts[file] for file in SCHEMAS):
        file = next((file for file in SCHEMAS if f'"{before[1]}": ' in texts[file]), SCHEMAS[0])
        changed[file] = with_line_in_schema(texts[file], before, row[1], entry)
    return changed


def with_new_keys(texts, table):
    rows = list(table.rows)
    for before, row in zip(rows, rows[1:]):
        if table.rows[row].kind in ("integer", "flag") and before[0] == row[0]:
            try:
                texts = put_in(texts, table, before, row)
            except ByHand:
                print(f"{row[0]}.{row[1]}: to be written by hand")
    return texts


def main():
    project, program = map(pathlib.Path, sys.argv[1:])
    table = Table(json.loads(subprocess.run([program], check=True, capture_output=True, text=True).stdout))
    texts = {file: (project / file).read_text(encoding="utf-8") for file in (PAGE, *SCHEMAS)}
    for file, text in with_new_keys(texts, table).items():
        if text != texts[file]:
            (project / file).write_text(text, encoding="utf-8")
            print(f"{file}: changed")


if __name__ == "__main__":
    main()
