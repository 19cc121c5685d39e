"""The face says what the C functions say: each exported function is called, and in one place, by
the member function of the same name of the class of the same name.

usage: check_names.py EXPORTS-FILE FACE-FOLDER
"""

import pathlib
import re
import sys

FREE = {"CreateManager": "createManager", "HasManager": "hasManager"}

# Ranges take a number where the member function of the export's name takes a mark for an answer.
UNMARKED = {"language": "languageAt", "aiLangIDByIndex": "aiLangIDAt"}

# The beginning of a class, its end, or a function with a body.
DEFINITION = re.compile(
    r"""^(?:template\ <[^\n]*>\n)?(?:class|struct)\ (\w+)[^;{]*\{
    |^\};
    |(?:(\w+)::)?\b(\w+)\((?:[^;{}]|\{\})*\)(?:\ const)?\s*
        (?:noexcept(?:\([^{;]*\))?)?\s*\{((?:[^{}]|\{[^{}]*\})*)\}""",
    flags=re.MULTILINE | re.VERBOSE,
)


def without_comments(text):
    return re.sub(r"/\*.*?\*/|//[^\n]*", " ", text, flags=re.DOTALL)


def bodies(text):
    """Yields (class or '', function, body) of each function definition."""
    class_name = ""
    for match in DEFINITION.finditer(text):
        if match[1]:
            class_name = match[1]
        elif match[0] == "};":
            class_name = ""
        else:
            yield match[2] or class_name, match[3], match[4]


def calls(folder):
    """Maps the name of each C function to the places (class, function) that name it."""
    places = {}
    for path in sorted(folder.glob("*.hpp")):
        for class_name, function, body in bodies(without_comments(path.read_text())):
            for name in re.findall(r"\bKRT_PLX_([A-Za-z]+(?:_[a-z]\w*)?)\b", body):
                places.setdefault(name, []).append((class_name, function))
    return places


def own_place(name):
    class_name, _, function = name.partition("_")
    if not function:
        return [("", FREE.get(name))]
    return [(class_name, function), (class_name, UNMARKED.get(function))]


def is_conversion(place):
    return re.match(r"as[A-Z]", place[1])


def check(name, places):
    own = [place for place in places if place in own_place(name)]
    foreign = [place for place in places if place not in own and not is_conversion(place)]
    if not own:
        yield f"{name}: no member function of this name calls it"
    if len(own) > 1:
        yield f"{name}: {len(own)} member functions of this name call it"
    for class_name, function in foreign:
        yield f"{name}: {class_name}::{function} calls it too"


def main():
    exports = pathlib.Path(sys.argv[1]).read_text().split()
    places = calls(pathlib.Path(sys.argv[2]))
    names = [export.removeprefix("KRT_PLX_") for export in exports]
    errors = [error for name in names for error in check(name, places.get(name, []))]
    print("\n".join(errors))
    reached = sum(name in places for name in names)
    print(f"{reached} of {len(names)} functions are in the face, {len(errors)} errors")
    sys.exit(bool(errors) or not names)


main()
