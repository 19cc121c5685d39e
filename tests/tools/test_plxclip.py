"""Tests of plxclip: what it says of the example clips, what it draws, and what it changes.

test_plxclip.py CASE SOURCES PROGRAMS SUFFIX ROOT [LAUNCHER...]
"""

import collections
import ctypes
import json
import os
import pathlib
import re
import shlex
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
import urllib.parse
import wave
import zlib

sys.path.append(str(pathlib.Path(__file__).parent))
sys.path.append(str(pathlib.Path(__file__).parent.parent / "support"))
from drawing import Drawing, box, classes, path_box, points_of, rectangle_box  # noqa: E402
from programs import column_at, columns_of, from_arguments  # noqa: E402
from readme import blocks, documented_clips  # noqa: E402

SOURCES = PROGRAMS = None

DONE, PROBLEM, USAGE = 0, 1, 2


class ToolTest(unittest.TestCase):
    """Has the example library, and a copy of its user clips that may be written to."""

    def setUp(self):
        self.scratch = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.scratch)
        self.library = SOURCES / "examples/library"
        self.user = self.scratch / "user"

    def copy_user_clips(self):
        shutil.copytree(SOURCES / "examples/library/user", self.user)

    def run_tool(self, *arguments, code=DONE, **options):
        words = [PROGRAMS.path(word) if isinstance(word, pathlib.Path) else word for word in arguments]
        result = PROGRAMS.run("plxclip", *words, **options)
        self.assertEqual(result.code, code, result.errors)
        return result

    def json(self, *arguments):
        return json.loads("\n".join(self.run_tool(*arguments, "--json").lines))

    def clips(self, *options):
        return self.json("list", self.library, *options)["clips"]

    def names(self, *options):
        return [clip["name"] for clip in self.clips(*options)]

    def show(self, name):
        return self.json("show", self.library, name)

    def make_clip(self, notes, lanes=(), name="Made", **part):
        """A clip of the user with these notes, which are as in a document."""
        folder = self.user / "made"
        folder.mkdir(parents=True)
        (folder / "property.json").write_text(
            json.dumps({"id": "made", "name": name, "part": {"type": "midi", "key": 8, "tempo": 0}}),
            encoding="utf-8",
        )
        whole = {
            "duration": 1920,
            "voice": {"compID": "voralin-alto-001", "langID": 3},
            "notes": notes,
            "controllers": list(lanes),
        }
        (folder / "made.kxclip").write_text(json.dumps({"midi": whole | part}), encoding="utf-8")


def note(pos=0, **values):
    return {
        "pos": pos,
        "duration": 480,
        "lyric": "la",
        "phoneme": "l a",
        "langID": 3,
        "number": 60,
        "velocity": 64,
    } | values


def rows_of_table(lines):
    """The rows of a printed table, which ends with the number of clips."""
    columns = columns_of(lines[0])
    for line in lines[1:-1]:
        yield {heading: column_at(line, begin, end) for heading, begin, end in columns}


class List(ToolTest):
    """The catalogue is the one that the page of the example library has."""

    def test_table(self):
        lines = self.run_tool("list", self.library, "--names").lines
        rows = list(rows_of_table(lines))
        listed = collections.Counter(
            tuple(row[key] for key in ("Name", "Vendor", "Part", "Key", "BPM")) for row in rows
        )
        self.assertEqual(listed, documented_clips(SOURCES))
        self.assertEqual(lines[-1], f"{len(rows)} clips")

    def test_json(self):
        listing = self.json("list", self.library)
        self.assertEqual(listing["total"], sum(documented_clips(SOURCES).values()))
        self.assertEqual(len(listing["clips"]), listing["total"])
        kinds = collections.Counter(clip["kind"] for clip in listing["clips"])
        self.assertEqual(kinds, {"system": 29, "user": 3})
        sakura = next(clip for clip in listing["clips"] if clip["name"] == "さくらさくら")
        self.assertEqual(sakura["id"], "mirenoto.warabeuta.sakura")
        self.assertEqual((sakura["part"], sakura["key"], sakura["tempo"]), ("midi", 23, 7200))
        self.assertEqual(sakura["tags"]["genres"], ["Folk", "和風"])
        self.assertEqual(sakura["tags"]["languages"], [5])
        self.assertEqual(re.split(r"[/\\]", sakura["path"])[-1], "さくらさくら.kxclip")

    def test_long_table_has_id_and_file(self):
        rows = rows_of_table(self.run_tool("list", self.library, "--long").lines)
        row = next(row for row in rows if row["Name"] == "Scala")
        self.assertEqual((row["Kind"], row["ID"], row["Key"]), ("system", "warm-up.scala", "0"))
        self.assertTrue(row["File"].endswith("Scala.kxclip"))

    def test_user_folder_alone(self):
        listing = self.json("list", "--user", self.library / "user")
        self.assertEqual({clip["kind"] for clip in listing["clips"]}, {"user"})
        self.assertIn("Freude, louder", [clip["name"] for clip in listing["clips"]])

    def test_leaves_no_folder_behind(self):
        folder = self.scratch / "clips"
        folder.mkdir()
        self.run_tool("list", folder)
        self.assertEqual(list(folder.iterdir()), [])


class Filters(ToolTest):
    """Every filter chooses what the catalogue says; so do several together, order and counts."""

    def test_each(self):
        clips = self.clips()
        has = lambda kind, tag: lambda clip: tag in clip["tags"][kind]  # noqa: E731
        cases = [
            (["--part", "midiAi"], lambda clip: clip["part"] == "midiAi"),
            (["--type", "Melody"], has("types", "Melody")),
            (["--genre", "和風"], has("genres", "和風")),
            (["--singer-group", "Choir"], has("singerGroups", "Choir")),
            (["--language", "3"], has("languages", 3)),
            (["--language", "German"], has("languages", 3)),
            (["--vendor", "Attic finds"], lambda clip: clip["vendor"] == "Attic finds"),
            (["--key", "10"], lambda clip: clip["key"] == 10),
            (["--key", "D major"], lambda clip: clip["key"] == 10),
            (["--tempo", "100-112"], lambda clip: 10000 <= clip["tempo"] <= 11200),
            (["--tempo", "69"], lambda clip: clip["tempo"] == 6900),
            (["--name", "FREUDE"], lambda clip: "freude" in clip["name"].lower()),
            (
                ["--part", "midi", "--genre", "Folk", "--tempo", "0-100"],
                lambda clip: clip["part"] == "midi"
                and "Folk" in clip["tags"]["genres"]
                and clip["tempo"] <= 10000,
            ),
        ]
        for options, wanted in cases:
            expected = [clip["name"] for clip in clips if wanted(clip)]
            self.assertTrue(expected, options)
            self.assertLess(len(expected), len(clips), options)
            self.assertEqual(self.names(*options), expected, options)

    def test_nothing_matches(self):
        self.assertEqual(self.names("--genre", "Folk", "--vendor", "Voralin Tones"), [])

    def test_order(self):
        clips = self.clips()
        by_tempo = sorted(clips, key=lambda clip: clip["tempo"])
        self.assertEqual(self.clips("--sort", "tempo"), by_tempo)
        by_name = sorted(clips, key=lambda clip: clip["name"].encode(), reverse=True)
        self.assertEqual(self.clips("--sort", "name", "--reverse"), by_name)
        self.assertEqual(self.clips("--reverse"), clips[::-1])

    def test_counts(self):
        genres = collections.Counter(genre for clip in self.clips() for genre in clip["tags"]["genres"])
        counted = self.json("list", self.library, "--count", "genre")
        self.assertEqual(counted["counts"], genres)
        lines = self.run_tool("list", self.library, "--count", "language", "--names").lines
        languages = collections.Counter(n for clip in self.clips() for n in clip["tags"]["languages"])
        self.assertIn(f"{languages[3]:5}  German", lines)


