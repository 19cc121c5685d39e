"""Checks of the file that "plxclip gallery" writes; check_page.py looks at it in a browser.

check_gallery.py CASE SOURCES PROGRAMS SUFFIX ROOT [LAUNCHER...]
"""

import json
import math
import os
import pathlib
import shutil
import sys
import tempfile
import unittest

sys.path.append(str(pathlib.Path(__file__).parent))
sys.path.append(str(pathlib.Path(__file__).parents[2] / "support"))
from made_clips import midi, note, properties, sine, write_clip, write_wave  # noqa: E402
from page_data import read_page  # noqa: E402
from programs import from_arguments  # noqa: E402

SOURCES = PROGRAMS = None


class GalleryTest(unittest.TestCase):
    """Has a folder of its own, with the page and the clips in it."""

    maxDiff = None

    def setUp(self):
        self.scratch = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.scratch)
        self.page = self.scratch / "page.html"
        self.clips = self.scratch / "clips"
        self.clips.mkdir()

    def make(self, *options, folder=None, page=None, code=0):
        result = PROGRAMS.run("plxclip", "gallery", PROGRAMS.path(folder or self.clips), "--output",
                              PROGRAMS.path(page or self.page), *options)
        self.assertEqual(result.code, code, result.errors)
        return result

    def read(self, *options, folder=None):
        self.make(*options, folder=folder)
        return read_page(self.page)


