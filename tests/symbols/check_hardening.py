"""Checks how a shipped binary is protected.

check_hardening.py elf READELF BINARY TARGETS
check_hardening.py pe OBJDUMP BINARY

Whether calls check sizes cannot be seen in a binary without a call for which the compiler knows
one, so that is read from the commands that compiled the sources of the TARGETS, a regular
expression, in the compile_commands.json of the folder above the binary's.
"""

import json
import pathlib
import re
import sys

from binary import fail, output_of

PE_MARKS = ("DYNAMIC_BASE", "NX_COMPAT")
PE_MARKS_OF_LONG_ADDRESSES = (*PE_MARKS, "HIGH_ENTROPY_VA")


def elf_faults(readelf, binary, targets):
    def read(what):
        return output_of(readelf, what, "--wide", binary)

    segments, dynamic = read("--segments"), read("--dynamic")
    if "Elf file type is DYN" not in segments:
        yield "is loaded to a fixed place"
    if not re.search(r"GNU_STACK .* RW +0x", segments):
        yield "has a stack that code can run on"
    if "GNU_RELRO" not in segments or not re.search(r"FLAGS.*\bBIND_NOW\b", dynamic):
        yield "leaves the table of the functions that it calls open to writing"
    if "__stack_chk_fail" not in read("--dyn-syms"):
        yield "has no stack protector"
    yield from faults_of_sizes(pathlib.Path(binary).parent.parent, targets)
    if "X86-64" in read("--file-header") and "SHSTK" not in read("--notes"):
        yield "does not say that it gets on with a shadow stack"


def faults_of_sizes(build, targets):
    entries = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
    commands = {entry["file"]: entry["command"] for entry in entries
                if re.search(f"/{targets}[.]dir/", entry["command"])}
    if not commands:
        yield "is made of no source that could be found"
    for source, command in commands.items():
        words = re.findall(r"(?<= )-[DU]_FORTIFY_SOURCE\S*|(?<= )-O\S*", command)
        if not {"-O1", "-O2", "-O3", "-Os"} & set(words) or "-D_FORTIFY_SOURCE=2" not in words[-1:]:
            yield f"does not look at the sizes in {source}: {' '.join(words)}"


def pe_faults(objdump, binary):
    headers = output_of(objdump, "--private-headers", binary)
    marks = PE_MARKS_OF_LONG_ADDRESSES if "file format pei-x86-64" in headers else PE_MARKS
    yield from (f"lacks {mark}" for mark in marks if not re.search(rf"^\s+{mark}$", headers, re.M))
    # Without relocations the loader cannot move it, whatever the mark says.
    if not re.search(r"^Entry 5 [0-9a-f]+ (?!0+ )[0-9a-f]+ Base Relocation", headers, re.M):
        yield "has no relocations"


def main():
    form, *arguments = sys.argv[1:]
    faults = list({"elf": elf_faults, "pe": pe_faults}[form](*arguments))
    if faults:
        fail(f"{arguments[1]}:", *(f"  {fault}" for fault in faults))
    print(f"{arguments[1]} is protected")


main()
