"""Checks of "plxclip fix", which mends what "plxclip check" names, as far as that can be decided.

fix_clips.py CASE SOURCES PROGRAMS SUFFIX ROOT [LAUNCHER...]
fix_clips.py --long COUNT SOURCES PROGRAMS: the same with COUNT random clips, natively
"""

import collections
import json
import os
import pathlib
import re
import shutil
import sys
import tempfile
import unittest

sys.path.append(str(pathlib.Path(__file__).parent))
sys.path.append(str(pathlib.Path(__file__).parents[1] / "check"))
sys.path.append(str(pathlib.Path(__file__).parents[2] / "support"))
import decisions  # noqa: E402
from damaged import DATA, PROPERTIES, damaged_clips  # noqa: E402
from decisions import CLIP, DECISIONS, PROPERTY  # noqa: E402
from limits import limits_of  # noqa: E402
from programs import from_arguments  # noqa: E402
from random_damage import write_random_clips  # noqa: E402

SOURCES = PROGRAMS = None
RANDOM_CLIPS = 150

TOKEN = re.compile(r'"(?:[^"\\]|\\.)*"|[{}\[\],:]|[^\s{}\[\],:"]+')


def tokens(text):
    """All but the white space."""
    return TOKEN.findall(text)


class FixTest(unittest.TestCase):
    """Has a folder for clips and one for their originals."""

    maxDiff = None

    def setUp(self):
        self.scratch = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.scratch)
        self.clips = self.scratch / "clips"
        self.clips.mkdir()
        self.originals = self.scratch / "originals"

    def run_tool(self, *arguments, code):
        words = [PROGRAMS.path(word) if isinstance(word, pathlib.Path) else word for word in arguments]
        result = PROGRAMS.run("plxclip", *words)
        if code is not None:
            self.assertEqual(result.code, code, (result.errors, result.lines[-20:]))
        return result

    def fix_text(self, *options, code=0):
        return self.run_tool("fix", self.clips, "--originals", self.originals, *options, code=code).lines

    def fix(self, *options, code=0):
        return json.loads("\n".join(self.fix_text("--json", *options, code=code)))

    def check(self, code=None):
        lines = self.run_tool("check", self.clips, "--json", code=code).lines
        answer = json.loads("\n".join(lines))
        self.assertEqual(answer["summary"]["unexplained"], 0)
        return {self.place(clip["path"]): clip for clip in answer["clips"]}

    def place(self, path):
        return path.removeprefix(PROGRAMS.path(self.clips)).lstrip("/")

    def write(self, path, content):
        path = self.clips / path
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content if isinstance(content, bytes) else content.encode())

    def write_clip(self, folder, properties=PROPERTIES, data=DATA, clip_id=None):
        clip_id = clip_id or folder
        if properties is not None:
            self.write(f"{folder}/property.json", properties.replace('"ID"', f'"{clip_id}"'))
        self.write(f"{folder}/clip.kxclip", data.replace('"ID"', f'"{clip_id}"'))

    def read(self, path):
        return (self.clips / path).read_bytes().decode("utf-8")

    def files(self):
        return {str(path.relative_to(self.clips)): path.read_bytes()
                for path in self.clips.rglob("*") if path.is_file()}


def decoded(data):
    """The text of a document in any encoding; none for bytes that are no text."""
    for mark, codec in ((b"\xff\xfe\0\0", "utf-32"), (b"\0\0\xfe\xff", "utf-32"), (b"\xef\xbb\xbf", "utf-8-sig"),
                        (b"\xff\xfe", "utf-16"), (b"\xfe\xff", "utf-16")):
        if data.startswith(mark):
            return data.decode(codec)
    zeros = tuple(byte != 0 for byte in data[:4])
    codec = {(False, False, False, True): "utf-32-be", (True, False, False, False): "utf-32-le",
             (False, True, False, True): "utf-16-be", (True, False, True, False): "utf-16-le"}.get(zeros, "utf-8")
    try:
        return data.decode(codec)
    except UnicodeDecodeError:
        return None


