"""A song as the readers make it and the writers use it, with positions in ticks."""

from __future__ import annotations

import bisect
import dataclasses
from collections import Counter
from typing import Any, Dict, List, Optional, Tuple, TypeVar

from ..constants import ControllerType

TICKS = 480  # to the quarter note
EXTENDED = "-"  # the lyric of a note that continues the syllable before it
UNSUNG = "la"  # the lyric of a line that has none
LAST_TICK = 2**31 - 2


class SongError(Exception):
    """A file cannot be read or written; the text says what is wrong, and where."""


@dataclasses.dataclass
class Lyric:
    """A syllable. An extended one continues over the following notes without lyrics."""

    text: str
    extended: bool = False


@dataclasses.dataclass
class Note:
    pos: int
    duration: int
    number: int
    velocity: int = 80
    lyrics: Dict[int, Lyric] = dataclasses.field(default_factory=dict)  # by verse, from 1
    turn: int = 1  # which time of a repeat this is

    @property
    def end(self) -> int:
        return self.pos + self.duration

    def lyric(self, verse: int) -> Optional[Lyric]:
        """The lyric of a verse; a repeat continues with the next verse, if there is one."""
        return self.lyrics.get(verse + self.turn - 1) or self.lyrics.get(verse)


Lane = List[Tuple[int, int]]
Placed = TypeVar("Placed", bound=Tuple[Any, ...])


@dataclasses.dataclass
class Line:
    """One voice of one part or track."""

    part: str
    name: str
    voice: str
    notes: List[Note] = dataclasses.field(default_factory=list)
    lanes: Dict[ControllerType, Lane] = dataclasses.field(default_factory=dict)

    @property
    def verses(self) -> List[int]:
        return sorted({verse for note in self.notes for verse in note.lyrics})

    @property
    def end(self) -> int:
        return max((note.end for note in self.notes), default=0)


@dataclasses.dataclass
class Song:
    kind: str  # "midi" or "musicxml"
    name: str = ""
    encoding: str = ""
    lines: List[Line] = dataclasses.field(default_factory=list)
    tempos: List[Tuple[int, float]] = dataclasses.field(default_factory=list)
    keys: List[Tuple[int, int, bool]] = dataclasses.field(default_factory=list)  # fifths, is minor
    meters: List[Tuple[int, int, int]] = dataclasses.field(default_factory=list)
    bars: List[int] = dataclasses.field(default_factory=list)  # their starts, in the order of playing
    end: int = 0
    losses: "Counter[str]" = dataclasses.field(default_factory=Counter)

    def lose(self, what: str, count: int = 1) -> None:
        """Records what a clip cannot contain, or what was not understood."""
        if count:
            self.losses[what] += count

    def bar_starts(self) -> List[int]:
        """The starts of the bars, from the file or computed from its meters."""
        if self.bars:
            return self.bars
        starts, at = [0], 0
        meters = sorted(self.meters) or [(0, 4, 4)]
        places = [pos for pos, _, _ in meters]
        end = max(self.end, max((line.end for line in self.lines), default=0))
        while at < end and len(starts) < 100_000:
            _, count, unit = meters[max(0, bisect.bisect_right(places, at) - 1)]
            at += max(1, count * 4 * TICKS // unit)
            starts.append(at)
        return starts

    def line_named(self, part: Optional[str], voice: Optional[str]) -> Line:
        """The line that was asked for, or the first with lyrics, or the first with notes."""
        found = [line for line in self.lines if line.notes
                 and (part is None or part in (line.part, line.name))
                 and (voice is None or voice == line.voice)]
        if not found:
            asked = "" if part is None and voice is None else (
                f" in part {part or 'any'}, voice {voice or 'any'}; there are: {self.listed()}")
            raise SongError(f"no notes{asked}")
        first = found[0].part
        same_part = [line for line in found if line.part == first]
        if part is None and voice is None:
            sung = [line for line in found if line.verses]
            return sung[0] if sung else same_part[0]
        return next((line for line in found if line.verses), found[0])

    def listed(self) -> str:
        return ", ".join(f"{line.part}/{line.voice} ({line.name})" for line in self.lines) or "nothing"


def scaled(at: int, unit: int) -> int:
    """A position in units to the quarter note, as ticks, rounded half up."""
    return (2 * at * TICKS + unit) // (2 * unit)


def melody(line: Line, song: Song) -> List[Note]:
    """One note at a time: of notes that begin together the highest, and each ends at the latest
    where the next begins. Records what is lost."""
    notes: List[Note] = []
    chords = cut = 0
    for note in sorted(line.notes, key=lambda note: (note.pos, -note.number)):
        if notes and notes[-1].pos == note.pos:
            chords += 1
            for verse, lyric in note.lyrics.items():
                notes[-1].lyrics.setdefault(verse, lyric)
            continue
        if notes and notes[-1].end > note.pos:
            cut += 1
            notes[-1] = dataclasses.replace(notes[-1], duration=note.pos - notes[-1].pos)
        notes.append(note)
    song.lose("notes below the highest of a chord are left out", chords)
    song.lose("notes that overlap the next one end where it begins", cut)
    return notes


def syllables(notes: List[Note], verse: int, song: Song) -> List[str]:
    """A lyric for each note: its own, a sign that the one before continues, or a substitute."""
    if not any(note.lyric(verse) for note in notes):
        song.lose(f'there are no lyrics: each note is given "{UNSUNG}"', len(notes))
        return [UNSUNG] * len(notes)
    found, sung, unsung = [], False, 0
    for note in notes:
        lyric = note.lyric(verse)
        sung = sung or lyric is not None
        unsung += not sung
        found.append(lyric.text if lyric else EXTENDED if sung else UNSUNG)
    song.lose(f'notes before the first syllable are given "{UNSUNG}"', unsung)
    return found


def in_bars(line: Line, song: Song, bars: Tuple[int, int]) -> None:
    """Keeps a range of bars, counted from 1 in the order of playing, and moves it to the beginning."""
    starts = song.bar_starts()
    first, last = bars
    if first > len(starts) - 1:
        raise SongError(f"there are {len(starts) - 1} bars, and bar {first} is asked for")
    begin = starts[first - 1]
    end = starts[last] if last < len(starts) else max(song.end, line.end)
    tied = sum(1 for note in line.notes if note.pos < begin < note.end or note.pos < end < note.end)
    line.notes = [dataclasses.replace(note, pos=note.pos - begin,
                                      duration=min(note.end, end) - note.pos)
                  for note in line.notes if begin <= note.pos < end]
    line.lanes = {kind: part_of(lane, begin, end) for kind, lane in line.lanes.items()}
    song.end = end - begin
    song.tempos = [(max(0, at - begin), tempo) for at, tempo in in_force(song.tempos, begin, end)]
    song.keys = [(max(0, at - begin), fifths, minor)
                 for at, fifths, minor in in_force(song.keys, begin, end)]
    song.lose("notes that reach beyond the bars are cut or left out", tied)


def in_force(entries: List[Placed], begin: int, end: int) -> List[Placed]:
    """The entry in force at the beginning, and those that follow up to the end. The first item of
    an entry is its place."""
    before = [entry for entry in entries if entry[0] <= begin]
    return before[-1:] + [entry for entry in entries if begin < entry[0] < end]


def part_of(lane: Lane, begin: int, end: int) -> Lane:
    return [(max(0, at - begin), value) for at, value in in_force(lane, begin, end)]
