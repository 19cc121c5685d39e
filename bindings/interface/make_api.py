"""Writes the interface of the library as data: make_api.py CLANG INCLUDE_FOLDER FILE

Bindings are made from the file; the page "Bindings for other languages" of the manual describes it.
"""

import json
import pathlib
import re
import sys

from declarations import PREFIX, Reader, comment_of, find, type_of
from meaning import Meaning, deaths, lifetime, text_rule

FORMAT = 1
KINDS = {"void": "void", "_Bool": "bool", "bool": "bool", "float": "float", "int32_t": "int32",
         "uint32_t": "uint32", "uint64_t": "uint64", "const KRT_PLX_Char *": "text",
         "const KRT_PLX_Char *const *": "texts", "uint64_t *": "uint64", "uint32_t *": "uint32"}
ROOT = "Base"
# The slot of a clip in its manager; every other object is in the slot that is named after its
# family.
CLIP_SLOTS = {"systemClip": "systemClip", "userClip": "userClip", "createMutableClip": "mutableClip",
              "save": "userClip"}
CLIP_CLASSES = {"systemClip": "Clip", "userClip": "UserClip", "mutableClip": "MutableClip"}
EDITABLE = "Mutable"
# Families that have audio objects and MIDI objects.
KINDS_OF = ("PartBase", "EffectBase")
# The classes without a class of the same name and "Base".
BASES = {"UserClip": "Clip", "MidiPartBase": "PartBase", "AudioPartBase": "PartBase",
         "AudioEffect": "Effect", "MidiEffect": "Effect", "MutableFilter": "Filter"}
ROOTS = ("Manager", "PropertyEditor", "Filter")


def c_type(text):
    return text.replace("_Bool", "bool")


def type_entry(text):
    handle = re.fullmatch(rf"{PREFIX}(\w+) \*", text)
    if handle:
        return {"kind": "handle", "family": handle[1], "c": text}
    return {"kind": KINDS[text], "c": c_type(text)}


def split_name(name):
    """The class and the operation; two functions have no class."""
    owner, mark, operation = name.removeprefix(PREFIX).partition("_")
    return (owner, operation) if mark else (None, owner)


class Functions:
    """Makes the entries for the functions."""

    def __init__(self, meaning, destroyed):
        self.meaning = meaning
        self.destroyed = destroyed

    def entry(self, header, node):
        name = node["name"]
        comment = comment_of(node)
        owner, operation = split_name(name)
        declared = [inner for inner in node["inner"] if inner["kind"] == "ParmVarDecl"]
        parameters = [self.parameter(place, inner, owner, comment)
                      for place, inner in enumerate(declared)]
        entry = {
            "name": name, "class": owner, "operation": operation, "header": header,
            "family": parameters[0].get("family") if owner else None,
            "c": self.declaration(name, node, declared),
            "comment": comment["text"],
            "parameters": parameters,
            "result": self.result(name, node, comment),
        }
        if name in self.destroyed:
            entry["destroys"] = self.destroyed[name]
        return entry

    @staticmethod
    def declaration(name, node, declared):
        result = node["type"]["qualType"].partition("(")[0].strip()
        parameters = ", ".join(f"{inner['type']['qualType']} {inner['name']}" for inner in declared)
        return c_type(f"{result} {name}({parameters})".replace("* ", "*"))

    def parameter(self, place, node, owner, comment):
        text = comment["parameters"][node["name"]]
        written = type_entry(node["type"]["qualType"])
        is_out = written["kind"].startswith("uint") and written["c"].endswith("*")
        entry = {"name": node["name"], **written, "direction": "out" if is_out else "in",
                 "role": self.role(place, written, owner, is_out, text), "comment": text}
        if entry["role"] == "value" and written["kind"] not in ("bool", "texts"):
            if written["kind"] == "text":
                entry["accepts"] = text_rule(node["name"], text, comment["result"])
            else:
                entry["accepts"] = self.meaning.range_of(written["kind"], text)
                entry["enum"] = self.meaning.enum_of(text)
        return entry

    @staticmethod
    def role(place, written, owner, is_out, text):
        if written["kind"] == "handle":
            return "self" if place == 0 and owner else "element"
        if is_out:
            return "result"
        if written["kind"] == "texts":
            return "array"
        if text.startswith("number of entries in"):
            return "size"
        return "value" if written["kind"] != "uint64" or "new" in text else "index"

    def result(self, name, node, comment):
        text = comment["result"]
        entry = type_entry(node["type"]["qualType"].partition("(")[0].strip())
        entry["comment"] = text
        entry["rejected"] = self.meaning.rejected(entry["kind"], text)
        if entry["kind"] == "handle":
            entry |= self.ownership(name, text)
        elif entry["kind"] == "text":
            entry |= {"owner": "self", "lifetime": lifetime(text) or "valid as long as the object, "
                      "of an editable one until the same value is set"}
        elif entry["kind"] in ("int32", "uint32", "uint64", "float"):
            head = text.partition("; ")[0]
            entry["range"] = self.result_range(entry["kind"], head, text)
            entry["enum"] = self.meaning.enum_of(text)
            entry["marks"] = self.meaning.marks(text)
        return entry

    def result_range(self, kind, head, text):
        codes = re.findall(r"#(KRT_PLX_RESULT_\w+)", text)
        if codes:
            return {"values": sorted({self.meaning.constants[code] for code in codes})}
        return self.meaning.range_of(kind, head)

    @staticmethod
    def ownership(name, text):
        owner, operation = split_name(name)
        entry = {"slot": CLIP_SLOTS.get(operation)}
        if operation == "parent":
            return {"owner": "owner of self", "slot": None, "lifetime": "it owns the object that was asked"}
        if owner is None:
            entry |= {"owner": "library", "slot": "manager"}
        else:
            entry["owner"] = "manager" if "owned by the manager" in text and owner != "Manager" else "self"
        return entry | {"lifetime": lifetime(text) or "valid as long as the owner"}


