"""Checks of completion in shells and of the manual pages of plxclip.

check_completion.py CASE SOURCES PROGRAMS SUFFIX ROOT [LAUNCHER...]
"""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

sys.path.append(str(pathlib.Path(__file__).parent))
sys.path.append(str(pathlib.Path(__file__).parents[2] / "support"))
from command_line import Help  # noqa: E402
from programs import from_arguments  # noqa: E402
from shells import Shell  # noqa: E402

SOURCES = PROGRAMS = None

# Names that a shell would take apart, expand or run.
ODD_NAMES = ["two words", "it's", 'say "la"', "$HOME", "$(touch ran)", "`touch ran`", "a;touch ran", "back\\slash",
             "star * star", "quote'", 'mark"', "~tilde", "#hash", "colon:equals=", "(paren)", "さくら"]


class CompletionTest(unittest.TestCase):
    """Has the example library, and a folder for more."""

    def setUp(self):
        self.scratch = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.scratch)
        self.library = SOURCES / "examples/library"
        self.clips = self.scratch / "clips"

    def help(self, *command):
        return Help(PROGRAMS.run("plxclip", *command, "--help").lines)

    def answer(self, current, *words):
        words = [PROGRAMS.path(word) if isinstance(word, pathlib.Path) else word for word in words]
        result = PROGRAMS.run("plxclip", "__complete", f"={current}", *words)
        self.assertEqual((result.code, result.errors), (0, ""))
        return result.lines[0], [line.split("\t")[0] for line in result.lines[1:]]

    def words(self, current, *words):
        kind, found = self.answer(current, *words)
        self.assertEqual(kind, "words")
        return found

    def make_clip(self, name, clip_id, **properties):
        folder = self.clips / clip_id
        folder.mkdir(parents=True)
        (folder / "property.json").write_text(
            json.dumps({"id": clip_id, "name": name, "part": {"type": "midi"}} | properties), encoding="utf-8")
        (folder / "clip.kxclip").write_text("{}", encoding="utf-8")

    def make_odd_clips(self):
        for number, name in enumerate(ODD_NAMES):
            self.make_clip(name, f"odd-{number}")


class Answers(CompletionTest):
    """What the program says can come next, on every system."""

    def test_commands(self):
        commands = self.help().commands
        self.assertGreaterEqual(len(commands), 10)
        self.assertEqual(self.words(""), list(commands))
        self.assertEqual(self.words("c"), [name for name in commands if name.startswith("c")])

    def test_values(self):
        self.assertEqual(self.words("", "list", "--sort"), ["found", "id", "key", "name", "part", "tempo", "vendor"])
        self.assertEqual(self.words("mi", "edit", "--only-part"), ["midi", "midiAi"])
        self.assertEqual(self.words("--part=mi", "list"), ["--part=midi", "--part=midiAi"])
        self.assertEqual(self.words("A m", "new", "--key"), ["A major", "A minor"])
        self.assertIn("Japanese", self.words("", "edit", "--add-language"))
        self.assertEqual(self.answer("", "list"), ("folders", []))
        self.assertEqual(self.answer("", "new"), ("folders", []))
        self.assertEqual(self.answer("", "list", "x", "--user"), ("folders", []))
        self.assertEqual(self.answer("", "gallery", "--output"), ("files", []))
        self.assertEqual(self.answer("--output=x", "gallery"), ("files", []))
        self.assertEqual(self.words("", "new", "--vendor"), [])

    def test_lines_that_make_no_sense(self):
        for current, *words in (["", "nonsense"], ["--", "nonsense"], ["", "show", "a", "b", "c"],
                                ["--nonsense=", "list"], ["--json=", "list"], ["--part", "--part=midi"]):
            with self.subTest(words):
                self.assertEqual(self.words(current, *words), [])

    def test_clips(self):
        names = self.words("", "show", self.library)
        self.assertIn("An die Freude", names)
        self.assertIn("さくらさくら", names)
        self.assertEqual(self.words("An d", "show", "--json", "--", self.library), ["An die Freude"])
        self.assertIn("mirenoto.warabeuta.sakura", self.words("mire", "show", self.library))
        user = self.words("", "edit", self.library)
        self.assertIn("Jingle Bells", user)
        self.assertNotIn("An die Freude", user)
        self.assertEqual(self.words("", "edit", self.library, "Jingle Bells"), user)


