"""The scripts in the manual print what their pages show."""

import os
import pathlib
import re
import subprocess
import sys

import pytest

import korvel_plx as plx
from conftest import TREE

PAGES = ["python.md"]


def scripts(page):
    """Each script with the output that follows it."""
    text = (TREE / "docs" / page).read_text(encoding="utf-8")
    return re.findall(r"^```python\n(.*?)^```\n\n```text\n(.*?)^```$", text, re.MULTILINE | re.DOTALL)


@pytest.mark.parametrize("page", PAGES)
def test_each_script(page, tmp_path):
    (tmp_path / "examples").symlink_to(TREE / "examples")
    found = scripts(page)
    assert len(found) >= 3
    for code, output in found:
        done = subprocess.run([sys.executable, "-c", code], cwd=tmp_path, text=True, check=False,
                              capture_output=True, timeout=60,
                              env=os.environ | {
                                  "KRT_PLX_LIBRARY": os.path.abspath(plx.library_path()),
                                  "PYTHONPATH": str(pathlib.Path(plx.__file__).parents[1])})
        assert (done.stdout, done.stderr) == (output, "")
