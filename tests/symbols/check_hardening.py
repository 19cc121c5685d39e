"""Checks what a shipped binary says of its own protection.

check_hardening.py elf READELF BINARY
check_hardening.py pe OBJDUMP BINARY
"""

import re
import sys

from binary import fail, output_of

PE_MARKS = ("HIGH_ENTROPY_VA", "DYNAMIC_BASE", "NX_COMPAT")


def elf_faults(readelf, binary):
    def read(what):
        return output_of(readelf, what, "--wide", binary)

    segments, dynamic = read("--segments"), read("--dynamic")
    if "Elf file type is DYN" not in segments:
        yield "is loaded to a fixed place"
    if not re.search(r"GNU_STACK .* RW +0x", segments):
        yield "has a stack that code can run on"
    if "GNU_RELRO" not in segments or not re.search(r"FLAGS.*\bBIND_NOW\b", dynamic):
        yield "leaves the table of the functions that it calls open to writing"
    yield from faults_of_calls(read("--dyn-syms"))
    if "X86-64" in read("--file-header") and "SHSTK" not in read("--notes"):
        yield "does not say that it gets on with a shadow stack"


def faults_of_calls(symbols):
    if "__stack_chk_fail" not in symbols:
        yield "has no stack protector"
    if not re.search(r"__(?!stack_)\w+_chk\b", symbols):
        yield "calls nothing in the form that looks at sizes"


def pe_faults(objdump, binary):
    headers = output_of(objdump, "--private-headers", binary)
    yield from (f"lacks {mark}" for mark in PE_MARKS if not re.search(rf"^\s+{mark}$", headers, re.M))
    # Without them the loader cannot move it, whatever the mark says.
    if not re.search(r"^Entry 5 [0-9a-f]+ (?!0+ )[0-9a-f]+ Base Relocation", headers, re.M):
        yield "has no relocations"


def main():
    form, *arguments = sys.argv[1:]
    faults = list({"elf": elf_faults, "pe": pe_faults}[form](*arguments))
    if faults:
        fail(f"{arguments[-1]}:", *(f"  {fault}" for fault in faults))
    print(f"{arguments[-1]} is protected")


main()
