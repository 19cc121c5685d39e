"""Writes a binding for C#: make_binding.py INTERFACE_FILE BINDING_FILE

The binding has the functions, the codes and the constants, and nothing above them: an example of
what can be made from krt_plx.api.json.
"""

import json
import pathlib
import re
import sys

PREFIX = "KRT_PLX_"
TYPES = {"handle": "IntPtr", "texts": "IntPtr", "bool": "bool", "float": "float", "int32": "int",
         "uint32": "uint", "uint64": "ulong", "void": "void"}
RESERVED = {"event"}


def parameter(entry):
    """A text is passed as UTF-16, on every system; a truth value is one byte wide."""
    name = f"@{entry['name']}" if entry["name"] in RESERVED else entry["name"]
    if entry["kind"] == "text":
        return f"[MarshalAs(UnmanagedType.LPWStr)] string {name}"
    if entry["direction"] == "out":
        return f"ref {TYPES[entry['kind']]} {name}"
    mark = "[MarshalAs(UnmanagedType.U1)] " if entry["kind"] == "bool" else ""
    return f"{mark}{TYPES[entry['kind']]} {name}"


def function(entry):
    """A returned text belongs to the library, so the result is a pointer, from which Text() copies."""
    result = entry["result"]["kind"]
    name = entry["name"].removeprefix(PREFIX)
    parameters = ", ".join(map(parameter, entry["parameters"]))
    yield summary(entry["comment"])
    yield f'    [DllImport("krt_plx", EntryPoint = "{entry["name"]}", CallingConvention = CallingConvention.Cdecl)]'
    if result == "bool":
        yield "    [return: MarshalAs(UnmanagedType.U1)]"
    yield f"    public static extern {TYPES.get(result, 'IntPtr')} {name}({parameters});"
    yield ""


def summary(comment):
    first = re.split(r"(?<=\.)\s", comment)[0]
    text = " ".join(first.split()).replace("&", "&amp;").replace("<", "&lt;")
    return f"    /// <summary>{text}</summary>"


def enumeration(entry):
    yield f"public enum {entry['name'].removeprefix(PREFIX)} : uint"
    yield "{"
    for value in entry["values"]:
        yield f"    {value['name'].removeprefix(PREFIX)} = {value['value']},"
    yield "}"
    yield ""


def constant(entry):
    kind = TYPES.get(entry["type"], "string")
    value = json.dumps(entry["value"]) + ("f" if kind == "float" else "")
    return f"    public const {kind} {entry['name'].removeprefix(PREFIX)} = {value};"


def binding(interface):
    yield f"// Made from krt_plx.api.json, version {interface['version']['text']}."
    yield "using System;"
    yield "using System.Runtime.InteropServices;"
    yield ""
    for entry in interface["enums"]:
        yield from enumeration(entry)
    yield "public static class Plx"
    yield "{"
    yield from map(constant, interface["constants"])
    yield ""
    yield "    /// <summary>A copy of a text that the library returned.</summary>"
    yield "    public static string Text(IntPtr text) => Marshal.PtrToStringUni(text);"
    yield ""
    for entry in interface["functions"]:
        yield from function(entry)
    yield "}"


def main():
    source, target = map(pathlib.Path, sys.argv[1:])
    interface = json.loads(source.read_text(encoding="utf-8"))
    target.write_text("\n".join(binding(interface)) + "\n", encoding="utf-8")


main()
