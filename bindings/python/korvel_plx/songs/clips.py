"""Turns songs into clips and clips into songs."""

from __future__ import annotations

import dataclasses
import pathlib
import tempfile
import uuid
from collections import Counter
from typing import Any, Dict, List, Optional, Tuple

from .. import objects
from ..constants import ControllerType, PartType
from .midi import read_midi
from .model import LAST_TICK, TICKS, Lane, Line, Lyric, Note, Song, SongError, in_bars, melody, syllables
from .musicxml import read_musicxml
from .phonemes import phonemes_of, source_of

MIDI_FILES = (".mid", ".midi", ".kar", ".rmi")
XML_FILES = (".musicxml", ".xml", ".mxl")
LEAST_TEMPO, MOST_TEMPO = 2000, 30000
# Keys by fifths, flats below 0: 1 to 15 major, 16 to 30 minor, 0 no key.
MAJOR_KEY, MINOR_KEY = 8, 23


@dataclasses.dataclass
class Options:
    """The options of an import; the defaults are those of the command."""

    part: Optional[str] = None
    voice: Optional[str] = None
    verse: int = 1
    bars: Optional[Tuple[int, int]] = None
    voice_bank: str = "0000000000000000"
    language: int = 0
    kind: str = "midi"
    name: Optional[str] = None
    vendor: str = ""
    types: Tuple[str, ...] = ()
    genres: Tuple[str, ...] = ()
    phonemes: str = "none"


def read_song(file: pathlib.Path) -> Song:
    """The song in a file. The format is chosen by the extension, or by the content if the extension
    is unknown."""
    try:
        data = file.read_bytes()
    except OSError as problem:
        raise SongError(f"cannot be read: {problem.strerror}") from problem
    suffix = file.suffix.lower()
    is_midi = suffix in MIDI_FILES or (suffix not in XML_FILES and data[:4] in (b"MThd", b"RIFF"))
    return read_midi(data) if is_midi else read_musicxml(data)


@dataclasses.dataclass
class Plan:
    """What an import will write, prepared before anything is written."""

    song: Song
    line: Line
    notes: List[Note]
    lyrics: List[str]
    phonemes: List[str]
    phonemes_from: str
    tempo: int
    key: int
    duration: int
    lanes: Dict[ControllerType, Lane]
    name: str


def plan(file: pathlib.Path, options: Options) -> Plan:
    return plan_of(read_song(file), options, file.stem)


def plan_of(song: Song, options: Options, name: str = "") -> Plan:
    """The plan for a song; the name is used if the song has none."""
    line = song.line_named(options.part, options.voice)
    if options.bars:
        in_bars(line, song, options.bars)
    notes = melody(line, song)
    if not notes:
        raise SongError("no notes in these bars")
    lyrics = syllables(notes, options.verse, song)
    said, source = source_of(options.phonemes)
    phonemes = phonemes_of(lyrics, source, song, options.phonemes == "none")
    duration = max(song.end, notes[-1].end, 1)
    return Plan(song, line, notes, lyrics, phonemes, said, tempo_of(song), key_of(song),
                min(duration, LAST_TICK), lanes_of(line, song), options.name or song.name or name)


def tempo_of(song: Song) -> int:
    """The first tempo, in hundredths; 0 when the file has none."""
    if not song.tempos:
        return 0
    song.lose("tempo changes: a clip has one tempo, and positions stay in ticks",
              len({tempo for _, tempo in song.tempos}) - 1)
    tempo = int(song.tempos[0][1] * 100 + 0.5)
    if not LEAST_TEMPO <= tempo <= MOST_TEMPO:
        song.lose(f"a tempo of {tempo / 100:g}, outside of 20 to 300")
        return min(MOST_TEMPO, max(LEAST_TEMPO, tempo))
    return tempo


def key_of(song: Song) -> int:
    if not song.keys:
        return 0
    _, fifths, is_minor = song.keys[0]
    song.lose("key changes: a clip has one key", len({key[1:] for key in song.keys}) - 1)
    if not -7 <= fifths <= 7:
        song.lose(f"a key of {fifths} fifths")
        return 0
    return fifths + (MINOR_KEY if is_minor else MAJOR_KEY)


def lanes_of(line: Line, song: Song) -> Dict[ControllerType, Lane]:
    """One value at each position: the last in the file."""
    found = {}
    for kind, lane in line.lanes.items():
        found[kind] = sorted(dict(lane).items())
        song.lose(f"values of the {kind.name.lower()} that are set again at once", len(lane) - len(found[kind]))
    return found


