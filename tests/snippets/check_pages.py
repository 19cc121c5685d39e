"""Checks of the code in the pages of the manual: it builds without a warning and prints what it says.

check_pages.py CASE SOURCES BUILD C_COMPILER CXX_COMPILER ROOT [LAUNCHER...]

The blocks of a language that follow one another on a page are one program, until one begins anew
with the library's header. A block of shell commands after it says how it is built, a block of text
what it prints; without one it prints nothing.
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
from readme import blocks  # noqa: E402

SOURCES = BUILD = COMPILERS = IS_WINDOWS = LAUNCHER = None

WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wconversion", "-Wshadow", "-Werror"]
STANDARDS = {"c": "-std=c99", "cpp": "-std=c++17"}


class Program:
    def __init__(self, page, language, code):
        self.page = page
        self.language = language
        self.code = code
        self.output = ""
        library = ["-Lbuild/release/bin", "-lkrt_plx", "-Wl,-rpath,build/release/bin"]
        self.arguments = [STANDARDS[language], "-Iinclude", self.source, *library, "-o", "host"]

    @property
    def source(self):
        return f"host.{self.language}"

    def __str__(self):
        return f"{self.page.name}, in {self.language}"


def programs_of(page):
    programs = []
    text = page.read_text(encoding="utf-8")
    for language, code in re.findall(r"^```(\w+)\n(.*?)^```$", text, re.MULTILINE | re.DOTALL):
        last = programs[-1] if programs else None
        if language in STANDARDS and code.startswith("#include <korvel/"):
            programs.append(Program(page, language, code))
        elif language in STANDARDS:
            assert last and last.language == language, f"{page}: the beginning of the code is missing"
            last.code += "\n" + code
        elif language == "sh" and code.startswith(("cc ", "c++ ")):
            build, start = (shlex.split(line) for line in code.splitlines())
            assert start == ["./host"] and last and last.source in build, f"{page}: {code}"
            last.arguments = build[1:]
        elif language == "text" and last and last.output == "":
            last.output = code
    return programs


def manual():
    return sorted((SOURCES / "docs").glob("*.md"))


# Its hosts are built against an installed package, by tests/package.
WITH_A_TEST_OF_ITS_OWN = "installing.md"


class Workplace(unittest.TestCase):
    """A folder that looks like the top folder of the sources after the release build."""

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        for name in ("include", "examples"):
            (self.folder / name).symlink_to(SOURCES / name)
        (self.folder / "build").mkdir()
        (self.folder / "build/release").symlink_to(BUILD)
        if IS_WINDOWS:
            shutil.copy(BUILD / "bin/krt_plx.dll", self.folder)

    def call(self, command):
        result = subprocess.run(command, check=False, capture_output=True, timeout=120,
                                cwd=self.folder)
        output = result.stdout.decode("utf-8").replace("\r\n", "\n")
        return result.returncode, output, result.stderr.decode("utf-8")

    def build(self, language, source, code, arguments):
        (self.folder / source).write_text(code, encoding="utf-8")
        if IS_WINDOWS:
            arguments = [argument for argument in arguments if argument not in ("-ldl", "-lkrt_plx")]
            arguments += ["-static", str(BUILD / "lib/libkrt_plx.dll.a")]
        built = self.call([COMPILERS[language], *WARNINGS, *arguments])
        self.assertEqual(built, (0, "", ""))

    def run_host(self):
        return self.call([*LAUNCHER, "host.exe"] if IS_WINDOWS else ["./host"])


class Pages(Workplace):
    """Each program of the manual."""

    def test_each_prints_what_its_page_says(self):
        programs = [program for page in manual()
                    if page.name != WITH_A_TEST_OF_ITS_OWN for program in programs_of(page)]
        self.assertGreaterEqual(len(programs), 6)
        for program in programs:
            with self.subTest(str(program)):
                self.build(program.language, program.source, program.code, program.arguments)
                self.expect_output(program.output)
            shutil.rmtree(self.folder / "my-clips", ignore_errors=True)

    def expect_output(self, expected):
        """Clips are listed in the order of the file system, which is not everywhere the same."""
        code, output, errors = self.run_host()
        self.assertEqual((code, errors), (0, ""))
        self.assertEqual(sorted(output.splitlines()), sorted(expected.splitlines()))


    def test_each_page_is_in_the_list_and_in_the_navigation_once(self):
        pages = {page.name for page in manual()} - {"README.md"}
        listed = re.findall(r"^- \[[^\]]+\]\(([^)]+)\)", (SOURCES / "docs/README.md").read_text("utf-8"),
                            re.MULTILINE)
        self.assertEqual(sorted(listed), sorted(pages))
        navigation = (SOURCES / "docs/style/layout.xml").read_text("utf-8")
        names = [page.removesuffix(".md").replace("-", "_") for page in pages]
        self.assertEqual(sorted(re.findall(r"@ref md_docs_(\w+)", navigation)), sorted(names))


class Script(Workplace):
    """The clip that the script of the page on the format makes is listed and has its notes."""

    def test_its_clip_is_read(self):
        (script,) = blocks(SOURCES / "docs/clip-format.md", "python")
        self.assertEqual(self.call([sys.executable, "-c", script]), (0, "", ""))
        host = blocks(SOURCES / "README.md", "c")[0]
        host = host.replace("my-clips", "others").replace("examples/library/system", "my-clips")
        if IS_WINDOWS:
            host = host.replace('u"', 'L"')
        program = Program(SOURCES / "README.md", "c", host)
        arguments = ["-std=c11", *program.arguments[1:]]
        self.build("c", program.source, host, arguments)
        self.assertEqual(self.run_host(), (0, "clip 1: 8 notes\n", ""))


def main():
    global SOURCES, BUILD, COMPILERS, IS_WINDOWS, LAUNCHER
    case, sources, build, c_compiler, cxx_compiler, root, *LAUNCHER = sys.argv[1:]
    SOURCES = pathlib.Path(sources)
    BUILD = pathlib.Path(build)
    COMPILERS = {"c": c_compiler, "cpp": cxx_compiler}
    IS_WINDOWS = root != ""
    unittest.main(argv=[sys.argv[0], case], verbosity=2)


if __name__ == "__main__":
    main()
