"""Checks that the files for any POSIX system call nothing that only GNU or Linux has.

check_posix.py COMPILER PROJECT

They are compiled with exactly the names that POSIX.1-2008 has. So is a copy of them to which a call
was added that does not belong there, to see that this is noticed.
"""

import pathlib
import subprocess
import sys
import tempfile
import unittest

COMPILER = PROJECT = None
FOLDERS = ("src/fs", "src/fs/posix", "src/process/posix")
LEVEL = ("-std=c++20", "-U_GNU_SOURCE", "-D_POSIX_C_SOURCE=200809L")
FOREIGN_CALLS = ("::getdents64(0, nullptr, 0)", "::pipe2(nullptr, 0)", "::syncfs(0)",
                 "::memfd_create(nullptr, 0)", "::syscall(0)")


def sources():
    return [file for folder in FOLDERS for file in sorted((PROJECT / folder).glob("*.cpp"))]


def complaints(*additions):
    """What the compiler says of all sources in one unit, and of lines after them."""
    lines = [f'#include "{file}"' for file in sources()]
    with tempfile.TemporaryDirectory() as folder:
        unit = pathlib.Path(folder) / "unit.cpp"
        unit.write_text("\n".join([*lines, *additions, ""]), encoding="utf-8")
        result = subprocess.run(
            [COMPILER, *LEVEL, "-fsyntax-only", "-DKRT_PLX_BUILDING_LIBRARY",
             "-include", PROJECT / "tests/sources/gnu_in_std.h",
             f"-I{PROJECT / 'src'}", f"-I{PROJECT / 'include'}", unit],
            capture_output=True, text=True, check=False)
    return result.stderr if result.returncode else ""


class PosixLevel(unittest.TestCase):
    def test_posix_has_all_that_is_called(self):
        self.assertGreater(len(sources()), 20)
        self.assertEqual(complaints(), "")

    def test_other_calls_are_noticed(self):
        calls = [f"void call{number}() {{ {call}; }}" for number, call in enumerate(FOREIGN_CALLS)]
        found = complaints(*calls)
        for call in FOREIGN_CALLS:
            name = call[2:call.index("(")]
            self.assertRegex(found, rf"(?m)error: .*\b{name}\b")


if __name__ == "__main__":
    COMPILER, PROJECT = sys.argv[1], pathlib.Path(sys.argv[2])
    unittest.main(argv=sys.argv[:1], verbosity=2)
