"""Checks that README.md has a row for each target of scripts/portability, and says what came of it.

check_portability.py PROJECT
"""

import pathlib
import subprocess
import sys
import unittest

sys.path.append(str(pathlib.Path(__file__).parent.parent / "support"))
from readme import table_with  # noqa: E402

PROJECT = None
COUNTS = "Passed, failed, skipped"


class Table(unittest.TestCase):
    def rows(self):
        return table_with(PROJECT / "README.md", COUNTS)

    def test_it_has_the_targets_of_the_script(self):
        listed = subprocess.run([PROJECT / "scripts/portability", "--list"], capture_output=True,
                                text=True, check=True).stdout
        targets = [line.split("\t") for line in listed.splitlines()]
        self.assertGreater(len(targets), 0)
        self.assertEqual([[row["Target"], row["What it is"]] for row in self.rows()], targets)

    def test_each_row_has_a_day_and_counts_or_says_that_it_has_none(self):
        for row in self.rows():
            with self.subTest(row["Target"]):
                result = (row["Built with"], row["Tested"], row[COUNTS])
                if result != ("", "not yet", ""):
                    self.assertNotEqual(row["Built with"], "")
                    self.assertRegex(row["Tested"], r"^\d{4}-\d{2}-\d{2}$")
                    self.assertRegex(row[COUNTS], r"^[1-9]\d*, \d+, \d+$")


if __name__ == "__main__":
    PROJECT = pathlib.Path(sys.argv[1])
    unittest.main(argv=sys.argv[:1], verbosity=2)
