"""The binary interface of the shared object, and the constants of the public headers, as texts."""

import pathlib
import re
import subprocess
import tempfile

INCLUDE = pathlib.Path(__file__).resolve().parents[2] / "include"

# Only what a host can notice: no places in files, no names of parameters, nothing about the
# machine.
DESCRIBE = """abidw --exported-interfaces-only --drop-private-types --drop-undefined-syms --no-elf-needed
    --no-corpus-path --no-comp-dir-path --no-show-locs --no-parameter-names""".split()


class Incomplete(Exception):
    """A description that says less than it has to."""


def describe(library, include=INCLUDE):
    """What the library exports, with the type of each function, as libabigail writes it."""
    command = [*DESCRIBE, "--headers-dir", str(include), str(library)]
    text = subprocess.run(command, check=True, capture_output=True, text=True).stdout
    require_types(text)
    return text


def require_types(text):
    """A function without debug information seems to take nothing; any change of it would pass.

    All functions take something, a handle at least."""
    names = set(re.findall(r"<elf-symbol name='(\w+)'[^>]* is-defined='yes'", text))
    described = set(re.findall(r"<function-decl [^>]*elf-symbol-id='(\w+)'[^>]*>\s*<parameter", text))
    if not names or names != described:
        missing = sorted(names - described)
        raise Incomplete(f"{len(missing)} of {len(names)} functions tell no types: {missing[:3]}")


def differences(old, new, *options):
    """What abidiff has to say about two descriptions; nothing when they agree."""
    with tempfile.TemporaryDirectory() as folder:
        files = [pathlib.Path(folder, name) for name in ("old.abi", "new.abi")]
        for file, text in zip(files, (old, new)):
            file.write_text(text, encoding="utf-8")
        command = ["abidiff", *options, *map(str, files)]
        result = subprocess.run(command, check=False, capture_output=True, text=True)
    if result.returncode == 0:
        return ""
    return result.stdout + result.stderr or f"abidiff ended with {result.returncode}"


def without_comments(text):
    return re.sub(r"/\*.*?\*/", "", text, flags=re.DOTALL)


def enumerators(text):
    """Yields each enumerator of a header with its value, which has to be written out."""
    for body in re.findall(r"\benum\s+\w+\s*\{(.*?)\}", text, flags=re.DOTALL):
        for entry in filter(None, map(str.strip, body.split(","))):
            name, equals, value = entry.partition("=")
            if not equals:
                raise Incomplete(f"no value is written for {name}")
            yield f"{name.strip()} = {value.strip()}"


def marks(text):
    """Yields each mark for "no such value", and each limit."""
    mark = r"^#define (KRT_PLX_(?:NO_\w+|\w+_LIMIT))\s+(.+?)\s*$"
    for name, value in re.findall(mark, text, re.MULTILINE):
        yield f"{name} = {value}"


def constants(include=INCLUDE):
    """What is compiled into hosts and therefore in no library: one constant a line."""
    lines = []
    for header in sorted(pathlib.Path(include, "korvel/plx").glob("*.h")):
        text = without_comments(header.read_text(encoding="utf-8"))
        lines += [*enumerators(text), *marks(text)]
    if not lines:
        raise Incomplete(f"no constants in {include}")
    return "".join(f"{line}\n" for line in sorted(lines))
