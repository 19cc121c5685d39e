"""That the library calls nothing of the C library that fault_tests cannot make fail.

check_calls.py READELF LIBRARY FAULT_TESTS
"""

import pathlib
import re
import sys

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "symbols"))

from binary import fail, output_of  # noqa: E402, the line above shows where it is

# Functions that cannot fail, and those that do not call the system.
HARMLESS = re.compile(r"mem\w+|str\w+|__errno_location|__cxa_\w+|pthread_mutex_(un)?lock|clock_gettime|nanosleep|"
                      r"__stack_chk_fail|closedir|frexp|ldexp|nextafter")


def symbols(readelf, binary):
    """Yields (is defined, name, whose) of each symbol that the loader sees."""
    row = re.compile(r"^\s*\d+:.*\s(\S+)\s+([\w]+)(@\S+)?( \(\d+\))?$")
    for line in output_of(readelf, "--dyn-syms", "--wide", binary).splitlines():
        match = row.match(line)
        if match:
            yield match.group(1) != "UND", match.group(2), match.group(3) or ""


def main():
    readelf, library, program = sys.argv[1:]
    used = {name for defined, name, whose in symbols(readelf, library)
            if not defined and whose.startswith("@GLIBC_")}
    disturbed = {name for defined, name, _ in symbols(readelf, program) if defined}
    undisturbed = sorted(name for name in used - disturbed if not HARMLESS.fullmatch(name))
    if not used & disturbed:
        fail("no call of the library is made to fail")
    if undisturbed:
        fail("the library calls what tests/faults does not make fail:", *undisturbed)
    print(f"made to fail: {' '.join(sorted(used & disturbed))}")


if __name__ == "__main__":
    main()