class Every(FixTest):
    """Each damage that the check knows, in each document's own encoding and in another one."""

    def write_all(self):
        """All damaged clips twice, the second time in UTF-16. By their folders."""
        written = {}
        for clip in damaged_clips():
            for folder, encode in ((clip.name, lambda data, _: data), (f"wide {clip.name}", self.widened)):
                if clip.properties is not None:
                    self.write(f"{folder}/{clip.property_name}", encode(clip.properties, clip.name))
                self.write(f"{folder}/{clip.file_name}", encode(clip.data, clip.name))
                written[folder] = clip
        return written

    def widened(self, data, name):
        """In UTF-16, and with another ID, which is that of the folder again."""
        text = decoded(data)
        if text is None:
            return data
        return b"\xfe\xff" + text.replace(f'"{name}"', f'"wide {name}"').encode("utf-16-be")

    def test_each(self):
        self.assertEqual({clip.name for clip in damaged_clips()}, set(DECISIONS))
        written = self.write_all()
        self.assertGreaterEqual(len(written), 200)
        before = self.files()
        answer = self.fix("--yes", code=1)
        said = {pathlib.PurePosixPath(self.place(clip["path"])).parent.name: clip for clip in answer["clips"]}
        after = self.files()
        checked = {pathlib.PurePosixPath(path).parent.name: clip for path, clip in self.check().items()}
        for folder, damage in written.items():
            with self.subTest(folder):
                self.compare(folder, damage, before, after)
                self.assertEqual(sorted(finding["reason"] for finding in said[folder]["left"]),
                                 sorted(DECISIONS[damage.name].left))
                self.assert_listed(folder, damage, checked[folder])
        self.assert_nothing_more_is_done()

    def compare(self, folder, damage, before, after):
        """Of the documents only what was decided has changed, token by token and beyond."""
        decision = DECISIONS[damage.name]
        name = f"{folder}/{damage.file_name}"
        self.assert_changed(decision, CLIP, damage.name, folder, before[name],
                            after[f"{folder}/clip.kxclip"])
        property_name = f"{folder}/property.json"
        if decision.made:
            made = json.loads(after[property_name])
            self.assertEqual(made["id"], folder)
            self.assertEqual(made["name"], "Größe")
        elif property_name in before:
            self.assert_changed(decision, PROPERTY, damage.name, folder, before[property_name],
                                after[property_name])
        else:
            self.assertNotIn(property_name, after)

    def assert_changed(self, decision, document, name, folder, before, after):
        text = decoded(before)
        isWhole = text is not None and not ({"syntax", "encoding"} & set(decision.left) and document == CLIP)
        if not isWhole:
            self.assertEqual(after, before)
            return
        if decision.document == document:
            old, new = (part.replace(f'"{name}"', f'"{folder}"') for part in (decision.old, decision.new))
            self.assertEqual(text.count(old), 1, old)
            text = text.replace(old, new)
        self.assertEqual(tokens(after.decode("utf-8")), tokens(text))
        self.assertEqual(after.decode("utf-8"), text)

    def assert_listed(self, folder, damage, checked):
        decision = DECISIONS[damage.name]
        isUnreadable = {"syntax", "encoding"} & set(decision.left) or damage.name in ("no-part", "both-refused")
        self.assertEqual(checked["listed"], not isUnreadable)
        left_reasons = sorted(finding["reason"] for finding in checked["findings"]
                              if finding["effect"] != "noted")
        self.assertEqual(left_reasons, sorted(decision.left))

    def assert_nothing_more_is_done(self):
        before = self.files()
        runs = len(list(self.originals.iterdir()))
        again = self.fix("--yes", code=1)
        self.assertEqual([clip["changes"] for clip in again["clips"] if clip["changes"]], [])
        self.assertEqual(self.files(), before)
        self.assertEqual(len(list(self.originals.iterdir())), runs)

    def test_every_reason_is_decided(self):
        """The reasons are those of the check's own list."""
        source = (SOURCES / "tools/plxclip/check/finding.h").read_text(encoding="utf-8")
        reasons = set(re.findall(r'inline constexpr Reason \w+ = "([^"]+)"', source))
        self.assertGreater(len(reasons), 15)
        shown = {finding.reason for clip in damaged_clips() for finding in clip.findings}
        self.assertEqual(reasons, shown | set(decisions.REASONS_ELSEWHERE))
        for case in filter(None, decisions.REASONS_ELSEWHERE.values()):
            owner, name = case.split(".")
            self.assertTrue(hasattr(globals()[owner], name), case)


