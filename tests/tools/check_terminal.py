"""Checks of plxclip on a terminal, which is a pseudo terminal here, and with output that goes nowhere.

check_terminal.py CASE SOURCES PROGRAMS
"""

import dataclasses
import fcntl
import json
import os
import pathlib
import pty
import re
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import termios
import time
import unittest

sys.path.append(str(pathlib.Path(__file__).parent.parent / "support"))
sys.path.append(str(pathlib.Path(__file__).parent / "check"))
from damaged import DATA, PROPERTIES  # noqa: E402
from limits import limits_of  # noqa: E402
from programs import display_width, from_arguments  # noqa: E402

SOURCES = PROGRAMS = None

DONE, PROBLEM, USAGE = 0, 1, 2
ENTER, END_OF_INPUT, INTERRUPT = b"\n", b"\x04", b"\x03"
STYLE = re.compile(r"\x1b\[[0-9;]*[mK]")


@dataclasses.dataclass
class Ended:
    """What a program has shown on its terminal, and how it ended: its status, or less than 0 for a signal."""

    text: str
    code: int

    @property
    def lines(self):
        return STYLE.sub("", self.text).replace("\r", "").splitlines()


def tool():
    return str(PROGRAMS.folder / "plxclip")


def read_until(reader, wanted, seconds=30):
    """What comes until this text is in it, or until the end."""
    text = b""
    end = time.monotonic() + seconds
    while wanted is None or wanted not in text:
        assert time.monotonic() < end, text
        try:
            data = os.read(reader, 65536)
        except OSError:  # the other end is closed
            break
        if not data:
            break
        text += data
    return text


def on_terminal(*arguments, columns=80, answer=None, question=b"[y/N] ", environment=None):
    """Runs plxclip with a terminal for input and output, and answers its question."""
    process, terminal = pty.fork()
    if process == 0:
        # Waits until the terminal has its width.
        sys.stdin.buffer.raw.read(1)
        os.execve(tool(), [tool(), *map(str, arguments)], os.environ | (environment or {}))
    fcntl.ioctl(terminal, termios.TIOCSWINSZ, struct.pack("HHHH", 25, columns, 0, 0))
    os.write(terminal, b"\n")
    text = read_until(terminal, b"\n")  # the echo
    if answer is not None:
        text += read_until(terminal, question)
        os.write(terminal, answer)
    text += read_until(terminal, None)
    _, status = os.waitpid(process, 0)
    os.close(terminal)
    return Ended(text.decode("utf-8").removeprefix("\r\n"), os.waitstatus_to_exitcode(status))


class TerminalTest(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.library = SOURCES / "examples/library"
        self.scratch = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.scratch)
        self.user = self.scratch / "user"

    def copy_user_clips(self):
        shutil.copytree(self.library / "user", self.user)

    def files(self):
        return {path: path.read_bytes() for path in self.user.rglob("*") if path.is_file()}

    def run_tool(self, *arguments, code=DONE, **options):
        result = subprocess.run([tool(), *map(str, arguments)], check=False, timeout=60,
                                **({"stdout": subprocess.PIPE, "stderr": subprocess.PIPE} | options))
        self.assertEqual(result.returncode, code, result)
        return result