def document(path):
    return json.loads(path.read_text(encoding="utf-8"))


class Show(ToolTest):
    """What is shown is what stands in the documents."""

    def clip_file(self, name):
        return next(self.library.rglob(f"{name}.kxclip"))

    def assert_same_notes(self, shown, written):
        self.assertEqual(len(shown), len(written))
        for one, other in zip(shown, written, strict=True):
            for key in ("pos", "duration", "lyric", "phoneme", "number", "velocity"):
                self.assertEqual(one[key], other[key])
            self.assertEqual(one["language"], other["langID"])
            for key, value in other.get("exp", {}).items():
                self.assertEqual(one[key], value, key)
            for key, value in other.get("aiExp", {}).items():
                self.assertAlmostEqual(one["ai"][key], value, places=6, msg=key)
            for key, value in other.get("vibrato", {}).items():
                self.assertEqual(one["vibrato"][key], value, key)

    def test_part_of_a_voice_bank(self):
        shown = self.show("voralin.lieder.an-die-freude")["midiPart"]
        written = document(self.clip_file("An die Freude"))["midi"]
        self.assertEqual(shown["voice"], written["voice"]["compID"])
        self.assertEqual(shown["languages"], [written["voice"]["langID"]])
        self.assertEqual(shown["duration"], written["duration"])
        self.assertEqual(shown["styleName"], written["styleName"])
        self.assert_same_notes(shown["notes"], written["notes"])
        lanes = {lane["name"]: lane["events"] for lane in shown["lanes"]}
        self.assertEqual(
            lanes, {lane["name"]: lane["events"] for lane in written["controllers"] if lane["events"]}
        )
        self.assertEqual(
            [effect["id"] for effect in shown["audioEffects"]],
            [effect["id"] for effect in written["audioEffects"]],
        )

    def test_part_of_an_ai_voice(self):
        shown = self.show("Stille Nacht")["midiPart"]
        written = document(self.clip_file("Stille Nacht"))["midiAi"]
        self.assertEqual(shown["voice"], written["aiVoice"]["compID"])
        self.assertEqual(
            shown["languages"], [voice["langID"] for voice in written["aiVoice"]["langIDs"]]
        )
        self.assert_same_notes(shown["notes"], written["notes"])

    def test_audio_part(self):
        wave = self.show("つりがね")["audioPart"]["wavePath"]
        name = re.split(r"[/\\]", wave)[-1]
        self.assertTrue((self.clip_file("つりがね").parent / "audio" / name).exists(), wave)

    def test_in_words(self):
        text = "\n".join(self.run_tool("show", self.library, "さくらさくら", "--names").lines)
        for line in ("Key        A minor", "Tempo      72", "Sung in    Japanese", "Notes: 50"):
            self.assertIn(line, text)
        self.assertRegex(text, r"960 +960 +B4 +\d+ +ら +4 a +vibrato 600")
        self.assertRegex(text, r"dynamics +\d+ +\d+ +\d+ +0 to 127")

    def test_part_that_does_not_read(self):
        result = self.run_tool("show", self.library, "Drunken Sailor, sketch", code=PROBLEM)
        self.assertIn("ID         wild.short-voice-bank-id", result.lines)
        self.assertIn("plxclip check", result.errors)


def held(lane, begin, end):
    """The events from one tick to another, and before them the one that still holds."""
    before = [event for event in lane["events"] if event["pos"] <= begin]
    return before[-1:] + [event for event in lane["events"] if begin < event["pos"] < end]


def page_of_pdf(document):
    """The edges of the first page. Later versions of cairo compress what says so."""
    if not document.startswith(b"%PDF-"):
        raise AssertionError("no PDF")
    streams = []
    for stream in re.findall(rb"stream\r?\n(.*?)\r?\nendstream", document, re.DOTALL):
        try:
            streams.append(zlib.decompressobj().decompress(stream))
        except zlib.error:
            pass  # not compressed
    page = next(filter(None, (re.search(rb"/MediaBox\s*\[([^]]+)\]", text) for text in [document, *streams])))
    return [float(number) for number in page[1].split()]


def without_librsvg():
    """Why there are no PNG and PDF; nothing if there are."""
    if PROGRAMS.launcher or os.name == "nt":
        return "Windows makes no PNG and PDF"
    try:
        ctypes.CDLL("librsvg-2.so.2")
    except OSError:
        return "librsvg is not installed"
    return None


def for_other_libraries():
    """A build with sanitizers must not judge librsvg and what it brings: its fonts are never given back."""
    added = {"ASAN_OPTIONS": "detect_leaks=0", "TSAN_OPTIONS": "ignore_noninstrumented_modules=1"}
    return os.environ | {name: f"{os.environ.get(name, '')}:{value}" for name, value in added.items()}


def read_png(data):
    """Width, height, and the different values in its bytes."""
    assert data.startswith(b"\x89PNG\r\n\x1a\n")
    place, packed, size = 8, b"", None
    while place < len(data):
        length, kind = struct.unpack(">I4s", data[place:place + 8])
        content = data[place + 8:place + 8 + length]
        size = struct.unpack(">II", content[:8]) if kind == b"IHDR" else size
        packed += content if kind == b"IDAT" else b""
        place += 12 + length
    return *size, set(zlib.decompress(packed))


PITCHES = ["C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"]


