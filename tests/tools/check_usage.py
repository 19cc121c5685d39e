"""Checks of plxclip's command lines: what makes no sense is refused, and said in a sentence.

check_usage.py CASE SOURCES PROGRAMS SUFFIX ROOT [LAUNCHER...]
"""

import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

sys.path.append(str(pathlib.Path(__file__).parent.parent / "support"))
from programs import from_arguments  # noqa: E402

SOURCES = PROGRAMS = None

DONE, PROBLEM, USAGE = 0, 1, 2


class UsageTest(unittest.TestCase):
    """Has the example library, and a folder of its own with a copy of it."""

    maxDiff = None

    def setUp(self):
        self.library = SOURCES / "examples/library"
        self.scratch = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.scratch)

    def copy_library(self):
        shutil.copytree(self.library, self.scratch / "library")
        return self.scratch / "library"

    def run_tool(self, *arguments, code=DONE, **options):
        words = [PROGRAMS.path(word) if isinstance(word, pathlib.Path) else word for word in arguments]
        result = PROGRAMS.run("plxclip", *words, **({"cwd": self.scratch} | options))
        self.assertEqual(result.code, code, (arguments, result.errors, result.lines[:3]))
        return result

    def run_natively(self, *arguments, **options):
        """Without the checks of what it prints; for output that goes elsewhere, and the like."""
        words = [str(PROGRAMS.folder / "plxclip"), *map(os.fsencode, arguments)]
        return subprocess.run(words, check=False, stderr=subprocess.PIPE, **({"timeout": 60} | options))

    def assert_refused(self, arguments, sentence, code=USAGE):
        with self.subTest(arguments):
            result = self.run_tool(*arguments, code=code)
            self.assertEqual(result.errors.replace("\r", "").splitlines()[0], f"plxclip: {sentence}")
            self.assertEqual(result.lines, [])

    def names(self, *options, library=None):
        lines = self.run_tool("list", library or self.library, "--json", *options).lines
        return {clip["name"] for clip in json.loads("\n".join(lines))["clips"]}


class Parser(UsageTest):
    """Each kind of error that the parser finds is a sentence, with the help that belongs to it."""

    def test_sentences(self):
        library = self.copy_library()
        for arguments, sentence in (
            # an option or a command that there is not
            (("list", library, "--gerne", "Folk"),
             '"--gerne" is no option of "plxclip list"; did you mean "--genre"?'),
            (("list", library, "--gener=Folk"),
             '"--gener=Folk" is no option of "plxclip list"; did you mean "--genre"?'),
            (("list", library, "--x"),
             '"--x" is no option of "plxclip list"; put "--" before what only begins like an option'),
            (("--verson",), '"--verson" is no option of "plxclip"; did you mean "--version"?'),
            (("lsit", library), '"lsit" is no command; did you mean "list"?'),
            (("chekc", library), '"chekc" is no command; did you mean "check"?'),
            # too few arguments, and too many
            (("show",), '"plxclip show" needs DIR and CLIP'),
            (("show", library), '"plxclip show" needs CLIP'),
            (("new", "x"), '"plxclip new" needs --name, --notes and --voice'),
            (("show", library, "Scala", "Folk"),
             '"Folk" is one argument too many; "plxclip show" takes only DIR and CLIP'),
            # an option without a value, with one that it does not take, and given twice
            (("list", library, "--sort"), "--sort needs a value after it: --sort WORD"),
            (("show", library, "Scala", "--svg"), "--svg needs a value after it: --svg FILE"),
            (("list", library, "--json=5"), "--json takes no value"),
            (("list", library, "--tempo", "90", "--tempo", "100"), "--tempo is given 2 times; give it once"),
            # wrong values
            (("show", library, "Scala", "--svg", "x", "--width", "wide"),
             '--width: "wide" is not a whole number from 480 to 20000'),
            (("show", library, "Scala", "--svg", "x", "--width", "800.5"),
             '--width: "800.5" is not a whole number from 480 to 20000'),
            (("show", library, "Scala", "--svg", "x", "--ticks", "31"),
             '--ticks: "31" is not a whole number from 32 to 1000000'),
            (("copy", library, "Scala", "x", "--transpose", "128"),
             '--transpose: "128" is not a whole number from -127 to 127'),
            (("list", library, "--part", "both"), '--part: "both" is none of audio, midi, midiAi'),
            # two that exclude each other
            (("fix", library, "--originals", "x", "--no-originals"),
             "--originals and --no-originals cannot be given together"),
        ):
            self.assert_refused(arguments, sentence)

    def test_help_that_belongs_to_it(self):
        for arguments, help_ in ((("list", "--x"), "help list"), (("x",), "help"), ((), "help")):
            errors = self.run_tool(*arguments, code=USAGE).errors
            self.assertIn(f'Run "plxclip {help_}" to see', errors)

    def test_an_empty_value(self):
        """"--vendor=" would otherwise take the next option for its value."""
        library = self.copy_library()
        self.run_tool("edit", library, "Jingle Bells", "--vendor=", "--tempo", "90")
        shown = json.loads("\n".join(self.run_tool("show", library, "Jingle Bells", "--json").lines))
        self.assertEqual((shown["vendor"], shown["tempo"]), ("", 9000))

    def test_names_that_look_like_something_else(self):
        """A list in brackets, a command, a number below 0, an option: the last needs "--" before it."""
        user = self.copy_library() / "user"
        for place, name in zip(sorted(user.glob("*/property.json")), ("[a, b]", "check", "-3", "--yes"), strict=True):
            document = json.loads(place.read_text(encoding="utf-8")) | {"name": name}
            place.write_text(json.dumps(document), encoding="utf-8")
        lines = self.run_tool("edit", user, "--vendor", "V", "--", "[a, b]", "check", "-3", "--yes").lines
        self.assertEqual(lines, ["4 of 4 clips changed"])
        self.assertIn("Vendor     V", self.run_tool("show", user, "check").lines)
        shutil.move(user, self.scratch / "[user]")
        lines = self.run_tool("list", "[user]", "--count", "vendor", cwd=self.scratch).lines
        self.assertEqual(lines, ["Clips  vendor", "    4  V"])

    def test_help(self):
        text = self.run_tool("help", "show").lines
        self.assertEqual(text, self.run_tool("show", "--help").lines)
        self.assertEqual(self.run_tool("help").lines, self.run_tool("--help").lines)
        self.assertTrue(any("--bars" in line for line in text), text)
        self.assert_refused(("help", "lst"), '"lst" is no command; did you mean "list"?')


