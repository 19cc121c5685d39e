"""Checks of the shared object: check_so.py READELF LIBRARY CHECK [ARGUMENT]"""

import re
import sys

from binary import allow_only, compare, fail, names_in, output_of

SYSTEM_LIBRARIES = {
    "libstdc++.so.6",
    "libm.so.6",
    "libgcc_s.so.1",
    "libc.so.6",
    "ld-linux-x86-64.so.2",
}


def dynamic_symbols(readelf, library):
    """Yields (binding, section, name) for each symbol that the loader sees."""
    row = re.compile(r"^\s*\d+:\s+\S+\s+\S+\s+\S+\s+(\S+)\s+\S+\s+(\S+)\s+(\S+)")
    for line in output_of(readelf, "--dyn-syms", "--wide", library).splitlines():
        match = row.match(line)
        if match:
            yield match.group(1), match.group(2), match.group(3).split("@")[0]


def dynamic_entries(readelf, library, tag):
    text = output_of(readelf, "--dynamic", "--wide", library)
    return re.findall(rf"\({tag}\).*\[(.*)\]", text)


def check_exports(readelf, library, names_file):
    symbols = dynamic_symbols(readelf, library)
    found = [name for binding, section, name in symbols if section != "UND" and binding != "LOCAL"]
    compare("exported symbols", names_in(names_file), found)


def check_needed(readelf, library):
    allow_only("needed libraries", SYSTEM_LIBRARIES, dynamic_entries(readelf, library, "NEEDED"))


def check_soname(readelf, library, expected):
    compare("SONAME", [expected], dynamic_entries(readelf, library, "SONAME"))


def check_unloadable(readelf, library):
    """A unique symbol, a thread-local destructor or NODELETE keeps a closed library mapped."""
    symbols = list(dynamic_symbols(readelf, library))
    pins = [name for binding, _, name in symbols if binding == "UNIQUE"]
    pins += [name for _, _, name in symbols if name.startswith("__cxa_thread_atexit")]
    pins += re.findall("NODELETE", output_of(readelf, "--dynamic", "--wide", library))
    if not symbols:
        fail("no dynamic symbols could be read")
    if pins:
        fail("these keep the library mapped after dlclose:", *(f"  {pin}" for pin in pins))
    print(f"none of {len(symbols)} dynamic symbols keeps the library mapped")


def main():
    readelf, library, check, *arguments = sys.argv[1:]
    checks = {
        "exports": check_exports,
        "needed": check_needed,
        "soname": check_soname,
        "unloadable": check_unloadable,
    }
    checks[check](readelf, library, *arguments)


main()
