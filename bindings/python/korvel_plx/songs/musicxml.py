"""Reads MusicXML, partwise, compressed or not. Measures are read one by one, and then put together
in the order of playing."""

from __future__ import annotations

import dataclasses
import re
from fractions import Fraction
from typing import Dict, List, Optional, Tuple
from xml.etree.ElementTree import Element

from ..constants import ControllerType
from .model import LAST_TICK, TICKS, Line, Lyric, Note, Song, SongError
from .playing import Signs, order_of
from .safe_xml import document_of, parse

STEPS = {"C": 0, "D": 2, "E": 4, "F": 5, "G": 7, "A": 9, "B": 11}
UNITS = {"whole": 4.0, "half": 2.0, "quarter": 1.0, "eighth": 0.5, "16th": 0.25}
LOUDNESS = {"pppp": 8, "ppp": 16, "pp": 33, "p": 49, "mp": 64, "mf": 80, "f": 96, "ff": 112,
            "fff": 126, "ffff": 127, "sf": 112, "sfz": 112, "fp": 96, "sfp": 96, "fz": 112, "rf": 104,
            "rfz": 104}
DECIMAL = re.compile(r"[+-]?(\d{1,12}(\.\d{0,20})?|\.\d{1,20})", re.ASCII)
FINEST = 10**40  # parts of a quarter note
MOST_PLAYED = 500_000  # notes, lyrics and signs, counted each time that they are played
ROUNDED = 15  # ticks: less than the shortest value that is written
PERCENT = 0.9  # loudness is written in hundredths of a velocity of 90


@dataclasses.dataclass
class Event:
    """A note of a measure, with its place from the beginning of the measure."""

    note: Note
    line: Tuple[str, str]
    tied_to: bool = False  # continues the note before
    ties: bool = False


@dataclasses.dataclass
class Measure:
    number: str
    length: int = 0
    events: List[Event] = dataclasses.field(default_factory=list)
    tempos: List[Tuple[int, float]] = dataclasses.field(default_factory=list)
    keys: List[Tuple[int, int, bool]] = dataclasses.field(default_factory=list)
    meters: List[Tuple[int, int, int]] = dataclasses.field(default_factory=list)
    loudness: List[Tuple[int, int]] = dataclasses.field(default_factory=list)
    signs: Signs = dataclasses.field(default_factory=Signs)

    def weight(self) -> int:
        lyrics = sum(len(event.note.lyrics) for event in self.events)
        signs = len(self.tempos) + len(self.keys) + len(self.meters) + len(self.loudness)
        return len(self.events) + lyrics + signs


def read_musicxml(data: bytes) -> Song:
    """The song in a file's content."""
    root = parse(document_of(data))
    strip_namespaces(root)
    if root.tag == "score-timewise":
        raise SongError("the score is timewise; partwise scores are read")
    if root.tag != "score-partwise":
        raise SongError(f"no MusicXML: the document is a {root.tag!r}")
    song = Song("musicxml", name=title(root), encoding="utf-8")
    names = {entry.get("id", ""): (entry.findtext("part-name") or "").strip()
             for entry in root.iterfind("part-list/score-part")}
    parts = [(part.get("id", ""), PartReader(part, song).measures) for part in root.iterfind("part")]
    play(song, parts, names)
    return song


def strip_namespaces(root: Element) -> None:
    for element in root.iter():
        element.tag = element.tag.rpartition("}")[2]


def title(root: Element) -> str:
    for path in ("work/work-title", "movement-title"):
        text = (root.findtext(path) or "").strip()
        if text:
            return text
    return ""


