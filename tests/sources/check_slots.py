"""Checks that the virtual operations of every interface are declared in their order.

check_slots.py PROJECT            compares them with the recorded order
check_slots.py PROJECT --update   records the order as it is now

The caller of a virtual operation uses its index in the table of the object, which only the order of
the declarations decides. If two operations change places, the library is compiled again and behaves
as before, so no test of its behaviour would notice. Only the casts of an interface, which follow
its operations, may be in any order.

The check also tests itself, on copies in which two neighbours are swapped, or an operation is
missing or added.
"""

import pathlib
import re
import sys
import textwrap

FOLDERS = ("src/model", "src/clip", "src/manager")

# The recorded order. The tilde is the destructor, which is the last operation of a root.
RECORD = pathlib.Path(__file__).with_name("slots.txt")
INTERFACE = re.compile(r"^(\w+):\n((?: .*\n)*)", re.MULTILINE)

HINT = """If that was meant, and an operation came at the end of its interface, record the order:
tests/sources/check_slots.py PROJECT --update. scripts/abi --update does it too."""

COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)
CLASS = re.compile(r"(?<!enum )\bclass (\w+)[^;{}]*\{(\};|.*?\n\};)", re.DOTALL)
OPERATION = re.compile(r"\bvirtual\s[^;{}()]*?(~|\b)(\w+)\s*\([^;{}]*(?:;|\{[^{}]*\})", re.DOTALL)
CAST = re.compile(r"as[A-Z]")


def operations(body):
    """The operations of a class, in the order of their declarations: name and declaration."""
    return [("~" if match[1] else match[2], match[0]) for match in OPERATION.finditer(body)]


def classes(project):
    """The bodies of all classes but the implementations."""
    files = [file for folder in FOLDERS for file in sorted((project / folder).glob("*.h"))
             if not file.stem.endswith("_impl")]
    return {name: body for file in files
            for name, body in CLASS.findall(COMMENT.sub("", file.read_text(encoding="utf-8")))}


def recorded():
    """The operations of each interface, in their order."""
    return {name: slots.split() for name, slots in INTERFACE.findall(RECORD.read_text(encoding="utf-8"))}


def record(found):
    """Interfaces that are known keep their places in the record; new ones follow."""
    orders = {name: [slot for slot, _ in operations(body) if not CAST.match(slot)]
              for name, body in found.items()}
    known = [name for name in recorded() if name in found]
    new = [name for name, slots in orders.items() if slots and name not in known]
    wrap = textwrap.TextWrapper(100, initial_indent="    ", subsequent_indent="    ")
    lines = [line for name in known + new for line in (name + ":", *wrap.wrap(" ".join(orders[name])))]
    RECORD.write_text("\n".join(lines) + "\n", encoding="utf-8")


def wrong(expected, name, body):
    """Describes what is wrong with the interface, if anything."""
    slots = [slot for slot, _ in operations(body)]
    if slots[:len(expected)] != expected:
        return f"{name} has {' '.join(slots)} instead of {' '.join(expected)}"
    others = [slot for slot in slots[len(expected):] if not CAST.match(slot)]
    return f"{name} has {' '.join(others)} behind its operations" if others else None


def disorders(body):
    """Copies of an interface in which two operations are swapped, or one is missing or added."""
    declared = [text for slot, text in operations(body) if not CAST.match(slot)]
    for text in declared:
        yield body.replace(text, "")
    for first, second in zip(declared, declared[1:]):
        yield body.replace(first, "\0").replace(second, first).replace("\0", second)
    yield body.replace("};", "virtual void another() = 0; };")


def main():
    found = classes(pathlib.Path(sys.argv[1]))
    if sys.argv[2:] == ["--update"]:
        record(found)
    order = recorded()
    faults = [f"{name} is declared nowhere" for name in order if name not in found]
    faults += [f"{name} is an interface without an order" for name, body in found.items()
               if operations(body) and name not in order]
    faults += filter(None, (wrong(order[name], name, found[name]) for name in order if name in found))
    if faults:
        sys.exit("\n".join([*faults, HINT]))

    tried = [(name, wrong(order[name], name, copy)) for name in order for copy in disorders(found[name])]
    unnoticed = {name for name, fault in tried if not fault}
    if unnoticed:
        sys.exit("a disorder was not noticed in " + ", ".join(sorted(unnoticed)))
    print(f"{sum(map(len, order.values()))} operations of {len(order)} interfaces in their order, "
          f"{len(tried)} disorders noticed")


if __name__ == "__main__":
    main()
