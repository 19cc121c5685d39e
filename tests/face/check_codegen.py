"""The face costs nothing over the C functions: the compiler makes the same instructions of both. Of
a loop, where compilers choose among equal ways to set it up, what is repeated must not be longer.

usage: check_codegen.py OBJDUMP COMPILER INCLUDE-FOLDER
"""

import collections
import pathlib
import re
import subprocess
import sys
import tempfile

FOLDER = pathlib.Path(__file__).parent


def instructions(objdump, compiler, include, source, folder):
    """Maps each function to its instructions, each as (offset, text), without addresses."""
    object_file = pathlib.Path(folder) / (source + ".o")
    subprocess.run(
        [compiler, "-std=c++17", "-O2", f"-I{include}", "-c", FOLDER / source, "-o", object_file],
        check=True,
    )
    listing = subprocess.run(
        [objdump, "--disassemble", "--reloc", "--no-show-raw-insn", object_file],
        check=True,
        capture_output=True,
        text=True,
    ).stdout
    functions = collections.defaultdict(list)
    name = start = None
    for line in listing.splitlines():
        heading = re.match(r"([0-9a-f]+) <(.*)>:$", line)
        row = re.match(r"\s*([0-9a-f]+):\s+(.*)", line)
        if heading:
            start, name = int(heading[1], 16), heading[2]
        elif row:
            text = re.sub(r"\b[0-9a-f]+ <", "<", row[2])
            functions[name].append((int(row[1], 16) - start, text))
    return functions


def loop(function):
    """What is repeated: from the target of the last jump back to that jump. None without one."""
    for end, (offset, text) in reversed(list(enumerate(function))):
        jump = re.match(r"j\w+\s+<\w+\+0x([0-9a-f]+)>", text)
        if jump and int(jump[1], 16) < offset:
            return [text for place, text in function[:end + 1] if place >= int(jump[1], 16)]
    return None


def costs_nothing(face, plain):
    if face == plain:
        return True
    return bool(loop(face) and loop(plain)) and len(loop(face)) <= len(loop(plain))


def show(title, function):
    print(title, *(text for _, text in function), sep="\n    ")


def main():
    tools = sys.argv[1:4]
    with tempfile.TemporaryDirectory() as folder:
        face = instructions(*tools, "codegen_face.cpp", folder)
        plain = instructions(*tools, "codegen_c.cpp", folder)
    if not plain or face.keys() != plain.keys():
        sys.exit(f"not the same functions: {sorted(face)} and {sorted(plain)}")
    costly = [name for name in plain if not costs_nothing(face[name], plain[name])]
    for name in costly:
        show(f"{name}, by the face:", face[name])
        show(f"{name}, in C:", plain[name])
    equal = sum(face[name] == plain[name] for name in plain)
    print(f"{len(plain)} functions, {equal} of them equal, {len(costly)} costly by the face")
    sys.exit(bool(costly))


main()