class Decisions(FixTest):
    """Each thing that is decided, before and after."""

    def mended(self, old, new, expected=None, document="clip.kxclip", code=0, options=("--yes",)):
        """`new` is written for `old` into a good clip, and must become `expected`."""
        self.write_clip("a")
        text = self.read(f"a/{document}")
        self.assertEqual(text.count(old), 1, old)
        self.write(f"a/{document}", text.replace(old, new))
        answer = self.fix(*options, code=code)
        self.assertEqual(self.read(f"a/{document}"), text.replace(old, new if expected is None else expected))
        return answer["clips"][0]

    def test_numbers(self):
        for written, mended in (("90.0", "90"), ("9e1", "90"), ("0.9e+2", "90"), ("900.00e-1", "90"), ("0.0", "0"),
                                ("-0.0", "0"), ("127.000", "127")):
            with self.subTest(written):
                self.mended('"velocity": 90', f'"velocity": {written}', f'"velocity": {mended}')
        for written in ("90.5", "128.0", "-1.0", "1e99999", "90.00000000000000000000000001", "1e-5"):
            with self.subTest(written):
                self.mended('"velocity": 90', f'"velocity": {written}', code=1)
        for written, mended in (("0", "0.0"), ("1", "1.0"), ("-0", "-0.0")):
            with self.subTest(written):
                self.mended('"pitchFine": 0.25', f'"pitchFine": {written}', f'"pitchFine": {mended}')
        self.mended('"pitchFine": 0.25', '"pitchFine": 2', code=1)

    def test_numbers_in_lists(self):
        self.mended('"languages": [3]', '"languages": [1.0, 3, 4.5]', '"languages": [1, 3, 4.5]',
                    document="property.json", code=1)

    def test_tempo(self):
        for written, mended in (("120", "12000"), ("112.5", "11250"), ("20", "2000"), ("300", "30000"),
                                ("11200.0", "11200"), ("1.2e2", "12000")):
            with self.subTest(written):
                self.mended("11200", written, mended, document="property.json")
        for written in ("19", "301", "1999", "30001", "112.125", '"120"', "-120"):
            with self.subTest(written):
                self.mended("11200", written, document="property.json", code=1)

    def test_keys(self):
        self.mended('"accent"', '"ACCENT"', '"accent"', options=())
        self.mended('"accent"', '"acent"', '"accent"')
        answer = self.mended('"accent"', '"acent"', code=1, options=())
        self.assertEqual([finding["reason"] for finding in answer["left"]], ["unknown-key"])
        self.mended('"accent": 54', '"accent": 54, "acent": 5', code=1)

    def test_what_a_mended_key_reveals_is_mended_too(self):
        self.mended('"number": 66', '"nomber": 66.0', '"number": 66')
        self.mended('"notes"', '"Notes"', '"notes"')

    def test_required_keys(self):
        self.mended('"lyric": "de"', '"lyrics": "de"', '"lyric": "de"')
        self.mended('"compID": "A"', '"compId": "A"', '"compID": "A"', options=())
        self.mended('"voice"', '"Voice"', '"voice"', options=())
        self.mended('"part"', '"paart"', '"part"', document="property.json")

    def test_commas(self):
        self.mended('"fallPort": true }', '"fallPort": true, }', '"fallPort": true }')
        self.mended('[{ "id": "echo" }]', '[{ "id": "echo", }, ]', '[{ "id": "echo" } ]')

    def test_encodings(self):
        for codec in ("utf-8-sig", "utf-16", "utf-16-le", "utf-16-be", "utf-32", "utf-32-le", "utf-32-be"):
            with self.subTest(codec):
                self.write_clip("a")
                good = self.files()
                for path, data in good.items():
                    self.write(path, data.decode().encode(codec))
                answer = self.fix()
                self.assertEqual(self.files(), good)
                self.assertEqual(len(answer["clips"][0]["changes"]), 2)

    def test_properties_out_of_the_clip_file(self):
        self.write_clip("a", properties=None,
                        data=DATA.replace('"Größe",', '"Größe", "vendor": "V", "filter": {"types": ["T"], "x": 1},'))
        self.fix()
        self.assertEqual(json.loads(self.read("a/property.json")), {
            "id": "a", "name": "Größe", "vendor": "V", "filter": {"types": ["T"], "x": 1},
            "part": {"type": "midi"}})

    def test_properties_out_of_folder_and_options(self):
        nameless = DATA.replace('"id": "ID", "name": "Größe",', "")
        self.write_clip("Größe", properties=None, data=nameless)
        self.fix("--vendor", "V")
        self.assertEqual(json.loads(self.read("Größe/property.json")), {
            "id": "Größe", "name": "Größe", "vendor": "V", "part": {"type": "midi"}})
        self.write_clip("x/Größe", properties=None, data=nameless)
        self.fix()
        made = json.loads(self.read("x/Größe/property.json"))
        self.assertRegex(made["id"], r"^[0-9a-f-]{36}$")
        self.write_clip("c", properties=None, data=DATA.replace('"Größe"', r'"\u0000x"'))
        self.fix()
        self.assertEqual(json.loads(self.read("c/property.json"))["name"], "c")
        self.write_clip("b", properties=None, data=nameless)
        self.fix("--id", "the ID", "--name", "the name")
        made = json.loads(self.read("b/property.json"))
        self.assertEqual((made["id"], made["name"]), ("the ID", "the name"))

    def test_what_is_whole_in_a_broken_document_stays(self):
        self.write_clip("a", properties='{ "mine": [1, 2], "id": "ID", "part": { "type": "midi", "tempo": 120 },\n'
                        ' "vendor": "Studio", "name": "Grö')
        self.fix()
        self.assertEqual(json.loads(self.read("a/property.json")), {
            "mine": [1, 2], "id": "a", "part": {"type": "midi", "tempo": 12000}, "vendor": "Studio",
            "name": "Größe"})

    def test_two_clips_that_share_their_properties(self):
        self.write_clip("a", properties=PROPERTIES.replace('"midi"', '"midiAi"'))
        self.write("a/other.kxclip", DATA)
        before = self.files()
        self.fix(code=1)
        self.assertEqual(self.files(), before)

    def test_a_reference_to_a_schema_is_no_unknown_key_and_stays(self):
        data = DATA.replace("{", '{ "$schema": "data.schema.json",', 1).replace("}", ",}")
        self.write_clip("a", properties=PROPERTIES.replace("{", '{ "$schema": "p",', 1).replace("11200", "11200.0"),
                        data=data)
        self.assertEqual(self.fix()["clips"][0]["left"], [])
        for document in ("a/property.json", "a/clip.kxclip"):
            self.assertIn('{ "$schema": ', self.read(document))
        self.assertEqual(self.check(code=0)["a/clip.kxclip"]["findings"], [])

    def test_unknown_keys_order_and_indentation_stay(self):
        text = ('{\t"x": {"deep": [ 1,2 ]},\r\n  "part" :{"tempo":120.0,"type":"midi" , "y":1e5},\r\n\r\n'
                '\t"name":"n", "id": "a","$schema": "s" }\r\n')
        self.write_clip("a", properties=text)
        self.fix()
        self.assertEqual(self.read("a/property.json"), text.replace("120.0", "12000"))