class Picture(ToolTest):
    """Every note stands in its row and at its time, every event at its value."""

    def draw(self, clip, *options, library=None):
        file = self.scratch / "ピアノ.svg"
        self.run_tool("show", library or self.library, clip, "--svg", file, *options)
        return Drawing(file.read_text(encoding="utf-8"))

    def assert_notes_stand_right(self, drawing, notes):
        drawn = []
        for line in drawing.lines:
            rows = {int(row.get("data-number")): box(row) for row in drawing.rectangles(line, "row")}
            for rectangle in drawing.rectangles(line, "note"):
                number = int(rectangle.get("data-number"))
                self.assertEqual(box(rectangle)[1], rows[number][1])
                self.assertEqual(box(rectangle)[3], rows[number][3])
                if "continued" not in classes(rectangle):
                    drawn.append((int(rectangle.get("data-pos")), number))
            self.assert_rows_are_labelled(line, rows)
        self.assertEqual(drawn, [(one["pos"], one["number"]) for one in notes])

    def assert_rows_are_labelled(self, line, rows):
        """The rows ascend by semitones, and the label at each one's left has its name."""
        labels = {
            element.text: float(element.get("y"))
            for element in line.iter("text")
            if "pitch" in classes(element)
        }
        for number, (_, top, _, height) in rows.items():
            label = labels[f"{PITCHES[number % 12]}{number // 12 - 1}"]
            self.assertTrue(top < label < top + height, number)

    def assert_times_are_in_scale(self, drawing, ticks_per_line, notes):
        lengths = {one["pos"]: one["duration"] for one in notes}
        for index, line in enumerate(drawing.lines):
            left, _, width, _ = box(drawing.rectangles(line, "row")[0])
            scale = width / min(ticks_per_line, drawing.end - index * ticks_per_line)
            for rectangle in drawing.rectangles(line, "note"):
                pos = int(rectangle.get("data-pos"))
                begin = max(pos - index * ticks_per_line, 0)
                self.assertAlmostEqual(box(rectangle)[0], left + begin * scale, delta=0.05)
                if begin + lengths[pos] <= ticks_per_line and pos >= index * ticks_per_line:
                    self.assertAlmostEqual(box(rectangle)[2], lengths[pos] * scale, delta=0.05)

    def assert_events_are_in_scale(self, drawing, lanes, ticks_per_line):
        """Every event stands at its value, but for those of lanes that are folded."""
        drawn = collections.Counter()
        for group in drawing.groups("controller"):
            frame = drawing.rectangles(group, "lane")[0]
            lane = lanes[frame.get("data-lane")]
            top, height = box(frame)[1] + 3, box(frame)[3] - 6
            for event in drawing.rectangles(group, "event"):
                value = int(event.get("data-value"))
                share = (lane["most"] - value) / (lane["most"] - lane["least"])
                middle = box(event)[1] + box(event)[3] / 2
                self.assertAlmostEqual(middle, top + share * height, delta=0.05)
                drawn[lane["name"]] += 1
        expected = collections.Counter()
        for begin in range(0, drawing.end, ticks_per_line):
            for name, lane in lanes.items():
                if len({event["value"] for event in held(lane, begin, begin + ticks_per_line)}) > 1:
                    expected[name] += sum(
                        begin <= event["pos"] < begin + ticks_per_line for event in lane["events"])
        self.assertEqual(drawn, expected)

    def assert_tidy(self, drawing):
        """No text lies on another one; words and waves stay with their notes."""
        boxes = drawing.text_boxes()
        for index, (text, one) in enumerate(boxes):
            clashes = [other for other, place in boxes[index + 1:] if one.overlaps(place)]
            self.assertEqual(clashes, [], f"on {text}")
        for group in drawing.groups("controller"):
            values = drawing.all("text", "event-value", group)
            self.assertLessEqual(len(values), 1 + len(drawing.all("rect", "event", group)), "none twice")
        bodies = [rectangle_box(each) for each in drawing.all("rect", "note")]
        for group in drawing.groups("sung"):
            body = rectangle_box(drawing.rectangles(group, "note")[0])
            for wave_line in drawing.all("path", "vibrato", group) + drawing.all("path", "mark", group):
                self.assertTrue(body.holds(path_box(wave_line)))
            for phoneme in drawing.all("text", "phoneme", group):
                place = drawing.text_box(phoneme)
                self.assertGreaterEqual(drawing.font_size(phoneme), 7)
                self.assertLessEqual(place.right, body.right + 0.2)
                self.assertFalse(any(place.overlaps(other) for other in bodies), phoneme.text)
            for lyric in drawing.all("text", "lyric", group):
                place = drawing.text_box(lyric)
                self.assertGreaterEqual(drawing.font_size(lyric), 6.6)
                self.assertFalse(any(place.overlaps(other) for other in bodies if other != body), lyric.text)

    def test_a_song(self):
        drawing = self.draw("An die Freude")
        part = self.show("An die Freude")["midiPart"]
        drawing.end = part["duration"]
        self.assert_notes_stand_right(drawing, part["notes"])
        self.assert_times_are_in_scale(drawing, 4 * 1920, part["notes"])
        self.assert_events_are_in_scale(drawing, {lane["name"]: lane for lane in part["lanes"]}, 4 * 1920)
        self.assert_tidy(drawing)
        lyrics = [each.text for each in drawing.all("text", "lyric") if "continued" not in classes(each)]
        self.assertEqual(lyrics, [one["lyric"] for one in part["notes"]])
        self.assertEqual(drawing.texts("phoneme"), [one["phoneme"] for one in part["notes"]])
        self.assertEqual(drawing.texts("bar-number"), [str(bar) for bar in range(1, 17)])

    def test_another_song_is_tidy(self):
        drawing = self.draw("Greensleeves", "--names")
        self.assert_tidy(drawing)
        self.assertEqual(len(drawing.texts("phoneme")), 72)
        about = drawing.texts("about")[0]
        self.assertIn(" · E minor · ", about)
        self.assertIn(" · 6/8, guessed from the notes · ", about)

    def test_vibrato_lies_on_the_end_of_its_note(self):
        waves = {"type": 1, "duration": 240, "depths": [{"pos": 0, "value": 127}], "rates": []}
        self.make_clip([note(number=64), note(480, number=67, vibrato=waves)])
        drawing = self.draw("made", library=self.user)
        (path,) = drawing.all("path", "vibrato")
        place, body = path_box(path), rectangle_box(drawing.all("rect", "note")[1])
        self.assertTrue(body.holds(place))
        self.assertAlmostEqual(place.left, body.left + body.width / 2, delta=1.1)
        self.assertAlmostEqual(place.right, body.right, delta=1.1)
        ys = [y for _, y in points_of(path)]
        middle = (place.top + place.bottom) / 2
        self.assertGreater(sum((a < middle) != (b < middle) for a, b in zip(ys, ys[1:])), 4)
        self.assertGreater(place.bottom - place.top, 4)

    def test_a_chord_with_vibrato(self):
        waves = {"type": 1, "duration": 1500, "depths": [{"pos": 0, "value": 127}],
                 "rates": [{"pos": 0, "value": 100}]}
        self.make_clip([note(duration=1920, number=number, vibrato=waves) for number in (60, 61, 62, 64, 64)])
        drawing = self.draw("made", library=self.user)
        self.assertEqual(len(drawing.all("path", "vibrato")), 5)
        self.assert_tidy(drawing)
        self.assertEqual(len(drawing.texts("lyric")), 4, "one of the two that are the same")
        self.assertEqual(len(drawing.texts("phoneme")), 2, "where no note is below")

    def test_short_notes_with_long_phonemes(self):
        words = ["strength", "I", "once", "knew"]
        notes = [note(120 * index, duration=120, number=60 + index % 3, lyric=words[index % 4],
                      phoneme="aI" if index % 4 == 1 else "s t r e N T s k w I") for index in range(32)]
        self.make_clip([*notes, note(3840, duration=10, lyric="shortest", phoneme="S O:")], duration=3 * 1920)
        drawing = self.draw("made", library=self.user)
        self.assert_tidy(drawing)
        self.assertEqual(len(drawing.all("rect", "note")), 33)
        self.assertEqual(set(drawing.texts("phoneme")), {"aI"})
        self.assertEqual(drawing.texts("lyric")[:4], words)

    def test_notes_at_both_ends_of_the_keys(self):
        notes = [note(0, number=0), note(480, number=127), note(960, number=60), note(16 * 1920, number=72)]
        self.make_clip(notes, duration=17 * 1920)
        drawing = self.draw("made", library=self.user)
        self.assert_notes_stand_right(drawing, notes)
        self.assert_tidy(drawing)
        rows = [[int(row.get("data-number")) for row in drawing.rectangles(line, "row")] for line in drawing.lines]
        self.assertEqual(sorted(rows[0]), [0, 1, 2, *range(58, 63), 125, 126, 127])
        self.assertEqual(sorted(rows[-1]), list(range(70, 75)), "each line has its own")
        self.assertEqual([fold.get("data-keys") for fold in drawing.rectangles(drawing.lines[0], "fold")],
                         ["62", "55"])
        self.assertEqual(drawing.rectangles(drawing.lines[-1], "fold"), [])

    def test_a_song_with_flat_lanes(self):
        flat = [("dynamics", [0, 480]), ("brightness", [0]), ("air", [960]), ("growl", [0])]
        lanes = [{"name": name, "events": [{"pos": pos, "value": 40} for pos in at]} for name, at in flat]
        bends = [(0, 0), (700, 5000), (720, 0), (1500, -4000), (1520, 0), (1540, 8000), (1560, 0)]
        lanes.append({"name": "pitchBend", "events": [{"pos": pos, "value": value} for pos, value in bends]})
        self.make_clip([note(480 * index, number=60 + index % 5) for index in range(68)], lanes, duration=17 * 1920)
        drawing = self.draw("made", library=self.user)
        self.assert_tidy(drawing)
        self.assertEqual(drawing.texts("bar-number"), [str(bar) for bar in range(1, 18)])
        folded = collections.Counter(group.get("data-lane") for group in drawing.groups("flat"))
        lines = len(drawing.lines)
        self.assertGreater(lines, 1)
        self.assertEqual(folded, {name: 1 for name, _ in flat} | {"pitchBend": lines - 1})
        for group in drawing.groups("flat"):
            self.assertLess(box(drawing.rectangles(group, "lane")[0])[3], 20)
        said = {group.get("data-lane"): drawing.all("text", "flat-value", group)[0].text
                for group in drawing.groups("flat")}
        self.assertEqual(said, dict.fromkeys(("dynamics", "brightness", "growl"), "40 throughout") |
                         {"air": "40 from tick 960", "pitchBend": "0 throughout"})
        self.assertEqual(len(drawing.groups("controller")), 1)
        self.assertEqual(drawing.texts("extreme"), ["8000", "-4000"])
        later = self.draw("made", "--bars", "9-12", library=self.user)
        self.assertEqual(later.groups("controller"), [])
        self.assertEqual(len(later.groups("flat")), 5)

    def test_a_lane_that_begins_later(self):
        self.make_clip([note()], [{"name": "air", "events": [{"pos": 1920, "value": 3}]}], duration=3840)
        drawing = self.draw("made", "--bars", "1-1", library=self.user)
        self.assertEqual(drawing.texts("flat-value"), ["no events"])

    def test_velocity_and_marks(self):
        quality = {"compID": "soft", "levelNames": ["soft"], "isProtected": False, "speed": 50, "topFactor": 1.0}
        skill = {"duration": 480, "weight": {"pre": 64, "post": 64}}
        notes = [note(0, velocity=0, dvqm={"attack": quality, "release": quality}),
                 note(480, velocity=64, singingSkill=skill), note(960, velocity=127),
                 note(1440, duration=10, dvqm={"attack": quality})]
        self.make_clip(notes)
        drawing = self.draw("made", library=self.user)
        self.assert_tidy(drawing)
        shades = {each.get("data-velocity"): float(each.get("fill-opacity")) for each in drawing.all("rect", "note")}
        self.assertLess(shades["0"] + 0.3, shades["64"])
        self.assertLess(shades["64"] + 0.3, shades["127"])
        marks = [[classes(each)[1] for each in drawing.all("path", "mark", group)] for group in drawing.groups("sung")]
        self.assertEqual(marks, [["attack", "release"], ["skill"], [], []], "the last note is too short")
        self.assertEqual([group.get("data-mark") for group in drawing.groups("legend")],
                         ["velocity", "attack", "release", "skill"])
        for group in drawing.groups("sung")[:2]:
            (lyric,) = drawing.all("text", "lyric", group)
            place = drawing.text_box(lyric)
            self.assertFalse(any(place.overlaps(path_box(each)) for each in drawing.all("path", "mark", group)))
        self.assertIn("attack soft", drawing.groups("sung")[0].find("title").text)

    def test_a_note_across_lines_is_one_note(self):
        self.make_clip([note(7000, duration=9000)], duration=4 * 1920)
        drawing = self.draw("made", "--width", "480", library=self.user)
        rectangles = drawing.rectangles(drawing.root, "note")
        self.assertGreater(len(rectangles), 1)
        self.assertEqual([("continued" in classes(one)) for one in rectangles].count(False), 1)
        lyrics = drawing.all("text", "lyric")
        self.assertEqual([each.text for each in lyrics], ["la"] * len(rectangles))
        self.assertEqual(["continued" in classes(each) for each in lyrics], [False] + [True] * (len(lyrics) - 1))
        self.assert_tidy(drawing)

    def test_any_text_makes_a_picture(self):
        lyric = "<&>\"'\u0001\ufffe\U0001f3b5"
        self.make_clip([note(lyric=lyric, phoneme="&amp;]]>")], name="<svg> & \u0007")
        drawing = self.draw("made", library=self.user)
        self.assertEqual(drawing.texts("lyric"), ["<&>\"'\ufffd\ufffd\U0001f3b5"])
        self.assertEqual(drawing.texts("phoneme"), ["&amp;]]>"])
        self.assertEqual(drawing.texts("name"), ["<svg> & \ufffd"])

    def test_an_audio_clip(self):
        drawing = self.draw("つりがね")
        (frame,), (outline,) = drawing.all("rect", "lane"), drawing.all("path", "wave")
        frame, place = rectangle_box(frame), path_box(outline)
        self.assertTrue(frame.holds(place))
        self.assertGreater(place.width, 0.99 * frame.width)
        with wave.open(str(next(self.library.rglob("つりがね/audio/*.wav")))) as file:
            samples = struct.unpack(f"<{file.getnframes()}h", file.readframes(file.getnframes()))
            seconds = file.getnframes() / file.getframerate()
        half = (frame.bottom - frame.top) / 2
        share = [(frame.top + half - y) / half for y in (place.top, place.bottom)]
        self.assertAlmostEqual(share[0] / share[1], max(samples) / min(samples), delta=0.03)
        self.assertAlmostEqual(share[0], 0.94 * max(samples) / 32768, delta=0.01)
        self.assertIn(f"{seconds:.4g} seconds", drawing.texts("about")[0])

    def test_png_and_pdf(self):
        self.make_clip([note()])
        svg, png, pdf = (self.scratch / f"made.{kind}" for kind in ("svg", "png", "pdf"))
        options = [word for file in (svg, png, pdf) for word in (f"--{file.suffix[1:]}", file)]
        if without_librsvg():
            errors = self.run_tool("show", self.user, "made", *options, code=PROBLEM).errors
            self.assertIn("draw an SVG with --svg", errors)
            self.assertEqual([file.exists() for file in (svg, png, pdf)], [False] * 3)
            return
        self.run_tool("show", self.user, "made", *options, env=for_other_libraries())
        root = Drawing(svg.read_text(encoding="utf-8")).root
        width, height = (float(root.get(key)) for key in ("width", "height"))
        pixels_wide, pixels_high, values = read_png(png.read_bytes())
        self.assertAlmostEqual(pixels_wide, 2 * width, delta=2)
        self.assertAlmostEqual(pixels_high, 2 * height, delta=2)
        self.assertGreater(len(values), 20, "there is a picture in it")
        page = page_of_pdf(pdf.read_bytes())
        self.assertAlmostEqual(page[2], 0.75 * width, delta=1)
        self.assertAlmostEqual(page[3], 0.75 * height, delta=1)

    @unittest.skipIf(os.name == "nt", "there is no such variable")
    def test_png_without_librsvg(self):
        if PROGRAMS.launcher:
            self.skipTest("it is never there")
        self.make_clip([note()])
        (self.scratch / "librsvg-2.so.2").write_bytes(b"")
        environment = os.environ | {"LD_LIBRARY_PATH": str(self.scratch)}
        file = self.scratch / "made.png"
        result = self.run_tool("show", self.user, "made", "--png", file, code=PROBLEM, env=environment)
        self.assertIn("librsvg2-2); draw an SVG with --svg instead", result.errors)
        self.assertFalse(file.exists())

    def test_png_that_is_too_large(self):
        if reason := without_librsvg():
            self.skipTest(reason)
        self.make_clip([note(0), note(400 * 1920)])
        result = self.run_tool("show", self.user, "made", "--png", self.scratch / "x.png", "--width", "480",
                               code=PROBLEM, env=for_other_libraries())
        self.assertIn("too large", result.errors)

    def test_meter_and_bars(self):
        self.assertIn("6/8, guessed from the notes", self.draw("Stille Nacht").texts("about")[0])
        drawing = self.draw("Stille Nacht", "--meter", "3/4", "--bars", "3-5")
        self.assertIn(" · 3/4 · ", drawing.texts("about")[0])
        self.assertEqual(drawing.texts("bar-number"), ["3", "4", "5"])
        self.assertIn("schläft", drawing.texts("lyric"))
        self.assertNotIn("Stil", drawing.texts("lyric"))
        about = self.draw("Scala", "--ticks", "481").texts("about")[0]
        self.assertIn(" · 4/4, as the notes fit no meter clearly · ", about)

    def test_too_long_for_a_picture(self):
        self.make_clip([note(), note(2_000_000_000)])
        file = self.scratch / "long.svg"
        result = self.run_tool("show", self.user, "made", "--svg", file, code=PROBLEM)
        self.assertIn("--bars", result.errors)
        self.assertFalse(file.exists())


