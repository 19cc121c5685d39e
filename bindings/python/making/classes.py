"""Writes the classes of the package: properties for values that can be read and set, sequences for
lists, methods for everything else. The hand-written members in additions.py are added."""

import ast
import pathlib
import re

from names import TYPES, bare, docstring, plural, small, snake
from plain import HEAD

ADDITIONS = pathlib.Path(__file__).parent / "additions.py"
ACTIONS = ("read", "remove", "save", "destroy", "create", "add", "insert", "move", "protect")
# Documented in additions.py.
BY_HAND = {"protect"}
NO_LANGUAGE = 0xFFFFFFFF


class Model:
    """The interface by class."""

    def __init__(self, interface):
        self.classes = {entry["name"]: entry for entry in interface["classes"]}
        self.families = {entry["name"]: entry for entry in interface["families"]}
        self.functions = {bare(entry["name"]): entry for entry in interface["functions"]}
        self.order = []
        for name in self.classes:
            self.place(name)

    def place(self, name):
        """Sorts bases before the classes that are derived from them."""
        base = self.classes[name]["base"]
        if base:
            self.place(base)
        if name not in self.order:
            self.order.append(name)

    def lineage(self, name):
        while name:
            yield name
            name = self.classes[name]["base"]

    def find(self, name, operation):
        """The function of a class or of one above it."""
        for owner in self.lineage(name):
            if f"{owner}_{operation}" in self.functions:
                return f"{owner}_{operation}"
        return None

    def makers(self, name):
        """The classes whose objects own those of a class."""
        found = [entry["class"] for entry in self.functions.values()
                 if entry["result"].get("class") == name and entry["result"]["owner"] == "self"]
        return list(dict.fromkeys(found))


def operation_entries(model, name):
    for full in model.classes[name]["functions"]:
        yield model.functions[bare(full)]


def values(entry):
    return [p for p in entry["parameters"] if p["role"] not in ("self", "result", "size")]


def objects(interface, additions):
    yield HEAD.format("The objects of the library.")
    yield additions.imports
    model = Model(interface)
    for name in model.order:
        yield from class_of(model, name, additions)
    names = ", ".join(f'"{name}": {name}' for name in model.order)
    yield f"\nregister({{{names}}})"
    yield f"__all__ = {model.order!r}"


def class_of(model, name, additions):
    entry = model.classes[name]
    base = entry["base"] or "Handle"
    yield f"\n\nclass {name}({base}):"
    yield docstring(model.families[entry["family"]]["comment"], "    ")
    if not entry["base"]:
        yield f'\n    FAMILY = "{entry["family"]}"'
    yield from additions.body(name)
    for function in operation_entries(model, name):
        if function["operation"] not in BY_HAND:
            yield from member(model, name, function)


def member(model, name, entry):
    operation = entry["operation"]
    if operation == "parent":
        yield from parent(model, name, entry)
    elif re.match("num[A-Z]", operation) or operation == "aiLangIDSize":
        return
    elif [p["role"] for p in values(entry)] == ["index"]:
        yield from sequence(model, name, entry)
    elif operation.startswith("set") and len(values(entry)) == 1 and getter_of(model, name, entry):
        yield from setter(model, name, entry, getter_of(model, name, entry))
    elif not values(entry) and not operation.startswith(ACTIONS):
        yield from getter(entry)
    else:
        yield from method(entry)
        if operation == "move" and model.find(name, "pos"):
            yield from setter(model, name, entry, model.find(name, "pos"))


def parent(model, name, entry):
    kinds = model.makers(name) or [entry["result"]["family"]]
    kind = "Union[{}]".format(", ".join(kinds)) if len(kinds) > 1 else kinds[0]
    yield from property_of("parent", kind, entry["comment"], f'call("{bare(entry["name"])}", self)')


def property_of(name, kind, comment, expression):
    yield "\n    @property"
    yield f'    def {name}(self) -> "{kind}":'
    yield docstring(comment, "        ")
    known = expression.startswith(("constants.", "PlxSequence("))
    yield f"        return {expression}" if known else f'        return cast("{kind}", {expression})'


def result_kind(entry):
    """The type that a living object returns."""
    result = entry["result"]
    if result["kind"] == "handle":
        may_miss = re.search(r"NULL (?:when|,)", result["comment"])
        return f"Optional[{result['class']}]" if may_miss else result["class"]
    if result["kind"] == "text":
        return "str"
    if result.get("enum"):
        return f"constants.{bare(result['enum'])}"
    return f"Optional[{TYPES[result['kind']]}]" if has_no_language(entry) else TYPES[result["kind"]]


def has_no_language(entry):
    return any(mark["value"] == NO_LANGUAGE for mark in entry["result"].get("marks", []))


def getter(entry):
    call = f'call("{bare(entry["name"])}", self)'
    if has_no_language(entry):
        call = f"none_if({call}, {NO_LANGUAGE})"
    elif entry["result"].get("enum"):
        call = f"constants.{bare(entry['result']['enum'])}({call})"
    yield from property_of(snake(entry["operation"]), result_kind(entry), read_text(entry), call)


