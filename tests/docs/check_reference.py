"""The public headers say of every function what a host must know.

check_reference.py INCLUDE_FOLDER NAMES_FILE
"""

import pathlib
import re
import sys

DECLARATION = re.compile(
    r"/\*\*((?:(?!\*/).)*?)\*/\s*(?:KRT_PLX_API )?([^;{}#/]*?)(?:KRT_PLX_CALL )?(KRT_PLX_\w+)\(([^;]*?)\) KRT_PLX_NOEXCEPT;",
    re.DOTALL)


def parameters(text):
    """The names in a list of parameters."""
    return re.findall(r"(\w+)(?:,|$)", re.sub(r"\s+", " ", text.strip())) if text.strip() != "void" else []


def complaints_of_any(comment, result, arguments):
    if re.findall(r"@param (\w+)", comment) != parameters(arguments):
        yield "what each parameter is, in their order"
    if (result.strip() == "void") == ("@return" in comment):
        yield "what it returns, or says that of a function that returns nothing"


def complaints(comment, result):
    text = re.sub(r"\s*\n \* ?", " ", comment)
    returned = text.rpartition("@return")[2]
    is_void = result.strip() == "void"
    is_text = "KRT_PLX_Char*" in result
    is_object = result.strip().endswith("*") and not is_text
    if not re.search("null|NULL", text if is_void else returned):
        yield "what a null handle gives"
    if is_text and not re.search("valid|owned|belongs", text):
        yield "how long the text lives"
    if is_object and not re.search("own|valid|belongs|lives", text):
        yield "who owns the object and how long it lives"
    if re.search("dead handle|alive or dead", text) and "at the address of a dead one" not in text:
        yield "that a new object may have the address of a dead one"


def silent_in(header):
    """The number of functions that a header of functions for hosts does not tell enough of."""
    text = header.read_text(encoding="utf-8")
    declared = DECLARATION.findall(text)
    told = [(name, complaint) for comment, result, name, arguments in declared
            for complaint in complaints_of_any(comment, result, arguments)]
    for name, complaint in told:
        print(f"{header.name}: {name} does not say {complaint}")
    without = text.count(") KRT_PLX_NOEXCEPT;") - len(declared)
    if without != 0:
        print(f"{header.name}: {without} functions have no comment")
    return len(told) + (without != 0)


def main():
    folder, names_file = map(pathlib.Path, sys.argv[1:])
    missing = set(names_file.read_text(encoding="utf-8").split())
    silent = 0
    for header in sorted(folder.glob("*.h")):
        for comment, result, name, arguments in DECLARATION.findall(header.read_text(encoding="utf-8")):
            missing.discard(name)
            told = [*complaints_of_any(comment, result, arguments), *complaints(comment, result)]
            for complaint in told:
                print(f"{header.name}: {name} does not say {complaint}")
                silent += 1
    for name in ("plx_kit.h", "plx_loaded.h"):
        silent += silent_in(folder.parent / name)
    for name in sorted(missing):
        print(f"{name} has no comment")
    return silent > 0 or len(missing) > 0


sys.exit(main())