class Change(ToolTest):
    """Copies are as good as the library can save them; edits and removals change nothing else."""

    def saved(self, lines):
        return re.fullmatch(r"Saved (\S{36})", lines[0])[1]

    def copy(self, name, *options, library=None):
        target = pathlib.Path(tempfile.mkdtemp(dir=self.scratch)) / "copies"
        lines = self.run_tool("copy", library or self.library, name, target, *options).lines
        shown = self.json("show", "--user", target, target, self.saved(lines))
        return shown, [line.strip() for line in lines[2:]]

    def test_copies_are_the_same(self):
        for name in ("An die Freude", "Stille Nacht", "つりがね"):
            original = self.show(name)
            copied, losses = self.copy(name)
            self.assertEqual(losses, [])
            for shown in (original, copied):
                for key in ("id", "path", "kind"):
                    del shown[key]
                shown.get("audioPart", {}).pop("wavePath", None)
            self.assertEqual(copied, original)

    def test_what_a_copy_loses_is_said(self):
        attack = {"compID": "attack-01", "levelNames": ["soft"]}
        self.make_clip(
            [
                note(dvqm={"attack": attack}, singingSkill={"duration": 100, "weight": {"pre": 1}}),
                {key: value for key, value in note(480).items() if key != "langID"},
                note(480, number=72),
            ]
        )
        original = self.json("show", self.user, "made")["midiPart"]["notes"]
        copied, losses = self.copy("made", "--name", "Another", library=self.user)
        notes = copied["midiPart"]["notes"]
        self.assertEqual(copied["name"], "Another")
        self.assertEqual([one["number"] for one in notes], [one["number"] for one in original])
        self.assertEqual(losses, [
            "Not the same in the copy:",
            "note 2 at 480: langID: had no language and was given one",
        ])  # fmt: skip
        self.assertEqual([one["language"] for one in original], [3, None, 3])
        self.assertEqual([one["language"] for one in notes], [3, 3, 3])
        for before, after in zip(original, notes, strict=True):
            self.assertEqual(after, before | {"language": 3})

    def test_a_copy_gives_its_notes_a_language(self):
        self.make_clip([{key: value for key, value in note().items() if key != "langID"}])
        for language, expected in (("9", 9), ("Japanese", 5)):
            copied, _ = self.copy("made", "--language", language, library=self.user)
            self.assertEqual(copied["midiPart"]["notes"][0]["language"], expected)

    def test_a_copy_is_transposed(self):
        original = self.show("An die Freude")["midiPart"]["notes"]
        for semitones in (2, -3):
            copied, losses = self.copy("An die Freude", "--transpose", str(semitones))
            self.assertEqual(losses, [])
            for before, after in zip(original, copied["midiPart"]["notes"], strict=True):
                self.assertEqual(after, before | {"number": before["number"] + semitones})

    def test_a_clip_that_cannot_be_transposed(self):
        target = self.scratch / "copies"
        self.make_clip([note(number=126), note(480, number=125)])
        result = self.run_tool("copy", self.user, "made", target, "--transpose", "2", code=PROBLEM)
        self.assertIn("note 1 at 0: number: would be out of range", result.errors)
        self.assertNotIn("note 2", result.errors)
        result = self.run_tool("copy", self.library, "つりがね", target, "--transpose", "2", code=PROBLEM)
        self.assertIn("audio part", result.errors)
        self.assertEqual(list(target.iterdir()), [])

    def test_a_clip_that_cannot_be_saved(self):
        target = self.scratch / "copies"
        result = self.run_tool("copy", self.library, "Scala", target, code=PROBLEM)
        self.assertIn("part: aiVoice.compID: prevents saving", result.errors)
        self.assertEqual(list(target.iterdir()), [])

    def test_the_folder_of_a_copy_is_made(self):
        target = self.scratch / "deep" / "新しい"
        self.run_tool("copy", self.library, "An die Freude", target)
        self.assertEqual(len(list(target.glob("*/*.kxclip"))), 1)

    def test_edit(self):
        self.copy_user_clips()
        before = {clip["name"]: clip for clip in self.json("list", "--user", self.user)["clips"]}
        self.run_tool(
            "edit", self.user, "Jingle Bells", "--name", "ジングルベル", "--key", "G major", "--tempo",
            "160.5", "--add-genre", "Winter", "--remove-type", "Chorus", "--add-type", "Hook",
        )  # fmt: skip
        after = {clip["name"]: clip for clip in self.json("list", "--user", self.user)["clips"]}
        expected = before.pop("Jingle Bells")
        expected |= {"name": "ジングルベル", "key": 9, "tempo": 16050}
        expected["tags"] |= {"genres": ["Carol", "Winter"], "types": ["Hook"]}
        self.assertEqual(after, before | {"ジングルベル": expected})

    def test_edit_keeps_what_is_not_named(self):
        self.copy_user_clips()
        before = self.json("show", "--user", self.user, self.user, "Hot Cross Buns")
        self.run_tool("edit", self.user, before["id"], "--clear-genres")
        after = self.json("show", "--user", self.user, self.user, "Hot Cross Buns")
        before["tags"]["genres"] = []
        self.assertEqual(after, before)

    def document_of(self, clip_id):
        return next(path for path in self.user.rglob("property.json")
                    if json.loads(path.read_text(encoding="utf-8"))["id"] == clip_id)

    def test_edit_keeps_the_rest_of_the_document(self):
        self.make_clip([note()])
        path = self.user / "made" / "property.json"
        text = ('{\t"mine": [ 1,2 ],\n  "part" :{"x": 1e5,"tempo":0,"type":"midi" },\n'
                '\t"name":"n", "id": "made","filter": {"genres": ["B", "A"], "y": null} }\n')
        path.write_text(text, encoding="utf-8")
        self.run_tool("edit", self.user, "made", "--tempo", "90", "--key", "8", "--add-genre", "C", "--vendor", "V")
        self.assertEqual(path.read_text(encoding="utf-8"), (
            '{\t"mine": [ 1,2 ],\n  "part" :{"x": 1e5,"tempo":9000,"type":"midi","key": 8 },\n'
            '\t"name":"n",\n\t"vendor": "V", "id": "made","filter": {"genres": ["B", "A", "C"], "y": null} }\n'))

    def test_edit_every_field(self):
        self.make_clip([note()])
        self.run_tool(
            "edit", self.user, "made", "--name", "{name} {id}", "--vendor", "V", "--key", "9", "--tempo", "0",
            "--add-type", "T", "--add-genre", "G", "--add-singer-group", "S", "--add-language", "Japanese",
            "--add-voice-id", "voralin-alto-001",
        )  # fmt: skip
        clip = self.json("show", "--user", self.user, self.user, "made")
        self.assertEqual((clip["name"], clip["vendor"], clip["key"], clip["tempo"]), ("Made made", "V", 9, 0))
        self.assertEqual(clip["tags"], {
            "types": ["T"], "genres": ["G"], "singerGroups": ["S"], "languages": [5],
            "singerIDs": ["voralin-alto-001"], "vendors": ["V"]})
        self.run_tool(
            "edit", self.user, "made", "--clear-types", "--remove-genre", "G", "--remove-singer-group", "S",
            "--remove-language", "5", "--clear-voice-ids",
        )  # fmt: skip
        tags = self.json("show", "--user", self.user, self.user, "made")["tags"]
        self.assertEqual({key for key, values in tags.items() if values}, {"vendors"})

    def test_edit_many(self):
        self.copy_user_clips()
        before = {clip["id"]: clip for clip in self.json("list", "--user", self.user)["clips"]}
        chosen = [clip["id"] for clip in before.values() if clip["part"] == "midi"]
        self.assertTrue(0 < len(chosen) < len(before))
        lines = self.run_tool("edit", self.user, "--only-part", "midi", "--name", "{name} ({number})",
                              "--add-genre", "New").lines
        self.assertEqual(lines, [f"{len(chosen)} of {len(chosen)} clips changed"])
        after = {clip["id"]: clip for clip in self.json("list", "--user", self.user)["clips"]}
        for number, clip_id in enumerate(chosen, 1):
            before[clip_id]["name"] += f" ({number})"
            before[clip_id]["tags"]["genres"] = sorted([*before[clip_id]["tags"]["genres"], "New"])
        self.assertEqual(after, before)
        lines = self.run_tool("edit", self.user, "--all", "--add-genre", "New").lines
        self.assertEqual(lines, [f"{len(before) - len(chosen)} of {len(before)} clips changed"])

    def test_edit_by_names(self):
        self.copy_user_clips()
        self.run_tool("edit", self.user, "Jingle Bells", "Hot Cross Buns", "Jingle Bells", "--vendor", "V")
        clips = self.json("list", "--user", self.user, "--vendor", "V")["clips"]
        self.assertEqual({clip["name"] for clip in clips}, {"Jingle Bells", "Hot Cross Buns"})

    def test_edit_dry_run(self):
        self.copy_user_clips()
        before = {path: path.read_bytes() for path in self.user.rglob("*") if path.is_file()}
        lines = self.run_tool("edit", self.user, "--all", "--vendor", "V", "--dry-run").lines
        self.assertEqual({path: path.read_bytes() for path in before}, before)
        self.assertTrue(any(line.startswith("+") and '"V"' in line for line in lines), lines)
        self.assertRegex(lines[-1], r"^(\d) of \1 clips would be changed$")

    def test_edit_of_a_clip_without_properties(self):
        self.make_clip([note()])
        path = self.user / "made" / "property.json"
        whole = json.loads((self.user / "made" / "made.kxclip").read_text(encoding="utf-8"))
        path.unlink()
        (self.user / "made" / "made.kxclip").write_text(
            json.dumps(whole | {"id": "made", "name": "Made", "filter": {"types": ["T"]}}), encoding="utf-8")
        self.run_tool("edit", self.user, "made", "--tempo", "90")
        self.assertEqual(json.loads(path.read_text(encoding="utf-8")), {
            "id": "made", "name": "Made", "filter": {"types": ["T"]}, "part": {"type": "midi", "tempo": 9000}})

    def test_new(self):
        target = self.scratch / "新しい"
        lines = self.run_tool(
            "new", target, "--name", "Scale", "--voice", "voralin-alto-001", "--notes",
            "C4:1 do D4:0.5 re R:0.5 F#4:1 Bb3:2 ti 127:1", "--tempo", "90", "--key", "8", "--vendor", "V",
            "--language", "Italian", "--add-type", "Exercise",
        ).lines  # fmt: skip
        shown = self.json("show", "--user", target, target, self.saved(lines))
        self.assertEqual((shown["name"], shown["vendor"], shown["tempo"], shown["key"]), ("Scale", "V", 9000, 8))
        self.assertEqual((shown["tags"]["types"], shown["tags"]["languages"]), (["Exercise"], [4]))
        part = shown["midiPart"]
        self.assertEqual((part["voice"], part["duration"]), ("voralin-alto-001", 6 * 480))
        notes = [(one["pos"], one["duration"], one["number"], one["lyric"], one["phoneme"], one["language"])
                 for one in part["notes"]]
        self.assertEqual(notes, [
            (0, 480, 60, "do", "do", 4), (480, 240, 62, "re", "re", 4), (960, 480, 66, "la", "la", 4),
            (1440, 960, 58, "ti", "ti", 4), (2400, 480, 127, "la", "la", 4)])
        self.run_tool("check", "--user", target, target)

    def documents_of_new(self, target, *options):
        """The documents of a clip that is made, as texts, by the names of their schemas."""
        lines = self.run_tool("new", target, "--name", "Scale", "--voice", "voralin-alto-001", "--notes", "C4:1 do",
                              *options).lines
        folder = target / self.saved(lines)
        return {"property": folder / "property.json", "data": folder / f"{folder.name}.kxclip"}

    def test_new_names_the_schemas(self):
        target = self.scratch / "new"
        plain = {name: path.read_text(encoding="utf-8")
                 for name, path in self.documents_of_new(target, "--no-schema").items()}
        for name, path in self.documents_of_new(target).items():
            with self.subTest(name):
                text = path.read_text(encoding="utf-8")
                url = json.loads(text)["$schema"]
                self.assertTrue(text.startswith('{\n    "$schema": "'), text[:40])
                self.assertNotIn("$schema", plain[name])
                schema = pathlib.Path(urllib.parse.unquote(url).removeprefix("file://" + "/Z:" * bool(PROGRAMS.suffix)))
                self.assertEqual(schema.read_bytes(),
                                 (SOURCES / f"docs/schemas/{name}.schema.json").read_bytes())
        self.assertEqual(self.json("check", "--user", target, target)["summary"]["noted"], 0)

    def test_edit_keeps_the_schema_and_copy_drops_it(self):
        target = self.scratch / "new"
        documents = self.documents_of_new(target)
        before = documents["property"].read_text(encoding="utf-8")
        self.run_tool("edit", target, "Scale", "--name", "Ladder")
        self.assertEqual(documents["property"].read_text(encoding="utf-8"), before.replace("Scale", "Ladder"))
        lines = self.run_tool("copy", "--user", target, target, "Ladder", target).lines
        copies = list((target / self.saved(lines)).iterdir())
        self.assertEqual(len(copies), 2)
        for path in copies:
            self.assertNotIn("$schema", path.read_text(encoding="utf-8"))

    def test_new_for_an_ai_voice(self):
        target = self.scratch / "new"
        lines = self.run_tool("new", target, "--name", "Scale", "--voice", "voralin-alto-001", "--ai", "--notes",
                              "C4:1 do", "--ticks", "960").lines
        shown = self.json("show", "--user", target, target, self.saved(lines))
        self.assertEqual((shown["part"], shown["midiPart"]["duration"], shown["midiPart"]["languages"]),
                         ("midiAi", 960, [1]))

    def test_new_that_makes_no_sense(self):
        target = self.scratch / "new"
        for notes, words in (("", "no notes"), ("do", "follows no note"), ("C4:1 do do", "follows no note"),
                             ("R:1 do", "follows no note"), ("H4:1", "no pitch"), ("C10:1", "no pitch"),
                             ("C4:0", "no length"), ("C4:1e12", "no length"), ("C4:nan", "no length")):
            with self.subTest(notes):
                result = self.run_tool("new", target, "--name", "N", "--voice", "voralin-alto-001", "--notes", notes,
                                       code=USAGE)
                self.assertIn(words, result.errors)
        result = self.run_tool("new", target, "--name", "N", "--voice", "short", "--notes", "C4:1", code=USAGE)
        self.assertIn("the ID of a voice has 16", result.errors)
        self.assertEqual(list(target.glob("*")), [])

    def test_remove_asks(self):
        self.copy_user_clips()
        files = sorted(self.user.rglob("*"))
        for answer in (b"n\n", b"\n", b""):
            result = self.run_tool("remove", self.user, "Jingle Bells", code=PROBLEM, input=answer)
            self.assertIn("Delete", result.errors)
            self.assertEqual(sorted(self.user.rglob("*")), files)
        self.run_tool("remove", self.user, "Jingle Bells", input=b"y\n")
        left = [file for file in files if "3f6d1c1e" not in str(file)]
        self.assertEqual(sorted(self.user.rglob("*")), left)

    def test_remove_takes_the_wave_file(self):
        self.copy_user_clips()
        self.run_tool("remove", self.user, "Rowing, first take", "--yes", input=b"")
        self.assertEqual([file for file in self.user.rglob("*") if "c81a5e70" in str(file)], [])

    def test_system_clips_stay(self):
        for command in (("edit", "--key", "3"), ("remove", "--yes")):
            result = self.run_tool(command[0], self.library, "Scala", *command[1:], code=PROBLEM)
            self.assertIn("system clip", result.errors)