class Files(FixTest):
    """What is written, what is kept and what is left alone."""

    def test_a_good_clip_is_not_touched(self):
        self.write_clip("a")
        for path in self.clips.rglob("*"):
            os.utime(path, (1, 1))
        self.fix_text()
        self.assertEqual({path.stat().st_mtime for path in self.clips.rglob("*")}, {1})
        self.assertFalse(self.originals.exists())

    def write_damaged(self):
        self.write_clip("a", properties=PROPERTIES.replace("11200", "112.0"))

    def test_dry_run(self):
        self.write_damaged()
        before = self.files()
        lines = self.fix_text("--dry-run")
        self.assertEqual(self.files(), before)
        self.assertFalse(self.originals.exists())
        self.assertIn('-    "part": { "type": "midi", "key": 10, "tempo": 112.0 }', lines)
        self.assertIn('+    "part": { "type": "midi", "key": 10, "tempo": 11200 }', lines)
        self.assertIn("@@ -4,5 +4,5 @@", lines)
        self.assertIn("    property.json:7:51: /part/tempo 112.0 becomes 11200", lines)
        self.assertTrue(lines[-1].startswith("1 clip file: 1 would be mended (1 change)"), lines[-1])

    def test_originals(self):
        self.write_damaged()
        before = self.files()
        lines = self.fix_text()
        (run,) = self.originals.iterdir()
        kept = {str(path.relative_to(run)): path.read_bytes() for path in run.rglob("*") if path.is_file()}
        self.assertEqual(kept, {os.path.join("clips", "a", "property.json"): before[os.path.join("a", "property.json")]})
        self.assertIn(run.name, lines[-1])

    def test_no_originals(self):
        self.write_damaged()
        self.run_tool("fix", self.clips, "--no-originals", code=0)
        self.assertIn("11200", self.read("a/property.json"))
        self.assertFalse(self.originals.exists())

    @unittest.skipIf(os.name == "nt", "another variable there")
    def test_where_originals_go_by_themselves(self):
        if PROGRAMS.launcher:
            self.skipTest("another variable there")
        self.write_damaged()
        result = PROGRAMS.run("plxclip", "fix", str(self.clips),
                              env=os.environ | {"XDG_STATE_HOME": str(self.scratch / "state")})
        self.assertEqual(result.code, 0, result.errors)
        (found,) = (self.scratch / "state/plxclip/originals").rglob("property.json")
        self.assertIn("112.0", found.read_text(encoding="utf-8"))

    def test_originals_among_the_clips(self):
        self.write_damaged()
        before = self.files()
        result = self.run_tool("fix", self.clips, "--originals", self.clips / "old", code=2)
        self.assertIn("among the clips", result.errors)
        self.assertEqual(self.files(), before)

    def test_originals_that_cannot_be_kept(self):
        self.write_damaged()
        before = self.files()
        self.originals.write_bytes(b"a file")
        lines = self.fix_text(code=1)
        self.assertTrue(any("cannot be kept" in line for line in lines), lines)
        self.assertEqual(self.files(), before)

    def test_property_document_that_is_a_folder(self):
        self.write_clip("a", properties=None)
        (self.clips / "a/property.json").mkdir()
        (clip,) = self.fix(code=1)["clips"]
        self.assertEqual([finding["reason"] for finding in clip["left"]], ["unreadable"])

    def test_document_that_is_too_large(self):
        self.write_clip("a")
        os.truncate(self.clips / "a/property.json", limits_of(SOURCES)["PROPERTY"] + 1)
        (clip,) = self.fix(code=1)["clips"]
        self.assertEqual([finding["reason"] for finding in clip["left"]], ["too-large"])

    def test_duplicate(self):
        self.write_clip("a", clip_id="same")
        self.write_clip("b", clip_id="same")
        before = self.files()
        left = [finding["reason"] for clip in self.fix(code=1)["clips"] for finding in clip["left"]]
        self.assertEqual(left, ["duplicate"])
        self.assertEqual(self.files(), before)

    @unittest.skipIf(os.name == "nt", "names are text there")
    def test_name_that_no_host_can_ask_for(self):
        if PROGRAMS.launcher:
            self.skipTest("Wine shows other names")
        self.write_clip("back\\slash", properties=PROPERTIES.replace("11200", "120"))
        before = self.files()
        (clip,) = self.fix(code=1)["clips"]
        self.assertEqual([finding["reason"] for finding in clip["left"]], ["file-name"])
        self.assertEqual(self.files(), before)

    def test_names_with_capital_letters(self):
        self.write("a/Clip.KXCLIP", DATA)
        self.write("a/Property.json", PROPERTIES.replace("11200", "120"))
        self.fix()
        self.assertIn("Clip.kxclip", os.listdir(self.clips / "a"))
        checked = self.check(code=0)
        self.assertTrue(checked["a/Clip.kxclip"]["listed"])

    def test_another_file_has_the_name(self):
        if PROGRAMS.launcher or os.name == "nt":
            self.skipTest("Windows does not tell capital letters from small ones")
        self.write_clip("a")
        self.write("a/clip.KXCLIP", DATA)
        before = self.files()
        answer = self.fix(code=1)
        left = [finding["reason"] for clip in answer["clips"] for finding in clip["left"]]
        self.assertEqual(left, ["extension"])
        self.assertEqual(self.files(), before)

    def test_wrong_command_lines(self):
        self.run_tool("fix", code=2)
        self.run_tool("fix", self.scratch / "none", code=1)


