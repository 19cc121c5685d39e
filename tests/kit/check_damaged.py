"""Damaged clips, copied by the kit: what a copy does not have is told, and nothing is lost in silence.

check_damaged.py CASE SOURCES PROGRAMS SUFFIX ROOT [LAUNCHER...]

KRT_PLX_KIT_DAMAGES in the environment is the number of clips with random damages.
"""

import os
import pathlib
import re
import shutil
import sys
import tempfile
import unittest

sys.path.append(str(pathlib.Path(__file__).parents[1] / "tools/check"))
sys.path.append(str(pathlib.Path(__file__).parents[1] / "support"))
from damaged import damaged_clips  # noqa: E402
from programs import from_arguments  # noqa: E402
from random_damage import write_random_clips  # noqa: E402

PROGRAMS = None


class DamagedTest(unittest.TestCase):
    """Has a folder of its own."""

    def setUp(self):
        self.scratch = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.scratch)

    def copy_all(self):
        """How many clips were copied, and how many cannot be read."""
        result = PROGRAMS.run(
            "kit_tests", "--gtest_filter=*OfEveryClipOfAFolder*",
            env=os.environ | {"KRT_PLX_KIT_CLIPS": PROGRAMS.path(self.scratch)},
        )  # fmt: skip
        text = "\n".join(result.lines)
        self.assertEqual(result.code, 0, text + result.errors)
        copied, unreadable = re.search(r"^copied (\d+), unreadable (\d+)$", text, re.MULTILINE).groups()
        print(f"{copied} clips copied, {unreadable} that cannot be read")
        return int(copied), int(unreadable)


class Damaged(DamagedTest):
    """One clip for each reason."""

    def write(self, clip):
        folder = self.scratch / clip.name
        folder.mkdir()
        (folder / clip.file_name).write_bytes(clip.data)
        if clip.properties is not None:
            (folder / clip.property_name).write_bytes(clip.properties)

    def test_all_that_are_listed(self):
        clips = damaged_clips()
        for clip in clips:
            self.write(clip)
        listed = [clip for clip in clips if clip.listed]
        reads = sum(clip.part_reads for clip in listed)
        self.assertGreaterEqual(reads, 48)
        self.assertEqual(self.copy_all(), (reads, len(listed) - reads))


class Random(DamagedTest):
    """Clips with several damages at any place."""

    def test_all_that_are_listed(self):
        count = int(os.environ.get("KRT_PLX_KIT_DAMAGES", "100"))
        write_random_clips(self.scratch, count, seed=count)
        copied, _ = self.copy_all()
        self.assertGreater(copied, count // 8)


def main():
    global PROGRAMS
    case, _, PROGRAMS = from_arguments(*sys.argv[1:])
    unittest.main(argv=[sys.argv[0], case], verbosity=2)


main()