class Output(GalleryTest):
    """The data is what the other commands tell, and an old file stays whole."""

    def tool_json(self, *arguments, code=0):
        result = PROGRAMS.run("plxclip", *arguments, "--json")
        self.assertEqual(result.code, code, result.errors)
        return json.loads("\n".join(result.lines))

    def test_the_clips_are_those_of_the_list(self):
        library = SOURCES / "examples/library"
        catalogue, _, _ = self.read(folder=library)
        listed = self.tool_json("list", PROGRAMS.path(library))["clips"]
        own = ("index", "path", "reads", "lost", "noted", "lyrics")
        self.assertEqual([{key: value for key, value in clip.items() if key not in own}
                          for clip in catalogue["clips"]],
                         [{key: value for key, value in clip.items() if key != "path"} for clip in listed])

    def test_the_notes_and_lanes_are_those_of_show(self):
        library = SOURCES / "examples/library"
        catalogue, parts, _ = self.read(folder=library)
        compared = 0
        for clip, part in zip(catalogue["clips"], parts, strict=True):
            if "notes" in part and clip["vendor"] in ("Brindoll", "Ondélac"):
                shown = self.tool_json("show", PROGRAMS.path(library), clip["id"])["midiPart"]
                self.assertEqual(unpacked(part), expected(shown))
                compared += 1
        self.assertGreaterEqual(compared, 5)

    def parts_by_name(self, *options):
        catalogue, parts, _ = self.read(*options)
        return [(clip["name"], part) for clip, part in zip(catalogue["clips"], parts, strict=True)]

    def test_meters(self):
        """Only a meter that fits clearly is guessed; most songs of the library show one."""
        library = SOURCES / "examples/library"
        catalogue, parts, _ = self.read(folder=library)
        meters = {clip["name"]: (part["meterText"].partition(",")[0] if "guessed" in part["meterText"] else None)
                  for clip, part in zip(catalogue["clips"], parts, strict=True) if "notes" in part}
        for name in ("Row, Row, Row Your Boat", "Greensleeves", "Stille Nacht", "Three Blind Mice"):
            self.assertEqual(meters[name], "6/8", name)
        for name in ("Guten Abend, gut' Nacht", "Amazing Grace"):
            self.assertEqual(meters[name], "3/4", name)
        for name in ("Jingle Bells", "Frère Jacques", "Auld Lang Syne", "ちょうちょう"):
            self.assertEqual(meters[name], "4/4", name)
        for name in ("Drunken Sailor", "La donna è mobile (opening)", "さくら (はじめ)"):
            self.assertIsNone(meters[name], name)
        self.assertEqual({tuple(part["meter"]) for part in parts if part.get("meterText", "").startswith("6/8")},
                         {(6, 8)})

    def test_a_meter_that_was_given(self):
        write_clip(self.clips / "a", properties(1, "midi"), midi([note(each * 720, 720, 60) for each in range(20)]))
        write_clip(self.clips / "b", properties(2, "midi"), midi(
            [note(480 * each, 480, 60) for each in range(40)]))
        write_clip(self.clips / "c", properties(3, "midi"), midi(
            [note(bar * 2400 + pos, length, 60) for bar in range(6) for pos, length in ((0, 1440), (1440, 960))]))
        write_clip(self.clips / "d", properties(4, "midi"), midi(
            [note(bar * 1680 + pos, length, 60) for bar in range(-1, 6) for pos, length in ((0, 960), (960, 720))],
            duration=10080))
        texts = {name: part["meterText"] for name, part in self.parts_by_name()}
        self.assertEqual(texts, {"Made 1": "6/8, guessed from the notes",
                                 "Made 2": "4/4, as the notes fit no meter clearly",
                                 "Made 3": "5/4, guessed from the notes", "Made 4": "7/8, guessed from the notes"})
        self.assertEqual({(part["meterText"], *part["meter"]) for part in self.read("--meter", "2/4")[1]},
                         {("2/4", 2, 4)})

    def test_keys_far_from_all_notes_are_left_out(self):
        write_clip(self.clips / "a", properties(1, "midi"), midi(
            [note(0, 480, number) for number in (0, 60, 72, 84, 97, 127)]))
        write_clip(self.clips / "b", properties(2, "midi"), midi([], duration=480))
        self.assertEqual({name: part["keys"] for name, part in self.parts_by_name()},
                         {"Made 1": [125, 127, 95, 99, 58, 86, 0, 2], "Made 2": [60, 72]})

    def test_lyrics_to_search(self):
        lyrics = ["Freu", "de", "-", "schö", "ner", "ー", "さ", ""]
        write_clip(self.clips / "a", properties(1, "midi"), midi(
            [note(480 * index, 480, 60, lyric=lyric) for index, lyric in enumerate(lyrics)]))
        self.assertEqual(self.read()[0]["clips"][0]["lyrics"], "Freudeschönerさ")

    def test_findings_are_those_of_check(self):
        library = SOURCES / "examples/library"
        catalogue, parts, _ = self.read(folder=library)
        checked = self.tool_json("check", PROGRAMS.path(library), code=1)["clips"]
        found = {clip["id"]: [finding["message"] for finding in part["findings"]]
                 for clip, part in zip(catalogue["clips"], parts, strict=True)}
        self.assertEqual(found, {clip["id"]: [finding["message"] for finding in clip["findings"]]
                                 for clip in checked if clip["listed"]})
        self.assertEqual([[finding["message"] for finding in file["findings"]]
                          for file in catalogue["notListed"]],
                         [[finding["message"] for finding in clip["findings"]]
                          for clip in checked if not clip["listed"]])
        lost = {clip["id"]: clip["lost"] for clip in catalogue["clips"]}
        self.assertEqual(lost, {clip["id"]: sum(finding["effect"] != "noted" for finding in clip["findings"])
                                for clip in checked if clip["listed"]})

    def test_says_how_many(self):
        write_clip(self.clips / "a", properties(1, "midi"), midi([note(0, 480, 60)]))
        self.assertEqual(self.make().lines, [f"1 clip in {PROGRAMS.path(self.page)}"])
        (self.clips / "b").mkdir()
        (self.clips / "b/clip.kxclip").write_bytes(b"")
        self.assertEqual(self.make().lines[1:], ["1 clip file is not listed; the page says why"])

    def test_markup_stays_text(self):
        name = "</script><b>&amp;<!--\u2028"
        write_clip(self.clips / "a", properties(1, "midi", name=name), midi([note(0, 480, 60, lyric=name)]))
        catalogue, parts, tags = self.read("--title", name)
        self.assertEqual(catalogue["clips"][0]["name"], name)
        self.assertEqual(parts[0]["notes"][0][4], name)
        self.assertNotIn("b", tags)

    def test_names_only_when_asked(self):
        self.assertNotIn("keyNames", self.read()[0])
        catalogue = self.read("--names")[0]
        self.assertEqual(catalogue["keyNames"]["23"], "A minor")
        self.assertEqual(catalogue["languageNames"]["5"], "Japanese")

    def test_an_empty_folder(self):
        catalogue, parts, _ = self.read()
        self.assertEqual((catalogue["clips"], catalogue["notListed"], parts), ([], [], []))

    def test_replaces_an_old_page(self):
        self.page.write_text("old", encoding="utf-8")
        self.make()
        self.assertNotEqual(self.page.read_bytes(), b"old")
        self.assertEqual(sorted(path.name for path in self.scratch.iterdir()), ["clips", "page.html"])

    def test_what_is_no_file_stays(self):
        self.page.mkdir()
        errors = self.make(code=1).errors
        self.assertIn("is not a file; choose another name", errors)
        self.assertEqual(list(self.page.iterdir()), [])

    def test_a_folder_that_is_missing(self):
        errors = self.make(page=self.scratch / "missing/page.html", code=1).errors
        self.assertIn("cannot be written; see whether its folder is there", errors)

    @unittest.skipIf(os.name == "nt", "there are no such limits")
    def test_a_full_disk_leaves_the_old_page(self):
        if PROGRAMS.launcher:
            self.skipTest("Wine itself needs to write more")
        import resource
        self.page.write_text("old", encoding="utf-8")
        size = 64 * 1024
        result = PROGRAMS.run(
            "plxclip", "gallery", str(SOURCES / "examples/library"), "--output", str(self.page),
            preexec_fn=lambda: limit_file_size(resource, size))
        self.assertEqual(result.code, 1)
        self.assertIn("cannot be written", result.errors)
        self.assertEqual(self.page.read_text(encoding="utf-8"), "old")
        self.assertEqual(sorted(path.name for path in self.scratch.iterdir()), ["clips", "page.html"])

    def test_a_link_stays_a_link(self):
        if PROGRAMS.launcher:
            self.skipTest("Wine makes no links")
        target = self.scratch / "target.html"
        target.write_text("old", encoding="utf-8")
        self.page.symlink_to(target)
        self.make()
        self.assertTrue(self.page.is_symlink())
        self.assertIn("catalogue-data", target.read_text(encoding="utf-8"))

    def test_needs_an_output(self):
        result = PROGRAMS.run("plxclip", "gallery", PROGRAMS.path(self.clips))
        self.assertEqual(result.code, 2)
        self.assertIn("--output", result.errors)


