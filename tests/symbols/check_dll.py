"""Checks of the Windows library: check_dll.py OBJDUMP LIBRARY CHECK [ARGUMENT]"""

import re
import sys

from binary import allow_only, compare, names_in, output_of

SYSTEM_LIBRARIES = {
    "advapi32.dll",
    "kernel32.dll",
    "msvcrt.dll",
    "ntdll.dll",
    "ole32.dll",
    "rpcrt4.dll",
    "shell32.dll",
    "shlwapi.dll",
    "user32.dll",
}


def exported_names(headers):
    """The rows below the heading of the name table: [ordinal] ... name."""
    table = headers.partition("[Ordinal/Name Pointer] Table")[2].partition("\n\n")[0]
    return re.findall(r"^\s*\[\s*\d+\]\s.*?(\S+)$", table, re.MULTILINE)


def check_exports(headers, names_file):
    compare("exported symbols", names_in(names_file), exported_names(headers))


def check_imports(headers):
    libraries = re.findall(r"DLL Name:\s*(\S+)", headers)
    allow_only("imported libraries", SYSTEM_LIBRARIES, {name.lower() for name in libraries})


def main():
    objdump, library, check, *arguments = sys.argv[1:]
    checks = {"exports": check_exports, "imports": check_imports}
    checks[check](output_of(objdump, "--private-headers", library), *arguments)


main()
