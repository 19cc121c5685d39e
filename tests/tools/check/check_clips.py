"""Checks of "plxclip check", which says why a clip is not listed and what is lost of one that is.

check_clips.py CASE SOURCES PROGRAMS SUFFIX ROOT [LAUNCHER...]
"""

import collections
import json
import os
import pathlib
import shutil
import sys
import tempfile
import unittest

sys.path.append(str(pathlib.Path(__file__).parent))
sys.path.append(str(pathlib.Path(__file__).parents[2] / "support"))
from damaged import DATA, PROPERTIES, damaged_clips  # noqa: E402
from limits import in_words, limits_of  # noqa: E402
from programs import from_arguments  # noqa: E402
from random_damage import write_random_clips  # noqa: E402
from readme import example_clips  # noqa: E402

SOURCES = PROGRAMS = None


def limits():
    return limits_of(SOURCES)


class CheckTest(unittest.TestCase):
    """Has a folder of its own and runs the program on it."""

    maxDiff = None

    def setUp(self):
        self.scratch = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.scratch)

    def run_check(self, *arguments, code):
        result = PROGRAMS.run("plxclip", "check", *arguments)
        self.assertEqual(result.code, code, result.errors)
        return result

    def check(self, *arguments, code=1):
        """What the program says in JSON."""
        lines = self.run_check("--json", *arguments, code=code).lines
        return json.loads("\n".join(lines))

    def check_scratch(self, code=1):
        answer = self.check(PROGRAMS.path(self.scratch), code=code)
        self.assertEqual(answer["summary"]["unexplained"], 0)
        return answer

    def write(self, path, content):
        path = self.scratch / path
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)

    def write_good_clip(self, folder, clip_id="good", name="clip.kxclip"):
        self.write(f"{folder}/property.json", PROPERTIES.replace('"ID"', f'"{clip_id}"').encode())
        self.write(f"{folder}/{name}", DATA.encode())


def places(clip):
    """The findings of a clip as the program tells them, without their words."""
    keys = ("document", "reason", "effect", "pointer", "line", "column")
    return [tuple(finding.get(key) for key in keys) for finding in clip["findings"]]


class Damaged(CheckTest):
    """One clip for each reason: the right reason, the right place, and nothing else."""

    def expected(self, clip):
        return [(finding.document, finding.reason, finding.effect, finding.pointer, finding.line,
                 finding.column) for finding in clip.findings]

    def write_damaged(self, clip):
        if clip.properties is not None:
            self.write(f"{clip.name}/{clip.property_name}", clip.properties)
        self.write(f"{clip.name}/{clip.file_name}", clip.data)

    def test_each(self):
        clips = damaged_clips()
        self.assertGreaterEqual(len(clips), 40)
        for clip in clips:
            self.write_damaged(clip)
        answer = self.check_scratch()
        found = {pathlib.PurePosixPath(clip["path"]).parent.name: clip for clip in answer["clips"]}
        self.assertEqual(len(found), len(clips))
        for clip in clips:
            with self.subTest(clip.name):
                self.assertEqual(places(found[clip.name]), self.expected(clip))
                self.assertEqual(found[clip.name]["listed"], clip.listed)
                if clip.listed:
                    self.assertEqual(found[clip.name]["partReads"], clip.part_reads)


