"""Checks that every exported function is one call of the guard, which lets no exception out.

check_guards.py NAMES FOLDER GUARD...: the names of the exported functions, the folder of their
bodies, and the names of the templates that guard.
"""

import pathlib
import re
import sys

from binary import fail, names_in


def without_comments_and_texts(source):
    return re.sub(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"', " ", source, flags=re.DOTALL)


def end_of_block(source, begin):
    """The place of the brace that closes the one at begin."""
    depth = 0
    for place in range(begin, len(source)):
        depth += {"{": 1, "}": -1}.get(source[place], 0)
        if depth == 0:
            return place
    fail("a brace is not closed")


def bodies_in(source):
    """Yields (name, body) of each exported function that the source defines."""
    head = re.compile(r"\b(KRT_PLX_\w+)\s*\([^(){};]*\)\s*(?:KRT_PLX_NOEXCEPT|noexcept)?\s*\{")
    for match in head.finditer(source):
        begin = match.end() - 1
        yield match.group(1), source[begin + 1 : end_of_block(source, begin)]


def is_one_statement(body):
    """True when the only semicolon outside inner braces and brackets is the last thing there is."""
    depth = 0
    for place, letter in enumerate(body):
        depth += {"{": 1, "(": 1, "}": -1, ")": -1}.get(letter, 0)
        if letter == ";" and depth == 0:
            return not body[place + 1 :].strip()
    return False


def is_guarded(body, guards):
    names = "|".join(map(re.escape, guards))
    return re.match(rf"\s*(return\s+)?({names})\s*[<(]", body) and is_one_statement(body)


def main():
    names_file, folder, *guards = sys.argv[1:]
    bodies = {}
    for path in sorted(pathlib.Path(folder).glob("*.cpp")):
        for name, body in bodies_in(without_comments_and_texts(path.read_text(encoding="utf-8"))):
            bodies.setdefault(name, []).append((path.name, body))

    faults = []
    for name in names_in(names_file):
        found = bodies.pop(name, [])
        if len(found) != 1:
            faults.append(f"{name}: {len(found)} bodies in {folder}")
        faults += [f"{file}: {name}" for file, body in found if not is_guarded(body, guards)]
    faults += [f"{name}: not declared in a public header" for name in bodies]
    if faults:
        fail(f"{len(faults)} exported functions are not one call of the guard:", *faults)
    print("every exported function is one call of the guard")


main()