class PartReader:
    """Reads the measures of a part, and keeps what is in force until it is changed."""

    def __init__(self, part: Element, song: Song) -> None:
        self.song = song
        self.part = part.get("id", "")
        self.divisions = Fraction(1)
        self.transposition = 0
        self.bar = 0
        self.ending: Tuple[int, ...] = ()
        self.endings_seen: Dict[int, int] = {}
        self.measures: List[Measure] = []
        for element in part.iterfind("measure"):
            self.keep_meter()
            self.measures.append(self.measure(element))

    def measure(self, element: Element) -> Measure:
        self.into = Measure(element.get("number", "?"))
        self.at = self.longest = self.last = Fraction(0)
        try:
            self.barlines(element)
            for child in element:
                reader = getattr(self, "read_" + child.tag.replace("-", "_"), None)
                if reader:
                    reader(child)
                self.longest = max(self.longest, self.at)
                if self.at.denominator > FINEST:
                    raise ValueError("its divisions change too often to be added up")
        except (ValueError, ZeroDivisionError, KeyError, OverflowError) as problem:
            raise SongError(f"part {self.part}, measure {self.into.number}: {problem}") from problem
        self.into.length = self.ticks(self.longest)
        return self.into

    def keep_meter(self) -> None:
        """A bar with rounded tuplets gets the length of its meter. The last bar may be shorter."""
        if self.measures and abs(self.measures[-1].length - self.bar) < ROUNDED:
            self.measures[-1].length = self.bar

    def ticks(self, at: Fraction) -> int:
        """Rounded half up. Sums are rounded, not their terms, so errors do not add up."""
        exact = at * TICKS
        if exact.denominator != 1:
            self.song.lose("times that do not fall on a tick of 480 to the quarter are rounded")
        if not 0 <= exact <= LAST_TICK:
            raise ValueError("a place outside of what a clip can hold")
        return int(exact + Fraction(1, 2))

    def time(self, element: Element) -> Fraction:
        text = (element.findtext("duration") or "0").strip()
        return number_of(text, "duration") / self.divisions

    def read_attributes(self, element: Element) -> None:
        divisions = element.findtext("divisions")
        if divisions:
            self.divisions = number_of(divisions, "divisions")
            if self.divisions <= 0:
                raise ValueError(f"divisions of {divisions}")
        at = self.ticks(self.at)
        for key in element.iterfind("key"):
            if key.findtext("fifths"):
                is_minor = (key.findtext("mode") or "").strip() == "minor"
                self.into.keys.append((at, whole(key.findtext("fifths"), "fifths"), is_minor))
        for meter in element.iterfind("time"):
            if meter.findtext("beats") and meter.findtext("beat-type"):
                beats = sum(whole(part, "beats") for part in (meter.findtext("beats") or "").split("+"))
                unit = whole(meter.findtext("beat-type"), "beat-type")
                if beats <= 0 or unit <= 0:
                    raise ValueError(f"a meter of {beats}/{unit}")
                self.into.meters.append((at, beats, unit))
                self.bar = beats * 4 * TICKS // unit
        for transposition in element.iterfind("transpose"):
            self.transposition = whole(transposition.findtext("chromatic") or "0", "chromatic") + 12 * whole(
                transposition.findtext("octave-change") or "0", "octave-change")

    def read_backup(self, element: Element) -> None:
        self.at -= self.time(element)
        if self.at < 0:
            raise ValueError("a backup to before the measure")

    def read_forward(self, element: Element) -> None:
        self.at += self.time(element)

    def read_direction(self, element: Element) -> None:
        at = self.at
        offset = element.findtext("offset")
        if offset:
            at = max(Fraction(0), at + number_of(offset, "offset") / self.divisions)
        for sound in element.iterfind("sound"):
            self.sound(sound, at)
        has_tempo = any(sound.get("tempo") for sound in element.iterfind("sound"))
        for metronome in element.iterfind("direction-type/metronome"):
            if not has_tempo:
                self.metronome(metronome, at)
        if not any(sound.get("dynamics") for sound in element.iterfind("sound")):
            for dynamics in element.iterfind("direction-type/dynamics"):
                self.dynamics(dynamics, at)
        self.song.lose("wedges (crescendo and diminuendo)",
                       sum(wedge.get("type") != "stop" for wedge in element.iterfind("direction-type/wedge")))
        self.into.signs.segno |= element.find("direction-type/segno") is not None
        self.into.signs.coda |= element.find("direction-type/coda") is not None

    def read_sound(self, element: Element) -> None:
        self.sound(element, self.at)

    def sound(self, sound: Element, at: Fraction) -> None:
        signs = self.into.signs
        if sound.get("tempo"):
            self.into.tempos.append((self.ticks(at), float(number_of(sound.get("tempo", ""), "tempo"))))
        if sound.get("dynamics"):
            value = float(number_of(sound.get("dynamics", ""), "dynamics")) * PERCENT
            self.into.loudness.append((self.ticks(at), min(127, max(0, int(value + 0.5)))))
        signs.segno |= sound.get("segno") is not None
        signs.coda |= sound.get("coda") is not None
        signs.to_coda |= sound.get("tocoda") is not None
        signs.fine |= sound.get("fine") is not None
        if sound.get("dacapo") == "yes":
            signs.jump = "capo"
        elif sound.get("dalsegno") is not None:
            signs.jump = "segno"

    def metronome(self, metronome: Element, at: Fraction) -> None:
        unit = UNITS.get((metronome.findtext("beat-unit") or "").strip())
        text = (metronome.findtext("per-minute") or "").strip()
        if unit is None or not DECIMAL.fullmatch(text):
            self.song.lose("metronome marks that tell no number")
            return
        dots = len(metronome.findall("beat-unit-dot"))
        self.into.tempos.append((self.ticks(at), float(text) * unit * (2 - 0.5**dots)))

    def dynamics(self, dynamics: Element, at: Fraction) -> None:
        for mark in dynamics:
            if mark.tag in LOUDNESS:
                self.into.loudness.append((self.ticks(at), LOUDNESS[mark.tag]))

    def barlines(self, element: Element) -> None:
        """Endings last from the measure in which they start to the one in which they stop."""
        barlines = element.findall("barline")
        for barline in barlines:
            for ending in barline.iterfind("ending"):
                if ending.get("type") == "start":
                    self.ending = tuple(int(text) for text in ending.get("number", "1").replace(
                        ",", " ").split() if text.isdigit())
        self.into.signs.ending = self.ending
        for barline in barlines:
            for repeat in barline.iterfind("repeat"):
                if repeat.get("direction") == "forward":
                    self.into.signs.opens = True
                else:
                    self.into.signs.closes = min(whole(repeat.get("times", "2"), "times"), 100)
            if any(ending.get("type") in ("stop", "discontinue") for ending in barline.iterfind("ending")):
                self.ending = ()

    def read_note(self, element: Element) -> None:
        if element.find("grace") is not None:
            self.song.lose("grace notes")
            return
        is_chord = element.find("chord") is not None
        length = self.time(element)
        begin = self.last if is_chord else self.at
        if not is_chord:
            self.last, self.at = self.at, self.at + length
        self.longest = max(self.longest, begin + length)
        if element.find("rest") is None and element.find("cue") is None:
            self.add(element, begin, length)

    def add(self, element: Element, begin: Fraction, length: Fraction) -> None:
        number = self.number(element)
        if number is None:
            self.song.lose("notes without pitch")
            return
        at, end = self.ticks(begin), self.ticks(begin + length)
        if end <= at:
            self.song.lose("notes without length are left out")
            return
        note = Note(at, end - at, number, velocity_of(element), lyrics_of(element))
        ties = {tie.get("type") for tie in element.iterfind("tie")}
        voice = (element.findtext("voice") or "1").strip()
        self.into.events.append(Event(note, (self.part, voice), "stop" in ties, "start" in ties))

    def number(self, element: Element) -> Optional[int]:
        pitch = element.find("pitch")
        if pitch is None:
            return None
        alter = float(number_of(pitch.findtext("alter") or "0", "alter"))
        if alter != int(alter):
            self.song.lose("quarter tones are rounded")
        step = (pitch.findtext("step") or "").strip()
        if step not in STEPS:
            raise ValueError(f"no step {step!r}")
        octave = whole(pitch.findtext("octave") or "4", "octave")
        number = 12 * (octave + 1) + STEPS[step] + int(round(alter)) + self.transposition
        if not 0 <= number <= 127:
            raise ValueError(f"a pitch of {step}{octave} is outside of what MIDI can say")
        return number