class Files(CheckTest):
    """Reasons that lie in the files, not in what they hold."""

    def findings(self, code=1):
        return {clip["path"].removeprefix(PROGRAMS.path(self.scratch)): clip["findings"]
                for clip in self.check_scratch(code)["clips"]}

    def test_fine(self):
        self.write_good_clip("a")
        self.assertEqual(self.findings(code=0), {"/a/clip.kxclip": []})

    def test_no_clip_at_all(self):
        self.write("a/take.wav", b"")
        self.assertEqual(self.findings(code=0), {})

    def test_duplicate(self):
        self.write_good_clip("a", "same")
        self.write_good_clip("b", "same")
        found = self.findings()
        dropped = [path for path, findings in found.items() if findings]
        self.assertEqual(len(dropped), 1)
        (finding,) = found[dropped[0]]
        other = "/a/clip.kxclip" if dropped[0].startswith("/b") else "/b/clip.kxclip"
        self.assertEqual((finding["reason"], finding["document"], finding["line"],
                          finding["column"], finding["pointer"]),
                         ("duplicate", "property.json", 2, 11, "/id"))
        self.assertIn(f"{PROGRAMS.path(self.scratch)}{other},", finding["message"])

    def test_duplicate_of_a_system_clip(self):
        self.write_good_clip("system/a", "same")
        self.write_good_clip("user/b", "same")
        answer = self.check(PROGRAMS.path(self.scratch))
        by_kind = {clip["kind"]: clip for clip in answer["clips"]}
        self.assertTrue(by_kind["system"]["listed"])
        self.assertEqual(by_kind["user"]["findings"][0]["reason"], "duplicate")
        self.assertIn("/system/a/clip.kxclip", by_kind["user"]["findings"][0]["message"])

    def test_property_document_is_a_folder(self):
        self.write_good_clip("a")
        (self.scratch / "a/property.json").unlink()
        (self.scratch / "a/property.json").mkdir()
        (finding,) = self.findings()["/a/clip.kxclip"]
        self.assertEqual((finding["reason"], finding["document"]), ("unreadable", "property.json"))

    def too_large(self, document, limit):
        """The words of the finding that this file of the clip in folder a is too large, if it is one."""
        found = [finding for finding in self.findings()["/a/clip.kxclip"]
                 if finding["reason"] == "too-large"]
        self.assertEqual([finding["document"] for finding in found], [document])
        self.assertIn(f" {limit}", found[0]["message"])

    def test_property_document_beyond_its_limit(self):
        limit = limits()["PROPERTY"]
        self.write_good_clip("a")
        path = self.scratch / "a/property.json"
        path.write_bytes(path.read_bytes().ljust(limit))
        self.assertEqual(self.findings(code=0), {"/a/clip.kxclip": []})
        path.write_bytes(path.read_bytes() + b" ")
        self.too_large("property.json", in_words(limit))

    def test_clip_file_beyond_its_limit(self):
        limit = limits()["DATA"]
        self.write_good_clip("a")
        os.truncate(self.scratch / "a/clip.kxclip", limit + 1)
        self.too_large("clip", in_words(limit))

    def test_file_of_a_tebibyte(self):
        self.write_good_clip("a")
        try:
            os.truncate(self.scratch / "a/property.json", 1 << 40)
        except OSError:
            self.skipTest("no such file can be made here")
        self.too_large("property.json", in_words(limits()["PROPERTY"]))

    def test_folder_named_like_a_clip(self):
        self.write_good_clip("a.kxclip")
        self.assertEqual(self.findings(code=0), {"/a.kxclip/clip.kxclip": []})

    @unittest.skipIf(os.name == "nt", "names are text there")
    def test_names_that_no_host_can_ask_for(self):
        if PROGRAMS.launcher:
            self.skipTest("Wine shows other names")
        self.write_good_clip("back\\slash")
        self.write_good_clip("good")
        found = self.findings()
        self.assertEqual(found["/good/clip.kxclip"], [])
        self.assertEqual([finding["reason"] for finding in found["/back\\slash/clip.kxclip"]],
                         ["file-name"])

    def test_link_that_leads_nowhere(self):
        if PROGRAMS.launcher:
            self.skipTest("Wine does not list it")
        self.write_good_clip("a")
        (self.scratch / "a/gone.kxclip").symlink_to("nowhere")
        found = self.findings()
        self.assertEqual([finding["reason"] for finding in found["/a/gone.kxclip"]], ["unreadable"])

    def test_ring_of_links(self):
        if PROGRAMS.launcher:
            self.skipTest("Wine leaves links to the host")
        self.write_good_clip("a")
        (self.scratch / "a/ring").symlink_to(self.scratch)
        self.assertEqual(self.findings(code=0), {"/a/clip.kxclip": []})

    def test_capital_letters_in_the_property_document(self):
        if PROGRAMS.launcher:
            self.skipTest("Windows does not tell them from small ones")
        self.write("a/Property.json", PROPERTIES.encode())
        self.write("a/clip.kxclip", DATA.encode())
        (finding,) = self.findings()["/a/clip.kxclip"]
        self.assertEqual(finding["reason"], "missing-document")
        self.assertIn('"Property.json"', finding["message"])