class Random(FixTest):
    """Whatever is wrong with clips: nothing gets worse, and nothing but what is said changes."""

    def losses(self):
        return {path: (clip["listed"], sum(finding["effect"] != "noted" for finding in clip["findings"]))
                for path, clip in self.check().items()}

    def test_random_clips(self):
        write_random_clips(self.clips, RANDOM_CLIPS, seed=20261122)
        before = self.files()
        listed_before = collections.Counter(listed for listed, _ in self.losses().values())
        answer = self.fix("--yes", code=1)
        after = self.files()
        listed_after = collections.Counter(listed for listed, _ in self.losses().values())
        self.assertGreaterEqual(listed_after[True], listed_before[True])
        self.assertGreater(answer["summary"]["changes"], RANDOM_CLIPS // 4)
        for clip in answer["clips"]:
            folder = self.place(clip["path"]).split("/")[0]
            with self.subTest(folder):
                for name, document in (("clip.kxclip", "clip"), ("property.json", "property.json")):
                    path = os.path.join(folder, name)
                    changes = [change for change in clip["changes"] if change["document"] == document]
                    self.compare(before.get(path), after.get(path), changes)
        self.assertEqual(self.fix("--yes", code=1)["summary"]["changes"], 0)
        self.assertEqual(self.files(), after)

    def compare(self, before, after, changes):
        """As many places differ as changes are told."""
        if not changes:
            self.assertEqual(after, before)
            return
        # A document that is made anew, or an object or a list that gives way, is not compared.
        if any("made" in change["message"] or change["message"].startswith("becomes") for change in changes):
            return
        old, new = tokens(decoded(before)), tokens(after.decode("utf-8"))
        told = [change for change in changes if change["pointer"] or "comma" in change["message"]]
        objects = [change for change in told if change["message"].endswith("}")]  # their ends count too
        self.assertLessEqual(self.differences(old, new), len(told) + len(objects))

    def differences(self, old, new):
        """The number of tokens, or of runs of added tokens, that differ."""
        import difflib

        count = 0
        for kind, a, b, c, d in difflib.SequenceMatcher(None, old, new, autojunk=False).get_opcodes():
            count += 0 if kind == "equal" else max(b - a, 1)
        return count


class Library(FixTest):
    """The example library: what the page says of its wild clips."""

    def test_wild_clips(self):
        shutil.copytree(SOURCES / "examples/library/system", self.clips, dirs_exist_ok=True)
        before = self.check()
        self.fix("--yes", code=1)
        after = self.check()
        listed = lambda clips: sum(clip["listed"] for clip in clips.values())  # noqa: E731
        self.assertEqual(listed(before), 29)
        # A comma behind a last element, a capital extension, a clip without ID and name, and one without a
        # wave file, whose part still does not read.
        self.assertEqual(listed(after), 33)
        changed = {path for path in after if path not in before or before[path] != after[path]}
        self.assertTrue(all("wild/" in path for path in changed), changed)


def main():
    global SOURCES, PROGRAMS, RANDOM_CLIPS
    arguments = sys.argv[1:]
    if arguments[0] == "--long":
        RANDOM_CLIPS = int(arguments[1])
        arguments[:2] = ["Random"]
    case, SOURCES, PROGRAMS = from_arguments(*arguments)
    unittest.main(argv=[sys.argv[0], case], verbosity=2)


if __name__ == "__main__":
    main()
