"""plxsong with files and programs of others. scripts/songs runs this.

midicsv reads the same MIDI files, note by note. MuseScore plays the same MusicXML (midicsv reads
what it plays), draws the exported MusicXML, and writes MusicXML that plxsong reads. timidity plays
the exported MIDI.
"""

import array
import collections
import json
import os
import pathlib
import re
import subprocess
import sys
import wave

import pytest

TESTS = pathlib.Path(__file__).resolve().parents[1] / "tests"
sys.path.insert(0, str(TESTS))
import korvel_plx as plx  # noqa: E402
from conftest import IDS, LIBRARY  # noqa: E402
from korvel_plx.songs.clips import song_of  # noqa: E402
from korvel_plx.songs.midi import read_midi  # noqa: E402
from korvel_plx.songs.midi_out import write_midi  # noqa: E402
from korvel_plx.songs.musicxml import read_musicxml  # noqa: E402
from korvel_plx.songs.musicxml_out import write_musicxml  # noqa: E402
from living import loads  # noqa: E402
from test_songs_musicxml import PLAYED  # noqa: E402
from writing import ATTRIBUTES, score  # noqa: E402

FOLDERS = ["/usr/share/games/openttd/baseset/openmsx", "/usr/share/doc/pianobooster/courses"]
FILES = sorted(file for folder in FOLDERS for file in pathlib.Path(folder).rglob("*.mid"))
COUNTS = pathlib.Path(__file__).parent / "counts.json"
DRUMS = 9
ROUNDED = 6  # ticks
# For larger files MuseScore takes minutes.
SHORT_FILES = [file for file in FILES if file.stat().st_size < 19_000]


def run(*words):
    environment = os.environ | {"QT_QPA_PLATFORM": "offscreen"}
    return subprocess.run([str(word) for word in words], capture_output=True, check=False, timeout=300,
                          env=environment)


def rows_of(file):
    text = run("midicsv", file).stdout.decode("utf-8", "replace")
    return [[cell.strip() for cell in line.split(",")] for line in text.splitlines()]


def ticks(at, unit):
    return (2 * at * 480 + unit) // (2 * unit)


def notes_by_midicsv(file):
    """Maps (track, channel) to its notes, from the rows of midicsv."""
    unit, found, begun, ends = 480, collections.defaultdict(list), collections.defaultdict(list), {}
    for row in rows_of(file):
        track, at, kind = int(row[0]), int(row[1]), row[2]
        if kind == "Header":
            unit = int(row[5])
        elif kind == "End_track":
            ends[track] = at
        elif kind in ("Note_on_c", "Note_off_c"):
            channel, number, velocity = map(int, row[3:6])
            key = (track, channel, number)
            if kind == "Note_on_c" and velocity:
                begun[key].append((at, velocity))
            elif begun[key]:
                found[key[:2]].append((*begun[key].pop(0), at, number))
    for (track, channel, number), left in begun.items():
        found[track, channel] += [(at, velocity, ends[track], number) for at, velocity in left]
    whole = {key: sorted((ticks(at, unit), ticks(end, unit), number, velocity)
                         for at, velocity, end, number in notes if ticks(at, unit) != ticks(end, unit))
             for key, notes in found.items()}
    return {key: notes for key, notes in whole.items() if notes}


def test_midi_files_of_others_note_by_note():
    """The recorded counts show that the same files were read."""
    assert len(FILES) >= 30
    counts = {}
    for file in FILES:
        song = read_midi(file.read_bytes())
        found = {(int(line.part), int(line.voice) - 1): sorted(
            (note.pos, note.end, note.number, note.velocity) for note in line.notes) for line in song.lines}
        assert found == notes_by_midicsv(file), file
        counts[file.name] = sum(map(len, found.values()))
    print(len(counts), "files,", sum(counts.values()), "notes")
    assert counts == json.loads(COUNTS.read_text(encoding="utf-8"))


def onsets_of(song):
    return collections.Counter((note.pos, note.number) for line in song.lines for note in line.notes)


def onsets_by_midicsv(file):
    unit, found = 480, collections.Counter()
    for row in rows_of(file):
        if row[2] == "Header":
            unit = int(row[5])
        elif row[2] == "Note_on_c" and int(row[5]) and int(row[3]) != DRUMS:
            found[ticks(int(row[1]), unit), int(row[4])] += 1
    return found


