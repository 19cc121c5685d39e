"""Checks of the example programs, and of what the pages say that they print.

check_examples.py CASE SOURCES PROGRAMS SUFFIX ROOT [LAUNCHER...]
"""

import collections
import json
import pathlib
import re
import shutil
import sys
import tempfile
import unittest

sys.path.append(str(pathlib.Path(__file__).parent.parent / "support"))
from programs import from_arguments, listed_clips  # noqa: E402
from readme import blocks, documented_clips, example_clips, figures  # noqa: E402

SOURCES = PROGRAMS = None

# No clip's tags are longer.
WIDE = ("--width", "300")


class ExampleTest(unittest.TestCase):
    """Has a folder of its own, with a copy of the user clips, which a program may write to."""

    def setUp(self):
        self.scratch = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.scratch)
        self.user = self.scratch / "user"
        self.system = SOURCES / "examples/library/system"
        shutil.copytree(SOURCES / "examples/library/user", self.user)

    def browse(self, *arguments, options=(), code=0):
        folders = (PROGRAMS.path(self.system), PROGRAMS.path(self.user))
        result = PROGRAMS.run("browse", *options, *folders, *arguments)
        self.assertEqual(result.code, code, result.errors)
        return result

    def names(self, *options):
        clips = listed_clips(self.browse(options=(*WIDE, *options)).lines)
        return sorted(clip["Name"] for clip in clips)


class Catalogue(ExampleTest):
    """The pages say what a catalogue of the example library shows."""

    def listed(self):
        clips = list(listed_clips(self.browse(options=WIDE).lines))
        self.assertGreater(len(clips), 0)
        return collections.Counter(
            tuple(clip[key] for key in ("Name", "Vendor", "Type", "Key", "BPM")) for clip in clips
        )

    def test_page_of_the_library(self):
        self.assertEqual(documented_clips(SOURCES), self.listed())

    def test_page_has_every_clip_file(self):
        library = SOURCES / "examples/library"
        files = sorted(
            str(path.relative_to(library))
            for path in library.rglob("*")
            if path.suffix.lower() == ".kxclip"
        )
        self.assertEqual(sorted(row["Clip file"] for row in example_clips(SOURCES)), files)

    def test_figures(self):
        clips = sum(self.listed().values())
        users = [row for row in example_clips(SOURCES) if row["Clip file"].startswith("user/")]
        user_clips = sum(row["Listed"] == "yes" for row in users)
        self.assertEqual(figures(SOURCES), (clips - user_clips, user_clips))
        page = (SOURCES / "examples/library/README.md").read_text(encoding="utf-8")
        self.assertEqual(re.findall(r"\*\*(\d+)\*\*", page), list(map(str, figures(SOURCES))))


class PartsRead(ExampleTest):
    """The pages say how many notes a clip has, and which parts do not read."""

    def rows(self):
        return [row for row in example_clips(SOURCES) if row["Listed"] != "no"]

    def test_every_listed_clip(self):
        names = sorted({row["Name"] for row in self.rows()})
        result = self.browse(*names, code=1)
        shown = clips_with_notes(result.lines, names)
        self.assertEqual(sorted(shown), names)
        for row in self.rows():
            self.assertEqual(shown[row["Name"]], row["Notes"] or None, row["Name"])

    def test_parts_that_do_not_read(self):
        unreadable = [row["Clip file"] for row in self.rows() if row["Part reads"] == "no"]
        files = {pathlib.PurePath(file.strip("`")).name for file in unreadable}
        names = [row["Name"] for row in self.rows()]
        errors = self.browse(*names, code=1).errors.splitlines()
        self.assertGreater(len(files), 0)
        self.assertEqual({re.split(r"[/\\]", line)[-1] for line in errors}, files)


def clips_with_notes(lines, names):
    """Maps the names of shown clips to their numbers of notes; None when a clip shows none."""
    notes = {}
    for line in lines:
        if line in names:
            name = line
            notes[name] = None
        elif line.startswith("Notes  "):
            notes[name] = line.split()[1].rstrip(";")
    return notes


class Columns(ExampleTest):
    """Kana take two columns each, and the table stays straight."""

    def test_types_stand_in_one_column(self):
        for width in ("80", "100", "160"):
            clips = list(listed_clips(self.browse(options=("--width", width)).lines))
            self.assertIn("さくらさくら", [clip["Name"] for clip in clips])
            self.assertEqual({clip["Type"] for clip in clips}, {"audio", "midi", "midiAi"})


