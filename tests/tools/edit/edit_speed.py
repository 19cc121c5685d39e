"""How long "plxclip edit" takes for many clips, beside the library's own editing.

edit_speed.py CASE SOURCES PROGRAMS SUFFIX ROOT [LAUNCHER...]
edit_speed.py --long COUNT SOURCES PROGRAMS: with COUNT clips; at most twice as long

Only the long form compares the times: with few clips, and beside other tests, they say little.
"""

import json
import pathlib
import shutil
import sys
import tempfile
import time
import unittest

sys.path.append(str(pathlib.Path(__file__).parents[2] / "support"))
from programs import from_arguments  # noqa: E402

SOURCES = PROGRAMS = None
CLIPS = 200
ROUNDS = 3
IS_LONG = False


class Speed(unittest.TestCase):
    """Both edit the same clips in turn, and each keeps its best time."""

    def setUp(self):
        # Beside the programs, because a folder for temporary files may be in memory, where nothing waits
        # for a disk.
        self.scratch = pathlib.Path(tempfile.mkdtemp(dir=PROGRAMS.folder))
        self.addCleanup(shutil.rmtree, self.scratch)
        self.clips = self.scratch / "clips"
        (self.scratch / "empty").mkdir()

    def make_clips(self):
        original = next((SOURCES / "examples/library/user").glob("3f6d*/property.json"))
        properties = json.loads(original.read_text(encoding="utf-8"))
        for number in range(CLIPS):
            folder = self.clips / str(number)
            shutil.copytree(original.parent, folder)
            text = json.dumps(properties | {"id": f"clip {number}", "name": f"Clip {number}"}, indent=4)
            (folder / "property.json").write_text(text, encoding="utf-8")

    def run_timed(self, name, *arguments):
        begin = time.monotonic()
        result = PROGRAMS.run(name, *map(str, arguments), timeout=1200)
        self.assertEqual(result.code, 0, result.errors)
        return time.monotonic() - begin, result.lines[-1]

    def tempi(self):
        return {json.loads(path.read_text(encoding="utf-8"))["part"]["tempo"]
                for path in self.clips.rglob("property.json")}

    def test_side_by_side(self):
        self.make_clips()
        by_library, by_tool = [], []
        for tempo in range(100, 100 + ROUNDS):
            seconds, count = self.run_timed("edit_by_library", self.clips, self.scratch / "empty", tempo * 100 + 50)
            self.assertEqual((count, self.tempi()), (str(CLIPS), {tempo * 100 + 50}))
            by_library.append(seconds)
            seconds, said = self.run_timed("plxclip", "edit", self.clips, "--all", "--tempo", tempo)
            self.assertEqual((said, self.tempi()), (f"{CLIPS} of {CLIPS} clips changed", {tempo * 100}))
            by_tool.append(seconds)
        print(f"{CLIPS} clips: library {min(by_library):.3f} s, plxclip edit {min(by_tool):.3f} s, "
              f"{min(by_tool) / min(by_library):.2f} times as long")
        if IS_LONG:
            self.assertLessEqual(min(by_tool), 2 * min(by_library))


def main():
    global SOURCES, PROGRAMS, CLIPS, IS_LONG
    arguments = sys.argv[1:]
    if arguments[0] == "--long":
        IS_LONG = True
        CLIPS = int(arguments[1])
        arguments[:2] = ["Speed"]
    case, SOURCES, PROGRAMS = from_arguments(*arguments)
    unittest.main(argv=[sys.argv[0], case], verbosity=2)


if __name__ == "__main__":
    main()
