"""The command, as a user types it."""

import contextlib
import io
import json
import os
import pathlib
import shutil
import subprocess
import sys
import wave

import pytest

import korvel_plx as plx
import korvel_plx.songs.__main__ as commands
from korvel_plx.songs.__main__ import main
from korvel_plx.songs.clips import plan
from korvel_plx.songs.phonemes import x_sampa
from conftest import IDS, LIBRARY, TREE
from writing import ATTRIBUTES, lyric, midi, note, off, on, score, sung, tempo, track

SONG = midi(track((0, tempo(100)), (0, lyric(b"Hal")), (0, on(60)), (480, off(60)), (0, lyric(b"lo")),
                  (0, on(64)), (480, off(64))))


def run(*words, cwd=None):
    """Runs the command in this process: starting a new one takes longer than most of the tests."""
    output, errors, before = io.StringIO(), io.StringIO(), os.getcwd()
    os.chdir(cwd or before)
    try:
        with contextlib.redirect_stdout(output), contextlib.redirect_stderr(errors):
            code = main([str(word) for word in words])
    except SystemExit as end:
        code = end.code
    finally:
        os.chdir(before)
    return code, output.getvalue(), errors.getvalue()


def test_the_command_is_a_module(song, tmp_path):
    environment = os.environ | {"KRT_PLX_LIBRARY": os.path.abspath(plx.library_path()),
                                "PYTHONPATH": str(pathlib.Path(plx.__file__).parents[1])}
    for words, code in ((["parts", song], 0), (["parts", tmp_path], 1), (["sing"], 2)):
        done = subprocess.run([sys.executable, "-m", "korvel_plx.songs", *map(str, words)],
                              capture_output=True, check=False, env=environment, timeout=100)
        assert done.returncode == code, done.stderr


@pytest.fixture
def song(tmp_path):
    file = tmp_path / "Hallo.mid"
    file.write_bytes(SONG)
    return file


def clips(folder):
    with plx.Manager(next(IDS), LIBRARY / "system", folder) as library:
        return {clip.name: [(note.lyric, note.phoneme, note.number) for note in clip.notes]
                for clip in library.user_clips}


def test_import(song, tmp_path):
    code, output, errors = run("import", song, tmp_path / "clips", "--voice-bank", "abcdefghijklmnop",
                               "--language", "7", "--vendor", "Me", "--genre", "Pop", "--type", "Verse",
                               "--kind", "midiAi", "--name", "Gruß")
    assert (code, errors) == (0, "") and "'Gruß', 2 notes of part 1/1" in output
    with plx.Manager(next(IDS), LIBRARY / "system", tmp_path / "clips") as library:
        clip = library.user_clips[0]
        part = clip.part
        assert (clip.name, clip.vendor_name, clip.part_tempo) == ("Gruß", "Me", 10000)
        assert (clip.filter.genres, clip.filter.types) == (["Pop"], ["Verse"])
        assert (part.type, part.ai_voice_bank_id, part.ai_lang_ids) == (
            plx.PartType.MIDI_AI, "abcdefghijklmnop", [7])
        assert [note.lyric for note in clip.notes] == ["Hal", "lo"]


def test_a_dry_run_writes_nothing(song, tmp_path):
    code, output, _ = run("import", song, tmp_path / "clips", "--dry-run", "--json")
    (result,) = json.loads(output)
    assert code == 0 and result["clip"] is None and result["notes"] == 2 and result["name"] == "Hallo"
    assert not (tmp_path / "clips").exists()


def test_a_folder_with_a_bad_file_costs_that_file(song, tmp_path):
    songs = tmp_path / "songs"
    songs.mkdir()
    shutil.copy(song, songs / "a.mid")
    (songs / "b.mid").write_bytes(SONG[:40])
    (songs / "c.musicxml").write_bytes(score([ATTRIBUTES + note("C", inside=sung("drei"))]))
    (songs / "notes.txt").write_text("no song", encoding="utf-8")
    code, output, errors = run("import", songs, tmp_path / "clips")
    assert code == 1 and output.splitlines()[-1] == "2 imported, 1 not"
    assert "[1/3]" in output and "[2/3]" in errors and "b.mid: track 1, at byte 14, is cut" in errors
    assert sorted(clips(tmp_path / "clips")) == ["a", "c"]
    code, output, errors = run("import", songs / "a.mid", songs / "c.musicxml", tmp_path / "more", "--json")
    assert code == 0 and len(json.loads(output)) == 2 and "[2/2]" in errors