class Catalogue(CompletionTest):
    """What is offered of odd folders and odd names."""

    def test_names_that_cannot_stand_on_a_line_give_way_to_ids(self):
        self.make_clip("two\nlines", "first")
        self.make_clip("twice", "second")
        self.make_clip("twice", "third")
        self.make_clip("tab\there", "fourth")
        self.make_clip("plain", "fi\nfth")
        self.make_clip("two\nlines", "si\nxth")
        self.assertEqual(sorted(self.words("", "show", self.clips)), ["first", "fourth", "plain", "second", "third"])

    def test_tags(self):
        self.make_clip("a", "1", filter={"genres": ["Folk", "Carol"]}, vendor="V")
        self.make_clip("b", "2", filter={"genres": ["Folk"], "types": ["two\nlines"]})
        self.assertEqual(self.words("", "list", self.clips, "--genre"), ["Folk", "Carol"])
        self.assertEqual(self.words("", "edit", self.clips, "b", "--remove-genre"), ["Folk", "Carol"])
        self.assertEqual(self.words("", "list", self.clips, "--type"), [])
        self.assertEqual(self.words("", "list", self.clips, "--vendor"), ["V"])

    def test_user_folders(self):
        self.make_clip("a", "1")
        self.assertEqual(self.words("", "show", self.library, "--user", self.clips, "--json"),
                         self.words("", "show", f"--user={self.clips}", self.library))
        self.assertIn("a", self.words("", "show", self.library, "--user", self.clips))

    def test_home(self):
        self.make_clip("a", "1")
        environment = dict(os.environ, HOME=str(self.scratch))
        result = PROGRAMS.run("plxclip", "__complete", "=", "show", "~/clips", env=environment)
        self.assertEqual(result.lines, ["words", "a\t"])

    def test_a_folder_that_is_missing_stays_so(self):
        for command in ("show", "edit", "remove", "copy"):
            self.assertEqual(self.words("", command, self.clips), [])
        self.assertFalse(self.clips.exists())

    def test_a_folder_that_is_too_large_is_not_read(self):
        self.make_clip("a", "1")
        self.assertEqual(self.words("", "show", self.clips), ["a"])
        for number in range(20_000):
            (self.clips / str(-number)).touch()
        self.assertEqual(self.words("", "show", self.clips), [])

    def test_folders_in_a_circle(self):
        self.make_clip("a", "1")
        (self.clips / "again").symlink_to(self.clips)
        self.assertEqual(self.words("", "show", self.clips), ["a"])


class Options(CompletionTest):
    """Every option of --help is offered, and nothing else; words that are offered are accepted."""

    def commands(self):
        yield ()
        for name in self.help().commands:
            yield (name,)

    def test_options(self):
        seen = 0
        for command in self.commands():
            with self.subTest(command):
                expected = self.help(*command).options
                self.assertGreaterEqual(expected, {"--help"})
                found = self.words("-", *command)
                self.assertEqual((set(found), len(found)), (expected, len(expected)))
                seen += len(found)
        self.assertGreater(seen, 100)

    def test_words_are_accepted(self):
        seen = 0
        for command in self.commands():
            for option in re.findall(r"(--\S+) WORD", self.help(*command).text):
                words = self.words("", *command, option)
                self.assertGreater(len(words), 2, option)
                for word in words if command == ("list",) else words[:1]:
                    result = PROGRAMS.run("plxclip", *command, option, word, "--help")
                    self.assertEqual(result.code, 0, result.errors)
                    if command == ("list",):
                        result = PROGRAMS.run("plxclip", *command, self.library, option, word)
                        self.assertEqual(result.code, 0, result.errors)
                        seen += 1
        self.assertGreater(seen, 10)