class Search(ExampleTest):
    """Each option narrows the list down, and so do several together."""

    def test_language_by_name_and_by_number(self):
        expected = ["さくらさくら", "ちょうちょう"]
        self.assertEqual(self.names("--language", "Japanese"), expected)
        self.assertEqual(self.names("--language", "5"), expected)

    def test_genre_and_part(self):
        self.assertEqual(self.names("--genre", "和風"), ["さくらさくら", "つりがね"])
        self.assertEqual(self.names("--genre", "和風", "--part", "audio"), ["つりがね"])

    def test_vendor_and_type(self):
        self.assertEqual(len(self.names("--vendor", "Brindoll")), 6)
        self.assertEqual(self.names("--vendor", "Brindoll", "--type", "Loop"), ["Frame Drum 104"])

    def test_vendor_of_a_clip_without_tags(self):
        self.assertIn("さくら (はじめ)", self.names("--vendor", "Attic finds"))

    def test_singer_group(self):
        self.assertEqual(self.names("--singer-group", "Crew", "--type", "Verse"), ["Drunken Sailor"])

    def test_nothing_matches(self):
        self.assertEqual(self.names("--genre", "Folk", "--vendor", "Voralin Tones"), [])


class Roll(ExampleTest):
    """The piano roll is the one that the README shows."""

    def test_readme(self):
        pictures = [text for text in blocks(SOURCES / "README.md", "text") if "さくら" in text]
        self.assertEqual(len(pictures), 1)
        expected = pictures[0].splitlines()
        shown = self.browse("さくらさくら", options=("--width", "100", "--bars", "1-4")).lines
        self.assertEqual(shown[: len(expected)], expected)

    def test_a_clip_by_number_id_or_name(self):
        row = next(
            clip
            for clip in listed_clips(self.browse(options=WIDE).lines)
            if clip["Name"] == "An die Freude"
        )
        by_name = self.browse("An die Freude").lines
        self.assertIn("D major", "\n".join(by_name))
        self.assertEqual(self.browse(row["#"]).lines, by_name)
        self.assertEqual(self.browse("voralin.lieder.an-die-freude").lines, by_name)

    def test_meter(self):
        def bars(meter):
            lines = self.browse("Stille Nacht", options=("--meter", meter)).lines
            return next(line for line in lines if line.startswith("Bars "))

        self.assertEqual(bars("6/8"), "Bars     12; meter 6/8")
        self.assertEqual(bars("3/8"), "Bars     24; meter 3/8")


class Failures(ExampleTest):
    """What cannot be done is said on the error output, and makes the program fail."""

    def test_no_system_folder(self):
        self.system = self.scratch / "missing"
        self.assertIn("the folder does not exist (7)", self.browse(code=1).errors)

    def test_a_file_where_the_user_folder_should_be(self):
        self.user = self.scratch / "file"
        self.user.write_text("no folder", encoding="ascii")
        self.assertIn("(8)", self.browse(code=1).errors)

    def test_no_such_clip(self):
        result = self.browse("さくらんぼ", code=1)
        self.assertIn("さくらんぼ", result.errors)
        self.assertEqual(result.lines, [])

    def test_wrong_command_lines(self):
        for options in (("--part", "both"), ("--meter", "4/0"), ("--bars", "3-2"), ("--x", "y")):
            result = self.browse(options=options, code=1)
            self.assertIn(" ".join(options), result.errors)
            self.assertIn("Usage:", result.errors)


class Format(ExampleTest):
    """The documents that the README shows are a clip."""

    def test_readme(self):
        documents = blocks(SOURCES / "README.md", "json")
        self.assertEqual(len(documents), 2)
        self.system = self.scratch / "system"
        clip = self.system / "Some clip"
        clip.mkdir(parents=True)
        (clip / "property.json").write_text(documents[0], encoding="utf-8")
        (clip / "Some clip.kxclip").write_text(documents[1], encoding="utf-8")
        self.assertIn("An die Freude", self.names())
        shown = "\n".join(self.browse("An die Freude").lines)
        for line in ("Notes    1; vibrato on 1", "dynamics         1", "audio.reverb: Mix 0.32"):
            self.assertIn(line, shown)