class Several(CheckTest):
    """Clips with more than one damage: what each of them brings about, and nothing that follows."""

    def places_of(self, *damages):
        text = DATA
        for old, new in damages:
            self.assertEqual(text.count(old), 1, old)
            text = text.replace(old, new)
        self.write("a/property.json", PROPERTIES.encode())
        self.write("a/clip.kxclip", text.encode())
        (clip,) = self.check_scratch()["clips"]
        return [finding["pointer"] for finding in clip["findings"]]

    def test_all_reasons_for_which_a_note_is_lost_and_no_others(self):
        self.assertEqual(self.places_of(('"lyric": "Freu"', '"lyric": ""'),
                                        ('"velocity": 90', '"velocity": 128'),
                                        ('"accent": 54', '"acent": 54')),
                         ["/midi/notes/0/lyric", "/midi/notes/0/velocity"])

    def test_order_of_places(self):
        self.assertEqual(self.places_of(('"pos": 480', '"pos": 479'),
                                        ('"accent": 54', '"accent": 101'),
                                        ('"topFactor": 1.5', '"topFactor": 2.5')),
                         ["/midi/notes/0/exp/accent", "/midi/notes/1",
                          "/midi/notes/1/dvqm/attack/topFactor"])

    def test_a_part_that_is_lost(self):
        self.assertEqual(self.places_of(('"lyric": "Freu"', '"lyric": ""'),
                                        ('"voralin-alto-001"', '"voralin"'),
                                        ('"duration": 1920', '"duration": 0')),
                         ["/midi/duration", "/midi/voice/compID"])

    def test_a_part_that_another_one_hides(self):
        self.assertEqual(self.places_of(('"lyric": "Freu"', '"lyric": ""'),
                                        ('"midiEffects": [{ "id": "echo" }]\n    }',
                                         '"midiEffects": 1 }, "audio": {}')),
                         ["/midi", "/audio/wavFileName"])

    def test_a_lane_without_a_good_event(self):
        self.assertEqual(self.places_of(('"value": 80', '"value": 128')),
                         ["/midi/controllers/0/events", "/midi/controllers/0/events/0/value"])

    def test_a_vibrato_that_ends(self):
        self.assertEqual(self.places_of(('"type": 1, "duration": 240, "depths": [',
                                         '"type": 1.0, "duration": 481, "depths": [{}, ')),
                         ["/midi/notes/0/vibrato/type", "/midi/notes/0/vibrato/duration"])

    def test_a_vibrato_that_ends_beside_other_losses(self):
        self.assertEqual(self.places_of(('"weight": { "pre": 1 }', '"weight": 1'),
                                        ('"type": 1, "duration": 240, "depths": [',
                                         '"type": 17, "duration": 240, "depths": [{}, ')),
                         ["/midi/notes/0/singingSkill/weight", "/midi/notes/0/vibrato/type"])