def slot_of(entry, families):
    """The slot of an object that is named after its family."""
    result = entry["result"]
    if result["kind"] == "handle" and result["slot"] is None and result["owner"] != "owner of self":
        result["slot"] = families[result["family"]]["slot"]


def ended_by(functions):
    """Adds to each result that is an object the calls that destroy it, except those that destroy
    its owner."""
    for entry in functions:
        if entry["result"].get("slot"):
            entry["result"]["ended_by"] = [other["name"] for other in functions if ends(other, entry)]


def ends(other, entry):
    return any(ends_this(death, other, entry) for death in other.get("destroys", []))


def ends_this(death, other, entry):
    slot, made = entry["result"]["slot"], entry["result"]["class"]
    if death["what"] == "children":
        return death["slot"] == slot and (slot != "part" or other["class"] == entry["class"])
    return other["class"] in (made, base_of(made))


def class_of_object(entry):
    """The narrowest class that accepts the object which a function returns; none for a parent,
    which can be of several classes."""
    result = entry["result"]
    if result["slot"] is None:
        return None
    if result["slot"] in CLIP_CLASSES:
        return CLIP_CLASSES[result["slot"]]
    editable = "Mutable" if (entry["class"] or "").startswith(EDITABLE) else ""
    kind = re.search(r"(?i)audio|midi", entry["operation"]) if result["family"] in KINDS_OF else None
    return editable + (kind[0].capitalize() if kind else "") + result["family"].removesuffix(ROOT)


def base_of(name):
    """The class whose functions also accept the objects of a class; none for the root of a family."""
    if name in BASES:
        return BASES[name]
    plain = name.removeprefix(EDITABLE)
    if plain != name and plain in ("AudioEffect", "MidiEffect"):
        return f"{EDITABLE}Effect"
    return None if plain.endswith(ROOT) or name in ROOTS else plain + ROOT


def first_letter_small(name):
    return name[:1].lower() + name[1:]


def families_of(reader):
    found = {}
    for header, node in reader.declarations("TypedefDecl"):
        if type_of(node).startswith("struct "):
            name = node["name"].removeprefix(PREFIX)
            found[name] = {"name": name, "handle": node["name"], "header": header,
                           "slot": first_letter_small(name.removesuffix(ROOT)),
                           "comment": comment_of(node)["text"]}
    return found


def enums_of(reader):
    found = []
    for header, node in reader.declarations("EnumDecl"):
        values = [{"name": inner["name"], "value": int(find(inner, "ConstantExpr")["value"]),
                   "comment": comment_of(inner)["text"]}
                  for inner in node["inner"] if inner["kind"] == "EnumConstantDecl"]
        found.append({"name": node["name"], "header": header, "comment": comment_of(node)["text"],
                      "values": values})
    return found


def constants_of(reader):
    macros = reader.macros()
    values = reader.values([name for name, _, _ in macros])
    return [{"name": name, "type": values[name][0], "value": values[name][1], "header": header,
             "comment": comment} for name, header, comment in macros]


def classes_of(functions):
    found = {}
    for entry in functions:
        if entry["class"]:
            made = {"name": entry["class"], "base": base_of(entry["class"]), "family": entry["family"], "header": entry["header"],
                    "functions": []}
            found.setdefault(entry["class"], made)["functions"].append(entry["name"])
    return list(found.values())


def version_of(constants):
    values = {entry["name"]: entry["value"] for entry in constants}
    return {"text": values["KRT_PLX_VERSION"],
            **{part: values[f"KRT_PLX_VERSION_{part.upper()}"] for part in ("major", "minor", "patch")}}


def make(clang, include):
    reader = Reader(clang, include)
    constants = constants_of(reader)
    enums = enums_of(reader)
    families = families_of(reader)
    known = {entry["name"]: entry["value"] for entry in constants}
    known |= {value["name"]: value["value"] for enum in enums for value in enum["values"]}
    members = {enum["name"]: {value["name"]: value["value"] for value in enum["values"]} for enum in enums}
    declared = list(reader.declarations("FunctionDecl"))
    main_header = (pathlib.Path(include) / "korvel/plx.h").read_text(encoding="utf-8")
    maker = Functions(Meaning(known, members),
                      deaths(main_header, [node["name"] for _, node in declared]))
    functions = [maker.entry(header, node) for header, node in declared]
    for entry in functions:
        slot_of(entry, families)
        if entry["result"]["kind"] == "handle":
            entry["result"]["class"] = class_of_object(entry)
    ended_by(functions)
    return {
        "format": FORMAT, "library": "krt_plx", "version": version_of(constants),
        "text": {"unit_bits": 16, "encoding": "UTF-16", "byte_order": "of the system",
                 "ends_with": 0, "c": "KRT_PLX_Char"},
        "families": list(families.values()), "classes": classes_of(functions), "enums": enums,
        "constants": constants, "functions": functions,
    }


def main():
    clang, include, file = sys.argv[1:]
    text = json.dumps(make(clang, include), indent=1, ensure_ascii=False)
    pathlib.Path(file).write_text(text + "\n", encoding="utf-8")


if __name__ == "__main__":
    main()