def limit_file_size(resource, size):
    import signal
    signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
    resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))


def pairs(points):
    return [part for point in points for part in (point["pos"], point["value"])]


def unpacked(part):
    """The notes with all that they hold, and the lanes, from the page."""
    notes = [part["usual"] | own | {"row": row} for *row, own in part["notes"]]
    return {"notes": notes, "lanes": [{key: lane[key] for key in ("name", "least", "most", "events")}
                                      for lane in part["lanes"]],
            "effects": [part["midiEffects"], part["audioEffects"]],
            "about": [part[key] for key in ("duration", "voice", "languages", "styleName", "stylePreset")]}


PLAIN = ("pos", "duration", "number", "velocity", "lyric", "phoneme")
OTHERS = ("language", "isProtected", "ai", "attack", "release", "singingSkill", "vibrato")


def expected(shown):
    """The same from "plxclip show"."""
    notes = []
    for each in shown["notes"]:
        rest = {key: value for key, value in each.items() if key not in PLAIN + OTHERS}
        vibrato = each["vibrato"] | {key: pairs(each["vibrato"][key]) for key in ("depths", "rates")}
        notes.append({key: each[key] for key in OTHERS} | {"expression": rest, "vibrato": vibrato,
                                                           "row": [each[key] for key in PLAIN]})
    lanes = [{"name": lane["name"], "least": lane["least"], "most": lane["most"],
              "events": pairs(lane["events"])} for lane in shown["lanes"]]
    return {"notes": notes, "lanes": lanes, "effects": [shown["midiEffects"], shown["audioEffects"]],
            "about": [shown[key] for key in ("duration", "voice", "languages", "styleName", "stylePreset")]}