def test_what_nobody_thought_of_costs_one_file_too(song, tmp_path, monkeypatch):
    shutil.copy(song, tmp_path / "Worse.mid")
    monkeypatch.setattr(commands, "plan", lambda file, options: 1 // 0 if file.stem == "Worse" else plan(file, options))
    code, output, errors = run("import", tmp_path / "Worse.mid", song, tmp_path / "clips")
    assert code == 1 and output.splitlines()[-1] == "1 imported, 1 not"
    assert "Worse.mid: cannot be imported: ZeroDivisionError" in errors and list(clips(tmp_path / "clips")) == ["Hallo"]


def test_parts(song, tmp_path):
    code, output, _ = run("parts", song)
    assert code == 0 and "1/1  2 notes, verses 1" in output
    code, output, _ = run("parts", song, "--json")
    assert json.loads(output)["parts"][0] == {"part": "1", "voice": "1", "name": "", "notes": 2, "verses": [1]}


def test_phonemes_of_a_table(song, tmp_path):
    table = tmp_path / "table.txt"
    table.write_text("# German\nhal\th a l\nx  y\n", encoding="utf-8")
    code, output, _ = run("import", song, tmp_path / "clips", "--phonemes", f"table:{table}", "--json")
    (result,) = json.loads(output)
    assert code == 0 and result["phonemes"] == f"from the table {table}"
    assert result["lost"]["syllables without phonemes: the lyric stands in"] == 1
    assert clips(tmp_path / "clips")["Hallo"] == [("Hal", "h a l", 60), ("lo", "lo", 64)]
    for wrong in ("table:missing", "table:", "espeak", "magic"):
        assert run("import", song, tmp_path / "clips", "--phonemes", wrong)[0] == 1


@pytest.mark.skipif(not shutil.which("espeak-ng"), reason="espeak-ng is not installed")
def test_phonemes_of_espeak(song, tmp_path):
    code, _, errors = run("import", song, tmp_path / "clips", "--phonemes", "espeak:de")
    assert code == 0, errors
    first, second = (phonemes for _, phonemes, _ in clips(tmp_path / "clips")["Hallo"])
    assert first.startswith("h ") and first.endswith(" l") and first.isascii() and second == "l o:"


@pytest.mark.parametrize("ipa, expected", [
    ("ˈɡɹiːn", "g r\\ i: n"), ("tʃˈaɪld", "tS a I l d"), ("ʃˈøːn", "S 2: n"), ("bɔ̃", "b O~"),
    ("ʎˈaβe", "L a B e"), ("ˈʏ", "Y"), ("", "")])
def test_ipa_as_x_sampa(ipa, expected):
    assert x_sampa(ipa) == expected


@pytest.mark.parametrize("suffix", [".mid", ".musicxml"])
def test_export(tmp_path, suffix):
    target = tmp_path / f"out{suffix}"
    code, output, errors = run("export", LIBRARY / "system", "brindoll.hearth.greensleeves", target,
                               "--meter", "3/4")
    assert (code, errors) == (0, "") and "72 notes" in output and "lost      phonemes" in output
    code, output, _ = run("import", target, tmp_path / "clips", "--json")
    assert code == 0 and json.loads(output)[0]["notes"] == 72


def test_play(tmp_path):
    target = tmp_path / "out.wav"
    code, output, errors = run("play", LIBRARY / "system", "brindoll.hearth.greensleeves", "--wav", target)
    assert (code, errors) == (0, "")
    with wave.open(str(target)) as file:
        seconds = file.getnframes() / file.getframerate()
        assert file.getnchannels() == 1 and f"{seconds:.1f} seconds" in output
        samples = memoryview(file.readframes(file.getnframes())).cast("h")
    assert 3000 < max(samples) < 32767


@pytest.mark.parametrize("words, said", [
    (["export", LIBRARY / "system", "no such", "x.mid"], "no clip with the ID or the name"),
    (["export", LIBRARY / "system", "brindoll.hearth.greensleeves", "x.pdf"], "ends in none of"),
    (["export", "missing", "x", "x.mid"], "missing is no folder"),
    (["export", LIBRARY / "system", "Frame Drum 104", "x.mid"], "an audio clip has no notes"),
    (["play", LIBRARY / "system", "Frame Drum 104", "--wav", "x.wav"], "an audio clip has no notes"),
    (["parts", "missing.mid"], "missing.mid: cannot be read: No such file"),
    (["import", "missing.mid", "target", "--dry-run"], "No such file"),
])
def test_what_is_not_done_has_status_1(words, said, tmp_path):
    code, _, errors = run(*words, cwd=tmp_path)
    assert code == 1 and said in errors and "Traceback" not in errors


@pytest.mark.parametrize("words", [
    [], ["sing"], ["import"], ["import", "x.mid"], ["import", "x", "y", "--bars", "4-2"],
    ["import", "x", "y", "--bars", "0"], ["import", "x", "y", "--voice-bank", "short"],
    ["import", "x", "y", "--language", "128"], ["import", "x", "y", "--kind", "audio"],
    ["export", "x", "y", "z", "--meter", "4/5"], ["play", "x", "y"], ["import", "x", "y", "--verse", "0"],
])
def test_a_wrong_command_line_has_status_2(words):
    code, output, errors = run(*words)
    assert (code, output) == (2, "") and "usage: plxsong" in errors


def test_the_command_of_an_installed_package():
    text = (TREE / "bindings/python/backend/plx_build.py").read_text(encoding="utf-8")
    assert "plxsong = korvel_plx.songs.__main__:main" in text