class ManualPages(CompletionTest):
    """There is a page for each command; it tells all that --help tells, and man has nothing to warn of."""

    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp())
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        cls.made = PROGRAMS.run("plxclip", "__man-pages", str(cls.folder))

    def pages(self):
        """The page and the words of each command, and those of the program."""
        commands = self.help().commands
        self.assertEqual({path.name for path in self.folder.iterdir()},
                         {"plxclip.1", *(f"plxclip-{command}.1" for command in commands)})
        yield self.folder / "plxclip.1", ()
        for command in commands:
            yield self.folder / f"plxclip-{command}.1", (command,)

    def rendered(self, page):
        result = subprocess.run(["groff", "-k", "-ww", "-man", "-Tutf8", "-rLL=300n", "-P-cbou", page],
                                check=False, capture_output=True)
        self.assertEqual((result.returncode, result.stderr.decode()), (0, ""), page.name)
        return result.stdout.decode("utf-8")

    def test_tell_what_help_tells(self):
        self.assertEqual((self.made.code, self.made.errors), (0, ""))
        for page, command in self.pages():
            with self.subTest(page.name):
                shown = self.help(*command)
                text = self.rendered(page)
                told = set(re.findall(r"^ {7}(?:-\w,)?(--[\w-]+)", text, re.MULTILINE))
                self.assertEqual(told, shown.options)
                self.assertEqual(re.findall(r"^ {7}([A-Z]+)\b", self.section(text, "ARGUMENTS"), re.MULTILINE),
                                 shown.positionals)
                self.assertEqual(shown.groups - set(re.findall(r"^   (\S.*)$", text, re.MULTILINE)), set())
                self.assertEqual(self.words_of(shown) - set(self.plain_words(text)), set())

    @staticmethod
    def section(text, title):
        return re.split(r"\n(?=\S)", text.partition(f"\n{title}\n")[2])[0]

    @staticmethod
    def plain_words(text):
        return [word.casefold() for word in re.findall(r"[^\s,.;:()=]+", text)]

    def words_of(self, shown):
        """All words of the help but the headings of its own form."""
        text = re.sub(r"^(Usage: .*|Positionals:|Options:|Subcommands:|Examples?:)$", "", shown.text, flags=re.MULTILINE)
        return set(self.plain_words(text))

    def test_the_line_for_whatis(self):
        for page, command in self.pages():
            shown = self.help(*command).text.splitlines()[0].rstrip(".")
            result = subprocess.run(["lexgrog", page], check=True, capture_output=True, text=True)
            self.assertEqual(result.stdout,
                             f'{page}: "{"-".join(["plxclip", *command])} - {shown[0].lower()}{shown[1:]}"\n')

    def test_man_shows_them(self):
        for page, _ in self.pages():
            result = subprocess.run(["man", "--warnings=w", "-l", page], check=False, capture_output=True,
                                    env=dict(os.environ, LC_ALL="C.UTF-8", MANPAGER="cat"))
            self.assertEqual((result.returncode, result.stderr.decode()), (0, ""), page.name)

    def test_the_build_has_made_the_same(self):
        for page, _ in self.pages():
            self.assertEqual((PROGRAMS.folder.parent / "share/man/man1" / page.name).read_bytes(), page.read_bytes())


class InAShell(CompletionTest):
    """The file for a shell, in that shell, on a terminal."""

    shell = file = None

    def setUp(self):
        super().setUp()
        if self.shell:
            self.running = Shell(self.shell, SOURCES / "tools/plxclip/completion" / self.file, PROGRAMS.folder,
                                 self.scratch)
            self.addCleanup(self.running.close)

    def expect(self, line, completed):
        self.assertEqual(self.running.complete(line)[0], completed)

    def check_all_options(self):
        for command in ("", *self.help().commands):
            _, offered = self.running.complete(f"plxclip {command} --")
            self.assertEqual(set(offered), self.help(*command.split()).options, command)

    def check_lines(self):
        self.expect("plxclip li", "plxclip list ")
        self.expect("plxclip list --so", "plxclip list --sort ")
        self.expect("plxclip list --sort te", "plxclip list --sort tempo ")
        self.expect("plxclip nonsense ", "plxclip nonsense ")
        (self.scratch / "my folder").mkdir()
        (self.scratch / "my file").touch()
        self.expect("plxclip list my", "plxclip list my\\ folder/")
        self.expect("plxclip show x y --svg my\\ fi", "plxclip show x y --svg my\\ file ")

    def check_words_behind_equals(self):
        self.expect("plxclip list --part=au", "plxclip list --part=audio ")
        self.expect('plxclip list --key "A mi', 'plxclip list --key "A minor" ')

    def check_odd_names(self):
        """Each is the only one in its folder, so it is completed as soon as a quotation mark is typed, or nothing."""
        self.make_odd_clips()
        for name in ODD_NAMES:
            shutil.rmtree(self.scratch / "one", ignore_errors=True)
            folder = self.scratch / "one"
            folder.mkdir()
            shutil.copytree(self.clips / f"odd-{ODD_NAMES.index(name)}", folder / "clip")
            for mark in ("", "'", '"'):
                with self.subTest(name=name, mark=mark):
                    self.assertEqual(self.running.arguments_after(f"plxclip show one {mark}"), ["show", "one", name])
        self.assertFalse((self.scratch / "ran").exists())