def fill(clip: "objects.MutableClip", made: Plan, options: Options) -> None:
    """Writes a plan into an editable clip."""
    is_ai = options.kind == "midiAi"
    part = clip.create_midi_ai_part() if is_ai else clip.create_midi_part()
    if is_ai:
        part.ai_voice_bank_id = options.voice_bank
        part.add_ai_lang_id(options.language)
    else:
        part.voice_bank_id = options.voice_bank
        part.lang_id = options.language
    clip.vendor_name, clip.part_key, clip.part_tempo = options.vendor, made.key, made.tempo
    for text in options.types:
        clip.filter.add_type(text)
    for text in options.genres:
        clip.filter.add_genre(text)
    part.duration = made.duration
    for note, lyric, phonemes in zip(made.notes, made.lyrics, made.phonemes):
        added = part.insert_note(note.pos, note.duration, lyric, phonemes, options.language)
        added.number, added.velocity = note.number, note.velocity
    for kind, lane in made.lanes.items():
        target = part.add_midi_controller(kind)
        for at, value in lane:
            target.insert_event(at, max(target.min_event_value, min(target.max_event_value, value)))


class Folder:
    """A folder of user clips, with a manager of its own; its system folder is empty."""

    def __init__(self, folder: pathlib.Path, must_exist: bool = False) -> None:
        if must_exist and not folder.is_dir():
            raise SongError(f"{folder} is no folder")
        self.folder = folder
        self.empty = tempfile.TemporaryDirectory(prefix="plxsong-")

    def __enter__(self) -> "objects.Manager":
        try:
            self.manager = objects.Manager(f"plxsong-{uuid.uuid4()}", self.empty.name, self.folder)
        except Exception:
            self.empty.cleanup()
            raise
        return self.manager

    def __exit__(self, *_: Any) -> None:
        self.manager.destroy()
        self.empty.cleanup()


def find_clip(manager: "objects.Manager", asked: str) -> "objects.Clip":
    """Finds it by its ID, or by a name that only one clip has."""
    found = [clip for clip in manager.user_clips if clip.id == asked] or [
        clip for clip in manager.user_clips if clip.name == asked]
    if len(found) != 1:
        what = "no clip" if not found else f"{len(found)} clips"
        raise SongError(f"{what} with the ID or the name {asked!r}")
    return found[0]


def song_of(clip: "objects.ClipBase") -> Song:
    """A clip's part as a song; what a song cannot contain is listed as lost."""
    part = clip.part if isinstance(clip, objects.Clip) else getattr(clip, "midi_part", None)
    if not isinstance(part, (objects.MidiPart, objects.MutableMidiPart)):
        raise SongError("an audio clip has no notes")
    song = Song("clip", name=clip.name if isinstance(clip, objects.Clip) else "", end=part.duration)
    if clip.part_tempo:
        song.tempos = [(0, clip.part_tempo / 100)]
    song.keys = fifths_of(clip.part_key)
    notes = [Note(note.pos, note.duration, note.number, note.velocity, {1: Lyric(note.lyric)})
             for note in part.notes if note.pos >= 0]
    song.lose("notes before the begin of the part", len(part.notes) - len(notes))
    lanes = {lane.type: [(event.pos, event.value) for event in lane.events if event.pos >= 0]
             for lane in part.midi_controllers}
    song.lose("events before the begin of the part",
              sum(len(lane.events) for lane in part.midi_controllers) - sum(map(len, lanes.values())))
    song.lines = [Line("1", song.name, "1", notes, {kind: lane for kind, lane in lanes.items() if lane})]
    lose_expression(song, part)
    return song


def fifths_of(key: int) -> List[Tuple[int, int, bool]]:
    if key == 0:
        return []
    return [(0, key - MINOR_KEY, True)] if key > 15 else [(0, key - MAJOR_KEY, False)]


def lose_expression(song: Song, part: Any) -> None:
    """Lists what no song file can contain of a part and its notes."""
    song.lose("phonemes", sum(note.phoneme != note.lyric for note in part.notes))
    song.lose("vibratos", sum(note.vibrato.duration > 0 for note in part.notes))
    song.lose("attacks and releases", sum(bool(dvqm.comp_id) for note in part.notes
                                          for dvqm in (note.attack, note.release)))
    song.lose("singing skills", sum(note.singing_skill.duration > 0 for note in part.notes))
    song.lose("effects", len(part.midi_effects) + len(part.audio_effects))
    song.lose("expression of notes", sum(is_expressive(note) for note in part.notes))
    song.lose("voice bank, language and style")


def is_expressive(note: Any) -> bool:
    plain = (note.accent, note.bend_depth, note.bend_length, note.decay, note.opening, note.fall_port,
             note.rise_port) == (50, 0, 0, 50, 127, False, False)
    return not plain or any(getattr(note, name) != 0.5 for name in AI_VALUES)


AI_VALUES = ("pitch_fine", "pitch_drift_start", "pitch_drift_end", "pitch_scaling_center",
             "pitch_scaling_origin", "pitch_transition_start", "pitch_transition_end",
             "amplitude_whole", "amplitude_start", "amplitude_end", "formant_whole", "formant_start",
             "formant_end")


def losses_text(losses: "Counter[str]") -> List[str]:
    return [f"{what}: {count}" if count > 1 else what for what, count in losses.items()]


__all__ = ["Folder", "Options", "PartType", "Plan", "TICKS", "fill", "find_clip", "losses_text", "plan",
           "read_song", "song_of"]