class LongPaths(ToolTest):
    """Folders whose paths are longer than Windows once allowed."""

    def setUp(self):
        super().setUp()
        self.deep = self.scratch / "/".join(letter * 90 for letter in "abcd")
        self.assertGreater(len(str(self.deep)), 360)
        shutil.copytree(SOURCES / "examples/library", self.deep)

    def test_all_clips_are_found_and_read(self):
        self.assertEqual(self.json("list", self.deep)["total"], sum(documented_clips(SOURCES).values()))
        self.assertEqual(self.json("show", self.deep, "Greensleeves")["name"], "Greensleeves")

    def test_clips_are_changed_and_removed(self):
        (clip,) = (clip for clip in self.json("list", self.deep)["clips"] if clip["name"] == "Jingle Bells")
        self.run_tool("edit", self.deep, clip["id"], "--name", "Deep")
        self.assertEqual(self.json("show", self.deep, clip["id"])["name"], "Deep")
        self.run_tool("copy", self.deep, "Deep", self.deep / "user", "--name", "Copy")
        self.run_tool("remove", self.deep, "Copy", "--yes")
        self.assertEqual(self.json("show", self.deep, clip["id"])["name"], "Deep")


class Clean(ToolTest):
    """What interrupted saves and removals leave is found, and nothing else is deleted."""

    UUID = "0c1d2e3f-4a5b-6c7d-8e9f-0123456789ab"

    def leave(self, folder, *files):
        """An old folder with old files."""
        folder = self.user / folder
        for file in files:
            path = folder / file
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(b"{}")
        folder.mkdir(parents=True, exist_ok=True)
        for path in [*folder.rglob("*"), folder]:
            os.utime(path, (1_700_000_000, 1_700_000_000))
        return folder

    def left(self):
        return sorted(path.name for path in self.user.iterdir())

    def clean(self, *options, **further):
        return self.run_tool("clean", self.user, *options, **further)

    def test_leftovers(self):
        self.copy_user_clips()
        clips = self.left()
        for number, files in enumerate(((), ("property.json",), ("audio/take.wav",), ("property.json", "audio/take.wav"))):
            self.leave(self.UUID[:-1] + str(number), *files)
        lines = self.clean("--dry-run").lines
        self.assertEqual([line[-36:] for line in lines[:-1]], [self.UUID[:-1] + str(number) for number in range(4)])
        self.assertEqual(lines[-1], "4 folders without a clip")
        self.assertEqual(len(self.left()), len(clips) + 4)
        self.assertEqual(self.clean("--yes").lines[-1], "Removed 4 folders")
        self.assertEqual(self.left(), clips)
        self.assertEqual(self.clean().lines, ["0 folders without a clip"])

    def test_what_stays(self):
        self.copy_user_clips()
        self.leave("by hand", "property.json")
        self.leave(self.UUID[:-1] + "A", "property.json")
        self.leave(self.UUID[:-1] + "1", "property.json", "notes.txt")
        self.leave(self.UUID[:-1] + "2", "property.json", "clip.kxclip")
        self.leave(self.UUID[:-1] + "3", "audio/more/take.wav")
        self.leave("deep/" + self.UUID, "property.json")
        before = sorted(self.user.rglob("*"))
        self.assertEqual(self.clean("--yes").lines, ["0 folders without a clip"])
        self.assertEqual(sorted(self.user.rglob("*")), before)

    def test_what_is_young_stays(self):
        for young in ("", "property.json", "audio", "audio/take.wav"):
            with self.subTest(young):
                folder = self.leave(self.UUID, "property.json", "audio/take.wav")
                os.utime(folder / young)
                self.assertEqual(self.clean("--yes").lines, ["0 folders without a clip"])
                self.assertTrue((folder / "audio/take.wav").exists())

    def test_asks(self):
        folder = self.leave(self.UUID, "property.json")
        result = self.clean(input=b"n\n", code=PROBLEM)
        self.assertIn("Delete 1 folder from disk?", result.errors)
        self.assertTrue(folder.exists())
        self.clean(input=b"y\n")
        self.assertFalse(folder.exists())

    @unittest.skipIf(os.name == "nt", "needs a right there")
    def test_links_stay(self):
        if PROGRAMS.launcher:
            self.skipTest("Wine leaves links to the host")
        inside = self.leave("inside", "take.wav")
        folder = self.leave(self.UUID, "property.json")
        (folder / "audio").symlink_to(inside)
        os.utime(folder, (1_700_000_000, 1_700_000_000))
        self.assertEqual(self.clean("--yes").lines, ["0 folders without a clip"])
        self.assertTrue((inside / "take.wav").exists())