def number_of(text: str, what: str) -> Fraction:
    """A decimal as MusicXML allows it. Exponents are refused: with them a few characters would make
    huge numbers."""
    if not DECIMAL.fullmatch(text.strip()):
        raise ValueError(f"{what}: {text[:30]!r} is no number that is read")
    return Fraction(text.strip())


def whole(text: Optional[str], what: str) -> int:
    number = number_of(text or "", what)
    if number.denominator != 1:
        raise ValueError(f"{what}: {text!r} is no whole number")
    return int(number)


def velocity_of(element: Element) -> int:
    text = element.get("dynamics")
    if not text:
        return 80
    return min(127, max(0, int(float(number_of(text, "dynamics")) * PERCENT + 0.5)))


def lyrics_of(element: Element) -> Dict[int, Lyric]:
    """The lyrics, by verse. A lyric that is only an extender line continues the syllable before."""
    found: Dict[int, Lyric] = {}
    for place, lyric in enumerate(element.iterfind("lyric"), 1):
        text = "".join(child.text or "" if child.tag == "text" else "\u203f"
                       for child in lyric if child.tag in ("text", "elision")).strip()
        digits = "".join(sign for sign in lyric.get("number", "") if sign.isdigit())[:4]
        verse = int(digits) if digits and int(digits) > 0 else place
        if text:
            found[verse] = Lyric(text, lyric.find("extend") is not None)
    return found


