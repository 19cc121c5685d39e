"""What the checks of both binary formats share."""

import subprocess
import sys


def output_of(*command):
    result = subprocess.run(command, check=False, capture_output=True, text=True)
    if result.returncode != 0:
        fail(" ".join(command), result.stderr)
    return result.stdout


def names_in(path):
    with open(path, encoding="ascii") as file:
        return file.read().split()


def fail(*lines):
    """Ends the check as failed."""
    print(*lines, sep="\n")
    sys.exit(1)


def compare(what, expected, found):
    """Ends the check, successfully only when both contain the same names, each once."""
    missing = sorted(set(expected) - set(found))
    foreign = sorted(set(found) - set(expected))
    if not expected:
        fail(f"no {what} to expect: the headers declare none")
    if missing or foreign or len(found) != len(set(found)):
        fail(
            f"{what}: {len(expected)} expected, {len(found)} found",
            *(f"  missing  {name}" for name in missing),
            *(f"  foreign  {name}" for name in foreign),
        )
    print(f"{what}: {len(found)}, exactly as expected")


def allow_only(what, allowed, found):
    """Ends the check, successfully only when nothing but allowed names was found, and at least one."""
    foreign = sorted(set(found) - set(allowed))
    if foreign or not found:
        fail(f"{what}: {' '.join(sorted(found)) or 'none'}; not allowed: {' '.join(foreign)}")
    print(f"{what}: {' '.join(sorted(found))}")