class Bash(InAShell):
    shell, file = "bash", "plxclip.bash"

    def test_all_options(self):
        self.check_all_options()

    def test_lines(self):
        self.check_lines()
        self.check_words_behind_equals()
        self.expect("plxclip list --part=", "plxclip list --part=")

    def test_odd_names(self):
        self.check_odd_names()

    def test_names_with_letters_that_separate_words(self):
        self.make_clip("colon:equals=", "1")
        self.make_clip("colon:other", "2")
        self.expect("plxclip show clips col", "plxclip show clips colon:")
        self.expect("plxclip show clips colon:", "plxclip show clips colon:")
        self.expect("plxclip show clips colon:e", "plxclip show clips colon:equals= ")
        self.expect("plxclip show clips 'colon:e", "plxclip show clips 'colon:equals=' ")


class Zsh(InAShell):
    shell, file = "zsh", "_plxclip"

    def test_all_options(self):
        self.check_all_options()

    def test_lines(self):
        self.check_lines()
        self.check_words_behind_equals()

    def test_odd_names(self):
        self.check_odd_names()


class Fish(InAShell):
    def candidates(self, line):
        file = SOURCES / "tools/plxclip/completion/plxclip.fish"
        result = subprocess.run(["fish", "--no-config", "-c", 'source $argv[1]; complete -C $argv[2]', file, line],
                                check=True, capture_output=True, text=True, cwd=self.scratch, timeout=60,
                                env=dict(os.environ, PATH=f"{PROGRAMS.folder}:{os.environ['PATH']}", HOME=str(self.scratch),
                                         LC_ALL="C.UTF-8"))
        self.assertEqual(result.stderr, "")
        return [word.split("\t")[0] for word in result.stdout.splitlines()]

    def test_all_options(self):
        for command in ("", *self.help().commands):
            self.assertEqual(set(self.candidates(f"plxclip {command} --")), self.help(*command.split()).options, command)

    def test_lines(self):
        self.assertEqual(self.candidates("plxclip li"), ["list"])
        self.assertEqual(self.candidates("plxclip list --sort te"), ["tempo"])
        self.assertEqual(self.candidates("plxclip list --part=au"), ["--part=audio"])
        (self.scratch / "my folder").mkdir()
        (self.scratch / "my file").touch()
        self.assertEqual(self.candidates("plxclip list my"), ["my folder/"])
        self.assertEqual(self.candidates("plxclip show x y --svg 'my fi"), ["my file"])
        self.assertEqual(self.candidates("plxclip gallery --output=my"), ["--output=my file", "--output=my folder/"])

    def test_odd_names(self):
        self.make_odd_clips()
        self.assertEqual(sorted(self.candidates("plxclip show clips ")), sorted(ODD_NAMES))
        for typed in ("'two w", '"two w', "two\\ w"):
            self.assertEqual(self.candidates(f"plxclip show clips {typed}"), ["two words"], typed)
        self.assertEqual(self.candidates("plxclip show 'clips' '$(t"), ["$(touch ran)"])
        self.assertFalse((self.scratch / "ran").exists())


class PowerShell(CompletionTest):
    """There is none on Debian to run the file in: only what can be said without one."""

    def test_brackets_and_quotes_are_closed(self):
        text = (SOURCES / "tools/plxclip/completion/plxclip.ps1").read_text(encoding="ascii")
        code = re.sub(r"^\s*#.*$", "", text, flags=re.MULTILINE)
        code = re.sub(r"\"(?:`.|[^\"`])*\"|'(?:''|[^'])*'", "0", code)
        self.assertNotRegex(code, "[\"']")
        open_brackets = []
        for bracket in re.findall(r"[][(){}]", code):
            if bracket in "([{":
                open_brackets.append(bracket)
            else:
                self.assertEqual(open_brackets.pop() + bracket, {")": "()", "]": "[]", "}": "{}"}[bracket])
        self.assertEqual(open_brackets, [])


def main():
    global SOURCES, PROGRAMS
    case, SOURCES, PROGRAMS = from_arguments(*sys.argv[1:])
    unittest.main(argv=[sys.argv[0], case], verbosity=2)


main()
