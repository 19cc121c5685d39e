"""The host in C# of the manual, built and run by the commands beside it.

check_csharp.py INTERFACE_FILE SOURCES BUILD
"""

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

INTERFACE, SOURCES, BUILD = map(pathlib.Path, sys.argv[1:])


class CSharp(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        for name in ("examples", "bindings"):
            (self.folder / name).symlink_to(SOURCES / name)
        (self.folder / "build").mkdir()
        (self.folder / "build/release").symlink_to(BUILD)
        self.page = SOURCES / "docs/bindings.md"

    def test_prints_what_the_page_says(self):
        (code,), (commands,), (output,) = (blocks(self.page, language)
                                           for language in ("csharp", "sh", "text"))
        (self.folder / "host.cs").write_text(code, encoding="utf-8")
        done = subprocess.run(["sh", "-e"], input=commands, cwd=self.folder, text=True, timeout=100,
                              capture_output=True, check=False,
                              env=os.environ | {"PYTHONDONTWRITEBYTECODE": "1"})
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, output, ""))
        binding = (self.folder / "Plx.cs").read_text(encoding="utf-8")
        self.assertEqual(len(re.findall("public static extern", binding)), 291)


unittest.main(argv=sys.argv[:1])