class Width(TerminalTest):
    """Tables fit the terminal; where there is none, they are as wide as their cells."""

    def assert_fits(self, columns, *options, **further):
        result = on_terminal("list", self.library, *options, columns=columns, **further)
        self.assertEqual(result.code, DONE)
        widths = [display_width(line) for line in result.lines]
        self.assertLessEqual(max(widths), columns, result.lines)
        self.assertEqual(len(result.lines), 34)
        return result.lines

    def test_80_columns(self):
        lines = self.assert_fits(80)
        self.assertTrue(any(line.endswith("…") for line in lines), lines)
        self.assertTrue(any(line.startswith("さくらさくら ") for line in lines), lines)
        self.assertGreater(max(map(display_width, lines)), 75)

    def test_40_columns(self):
        lines = self.assert_fits(40)
        self.assertTrue(any(line.startswith("さく…   ") for line in lines), lines)
        # Numbers are never cut.
        self.assertTrue(any(re.search(r" 112 ", line) for line in lines), lines)
        self.assertRegex(lines[0], r"^Name +Ve.* +BPM +Tags$")

    def test_40_columns_for_everything(self):
        self.assert_fits(40, "--long")

    def test_wide_terminal(self):
        lines = self.assert_fits(500, "--long")
        self.assertFalse(any("…" in line for line in lines), lines)

    def test_the_width_that_the_user_names(self):
        self.assert_fits(60, environment={"COLUMNS": "60"})
        lines = on_terminal("list", self.library, columns=40, environment={"COLUMNS": "90"}).lines
        self.assertGreater(max(map(display_width, lines)), 80)
        self.assert_fits(80, environment={"COLUMNS": "many"})

    def test_other_tables(self):
        for columns in (40, 80):
            lines = on_terminal("show", self.library, "さくらさくら", columns=columns).lines
            begin = next(number for number, line in enumerate(lines) if line.startswith("Notes: "))
            end = lines.index("MIDI effects")
            self.assertLessEqual(max(map(display_width, lines[begin:end])), columns, lines)

    def test_no_terminal(self):
        lines = self.run_tool("list", self.library, "--long", env=os.environ | {"COLUMNS": "40"}).stdout.decode()
        self.assertGreater(max(map(display_width, lines.splitlines())), 150)
        self.assertNotIn("…", lines)

    def test_names_that_would_move_the_cursor(self):
        self.copy_user_clips()
        place = next(self.user.glob("3f6d*/property.json"))
        document = json.loads(place.read_text(encoding="utf-8"))
        place.write_text(json.dumps(document | {"name": "a\x1b[2J\nb\x9bc\x07", "vendor": "\r\x7f"}), encoding="utf-8")
        shown = "a�[2J�b�c�"
        lines = on_terminal("list", self.user).lines
        self.assertEqual(len(lines), 6)
        self.assertTrue(any(line.startswith(f"{shown} ") and " �� " in line for line in lines), lines)
        lines = on_terminal("show", self.user, document["id"]).lines
        self.assertEqual(lines[0], shown)
        self.assertIn("Vendor     ��", lines)
        result = on_terminal("remove", self.user, document["id"], answer=b"n\n")
        self.assertIn(f'Delete "{shown}"', result.text)
        shown = json.loads(self.run_tool("show", self.user, document["id"], "--json").stdout)
        self.assertEqual(shown["name"], "a\x1b[2J\nb\x9bc\x07")


class Questions(TerminalTest):
    """Only a yes is a yes."""

    def test_remove(self):
        self.copy_user_clips()
        before = self.files()
        for answer, code in ((b"n\n", PROBLEM), (ENTER, PROBLEM), (b"yess\n", PROBLEM), (END_OF_INPUT, PROBLEM),
                             (INTERRUPT, -signal.SIGINT)):
            with self.subTest(answer):
                result = on_terminal("remove", self.user, "Jingle Bells", answer=answer)
                self.assertIn('Delete "Jingle Bells"', result.text)
                self.assertEqual(result.code, code)
                self.assertEqual(self.files(), before)
                if code == PROBLEM:
                    self.assertEqual(result.lines[-1].split(";")[0], 'plxclip: "Jingle Bells" is kept')
        for name, answer in (("Jingle Bells", b"y\n"), ("Hot Cross Buns", b" YES \n")):
            result = on_terminal("remove", self.user, name, answer=answer)
            self.assertEqual((result.code, result.lines[-1]), (DONE, f"Removed {name}"))
        lines = self.run_tool("list", self.user).stdout.decode().splitlines()
        self.assertEqual(lines[-1], "2 clips")

    def write_misspelt(self):
        """A clip with a key that is like one of the library, and one with nothing to ask about."""
        for folder, old, new in (("a", '"accent"', '"acent"'), ("b", '"number": 66', '"number": 66.0')):
            place = self.user / folder
            place.mkdir(parents=True, exist_ok=True)
            (place / "property.json").write_text(PROPERTIES.replace('"ID"', f'"{folder}"'), encoding="utf-8")
            (place / "clip.kxclip").write_text(DATA.replace('"ID"', f'"{folder}"').replace(old, new), encoding="utf-8")

    def fix(self, answer):
        self.write_misspelt()
        return on_terminal("fix", self.user, "--no-originals", answer=answer, columns=200)

    def misspelt(self):
        return (self.user / "a/clip.kxclip").read_text(encoding="utf-8").count('"acent"')

    def test_fix(self):
        for answer in (b"y\n", b"Yes\n"):
            result = self.fix(answer)
            self.assertEqual((result.code, self.misspelt()), (DONE, 0), result.text)
        for answer in (b"n\n", ENTER, END_OF_INPUT):
            with self.subTest(answer):
                result = self.fix(answer)
                self.assertEqual((result.code, self.misspelt()), (PROBLEM, 1), result.text)
                self.assertTrue(result.lines[-1].endswith("1 left to mend by hand (1 place)"), result.text)
                self.assertNotIn("66.0", (self.user / "b/clip.kxclip").read_text(encoding="utf-8"))

    def test_fix_that_is_interrupted(self):
        self.write_misspelt()
        before = self.files()
        result = self.fix(INTERRUPT)
        self.assertEqual(result.code, -signal.SIGINT)
        self.assertEqual(self.files(), before)

    def test_fix_asks_nobody_who_is_not_there(self):
        self.write_misspelt()
        result = self.run_tool("fix", self.user, "--no-originals", input=b"y\n", code=PROBLEM)
        self.assertNotIn(b"[y/N]", result.stderr)
        self.assertEqual(self.misspelt(), 1)

    def test_clean(self):
        folder = self.user / "0c1d2e3f-4a5b-6c7d-8e9f-0123456789ab"
        folder.mkdir(parents=True)
        os.utime(folder, (1_700_000_000, 1_700_000_000))
        for answer, code in ((END_OF_INPUT, PROBLEM), (INTERRUPT, -signal.SIGINT), (b"n\n", PROBLEM)):
            self.assertEqual(on_terminal("clean", self.user, answer=answer).code, code)
            self.assertTrue(folder.exists())
        self.assertEqual(on_terminal("clean", self.user, answer=b"y\n").code, DONE)
        self.assertFalse(folder.exists())


