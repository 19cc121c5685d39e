"""Checks that the lists of reasons refer to existing code: the changes that no test can notice,
in tests/mutation/equivalent.txt, and the lines that no test runs, in tests/uncovered.txt.

check_reasons.py PROJECT
"""

import collections
import importlib.machinery
import importlib.util
import pathlib
import sys
import unittest

PROJECT = None


def script(name):
    """Imports one of the scripts as a module."""
    loader = importlib.machinery.SourceFileLoader(name, str(PROJECT / "scripts" / name))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(name, loader))
    loader.exec_module(module)
    return module


def lines_of(file):
    return collections.Counter(
        line.strip() for line in (PROJECT / file).read_text(encoding="utf-8").splitlines())


class Reasons(unittest.TestCase):
    def setUp(self):
        self.mutants = script("mutants")
        self.coverage = script("coverage")

    def test_each_change_can_still_be_made(self):
        known = {site.key for site in self.mutants.find_all()}
        reasons = self.mutants.read_equivalents()
        self.assertTrue(reasons)
        self.assertEqual([" | ".join(key) for key in reasons if key not in known], [])

    def test_each_change_stands_once(self):
        rows = [line.rsplit(" | ", 1)[0]
                for line in self.mutants.EQUIVALENT.read_text(encoding="utf-8").splitlines()
                if line and not line.startswith("#")]
        self.assertEqual([row for row in rows if rows.count(row) > 1], [])

    def test_each_line_is_still_there(self):
        reasons = self.coverage.read_reasons("src")
        self.assertTrue(reasons)
        self.assertEqual([f"{file} | {text}" for (file, text), count in reasons.items()
                          if lines_of(file)[text] < count], [])

    def test_each_has_a_reason(self):
        for file in (self.mutants.EQUIVALENT, self.coverage.REASONS):
            for line in file.read_text(encoding="utf-8").splitlines():
                if line and not line.startswith("#"):
                    self.assertRegex(line, r"^src/\S+ \| .+ \| \w.+$")


if __name__ == "__main__":
    sys.dont_write_bytecode = True
    PROJECT = pathlib.Path(sys.argv[1])
    unittest.main(argv=sys.argv[:1], verbosity=2)
