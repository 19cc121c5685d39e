"""Whether a host that was built with the recorded interface can run with this library.

check_abi.py LIBRARY            compares both with what stands in this folder
check_abi.py LIBRARY --update   shows what has changed, and records it
"""

import pathlib
import sys

from description import Incomplete, constants, describe, differences

HERE = pathlib.Path(__file__).resolve().parent

BROKEN = """A host that was built with the interface in tests/abi would not run with this library any more.
If that was not meant, take the change back. If it was: docs/versioning.md says which number of the
version has to rise for it; raise it in include/korvel/plx/version.h, tell hosts in CHANGELOG.md, and
record the new interface by scripts/abi --update."""

GROWN = """The library has more than the interface in tests/abi tells. That breaks no host, but what is not
recorded is not guarded: docs/versioning.md says which number of the version has to rise for it; raise
it if this has not been done yet, tell hosts in CHANGELOG.md, and run scripts/abi --update."""


def compare_constants(old, new):
    """The lines that went or changed, and those that came."""
    before, after = set(old.splitlines()), set(new.splitlines())
    known = {line.partition(" = ")[0] for line in before}
    gone = [f"  was: {line}" for line in sorted(before - after)]
    came = [f"  now: {line}" for line in sorted(after - before)]
    changed = [line for line in came if line.split()[1] in known]
    return "\n".join(gone + changed), "\n".join(line for line in came if line not in changed)


def judge(old, new):
    """The report on two interfaces, each a description and constants; nothing when they agree."""
    broken = differences(old[0], new[0], "--no-added-syms")
    broken_constants, new_constants = compare_constants(old[1], new[1])
    if broken or broken_constants:
        return "\n".join(filter(None, [broken, broken_constants, BROKEN]))
    grown = differences(old[0], new[0])
    if grown or new_constants:
        return "\n".join(filter(None, [grown, new_constants, GROWN]))
    return ""


def recorded():
    files = (HERE / "krt_plx.abi", HERE / "constants.txt")
    return tuple(file.read_text(encoding="utf-8") if file.exists() else "" for file in files)


def record(interface):
    for name, text in zip(("krt_plx.abi", "constants.txt"), interface):
        (HERE / name).write_text(text, encoding="utf-8")


def main():
    library, *options = sys.argv[1:]
    try:
        found = (describe(library), constants())
    except Incomplete as error:
        sys.exit(f"{library}: {error}")
    known = recorded()
    report = judge(known, found) if all(known) else "Nothing is recorded yet: scripts/abi --update"
    if options == ["--update"]:
        print(report.partition(BROKEN)[0].partition(GROWN)[0] or "Nothing has changed.")
        record(found)
    elif report:
        sys.exit(report)
    else:
        print("Hosts that were built with the recorded interface run with this library.")


if __name__ == "__main__":
    main()