class Values(UsageTest):
    """A value that can mean nothing, and options that do nothing together, are refused."""

    def test_refused(self):
        library = self.copy_library()
        show = ("show", library, "An die Freude")
        for arguments, sentence in (
            (("list", library, "--tempo", "120-100"), '--tempo: "120-100" goes down; write 100-120'),
            (("list", library, "--tempo", "120-"), '--tempo: "" is no tempo in beats a minute'),
            (("list", library, "--tempo", "0x50"), '--tempo: "0x50" is no tempo in beats a minute'),
            (("list", library, "--tempo", "126.555"),
             '--tempo: "126.555" has too many places; a tempo has two, such as 126.55'),
            (("edit", library, "Jingle Bells", "--tempo", "126.555"),
             '--tempo: "126.555" has too many places; a tempo has two, such as 126.55'),
            ((*show, "--svg", "-", "--meter", "3/5"), "--meter: the second number is 1, 2, 4, 8, 16 or 32"),
            ((*show, "--svg", "-", "--meter", "0/4"), "--meter: the first number is 1 to 32"),
            ((*show, "--svg", "-", "--bars", "500-501"), "--bars: the clip ends with bar 16"),
            ((*show, "--svg", "-", "--bars", "2-1"), "--bars: the first bar is 1, and the last not before it"),
            ((*show, "--bars", "1-2"), "--bars: does nothing without --svg, --png or --pdf"),
            ((*show, "--meter", "3/4"), "--meter: does nothing without --svg, --png or --pdf"),
            ((*show, "--ticks", "480"), "--ticks: does nothing without --svg, --png or --pdf"),
            ((*show, "--width", "800"), "--width: does nothing without --svg, --png or --pdf"),
            ((*show, "--svg", "-", "--json"), "--json and --svg cannot be given together"),
            ((*show, "--png", "x", "--json"), "--json and --png cannot be given together"),
            ((*show, "--svg", ""), "--svg: this cannot be empty"),
            ((*show, "--names", "--json"), "--json and --names cannot be given together"),
            (("show", library, ""), "CLIP: this cannot be empty"),
            (("list", library, "--count", "part", "--long"), "--count and --long cannot be given together"),
            (("list", library, "--count", "part", "--sort", "name"), "--sort and --count cannot be given together"),
            (("list", library, "--json", "--names"), "--json and --names cannot be given together"),
            (("list", library, "--genre", ""), "--genre: this cannot be empty"),
            (("edit", library, "Jingle Bells", "--add-genre", ""), "--add-genre: a tag cannot be empty"),
            (("edit", library, "Jingle Bells", "--remove-genre", ""), "--remove-genre: a tag cannot be empty"),
            (("edit", library, "Jingle Bells", "--clear-genres", "--remove-genre", "Carol"),
             "--remove-genre and --clear-genres cannot be given together"),
            (("edit", library, "Jingle Bells", "--all", "--key", "1"), "CLIP and --all cannot be given together"),
            (("edit", library, "Jingle Bells", "--name", ""), "--name: this cannot be empty"),
            (("new", "x", "--name", "N", "--notes", "C4:1", "--voice", "short"),
             '--voice: "short" has 5 characters; the ID of a voice has 16'),
            (("new", "x", "--name", "N", "--notes", "C4:1", "--voice", "voralin-alto-001", "--language", "200"),
             '--language: "200" is not a language of notes: 0 to 127, or a name such as "Japanese"'),
            (("new", "x", "--name", "N", "--notes", "C4:1", "--voice", "voralin-alto-001", "--add-genre", ""),
             "--add-genre: this cannot be empty"),
            (("copy", library, "Scala", "x", "--name", ""), "--name: this cannot be empty"),
            (("gallery", library, "--output", ""), "--output: this cannot be empty"),
            (("fix", library, "--id", ""), "--id: this cannot be empty"),
            (("clean", library, "--yes", "--dry-run"), "--yes and --dry-run cannot be given together"),
        ):
            self.assert_refused(arguments, sentence)

    def test_key_and_tempo_of_an_audio_clip(self):
        library = self.copy_library()
        self.assert_refused(("edit", library, "Rowing, first take", "--tempo", "90"),
                            '"Rowing, first take" is an audio clip, which has neither key nor tempo', PROBLEM)

    def test_taken(self):
        """What is like these, and means something."""
        self.assertEqual(self.names("--tempo", "126.550"), self.names("--tempo", "126.55"))
        self.assertEqual(self.names("--tempo", "69.00-69"), self.names("--tempo", "69"))
        self.assertTrue(self.names("--tempo", "69"))
        picture = self.run_tool("show", self.library, "An die Freude", "--svg", "-", "--bars", "15-500").lines
        numbers = [line for line in picture if 'class="bar-number"' in line]
        self.assertEqual(len(numbers), 2, numbers)
        self.assertEqual(self.names("--language", "japanese"), self.names("--language", "5"))
        self.assertEqual(self.names("--key", "a MINOR", "--part", "MIDI"), self.names("--key", "23", "--part", "midi"))

    @unittest.skipIf(os.name == "nt", "arguments are always text there")
    def test_argument_that_is_no_text(self):
        if PROGRAMS.launcher:
            self.skipTest("the emulator converts arguments")
        for words in (("list", b"caf\xe9"), ("list", self.library, "--genre", b"\xed\xa0\x80"), (b"\xff",)):
            with self.subTest(words):
                result = self.run_natively(*words)
                self.assertEqual(result.returncode, USAGE)
                self.assertIn(b"an argument is not text in UTF-8", result.stderr)
                self.assertIn("\N{REPLACEMENT CHARACTER}", result.stderr.decode("utf-8"))