class Compose(ExampleTest):
    """A user clip is built, saved, listed, edited, read again and removed, and leaves nothing."""

    def compose(self, folder):
        return PROGRAMS.run("compose", PROGRAMS.path(self.system), PROGRAMS.path(folder))

    def test_leaves_nothing_behind(self):
        folder = self.scratch / "depth" / "新しい"
        result = self.compose(folder)
        self.assertEqual(result.code, 0, result.errors)
        self.assertEqual(list(folder.iterdir()), [])
        self.assertNotIn("FAILED", "\n".join(result.lines))

    def test_lists_what_it_saved_edited_and_removed(self):
        lines = self.compose(self.scratch / "new").lines
        tune = [clip for clip in listed_clips(lines) if clip["Type"] == "midi"]
        self.assertEqual([clip["Key"] for clip in tune], ["C major", "F major"])
        self.assertEqual([clip["BPM"] for clip in tune], ["132", "160"])
        self.assertEqual(tune[0]["Name"], "When the saints")
        self.assertEqual(tune[1]["Name"], "Oh, when the saints ♪")
        self.assertEqual(tune[1]["Tags"], "Dixieland; Chorus, Melody; English")
        self.assertRegex(lines[-1], "^0 of [0-9]+ clips$")

    def test_keeps_other_user_clips(self):
        before = sorted(self.user.rglob("*"))
        result = self.compose(self.user)
        self.assertEqual(result.code, 0, result.errors)
        self.assertEqual(sorted(self.user.rglob("*")), before)

    def test_no_user_folder(self):
        (self.scratch / "file").write_text("no folder", encoding="ascii")
        self.assertEqual(self.compose(self.scratch / "file").code, 1)


class Transpose(ExampleTest):
    """A clip is saved two semitones higher: linked and loaded, in C and in C++, in few lines."""

    def hosts(self):
        library = PROGRAMS.folder / ("krt_plx.dll" if PROGRAMS.suffix else "libkrt_plx.so")
        loaded = (PROGRAMS.path(library),)
        return {"transpose": (), "transpose_loaded": loaded, "sing_higher": (), "sing_higher_loaded": loaded}

    def transpose(self, host, clip, code=0):
        """The document of the new clip, and what was told."""
        folders = (PROGRAMS.path(self.system), PROGRAMS.path(self.user))
        before = set(self.user.rglob("*.kxclip"))
        result = PROGRAMS.run(host, *self.hosts()[host], *folders, clip, "Higher")
        self.assertEqual(result.code, code, result.errors)
        made = set(self.user.rglob("*.kxclip")) - before
        self.assertEqual(len(made), 1 - code)
        if code:
            return None, result.errors
        (file,) = made
        properties = json.loads((file.parent / "property.json").read_text("utf-8"))
        self.assertEqual((properties["name"], [properties["id"]]), ("Higher", result.lines))
        return json.loads(file.read_text("utf-8")), result.errors

    def test_all_but_the_pitch_is_the_same(self):
        (source,) = self.system.rglob("Deutsche Lieder/An die Freude/*.kxclip")
        for host in self.hosts():
            expected = self.pitches(json.loads(source.read_text("utf-8")))
            saved, told = self.transpose(host, "FREUDE")
            self.assertEqual(told, "")
            self.assertEqual(self.pitches(saved), [number + 2 for number in expected])

    def test_what_is_not_saved_is_told(self):
        for host in self.hosts():
            _, told = self.transpose(host, "Scala", code=1)
            self.assertIn("part: aiVoice.compID: prevents saving", told)

    def test_a_library_that_is_not_there_is_told(self):
        for host, library in self.hosts().items():
            if library:
                result = PROGRAMS.run(host, PROGRAMS.path(self.scratch / "none"), "a", "b", "c", "d")
                self.assertEqual((result.code, result.lines), (1, []))
                self.assertIn("loaded: ", result.errors)

    def test_it_takes_few_lines(self):
        self.assertLessEqual(self.lines_of("transposing.c", "KRT_PLX_ClipBase* save_higher"), 15)
        self.assertLessEqual(self.lines_of("singing_higher.cpp", "plx::UserClip saveHigher"), 8)

    def pitches(self, document):
        part = document.get("midi") or document["midiAi"]
        return [note["number"] for note in part["notes"]]

    def lines_of(self, file, function):
        """The lines between the braces of a function that are not empty."""
        text = (SOURCES / "examples" / file).read_text("utf-8")
        (body,) = re.findall(rf"^{re.escape(function)}\([^{{;]*\)\n{{\n(.*?)^}}", text,
                             re.MULTILINE | re.DOTALL)
        return sum(bool(line.strip()) for line in body.splitlines())


def main():
    global SOURCES, PROGRAMS
    case, SOURCES, PROGRAMS = from_arguments(*sys.argv[1:])
    unittest.main(argv=[sys.argv[0], case], verbosity=2)


main()
