"""Each test and each script that docs/reliability.md names is there, in files and case by case.

check_evidence.py PROJECT
"""

import fnmatch
import pathlib
import re
import sys
import unittest

PROJECT = None


class Evidence(unittest.TestCase):
    def setUp(self):
        self.page = (PROJECT / "docs/reliability.md").read_text(encoding="utf-8")

    def test_each_test_that_is_named_is_there(self):
        named = re.findall(r"`([\w*]+_test)`", self.page)
        self.assertGreater(len(named), 8)
        files = {path.stem for path in (PROJECT / "tests").glob("*/*_test.cpp")}
        missing = [name for name in named
                   if not any(re.fullmatch(name.replace("*", r"\w+"), file) for file in files)]
        self.assertEqual(missing, [])

    def test_the_documents_of_the_example_library_are_as_long_as_it_says(self):
        sizes = [path.stat().st_size
                 for path in (PROJECT / "examples/library").glob("**/property.json")]
        said = re.findall(r"have ([\d,]+) to ([\d,]+) bytes", self.page)
        self.assertEqual(said, [(f"{min(sizes):,}", f"{max(sizes):,}")])

    def test_each_path_that_is_named_is_there(self):
        named = re.findall(r"`((?:tests|scripts|fuzz)/[\w/.]+)", self.page)
        self.assertGreater(len(named), 8)
        self.assertEqual([name for name in named if not (PROJECT / name).exists()], [])

    def test_each_case_that_is_named_is_there(self):
        named = re.findall(r"`(\w+\.(?:\w+|\*))`", self.page)
        named = [name for name in named if name[0].isupper()]
        self.assertGreater(len(named), 20)
        cases = {f"{suite}.{name}" for path in (PROJECT / "tests").glob("*/*_test.cpp")
                 for suite, name in re.findall(r"^TEST(?:_[FP])?\((\w+), (\w+)\)",
                                               path.read_text(encoding="utf-8"), re.MULTILINE)}
        missing = [name for name in named if not fnmatch.filter(cases, name)]
        self.assertEqual(missing, [])


if __name__ == "__main__":
    PROJECT = pathlib.Path(sys.argv[1])
    unittest.main(argv=sys.argv[:1], verbosity=2)
