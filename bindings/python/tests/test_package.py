"""The installed package: installed by pip, with its types, and with the library in each place where
it may be."""

import os
import pathlib
import shutil
import subprocess
import sys
import textwrap

import pytest

import korvel_plx as plx
from conftest import TREE

HERE = TREE / "bindings/python"
SOURCE = pathlib.Path(plx.__file__).parent
LIBRARY_FILE = pathlib.Path(plx.library_path())


def run(*command, **environment):
    kept = {key: value for key, value in os.environ.items()
            if not key.startswith(("KRT_PLX", "PYTHONPATH"))}
    done = subprocess.run([str(part) for part in command], text=True, capture_output=True, check=False,
                          env=kept | environment, timeout=300)
    return done.returncode, done.stdout, done.stderr


def tell_path(python, **environment):
    return run(python, "-c", "import korvel_plx; print(korvel_plx.library_path())", **environment)


@pytest.fixture(scope="module")
def environment(tmp_path_factory):
    """A virtual environment into which pip has installed the package from a copy of its folder,
    with the interface beside it, as in a source distribution."""
    folder = tmp_path_factory.mktemp("pip")
    shutil.copytree(HERE, folder / "python", ignore=shutil.ignore_patterns("__pycache__"))
    shutil.copy(os.environ["KRT_PLX_INTERFACE"], folder / "python/krt_plx.api.json")
    code, _, errors = run(sys.executable, "-m", "venv", folder / "venv")
    assert code == 0, errors
    python = folder / "venv/bin/python"
    code, output, errors = run(python, "-m", "pip", "install", "--no-index", folder / "python")
    assert code == 0 and "Successfully installed korvel_plx" in output, output + errors
    return python


def test_pip_installs_the_whole_package(environment):
    code, output, errors = run(environment, "-c",
                               "import korvel_plx; print(korvel_plx.__file__, korvel_plx.__version__)")
    assert (code, errors) == (0, "")
    installed = pathlib.Path(output.split()[0]).parent
    assert output.split()[1] == plx.__version__
    assert {file.name for file in installed.rglob("*.py*") if file.suffix != ".pyc"} == {
        file.name for file in SOURCE.rglob("*.py*") if file.suffix != ".pyc"}
    assert (installed / "py.typed").is_file()


def test_the_library_is_found_where_the_variable_says(environment):
    for place in (LIBRARY_FILE, LIBRARY_FILE.parent):
        code, output, errors = tell_path(environment, KRT_PLX_LIBRARY=str(place))
        assert (code, errors) == (0, "")
        assert pathlib.Path(output.strip()).resolve() == LIBRARY_FILE.resolve()


def test_the_library_is_found_beside_the_package(tmp_path):
    shutil.copytree(SOURCE, tmp_path / "korvel_plx")
    shutil.copy(LIBRARY_FILE, tmp_path / "korvel_plx/libkrt_plx.so")
    code, output, errors = tell_path(sys.executable, PYTHONPATH=str(tmp_path))
    assert (code, output.strip(), errors) == (0, str(tmp_path / "korvel_plx/libkrt_plx.so"), "")


def test_the_library_is_found_in_the_tree_where_both_are_installed(tmp_path):
    shutil.copytree(SOURCE, tmp_path / "lib/python3/dist-packages/korvel_plx")
    shutil.copy(LIBRARY_FILE, tmp_path / "lib/libkrt_plx.so")
    code, output, errors = tell_path(sys.executable,
                                     PYTHONPATH=str(tmp_path / "lib/python3/dist-packages"))
    assert (code, output.strip(), errors) == (0, str(tmp_path / "lib/libkrt_plx.so"), "")


def test_without_library_the_package_says_where_it_looked(environment, tmp_path):
    missing = tmp_path / "missing.so"
    code, _, errors = tell_path(environment, KRT_PLX_LIBRARY=str(missing))
    assert code == 1 and "LibraryNotFoundError" in errors and str(missing) in errors


def test_a_library_without_the_functions_is_refused(environment, tmp_path):
    source, foreign = tmp_path / "foreign.c", tmp_path / "libforeign.so"
    source.write_text("int foreign;\n", encoding="utf-8")
    assert run("cc", "-shared", "-o", foreign, source)[0] == 0
    code, _, errors = tell_path(environment, KRT_PLX_LIBRARY=str(foreign))
    assert code == 1 and "LibraryNotFoundError" in errors and "KRT_PLX_ClipBase_parent" in errors


GOOD = """
    import korvel_plx as plx
    from korvel_plx import functions

    def lyrics(folder: str) -> "list[str]":
        with plx.Manager("types", folder, folder) as library:
            clip = library.create_mutable_clip()
            note = clip.create_midi_part().insert_note(0, 480, "la", "l a", 1)
            note.accent = 50
            note.vibrato.insert_depth(0, 64).value += 1
            count = functions.MidiPartBase_numNotes(clip.midi_part)
            assert count is None or count > 0
            return [note.lyric for clip in library.clips for note in clip.notes]
"""
BAD = """
    import korvel_plx as plx

    def bad(note: plx.Note, editable: plx.MutableNote, clip: plx.Clip) -> None:
        note.accent = 50
        editable.accent = "50"
        clip.remove()
        note.vibrato.insert_depth(0, 64)
"""


def test_mypy_accepts_the_package_and_what_uses_it_well_and_nothing_else(tmp_path):
    """In one run, because mypy spends most of its time on what the package imports."""
    for name, code in (("good", GOOD), ("bad", BAD)):
        (tmp_path / f"{name}.py").write_text(textwrap.dedent(code), encoding="utf-8")
    code, output, _ = run("/usr/bin/python3", "-m", "mypy", "--strict", "--cache-dir", tmp_path / "cache",
                          SOURCE, tmp_path / "good.py", tmp_path / "bad.py")
    errors = [line.partition("bad.py:")[2] for line in output.splitlines() if ": error:" in line]
    assert code == 1 and [error.partition(":")[0] for error in errors] == ["5", "6", "7", "8"], output