def convert(source, target):
    done = run("mscore3", "-o", target, source)
    assert done.returncode == 0 and target.is_file(), done.stderr.decode("utf-8", "replace")[-500:]


@pytest.mark.parametrize("name", PLAYED)
def test_the_order_of_playing_is_that_of_musescore(name, tmp_path):
    steps = dict(zip("abcde", "CDEFG"))
    measures = [measure.replace("<step>C<", f"<step>{steps[re.search('<text>(.)<', measure)[1]]}<")
                for measure in PLAYED[name][0]]
    data = score([ATTRIBUTES + measures[0], *measures[1:]])
    (tmp_path / "song.musicxml").write_bytes(data)
    convert(tmp_path / "song.musicxml", tmp_path / "song.mid")
    assert onsets_of(read_musicxml(data)) == onsets_by_midicsv(tmp_path / "song.mid")


def overlapped(song):
    """Of two notes of the same pitch that overlap in a part, MuseScore plays only one."""
    spans, found = collections.defaultdict(list), collections.Counter()
    for line in song.lines:
        for note in line.notes:
            spans[line.part, note.number].append((note.pos, note.end))
    for (_, number), places in spans.items():
        for index, (at, _) in enumerate(places):
            found[at, number] += any(other != index and (begin < at < end or begin == at and other < index)
                                     for other, (begin, end) in enumerate(places))
    return found


def unmatched(found, played):
    """The onsets in each list that the other does not have within a few ticks, because tuplets are
    written rounded."""
    alone = {"found": [], "played": []}
    for number in {number for _, number in [*found, *played]}:
        ours, theirs = (sorted(at for at, other in counted.elements() if other == number)
                        for counted in (found, played))
        while ours and theirs:
            if abs(ours[0] - theirs[0]) <= ROUNDED:
                ours.pop(0)
                theirs.pop(0)
            elif ours[0] < theirs[0]:
                alone["found"].append((ours.pop(0), number))
            else:
                alone["played"].append((theirs.pop(0), number))
        alone["found"] += [(at, number) for at in ours]
        alone["played"] += [(at, number) for at in theirs]
    return alone


@pytest.mark.parametrize("file", SHORT_FILES, ids=lambda file: file.stem)
def test_musicxml_that_musescore_wrote_is_read_as_musescore_plays_it(file, tmp_path):
    convert(file, tmp_path / "song.musicxml")
    convert(tmp_path / "song.musicxml", tmp_path / "back.mid")
    song = read_musicxml((tmp_path / "song.musicxml").read_bytes())
    found, played = onsets_of(song), onsets_by_midicsv(tmp_path / "back.mid")
    alone = unmatched(found, played)
    assert alone["played"] == []
    assert collections.Counter(alone["found"]) - overlapped(song) == collections.Counter()


@pytest.fixture(scope="module")
def clips(tmp_path_factory):
    with plx.Manager(next(IDS), tmp_path_factory.mktemp("system"), LIBRARY / "system") as library:
        yield [clip for clip in library.clips if loads(clip) and clip.midi_part and len(clip.notes)]


def test_musescore_opens_and_plays_what_is_exported(clips, tmp_path):
    for clip in clips:
        data = write_musicxml(song_of(clip), (4, 4))
        (tmp_path / "song.musicxml").write_bytes(data)
        convert(tmp_path / "song.musicxml", tmp_path / "song.mid")
        assert onsets_by_midicsv(tmp_path / "song.mid") == onsets_of(read_musicxml(data)), clip
    run("mscore3", "-o", tmp_path / "song.png", tmp_path / "song.musicxml")
    assert (tmp_path / "song-1.png").stat().st_size > 5000
    assert len(clips) >= 20


def test_timidity_plays_what_is_exported(clips, tmp_path):
    for clip in clips[:5]:
        (tmp_path / "song.mid").write_bytes(write_midi(song_of(clip), (4, 4)))
        done = run("timidity", "-Ow", "-o", tmp_path / "song.wav", tmp_path / "song.mid")
        assert done.returncode == 0
        with wave.open(str(tmp_path / "song.wav")) as file:
            samples = array.array("h", file.readframes(file.getnframes()))
            seconds = file.getnframes() / file.getframerate()
        lasts = max(note.pos + note.duration for note in clip.notes) / 480 * 6000 / (clip.part_tempo or 12000)
        assert max(samples) > 200 and lasts - 1 < seconds < lasts + 10