class Failures(ToolTest):
    """What cannot be done is said on the error output, with what to do; the status tells."""

    def assert_fails(self, code, words, *arguments):
        result = self.run_tool(*arguments, code=code)
        self.assertIn(words, result.errors)
        self.assertTrue(result.errors.startswith("plxclip: "))
        self.assertEqual(result.lines, [])

    def test_not_found(self):
        self.assert_fails(PROBLEM, "there is no folder", "list", self.scratch / "無い")
        self.assert_fails(PROBLEM, "さくらんぼ", "show", self.library, "さくらんぼ")
        self.assert_fails(PROBLEM, "An die Freude", "show", self.library, "Freude")
        (self.scratch / "file").touch()
        self.assert_fails(PROBLEM, "write to the folder", "copy", self.library, "Scala", self.scratch / "file")

    def test_a_name_that_two_clips_have(self):
        shutil.copytree(self.library / "user", self.user)
        file = next(self.user.glob("3f6d*/property.json"))
        twin = self.user / "twin"
        shutil.copytree(file.parent, twin)
        properties = document(twin / "property.json") | {"id": "twin"}
        (twin / "property.json").write_text(json.dumps(properties), encoding="utf-8")
        result = self.run_tool("remove", self.user, "Jingle Bells", "--yes", code=PROBLEM)
        self.assertIn("\n  twin ", result.errors)
        self.assertTrue(file.exists())

    @unittest.skipUnless(os.path.exists("/dev/full"), "needs a disk that is full")
    def test_output_that_cannot_be_written(self):
        if PROGRAMS.launcher:
            self.skipTest("no such disk there")
        with open("/dev/full", "wb") as full:
            result = subprocess.run([str(PROGRAMS.folder / "plxclip"), "list", str(self.library)],
                                    stdout=full, stderr=subprocess.PIPE, check=False, timeout=60)
        self.assertEqual(result.returncode, PROBLEM)
        self.assertIn(b"cannot be written", result.stderr)

    def test_no_picture(self):
        bars = ["--svg", "x.svg", "--bars", "1-2"]
        self.assert_fails(PROBLEM, "has no bars", "show", self.library, "つりがね", *bars)
        self.make_clip([])
        (self.user / "made/audio").mkdir()
        (self.user / "made/audio/x.wav").write_bytes(b"ID3")
        (self.user / "made/made.kxclip").write_text('{"audio": {"wavFileName": "x.wav"}}', encoding="utf-8")
        (self.user / "made/property.json").write_text(
            '{"id": "made", "name": "Made", "part": {"type": "audio"}}', encoding="utf-8")
        self.assert_fails(PROBLEM, "no wave file, so", "show", self.user, "made", "--svg", "x.svg")
        file = self.scratch / "missing" / "x.svg"
        self.assert_fails(PROBLEM, "cannot be written", "show", self.library, "Scala", "--svg", file)

    def test_wrong_command_lines(self):
        commands = "list, show, check, gallery, fix, edit, remove, copy, new, clean, help"
        self.assert_fails(USAGE, f"no command given; there are {commands}")
        self.assert_fails(USAGE, f'"burn" is no command; there are {commands}', "burn", self.library)
        self.assert_fails(USAGE, "plxclip help show", "show", self.library)
        self.assert_fails(USAGE, "no DIR given", "list")
        self.assert_fails(USAGE, "audio, midi, midiAi", "list", self.library, "--part", "both")
        self.assert_fails(USAGE, "--tempo", "list", self.library, "--tempo", "fast")
        self.assert_fails(USAGE, "0 to 30", "list", self.library, "--key", "31")
        self.assert_fails(USAGE, "language", "list", self.library, "--language", "Elvish")
        self.assert_fails(USAGE, "--meter", "show", self.library, "Scala", "--meter", "4")
        self.assert_fails(USAGE, "nothing to change", "edit", self.library, "Scala")
        self.assert_fails(USAGE, "no clip chosen", "edit", self.library, "--tempo", "90")
        self.assert_fails(USAGE, "one name", "edit", self.library, "--all", "--name", "X")
        self.assert_fails(USAGE, "cannot be empty", "edit", self.library, "--all", "--add-genre", "")
        self.assert_fails(PROBLEM, "it has: ", "edit", self.library, "Jingle Bells", "--remove-genre", "Zydeco")
        self.assert_fails(USAGE, "20 to 300", "edit", self.library, "Scala", "--tempo", "10")
        self.assert_fails(USAGE, "0 to 127", "copy", self.library, "Scala", "x", "--language", "128")
        self.assert_fails(USAGE, "127", "copy", self.library, "Scala", "x", "--transpose", "128")
        self.assert_fails(USAGE, "--x", "list", self.library, "--x")


