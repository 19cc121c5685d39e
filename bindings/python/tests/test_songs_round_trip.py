"""Clips are exported and imported again: they must be equal as far as the table of the manual says."""

import pathlib
import random

import pytest

import korvel_plx as plx
from conftest import EFFORT, IDS, LIBRARY
from korvel_plx.songs.clips import Options, fill, plan_of, song_of
from korvel_plx.songs.midi import read_midi
from korvel_plx.songs.midi_out import write_midi
from korvel_plx.songs.musicxml import read_musicxml
from korvel_plx.songs.musicxml_out import write_musicxml
from living import VOICE, loads
from test_round_trip import manager

CLIPS = 8 if EFFORT == 1 else 20 * EFFORT
WORDS = ["la", "さ", "Ж", "𝄞", "don't", "<&>", "a b", "ö" * 50, "-", "1", "]]>", "&amp;"]
FORMATS = {"midi": (write_midi, read_midi), "musicxml": (write_musicxml, read_musicxml)}
# The lanes for which MIDI has controllers; MusicXML only has the loudness.
LANES = {"midi": ("DYNAMICS", "PORTAMENTO", "PITCH_BEND_SENS", "PITCH_BEND", "BREATHINESS", "BRIGHTNESS"),
         "musicxml": ("DYNAMICS",)}


def build(clip, dice):
    """A melody of single notes, as the table requires."""
    part = clip.create_midi_part()
    part.voice_bank_id, part.lang_id = VOICE, 1
    clip.part_key, clip.part_tempo = dice.randint(0, 30), dice.choice([0, 2000, 30000, dice.randint(2000, 30000)])
    at = 0
    for _ in range(dice.randint(1, 30)):
        at += dice.choice([0, 0, 240, 480, dice.randint(0, 4000)])
        length = dice.choice([480, 240, 160, 80, 720, 1920, dice.randint(1, 9000)])
        note = part.insert_note(at, length, dice.choice(WORDS), "a", 1)
        note.number, note.velocity = dice.randint(0, 127), dice.randint(1, 127)
        at += length
    part.duration = max(1, at + dice.choice([0, 0, 480, dice.randint(0, 2000)]))
    for name in dice.sample(LANES["midi"], dice.randint(0, 4)):
        lane = part.add_midi_controller(plx.ControllerType[name])
        for _ in range(dice.randint(1, 10)):
            lane.insert_event(dice.randint(0, at), dice.randint(lane.min_event_value, lane.max_event_value))


def content(clip, name):
    """Everything that survives, according to the table."""
    part = clip.midi_part
    notes = [(note.pos, note.duration, note.number, note.velocity, note.lyric) for note in part.notes]
    lanes = {lane.type.name: [(event.pos, event.value) for event in lane.events]
             for lane in part.midi_controllers if lane.type.name in LANES[name] and len(lane.events)}
    return {"notes": notes, "tempo": clip.part_tempo, "key": clip.part_key, "duration": part.duration,
            "lanes": {key: [event for event in lane if event[0] < part.duration]
                      for key, lane in lanes.items()}}


def sent(library, clip, name, meter):
    """Exports a clip and imports it as a clip again."""
    write, read = FORMATS[name]
    made = plan_of(read(write(song_of(clip), meter)), Options(voice_bank=VOICE), "x")
    again = library.create_mutable_clip()
    fill(again, made, Options(voice_bank=VOICE))
    return again


def without_late_events(found):
    found["lanes"] = {key: lane for key, lane in found["lanes"].items() if lane}
    return found


@pytest.mark.parametrize("name", FORMATS)
def test_random_clips(name):
    with manager() as library:
        for seed in range(CLIPS):
            dice = random.Random(seed)
            with library.create_mutable_clip() as clip:
                build(clip, dice)
                meter = dice.choice([(4, 4), (3, 4), (6, 8), (5, 16), (1, 64), (7, 2)])
                if clip.midi_part.duration > 20_000 * meter[0] * 1920 // meter[1]:
                    meter = (4, 4)
                expected = without_late_events(content(clip, name))
                with sent(library, clip, name, meter) as once, sent(library, once, name, meter) as twice:
                    assert without_late_events(content(once, name)) == expected, seed
                    assert content(twice, name) == content(once, name), seed


def sung_at_once(clip):
    """Notes as the table requires: none before the beginning, no two together, no overlaps."""
    notes = list(clip.notes)
    return all(note.pos >= 0 for note in notes) and all(
        before.pos + before.duration <= after.pos for before, after in zip(notes, notes[1:]))


@pytest.mark.parametrize("name", FORMATS)
def test_the_example_library(name, tmp_path):
    compared = 0
    for folder in ("system", "user"):
        with plx.Manager(next(IDS), tmp_path, LIBRARY / folder) as library:
            for clip in library.clips:
                if not loads(clip) or clip.midi_part is None or not len(clip.notes):
                    continue
                with sent(library, clip, name, (4, 4)) as once, sent(library, once, name, (4, 4)) as twice:
                    assert content(twice, name) == content(once, name), clip
                    if sung_at_once(clip):
                        assert without_late_events(content(once, name)) == without_late_events(
                            content(clip, name)), clip
                        compared += 1
    assert compared >= 20


def test_what_midi_and_musicxml_do_not_have_is_told():
    with manager() as library, library.create_mutable_clip() as clip:
        part = clip.create_midi_part()
        part.insert_note(-480, 480, "a", "b", 1)
        note = part.insert_note(0, 480, "a", "b", 1)
        note.vibrato.duration = note.singing_skill.duration = 100
        note.attack.comp_id, note.accent = "x", 51
        part.insert_midi_effect(0, "x")
        for kind in (plx.ControllerType.GROWL, plx.ControllerType.PITCH_BEND):
            part.add_midi_controller(kind).insert_event(0, 1)
            part.midi_controller(kind).insert_event(-1, 1)
        told = {"phonemes", "vibratos", "attacks and releases", "singing skills", "effects",
                "expression of notes", "voice bank, language and style",
                "notes before the begin of the part", "events before the begin of the part",
                "events of the growl"}
        for write, more in ((write_midi, "velocities of 0"), (write_musicxml, "events of the pitch_bend,")):
            song = song_of(clip)
            data = write(song, (4, 4))
            for what in {*told, more}:
                assert any(loss.startswith(what) for loss in song.losses), what
        song = song_of(clip)
        assert read_midi(write_midi(song, (4, 4))).lines[0].notes[0].velocity == 1 and data


def test_the_table_of_the_page_names_all_lanes():
    page = (pathlib.Path(__file__).parents[3] / "docs/songs.md").read_text(encoding="utf-8")
    rows = {cells[1].strip(): [cell.strip() for cell in cells[2:4]] for cells in
            (line.split("|") for line in page.splitlines() if line.startswith("| "))}
    names = {"dynamics": "DYNAMICS", "portamento": "PORTAMENTO", "pitch bend": "PITCH_BEND",
             "range of the pitch bend": "PITCH_BEND_SENS", "breathiness": "BREATHINESS",
             "brightness": "BRIGHTNESS"}
    for row, lane in names.items():
        kept = [lane in LANES["midi"], lane in LANES["musicxml"]]
        assert [not cell.startswith("lost") for cell in rows[row]] == kept, row
