"""The hosts in other languages of the manual, built and run by the commands beside them.

check_foreign.py CASE SOURCES BUILD
"""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

sys.path.append(str(pathlib.Path(__file__).parent.parent / "support"))
from readme import blocks  # noqa: E402

CASE = sys.argv[1]
SOURCES, BUILD = map(pathlib.Path, sys.argv[2:])


class Foreign(unittest.TestCase):
    """A page has one host, the commands that make its binding and run it, and what it prints."""

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        for name in ("examples", "bindings"):
            (self.folder / name).symlink_to(SOURCES / name)
        (self.folder / "build").mkdir()
        (self.folder / "build/release").symlink_to(BUILD)

    def expect_as_on_page(self, page, language, host):
        (code,), (commands,), (output,) = (blocks(SOURCES / "docs" / page, each)
                                           for each in (language, "sh", "text"))
        (self.folder / host).write_text(code, encoding="utf-8")
        done = subprocess.run(["sh", "-e"], input=commands, cwd=self.folder, text=True, timeout=100,
                              capture_output=True, check=False,
                              env=os.environ | {"PYTHONDONTWRITEBYTECODE": "1"})
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, output, ""))

    def expect_all_functions(self, binding, declaration):
        text = (self.folder / binding).read_text(encoding="utf-8")
        interface = json.loads((BUILD / "generated/interface/krt_plx.api.json").read_text(encoding="utf-8"))
        self.assertEqual(len(re.findall(declaration, text)), len(interface["functions"]))


class CSharp(Foreign):
    def test_prints_what_the_page_says(self):
        self.expect_as_on_page("bindings.md", "csharp", "host.cs")
        self.expect_all_functions("Plx.cs", "public static extern")
        self.expect_all_functions("Plx.cs", r"CallingConvention = CallingConvention\.Cdecl\)\]")


class Pascal(Foreign):
    def test_prints_what_the_page_says(self):
        self.expect_as_on_page("other-languages.md", "pascal", "host.pas")
        self.expect_all_functions("Plx.pas", "; cdecl; external ")


unittest.main(argv=[sys.argv[0], CASE], verbosity=2)
