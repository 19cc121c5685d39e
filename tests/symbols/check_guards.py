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


def end_of(pair, source, begin):
    """The place after the bracket that closes the one at begin."""
    opening, closing = pair
    depth = 0
    for place in range(begin, len(source)):
        depth += {opening: 1, closing: -1}.get(source[place], 0)
        if depth == 0:
            return place + 1
    fail(f"a {opening} is not closed: {source[begin:begin + 60]}")


def bodies_in(source):
    """Yields (name, body) of each exported function that the source defines."""
    head = re.compile(r"\b(KRT_PLX_\w+)\s*\([^(){};]*\)\s*(?:KRT_PLX_NOEXCEPT|noexcept)?\s*\{")
    for match in head.finditer(source):
        begin = match.end() - 1
        yield match.group(1), source[begin + 1 : end_of("{}", source, begin) - 1]


def is_guarded(body, guards):
    """True for one statement that is a call of a guard whose arguments contain no calls: these
    would be evaluated outside the guard. Calls in a lambda among the arguments are inside the
    guard."""
    start = re.match(rf"\s*(?:return\s+)?(?:{'|'.join(map(re.escape, guards))})\s*(?=[<(])", body)
    if not start:
        return False
    begin = start.end()
    if body[begin] == "<":
        begin = end_of("<>", body, begin)
    end = end_of("()", body, begin)
    arguments = body[begin + 1 : end - 1].partition("[")[0]
    return body[end:].strip() == ";" and "(" not in arguments


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