class Console(ToolTest):
    """Colours are for terminals, and help is no error."""

    def test_help(self):
        text = "\n".join(self.run_tool("--help").lines)
        for command in ("list", "show", "check", "gallery", "fix", "edit", "remove", "copy", "new", "clean", "help"):
            self.assertRegex(text, rf"(?m)^ +{command} ")
        self.assertIn("Exit status", text)
        self.assertIn("--tempo", "\n".join(self.run_tool("list", "--help").lines))
        self.assertRegex(self.run_tool("--version").lines[0], r"^plxclip \d+\.\d+\.\d+")

    def test_no_colours_in_a_file(self):
        result = self.run_tool("list", self.library)
        self.assertNotIn("\x1b", "\n".join(result.lines))

    @unittest.skipIf(os.name != "posix", "needs a terminal")
    def test_colours_on_a_terminal(self):
        if PROGRAMS.launcher:
            self.skipTest("no terminal of that system here")
        self.assertIn("\x1b[1m", self.output_on_terminal({}))
        self.assertNotIn("\x1b", self.output_on_terminal({"NO_COLOR": "1"}))

    def output_on_terminal(self, environment):
        import pty

        reader, writer = pty.openpty()
        program = str(PROGRAMS.folder / "plxclip")
        command = [program, "list", str(self.library), "--count", "part"]
        subprocess.run(command, stdout=writer, env=os.environ | environment, check=True, timeout=60)
        os.close(writer)
        output = os.read(reader, 65536).decode("utf-8")
        os.close(reader)
        return output