class Outputs(TerminalTest):
    """Output that goes nowhere, and files and folders in the way."""

    def assert_said(self, words, *arguments, code=PROBLEM, **options):
        errors = self.run_tool(*arguments, code=code, **options).stderr.decode()
        self.assertTrue(errors.startswith("plxclip: "), errors)
        self.assertIn(words, errors)

    def test_full_disk(self):
        self.copy_user_clips()
        with open("/dev/full", "wb") as full:
            for arguments in (("--help",), ("help", "list"), ("--version",), ("show", self.library, "Scala"),
                              ("list", self.library, "--json"), ("edit", self.user, "--all", "--vendor", "V")):
                with self.subTest(arguments):
                    self.assert_said("the output cannot be written", *arguments, stdout=full)
        self.assert_said("is not a file", "show", self.library, "An die Freude", "--svg", "/dev/full")
        self.assert_said("is not a file", "gallery", self.library, "--output", "/dev/full")

    def test_closed_output(self):
        """The reader has gone, as "head" goes: the program ends, and what it was told to do is done."""
        self.copy_user_clips()
        reader, writer = os.pipe()
        os.close(reader)
        for arguments in (("list", self.library, "--json"), ("edit", self.user, "--all", "--vendor", "V")):
            self.run_tool(*arguments, stdout=writer, code=-signal.SIGPIPE)
        os.close(writer)
        lines = self.run_tool("list", self.user, "--vendor", "=V").stdout.decode().splitlines()
        self.assertEqual(lines[-1], "4 clips")

    def test_no_temporary_folder(self):
        self.assert_said("no temporary folder can be made", "list", self.library / "user",
                         env=os.environ | {"TMPDIR": str(self.scratch / "missing")})

    def test_backslash_in_a_folder(self):
        shutil.copytree(self.library / "user", self.scratch / "a\\b")
        self.assert_said('has a "\\" in its name', "list", self.scratch / "a\\b")
        self.assert_said('has a "\\" in its name', "new", self.scratch / "c\\d", "--name", "N", "--notes", "C4:1",
                         "--voice", "voralin-alto-001")
        self.assertFalse((self.scratch / "c").exists())

    def test_page_for_nobody(self):
        self.assert_said("--output: the page is not printed; name a file", "gallery", self.library, "--output", "-",
                         code=USAGE, cwd=self.scratch)
        self.assertEqual(list(self.scratch.iterdir()), [])

    def test_hints(self):
        errors = self.run_tool("show", self.library, "a", code=PROBLEM).stderr.decode().splitlines()
        self.assertEqual(len(errors), 12)
        self.assertRegex(errors[-1], r"^  and \d+ more$")
        self.user.mkdir()
        self.assert_said("there are no clips", "show", self.user, "a")

    def test_many_that_cannot_be_changed(self):
        self.copy_user_clips()
        for place in self.user.glob("*/property.json"):
            place.write_bytes(place.read_bytes().ljust(limits_of(SOURCES)["PROPERTY"] - 100))
        result = self.run_tool("edit", self.user, "--all", "--vendor", "V" * 5000, code=PROBLEM)
        self.assertEqual(result.stdout, b"0 of 4 clips changed\n")
        self.assertEqual(len(result.stderr.splitlines()), 4)


def main():
    global SOURCES, PROGRAMS
    case, SOURCES, PROGRAMS = from_arguments(*sys.argv[1:])
    unittest.main(argv=[sys.argv[0], case], verbosity=2)


main()
