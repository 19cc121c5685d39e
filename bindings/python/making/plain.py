"""Writes the parts of the package that have one item for each entry of the interface: the table for
the calls, the constants, and the functions."""

from names import TYPES, bare, common_prefix, docstring

HEAD = '"""{}\n\nMade from krt_plx.api.json; do not edit.\n"""\n\nfrom __future__ import annotations\n\n'


def table(interface):
    """The data that a call needs, as a literal."""
    yield HEAD.format("What each function takes, returns and ends.")
    yield "from typing import Any, Dict\n"
    yield f"VERSION = {interface['version']['text']!r}\n"
    yield "FUNCTIONS: Dict[str, Dict[str, Any]] = {"
    for entry in interface["functions"]:
        yield f"    {bare(entry['name'])!r}: {row(entry)!r},"
    yield "}"
    yield "\nBASES: Dict[str, Any] = {"
    for entry in interface["classes"]:
        yield f"    {entry['name']!r}: {entry['base']!r},"
    yield "}"


def row(entry):
    parameters = [{"name": parameter["name"], "kind": parameter["kind"], "role": parameter["role"],
                   "family": parameter.get("family"),
                   "comment": parameter["comment"],
                   "ignored": parameter["comment"].startswith("ignored")}
                  for parameter in entry["parameters"]]
    result = {key: entry["result"].get(key) for key in ("kind", "class", "family", "slot", "owner",
                                                        "rejected")}
    return {"class": entry["class"], "operation": entry["operation"], "parameters": parameters,
            "result": result, "destroys": entry.get("destroys", [])}


def constants(interface):
    yield HEAD.format("The codes and constants of the interface.")
    yield "import enum\n"
    for entry in interface["enums"]:
        yield from enumeration(entry)
    for entry in interface["constants"]:
        yield f"\n{bare(entry['name'])} = {entry['value']!r}"
        yield docstring(entry["comment"], "")


def enumeration(entry):
    prefix = common_prefix([value["name"] for value in entry["values"]])
    yield f"\nclass {bare(entry['name'])}(enum.IntEnum):"
    yield docstring(entry["comment"], "    ") + "\n"
    for value in entry["values"]:
        yield f"    {value['name'].removeprefix(prefix)} = {value['value']}"
        yield docstring(value["comment"], "    ")
    yield ""


def functions(interface):
    """A function for each function of the library, with types for mypy."""
    yield HEAD.format("The functions of the library, by their names without KRT_PLX_.\n\n"
                      "A handle of another family is a TypeError, a dead one a DeadObjectError. For None,\n"
                      "and for a handle of the wrong kind within its family, a function returns its\n"
                      "documented default: the library itself does. A count or a code is a result.")
    yield "from typing import Optional, Sequence, Tuple, cast\n"
    yield "from . import objects"
    yield "from ._calls import call\n"
    for entry in interface["functions"]:
        yield from function(entry)


def argument_type(parameter):
    if parameter["kind"] == "handle":
        return f"Optional[objects.{parameter['family']}]"
    return TYPES[parameter["kind"]]


def result_type(entry):
    result = entry["result"]
    kind = result["kind"]
    plain = (f"Optional[objects.{result['class'] or result['family']}]"
             if kind == "handle" else TYPES[kind])
    out = [p for p in entry["parameters"] if p["role"] == "result"]
    if not out:
        return plain
    return "Optional[int]" if kind == "bool" else f"Tuple[{plain}, Optional[int]]"


def function(entry):
    taken = [p for p in entry["parameters"] if p["role"] not in ("result", "size")]
    parameters = ", ".join(f"{p['name']}: {argument_type(p)}" for p in taken)
    passed = "".join(f", {p['name']}" for p in taken)
    kind = result_type(entry)
    yield f"\ndef {bare(entry['name'])}({parameters}) -> {kind}:"
    yield docstring("\n\n".join(filter(None, [entry["comment"], *details(entry)])), "    ")
    call = f'call("{bare(entry["name"])}"{passed})'
    yield f"    {call}" if kind == "None" else f'    return cast("{kind}", {call})'
    yield ""


def details(entry):
    taken = [p for p in entry["parameters"] if p["role"] not in ("result", "size")]
    lines = [f"{p['name']}: {p['comment']}" for p in taken]
    if entry["result"]["kind"] != "void":
        lines.append(f"Returns: {entry['result']['comment']}")
    yield "\n".join(lines)