class Waves(GalleryTest):
    """The peaks of each format, and what is said of the others."""

    def wave_of(self, samples=(), rate=8000, data=None, **values):
        folder = self.clips / "a"
        write_clip(folder, properties(1, "audio"), {"audio": {"wavFileName": "take ä#1.wav"}})
        (folder / "audio").mkdir()
        path = folder / "audio/take ä#1.wav"
        path.write_bytes(data) if data is not None else write_wave(path, samples, rate, **values)
        _, (part,), _ = self.read()
        shutil.rmtree(folder)
        return part["wave"]

    def check_ramp(self, **values):
        """From -1 up to 1: each piece has its own lowest and highest sample."""
        count = 4000
        samples = [2 * i / (count - 1) - 1 for i in range(count)]
        wave = self.wave_of(samples, **values)
        channels = values.get("channels", 1)
        self.assertEqual((wave["channels"], wave["rate"]), (channels, 8000))
        self.assertAlmostEqual(wave["seconds"], count / channels / 8000, places=5)
        peaks = wave["peaks"]
        self.assertEqual(len(peaks), 800)
        step = count // 400
        for piece in range(400):
            self.assertAlmostEqual(peaks[2 * piece], 127 * samples[piece * step], delta=0.51)
            self.assertAlmostEqual(peaks[2 * piece + 1], 127 * samples[(piece + 1) * step - 1], delta=0.51)

    def test_pcm(self):
        for bits in (16, 24, 32):
            with self.subTest(bits=bits):
                self.check_ramp(bits=bits)

    def test_floats(self):
        for bits in (32, 64):
            with self.subTest(bits=bits):
                self.check_ramp(bits=bits, is_float=True)

    def test_stereo(self):
        self.check_ramp(channels=2)

    def test_extensible(self):
        self.check_ramp(bits=24, is_extensible=True)
        self.check_ramp(bits=32, is_extensible=True, is_float=True)

    def test_fewer_samples_than_pieces(self):
        wave = self.wave_of([0.5, -0.5, 1])
        self.assertEqual(wave["peaks"], [64, 64, -64, -64, 127, 127])

    def test_no_samples(self):
        wave = self.wave_of([])
        self.assertEqual((wave["peaks"], wave["seconds"]), ([], 0))

    def test_strange_floats(self):
        wave = self.wave_of([math.nan, math.inf, -math.inf, 5], bits=32, is_float=True)
        self.assertEqual(wave["peaks"], [0, 0, 127, 127, -127, -127, 127, 127])

    def test_cut_off(self):
        wave = self.wave_of(sine(440, 0.1, 8000), size=1_000_000)
        self.assertAlmostEqual(wave["seconds"], 0.1)

    def test_others_are_named(self):
        for values in ({"bits": 8, "kind": 1}, {"kind": 6}, {"kind": 0x55}):
            with self.subTest(values):
                wave = self.wave_of([0] * 10, **values)
                self.assertIn("PCM with 16, 24 or 32 bits", wave["problem"])
                self.assertNotIn("peaks", wave)

    def test_damaged(self):
        self.assertIn("no wave file", self.wave_of(data=b"ID3 and so on")["problem"])
        self.assertIn("no wave file", self.wave_of(data=b"")["problem"])
        head = b"RIFF\x04\0\0\0WAVE"
        self.assertIn("damaged", self.wave_of(data=head)["problem"])
        self.assertIn("damaged", self.wave_of(data=head + b"data\x02\0\0\0ab")["problem"])
        self.assertIn("damaged", self.wave_of(data=head + b"fmt \x04\0\0\0abcddata\0\0\0\0")["problem"])
        self.assertIn("damaged", self.wave_of(data=head + b"LIST\xff\xff\xff\xff")["problem"])

    def test_zero_channels(self):
        self.assertIn("problem", self.wave_of([], channels=0))

    def test_the_link_leads_to_the_file(self):
        wave = self.wave_of([0])
        self.assertEqual(wave["path"], "clips/a/audio/take ä#1.wav")


def main():
    global SOURCES, PROGRAMS
    case, SOURCES, PROGRAMS = from_arguments(*sys.argv[1:])
    unittest.main(argv=[sys.argv[0], case], verbosity=2)


main()
