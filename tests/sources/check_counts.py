"""Checks that scripts/count-results counts every result that a test can have.

check_counts.py CTEST PROJECT
"""

import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

CTEST = PROJECT = None

SCRIPT = """
import sys, unittest
class Case(unittest.TestCase):
    def test_that_is_skipped(self):
        self.skipTest("no moon tonight")
    {also}
unittest.main(verbosity=2)
"""
ALSO = "def test_that_passes(self): pass"


def cases(**results):
    """A GoogleTest program's report."""
    rows = [{"name": name, "result": result} | ({"failures": [{}]} if name == "bad" else {})
            for name, result in results.items()]
    return json.dumps({"testsuites": [{"name": "Suite", "testsuite": rows}]})


class Counts(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        (self.folder / "results").mkdir()
        self.lines = []

    def add(self, name, *command, skip_code=None):
        words = " ".join(f"[==[{word}]==]" for word in command)
        self.lines.append(f"add_test({name} {words})")
        if skip_code:
            self.lines.append(f"set_tests_properties({name} PROPERTIES SKIP_RETURN_CODE {skip_code})")

    def add_script(self, name, **parts):
        self.add(name, sys.executable, "-c", SCRIPT.format(**parts))

    def add_program(self, name, command, **results):
        (self.folder / "results" / f"{name}.json").write_text(cases(**results), encoding="utf-8")
        self.add(name, command)

    def counted(self):
        """The counts of passed, failed and skipped tests, and the lines printed about them."""
        (self.folder / "CTestTestfile.cmake").write_text("\n".join(self.lines), encoding="utf-8")
        subprocess.run([CTEST, "--test-dir", self.folder, "--output-junit", self.folder / "ctest.xml"],
                       capture_output=True, check=False)
        result = subprocess.run([PROJECT / "scripts/count-results", self.folder],
                                capture_output=True, text=True, check=True)
        return tuple(map(int, result.stdout.split())), result.stderr

    def test_scripts(self):
        self.add("good", "true")
        self.add("bad", "false")
        self.assertEqual(self.counted(), ((1, 1, 0), "    failed: bad\n"))

    def test_a_script_that_cannot_run_here(self):
        self.add("moody", "sh", "-c", "echo not today; exit 77", skip_code=77)
        self.add("good", "true")
        self.assertEqual(self.counted(), ((1, 0, 1), "    skipped: moody: not today\n"))

    def test_a_script_that_is_not_there(self):
        self.add("missing", self.folder / "nothing", skip_code=77)
        self.assertEqual(self.counted()[0], (0, 1, 0))

    def test_cases_that_a_script_skips(self):
        self.add_script("some", also=ALSO)
        self.add_script("all", also="")
        counts, lines = self.counted()
        self.assertEqual(counts, (1, 0, 2))
        self.assertIn("skipped: some: test_that_is_skipped: 'no moon tonight'", lines)

    def test_cases_of_a_program(self):
        self.add_program("program", "false", good="COMPLETED", fine="COMPLETED", bad="COMPLETED",
                         moody="SKIPPED")
        self.assertEqual(self.counted(), ((2, 1, 1), "    failed: program: Suite.bad\n"
                                                     "    skipped: program: Suite.moody\n"))

    def test_a_program_that_ends_badly(self):
        self.add_program("program", "false", good="COMPLETED")
        self.assertEqual(self.counted()[0], (1, 1, 0))

    def test_nothing(self):
        self.add_script("all", also="")
        self.assertEqual(self.counted()[0], (0, 1, 1))


if __name__ == "__main__":
    CTEST, PROJECT = sys.argv[1], pathlib.Path(sys.argv[2])
    unittest.main(argv=sys.argv[:1], verbosity=2)