def said_of_living(text):
    """Without the result for a null handle, which does not occur here."""
    clauses = [clause.strip() for clause in text.split(";")]
    return "; ".join(clause for clause in clauses if not re.search(r"null handle|handle that is", clause))


def read_text(entry):
    value = said_of_living(entry["result"]["comment"])
    return f"{entry['comment']}\n\nValue: {value}" if value else entry["comment"]


def getter_of(model, name, entry):
    """The getter that belongs to a setter."""
    what = entry["operation"].removeprefix("set")
    return model.find(name, small(what)) or model.find(name, f"is{what}")


def setter(model, name, entry, getter_name):
    """A property with a setter repeats the getter."""
    read = model.functions[getter_name]
    key, kind = snake(read["operation"]), result_kind(read)
    text = f"{read_text(read)}\n\nTo be set: {values(entry)[0]['comment']}"
    yield "\n    @property"
    yield f'    def {key}(self) -> "{kind}":'
    yield docstring(text, "        ")
    yield f"        return super().{key}"
    yield f"\n    @{key}.setter"
    yield f'    def {key}(self, value: "{kind}") -> None:'
    yield f'        accept("{bare(entry["name"])}", self, value)'


def sequence(model, name, entry):
    """A list, which has a function for its size and one for its elements."""
    operation = entry["operation"]
    if operation == "aiLangIDByIndex":
        key, count = "ai_lang_ids", "MidiPartBase_aiLangIDSize"
    else:
        key = plural(snake(operation))
        count = model.find(name, "num" + plural(operation[:1].upper() + operation[1:]))
    has = model.find(name, "has" + operation[:1].upper() + operation[1:])
    kind = {"handle": entry["result"].get("class"), "text": "str"}.get(entry["result"]["kind"], "int")
    asked = f', "{has}"' if has else ""
    expression = f'PlxSequence(self, "{count}", "{bare(entry["name"])}"{asked})'
    text = f"{entry['comment']}\n\nEach: {said_of_living(entry['result']['comment'])}"
    yield from property_of(key, f"PlxSequence[{kind}]", text, expression)


def argument(parameter):
    key = snake(parameter["name"])
    if parameter["kind"] == "handle":
        return f'{key}: "Optional[{parameter["family"]}]"'
    kind = "str" if parameter["kind"] == "text" else TYPES[parameter["kind"]]
    return f"{key}: {kind}" + (" = False" if key == "formatted" else "")


def method(entry):
    """A refused call becomes an exception: ValueError for a wrong argument, or that of the library."""
    name, operation = bare(entry["name"]), entry["operation"]
    arguments = "".join(f", {argument(parameter)}" for parameter in values(entry))
    passed = "".join(f", {snake(parameter['name'])}" for parameter in values(entry))
    kind, helper = outcome(entry)
    yield f'\n    def {snake(operation)}(self{arguments}) -> "{kind}":'
    yield docstring(method_text(entry), "        ")
    call = f'{helper}("{name}", self{passed})'
    yield f"        {call}" if kind == "None" else f'        return cast("{kind}", {call})'


def method_text(entry):
    lines = [f"{snake(parameter['name'])}: {parameter['comment']}" for parameter in values(entry)]
    return "\n\n".join(filter(None, [entry["comment"], "\n".join(lines)]))


def outcome(entry):
    """The type that a method returns, and the helper that makes its result or its exception."""
    operation, kind = entry["operation"], entry["result"]["kind"]
    if operation.startswith("has"):
        return "bool", "call"
    if any(p["role"] == "result" for p in entry["parameters"]):
        return entry["result"]["class"], "saved"
    if kind == "handle":
        optional = operation in ("midiController", "parameter")
        made = entry["result"]["class"]
        return (f"Optional[{made}]", "call") if optional else (made, "made")
    if kind == "uint32":
        return "None", "read"
    if kind == "bool":
        given = [p for p in values(entry) if p["role"] == "value"]
        return "None", "accept" if given else "do"
    return "None", "call"


class Additions:
    """The hand-written members, class by class, and the imports above them."""

    def __init__(self):
        source = ADDITIONS.read_text(encoding="utf-8")
        self.lines = source.splitlines()
        self.classes = {node.name: node for node in ast.parse(source).body
                        if isinstance(node, ast.ClassDef)}
        first = min(node.lineno for node in self.classes.values())
        self.imports = source.partition("# Imports of the generated classes.\n")[2]
        self.imports = self.imports[: self.imports.index("\nclass ")].rstrip()
        assert first > 1

    def body(self, name):
        node = self.classes.get(name)
        if node:
            yield ""
            yield "\n".join(self.lines[node.body[0].lineno - 1 - decorators(node.body[0]): node.end_lineno])


def decorators(node):
    return len(getattr(node, "decorator_list", []))