def play(song: Song, parts: List[Tuple[str, List[Measure]]], names: Dict[str, str]) -> None:
    """Puts the measures together. The first part decides the order and the lengths for all."""
    columns: List[List[Measure]] = [[] for _ in range(max((len(each) for _, each in parts), default=0))]
    for _, measures in parts:
        for column, measure in zip(columns, measures):
            column.append(measure)
    if not columns:
        raise SongError("the score has no measures")
    order = order_of([merged([measure.signs for measure in column]) for column in columns], song)
    starts = [0]
    for place, _ in order:
        starts.append(starts[-1] + max(measure.length for measure in columns[place]))
    if starts[-1] > LAST_TICK:
        raise SongError(f"the song reaches beyond tick {LAST_TICK}")
    refuse_too_much(columns, order)
    song.bars, song.end = starts, starts[-1]
    played: List[List[Tuple[int, int]]] = [[] for _ in columns]
    for (place, turn), start in zip(order, starts):
        played[place].append((start, turn))
    for part, measures in parts:
        song.lines += lines_of(part, names.get(part, ""), measures, played)
    tell(song, columns, played, parts[0][1])


def refuse_too_much(columns: List[List[Measure]], order: List[Tuple[int, int]]) -> None:
    """A short file with many repeats could be nearly endless."""
    weights = [sum(measure.weight() for measure in column) for column in columns]
    if sum(weights[place] for place, _ in order) > MOST_PLAYED:
        raise SongError(f"more than {MOST_PLAYED} notes, lyrics and signs, as they are played with all repeats")


def tell(song: Song, columns: List[List[Measure]], played: List[List[Tuple[int, int]]],
         first: List[Measure]) -> None:
    """Sets what applies to all lines: tempos of any part, keys and meters of the first."""
    song.tempos = sorted({(start + at, value) for column, starts in zip(columns, played)
                          for measure in column for at, value in measure.tempos for start, _ in starts})
    for measure, starts in zip(first, played):
        for start, _ in starts:
            song.keys += [(start + at, fifths, minor) for at, fifths, minor in measure.keys]
            song.meters += [(start + at, count, unit) for at, count, unit in measure.meters]
    song.keys.sort()
    song.meters.sort()


def merged(all_signs: List[Signs]) -> Signs:
    """Joins the signs of all parts, because not every part has all of them."""
    found = Signs()
    for signs in all_signs:
        for field in dataclasses.fields(Signs):
            if getattr(signs, field.name):
                setattr(found, field.name, getattr(signs, field.name))
    return found


def lines_of(part: str, name: str, measures: List[Measure],
             played: List[List[Tuple[int, int]]]) -> List[Line]:
    lines: Dict[str, Line] = {}
    tied: Dict[Tuple[str, int], Note] = {}
    loudness: List[Tuple[int, int]] = []
    times = sorted(((start, turn, measure) for measure, starts in zip(measures, played)
                    for start, turn in starts), key=lambda time: time[0])
    for start, turn, measure in times:
        loudness += [(start + at, value) for at, value in measure.loudness]
        for event in sorted(measure.events, key=lambda event: event.note.pos):
            voice = event.line[1]
            line = lines.setdefault(voice, Line(part, name, voice))
            add_played(line, event, start, turn, tied)
    for line in lines.values():
        if loudness:
            line.lanes[ControllerType.DYNAMICS] = sorted(loudness)
    return list(lines.values())


def add_played(line: Line, event: Event, start: int, turn: int,
               tied: Dict[Tuple[str, int], Note]) -> None:
    """Adds a note. A tied note makes the one before longer, if they touch."""
    key = (line.voice, event.note.number)
    before = tied.pop(key, None)
    at = start + event.note.pos
    if event.tied_to and before is not None and before.end == at:
        before.duration += event.note.duration
        note = before
    else:
        note = dataclasses.replace(event.note, pos=at, turn=turn, lyrics=dict(event.note.lyrics))
        line.notes.append(note)
    if event.ties:
        tied[key] = note
