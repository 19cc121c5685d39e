"""Checks of the code that the documentation shows.

check_snippets.py CASE SOURCES LIBRARY_FOLDER COMPILER ROOT [LAUNCHER...]
"""

import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import unittest

sys.path.append(str(pathlib.Path(__file__).parent.parent / "support"))
from readme import blocks, example_clips, table_with  # noqa: E402

SOURCES = LIBRARY_FOLDER = COMPILER = IS_WINDOWS = LAUNCHER = None

WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Werror"]


def call(command, **options):
    result = subprocess.run(command, check=False, capture_output=True, timeout=120, **options)
    return result.returncode, result.stdout.decode("utf-8"), result.stderr.decode("utf-8")


class Readme(unittest.TestCase):
    """The first lines of a host, built and run by the commands beside them."""

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        for name in ("include", "examples"):
            (self.folder / name).symlink_to(SOURCES / name)
        (self.folder / "build/release").mkdir(parents=True)
        (self.folder / "build/release/bin").symlink_to(LIBRARY_FOLDER)

    def write_host(self):
        code = blocks(SOURCES / "README.md", "c")[0]
        self.assertEqual(code.count('u"'), 3)
        if IS_WINDOWS:
            code = code.replace('u"', 'L"')
        (self.folder / "host.c").write_text(code, encoding="utf-8")

    def commands(self):
        (text,) = (text for text in blocks(SOURCES / "README.md", "sh") if "cc " in text)
        build, start = (shlex.split(line) for line in text.splitlines())
        self.assertEqual((build[0], start), ("cc", ["./host"]))
        return [COMPILER, *build[1:], *WARNINGS], start

    def start_command(self, start):
        if not IS_WINDOWS:
            return start
        shutil.copy(LIBRARY_FOLDER / "krt_plx.dll", self.folder)
        return [*LAUNCHER, "host.exe"]

    def test_host_lists_the_system_clips(self):
        self.write_host()
        build, start = self.commands()
        self.assertEqual(call(build, cwd=self.folder), (0, "", ""))
        code, output, errors = call(self.start_command(start), cwd=self.folder)
        self.assertEqual((code, errors), (0, ""))
        lines = re.findall(r"^clip (\d+): (\d+) notes\r?$", output, re.MULTILINE)
        self.assertEqual([int(number) for number, _ in lines], list(range(1, len(lines) + 1)))
        self.assertEqual(sorted(int(notes) for _, notes in lines), self.notes_of_system_clips())

    def notes_of_system_clips(self):
        rows = [row for row in example_clips(SOURCES) if row["Clip file"].startswith("system/")]
        notes = [row["Notes"] or "0" for row in rows if row["Listed"] == "yes"]
        pairs = {(row["Name"], row["Notes"]) for row in rows if row["Listed"] == "1 of 2"}
        return sorted(int(number) for number in [*notes, *(number for _, number in pairs)])


class Folders(unittest.TestCase):
    """The map of the folders names none that is not there, and all that are, once."""

    def test_contributing(self):
        rows = table_with(SOURCES / "CONTRIBUTING.md", "Folder")
        names = [name for row in rows for name in re.findall("`([^`]+)`", row["Folder"])]
        self.assertGreater(len(names), 10)
        self.assertEqual([name for name in names if not (SOURCES / name).exists()], [])
        self.assertEqual([name for name in names if names.count(name) > 1], [])
        self.assertEqual([folder for folder in self.folders()
                          if not any(f"{name}/".startswith(f"{folder}/") for name in names)], [])

    def folders(self):
        """Those at the top and those of the tests, without what is built or belongs to a tool."""
        paths = [*SOURCES.iterdir(), *(SOURCES / "tests").iterdir()]
        names = [path.relative_to(SOURCES).as_posix() for path in paths if path.is_dir()]
        return [name for name in names if name != "build" and not re.search(r"(^|/)[._]", name)]


class Headers(unittest.TestCase):
    """The examples in the comments of the public headers compile."""

    def setUp(self):
        self.folders = [SOURCES / "include", LIBRARY_FOLDER.parent / "generated/include"]

    def snippets(self, language):
        headers = (header for folder in self.folders for header in folder.rglob("*.h*"))
        for header in sorted(headers):
            text = re.sub(r"^ \* ?", "", header.read_text(encoding="utf-8"), flags=re.MULTILINE)
            for code in re.findall(rf"@code\{{\.{language}\}}\n(.*?)@endcode", text, re.DOTALL):
                yield header.name, code

    def test_each_in_c_compiles(self):
        snippets = list(self.snippets("c"))
        self.assertIn("plx_loader.h", [name for name, _ in snippets])
        for standard in ("c99", "c11"):
            for name, code in snippets:
                with self.subTest(header=name, standard=standard):
                    self.compile(f"#include <korvel/plx.h>\n{code}", "c", standard)

    def test_each_in_cpp_compiles(self):
        snippets = list(self.snippets("cpp"))
        self.assertIn("plx.hpp", [name for name, _ in snippets])
        for name, code in snippets:
            with self.subTest(header=name):
                self.compile(code, "c++", "c++17")

    def compile(self, code, language, standard):
        includes = [f"-I{folder}" for folder in self.folders]
        command = [COMPILER, f"-std={standard}", *WARNINGS, *includes, "-fsyntax-only"]
        self.assertEqual(call([*command, "-x", language, "-"], input=code.encode("utf-8")),
                         (0, "", ""))


def main():
    global SOURCES, LIBRARY_FOLDER, COMPILER, IS_WINDOWS, LAUNCHER
    case, sources, folder, COMPILER, root, *LAUNCHER = sys.argv[1:]
    SOURCES = pathlib.Path(sources)
    LIBRARY_FOLDER = pathlib.Path(folder)
    IS_WINDOWS = root != ""
    unittest.main(argv=[sys.argv[0], case], verbosity=2)


main()