class Texts(UsageTest):
    """One rule for all texts that choose clips: a part of what the clip has, or behind "=" all of it; accents
    and the case of letters do not matter."""

    def setUp(self):
        super().setUp()
        self.user = self.copy_library() / "user"
        self.places = sorted(self.user.glob("*/property.json"))

    def give(self, *values):
        """Each clip gets one of the values, as name, vendor and tags of all kinds."""
        for number, (place, value) in enumerate(zip(self.places, values, strict=True)):
            tags = {key: [value] for key in ("types", "genres", "singerGroups")}
            place.write_text(json.dumps({
                "id": f"id {number}", "name": value, "vendor": value, "part": {"type": "midi"},
                "filter": tags | {"languages": [1]}}), encoding="utf-8")

    def listed(self, option, text):
        return self.names(option, text, library=self.user)

    def test_each_filter(self):
        self.give("Greensleeves", "Frère Jacques", "GREEN", "ガラス")
        for option in ("--name", "--vendor", "--type", "--genre", "--singer-group"):
            for text, found in (
                ("greens", {"Greensleeves"}),
                ("green", {"Greensleeves", "GREEN"}),
                ("=green", {"GREEN"}),
                ("FRERE J", {"Frère Jacques"}),
                ("fre\u0300re", {"Frère Jacques"}),
                ("=frère", set()),
                ("カラス", {"ガラス"}),
            ):
                with self.subTest(f"{option} {text}"):
                    self.assertEqual(self.listed(option, text), found)

    def test_letters(self):
        self.give("Ångström", "ﬁn", "한글", "ΆΛΦΑ")
        for text, found in (("angstrom", "Ångström"), ("FIN", "ﬁn"), ("\u1112\u1161\u11ab\u1100\u1173\u11af", "한글"),
                            ("한글", "한글"), ("αλφα", "ΆΛΦΑ")):
            with self.subTest(text):
                self.assertEqual(self.listed("--name", f"={text}"), {found})

    def test_what_is_chosen_to_be_edited(self):
        self.give("Café noir", "CAFE", "Tea", "Cafe\u0301")
        for option in ("--only-genre", "--only-name", "--only-vendor", "--only-type", "--only-singer-group"):
            lines = self.run_tool("edit", self.user, option, "cafe", "--key", "3", "--dry-run").lines
            self.assertEqual(lines[-1], "3 of 3 clips would be changed")
            lines = self.run_tool("edit", self.user, option, "=cafe", "--key", "3", "--dry-run").lines
            self.assertEqual(lines[-1], "2 of 2 clips would be changed")

    def test_what_is_removed(self):
        """All of the tag, so that "Pop" leaves "Popular"."""
        tags = ["Pop", "POP", "Popular", "pöp", "K-Pop", "=Pop"]
        self.give(*"abcd")
        for place in self.places:
            document = json.loads(place.read_text(encoding="utf-8"))
            document["filter"] = {"genres": tags, "types": tags, "singerGroups": tags, "singerIDs": tags}
            place.write_text(json.dumps(document), encoding="utf-8")
        for key, option in (("genres", "genre"), ("types", "type"), ("singerGroups", "singer-group"),
                            ("singerIDs", "voice-id")):
            self.run_tool("edit", self.user, "a", f"--remove-{option}", "pop")
            document = json.loads(self.places[0].read_text(encoding="utf-8"))
            self.assertEqual(document["filter"][key], ["Popular", "K-Pop", "=Pop"])
        self.run_tool("edit", self.user, "b", "--add-genre", "pop")
        document = json.loads(self.places[1].read_text(encoding="utf-8"))
        self.assertEqual(document["filter"]["genres"], [*tags, "pop"])