class Random(CheckTest):
    """Whatever is wrong with a clip: what the check explains is what the library does."""

    def test_check_and_library_agree(self):
        count = 400
        write_random_clips(self.scratch, count, seed=20240607)
        answer = self.check_scratch()
        summary = answer["summary"]
        self.assertEqual(summary["files"], count)
        # The damages must reach every kind of verdict, or agreement would mean little.
        self.assertGreater(summary["notListed"], count // 20)
        self.assertGreater(summary["unreadParts"], count // 40)
        self.assertGreater(summary["losses"], count // 4)
        for clip in answer["clips"]:
            self.assertTrue(clip["listed"] or clip["findings"], clip["path"])


class Library(CheckTest):
    """The example library is as its table says."""

    def check_library(self):
        return self.check(PROGRAMS.path(SOURCES / "examples/library"))

    def test_table(self):
        prefix = PROGRAMS.path(SOURCES / "examples/library") + "/"
        clips = {clip["path"].removeprefix(prefix): clip for clip in self.check_library()["clips"]}
        rows = {row["Clip file"]: row for row in example_clips(SOURCES)}
        self.assertEqual(set(clips), set(rows))
        for path, row in rows.items():
            with self.subTest(path):
                if row["Listed"] != "1 of 2":
                    self.assertEqual(clips[path]["listed"], row["Listed"] == "yes")
                if clips[path]["listed"]:
                    self.assertEqual(clips[path]["name"], row["Name"])

    def test_twins(self):
        names = collections.Counter()
        for row in example_clips(SOURCES):
            if row["Listed"] == "1 of 2":
                names[row["Name"]] += 1
        listed = collections.Counter(
            clip["name"] for clip in self.check_library()["clips"] if clip["listed"])
        for name in names:
            self.assertEqual(listed[name], 1, name)

    def test_reasons(self):
        reasons = {}
        for clip in self.check_library()["clips"]:
            if clip["findings"]:
                reasons[pathlib.PurePosixPath(clip["path"]).name] = [
                    finding["reason"] for finding in clip["findings"]]
        twins = [name for name in reasons if name.startswith(("An die", "Three Blind"))]
        self.assertEqual(len(twins), 2)
        for name in [*twins, "Freude, louder.kxclip"]:
            self.assertEqual(reasons.pop(name), ["duplicate"])
        self.assertEqual(reasons, {
            "Twinkle, Twinkle.kxclip": ["syntax"],
            "Au clair.KXCLIP": ["extension"],
            "Nothing.kxclip": ["missing-document", "syntax"],
            "Good King Wenceslas.kxclip": ["missing-document"],
            "5d7e3b90-16c8-4a2f-b4d1-8c0f92e6a735.kxclip":
                ["missing-document", "missing-key", "missing-key"],
            "Drunken Sailor, sketch.kxclip": ["wrong-value"],
            "Hot Cross Buns.kxclip": ["missing-document", "syntax"],
            "Lost Loop.kxclip": ["wave-file"],
            "Lost Bell.kxclip": ["missing-document", "wave-file"],
        })

    def test_factory_clips_are_fine(self):
        self.run_check(PROGRAMS.path(SOURCES / "examples/library/system/factory"), code=0)


class Notes(CheckTest):
    """What is said of clips that lose nothing."""

    def lines_of(self, old, new, code):
        self.write("a/property.json", PROPERTIES.encode())
        self.write("a/clip.kxclip", DATA.replace(old, new).encode())
        return self.run_check(PROGRAMS.path(self.scratch), code=code).lines

    def test_nothing_is_lost(self):
        lines = self.lines_of('"pos": 480', '"pos": 479', code=0)
        self.assertEqual(lines[2:], [
            "    clip.kxclip:11:13: /midi/notes/1 begins before /midi/notes/0 ends",
            "",
            "1 clip file: 1 listed, 0 not listed; 0 parts of listed clips cannot be read; "
            "0 things are not taken",
            "1 place that loses nothing to look at again",
        ])

    def test_nearest_key(self):
        for wrong, right in (("acent", "accent"), ("ACCENT", "accent"), ("bendLenght", "bendLength"),
                             ("openin", "opening"), ("fallport", "fallPort")):
            with self.subTest(wrong):
                lines = self.lines_of('"accent"', f'"{wrong}"', code=1)
                self.assertTrue(lines[2].endswith(
                    f'/midi/notes/0/exp/{wrong} is no key; did you mean "{right}"?'), lines[2])

    def test_key_that_is_like_none(self):
        for wrong in ("mine", "x", "", "a" * 1000):
            with self.subTest(wrong):
                lines = self.lines_of('"accent"', f'"{wrong}"', code=0)
                self.assertTrue(lines[2].endswith(" is no key that the library knows"), lines[2])


class Output(CheckTest):
    """What people and scripts see."""

    def test_text(self):
        self.write_good_clip("fine", "fine")
        self.write("bad/property.json", b'{ "id": "bad", "name": "",\n "part": {"type": "midi"} }')
        self.write("bad/clip.kxclip", b'{ "x": [1,] }')
        lines = self.run_check(PROGRAMS.path(self.scratch), code=1).lines
        self.assertEqual(lines, [
            f"{PROGRAMS.path(self.scratch)}/bad/clip.kxclip",
            "  not listed",
            '    property.json:1:24: /name "" is empty; the document gives no clip',
            "    clip.kxclip:1:11: a comma before the closing ]",
            "",
            "2 clip files: 1 listed, 1 not listed; 0 parts of listed clips cannot be read; "
            "0 things are not taken",
        ])

    def test_order_of_names(self):
        names = [f"{number:02}" for number in range(20)]
        for name in names[1::2] + names[-2::-2]:
            self.write_good_clip(name, name)
        answer = self.check(PROGRAMS.path(self.scratch), code=0)
        self.assertEqual([clip["id"] for clip in answer["clips"]], names)

    def test_nothing_found(self):
        self.write_good_clip("fine")
        lines = self.run_check(PROGRAMS.path(self.scratch), code=0).lines
        self.assertEqual(len(lines), 1)
        self.assertTrue(lines[0].startswith("1 clip file: 1 listed, 0 not listed;"), lines[0])

    def test_command_line_without_a_folder(self):
        result = self.run_check(code=2)
        self.assertEqual(result.lines, [])
        self.assertIn("DIR", result.errors)

    def test_folder_that_is_not_there(self):
        result = PROGRAMS.run("plxclip", "check", PROGRAMS.path(self.scratch / "none"))
        self.assertNotEqual(result.code, 0)
        self.assertEqual(result.lines, [])
        self.assertIn("none", result.errors)


if __name__ == "__main__":
    case, SOURCES, PROGRAMS = from_arguments(*sys.argv[1:])
    unittest.main(argv=[sys.argv[0], case], verbosity=2)
