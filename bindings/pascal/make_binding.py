"""Writes a binding for Free Pascal and Delphi: make_binding.py INTERFACE_FILE BINDING_FILE

The binding is a unit, named like its file, with the functions, the codes and the constants under the
names that they have in C, and nothing above them.
"""

import json
import pathlib
import sys

TYPES = {"bool": "Boolean", "text": "PWideChar", "texts": "PPWideChar", "float": "Single",
         "int32": "Int32", "uint32": "UInt32", "uint64": "UInt64"}
RESERVED = {"begin", "end", "type"}


def name_of(text):
    return f"&{text}" if text in RESERVED else text


def type_of(entry, handles):
    """Each family of handles is a type of its own, so that the compiler keeps them apart."""
    if entry["kind"] == "handle":
        return handles[entry["family"]]
    pointer = "P" if entry.get("direction") == "out" else ""
    return pointer + TYPES[entry["kind"]]


def function(entry, handles):
    parameters = "; ".join(f"{name_of(parameter['name'])}: {type_of(parameter, handles)}"
                           for parameter in entry["parameters"])
    result = entry["result"]
    head = "procedure" if result["kind"] == "void" else "function"
    tail = "" if result["kind"] == "void" else f": {type_of(result, handles)}"
    yield f"{head} {entry['name']}({parameters}){tail}; cdecl; external Library_;"


def constant(name, value):
    text = f"'{value}'" if isinstance(value, str) else value
    return f"  {name} = {text};"


def binding(interface, unit):
    handles = {family["name"]: family["handle"] for family in interface["families"]}
    yield f"{{ Made from krt_plx.api.json, version {interface['version']['text']}. }}"
    yield f"unit {unit};"
    yield "{$IFDEF FPC}{$MODE DELPHI}{$PACKRECORDS C}{$ENDIF}"
    yield ""
    yield "interface"
    yield ""
    yield "const"
    yield "  Library_ = {$IFDEF MSWINDOWS}'krt_plx.dll'{$ELSE}'krt_plx'{$ENDIF};"
    for entry in interface["enums"]:
        yield from (constant(value["name"], value["value"]) for value in entry["values"])
    yield from (constant(entry["name"], entry["value"]) for entry in interface["constants"])
    yield ""
    yield "type"
    yield "  { Texts are 16-bit units on every system. }"
    yield "  PPWideChar = ^PWideChar;"
    for handle in handles.values():
        yield f"  {handle}Object = record end;"
        yield f"  {handle} = ^{handle}Object;"
    yield ""
    for entry in interface["functions"]:
        yield from function(entry, handles)
    yield ""
    yield "implementation"
    yield ""
    yield "end."


def main():
    source, target = map(pathlib.Path, sys.argv[1:])
    interface = json.loads(source.read_text(encoding="utf-8"))
    target.write_text("\n".join(binding(interface, target.stem)) + "\n", encoding="utf-8")


main()