class Kinds(UsageTest):
    """What a listing calls a user clip is what the commands change that change user clips."""

    def test_a_folder_of_its_own(self):
        user = self.copy_library() / "user"
        self.assertIn("Kind       user clip", self.run_tool("show", user, "Jingle Bells").lines)
        lines = self.run_tool("edit", user, "Jingle Bells", "--key", "3").lines
        self.assertIn("Kind       user clip", lines)
        self.assertEqual(self.kinds(user), {"user"})

    def test_beside_other_user_clips(self):
        library = self.copy_library()
        self.assertEqual(self.kinds(library / "system", "--user", library / "user"), {"system", "user"})
        self.assertEqual(self.kinds("--user", library / "user"), {"user"})

    def test_a_library(self):
        library = self.copy_library()
        self.assertEqual(self.kinds(library), {"system", "user"})
        errors = self.run_tool("edit", library, "Scala", "--key", "3", code=PROBLEM).errors
        self.assertIn('"Scala" is a system clip', errors)

    def test_new_clips_of_a_library(self):
        """They are saved where the library's listing finds them."""
        library = self.copy_library()
        self.run_tool("new", library, "--name", "Made", "--voice", "voralin-alto-001", "--notes", "C4:1")
        self.run_tool("copy", library, "Jingle Bells", library, "--name", "Copied")
        self.assertEqual(self.names("--name", "made", library=library), {"Made"})
        self.assertEqual(self.names("--name", "copied", library=library), {"Copied"})
        self.assertEqual(sorted(path.name for path in library.iterdir()),
                         sorted(path.name for path in self.library.iterdir()))

    def kinds(self, *options):
        lines = self.run_tool("list", *options, "--json").lines
        return {clip["kind"] for clip in json.loads("\n".join(lines))["clips"]}


def main():
    global SOURCES, PROGRAMS
    case, SOURCES, PROGRAMS = from_arguments(*sys.argv[1:])
    unittest.main(argv=[sys.argv[0], case], verbosity=2)


main()