class Page(ToolTest):
    """The commands of the page about the tool do what the page shows below them."""

    def test_samples(self):
        page = SOURCES / "docs/plxclip.md"
        samples = blocks(page, "console")
        self.assertGreater(len(samples), 3)
        shutil.copytree(SOURCES / "examples/library", self.scratch / "examples/library")
        for sample in samples:
            for command, expected in self.commands(sample):
                shown = self.run_sample(command)
                for line in expected:
                    self.assertTrue(any(matches(line, one) for one in shown), (command, line, shown))

    def test_picture(self):
        page = (SOURCES / "docs/plxclip.md").read_text(encoding="utf-8")
        self.assertIn("](images/plxclip.svg)", page)
        self.assertIn("さくらさくら --bars 1-4 --svg", page)
        words = ["show", self.library, "さくらさくら", "--bars", "1-4", "--svg", "-"]
        picture = (SOURCES / "docs/images/plxclip.svg").read_text(encoding="utf-8")
        self.assertEqual(self.run_tool(*words).lines, picture.splitlines())

    def commands(self, sample):
        """The lines after a "$", each with those that stand below it."""
        parts = re.split(r"(?m)^\$ ", sample)
        for part in parts[1:]:
            command, *expected = part.splitlines()
            yield shlex.split(command), [line for line in expected if line not in ("", "...")]

    def run_sample(self, words):
        self.assertEqual(words[0], "plxclip")
        code = PROBLEM if words[1] == "check" else DONE
        return self.run_tool(*words[1:], code=code, cwd=self.scratch).lines


def matches(line, shown):
    """True for the same line; "..." in the page's stands for anything, and "\\" for "/" too."""
    pattern = re.escape(line).replace(r"\.\.\.", ".*")
    return re.fullmatch(pattern, shown.replace("\\", "/")) is not None


def main():
    global SOURCES, PROGRAMS
    case, SOURCES, PROGRAMS = from_arguments(*sys.argv[1:])
    unittest.main(argv=[sys.argv[0], case], verbosity=2)


main()
