"""Writes MusicXML 4.0, partwise: one part, one voice, in the given meter."""

from __future__ import annotations

import dataclasses
import re
from typing import Iterator, List, Optional, Tuple
from xml.etree import ElementTree
from xml.etree.ElementTree import Element, SubElement

from ..constants import ControllerType
from .model import EXTENDED, TICKS, Lyric, Note, Song, SongError
from .musicxml import PERCENT

DOCTYPE = ('<!DOCTYPE score-partwise PUBLIC "-//Recordare//DTD MusicXML 4.0 Partwise//EN" '
           '"http://www.musicxml.org/dtds/partwise.dtd">')
SHARP = (("C", 0), ("C", 1), ("D", 0), ("D", 1), ("E", 0), ("F", 0), ("F", 1), ("G", 0), ("G", 1),
         ("A", 0), ("A", 1), ("B", 0))
FLAT = (("C", 0), ("D", -1), ("D", 0), ("E", -1), ("E", 0), ("F", 0), ("G", -1), ("G", 0), ("A", -1),
        ("A", 0), ("B", -1), ("B", 0))
TYPES = ("breve", "whole", "half", "quarter", "eighth", "16th", "32nd", "64th", "128th")
# Plain and dotted values, the longest first, and those of triplets.
VALUES = {8 * TICKS >> place: (name, 0, False) for place, name in enumerate(TYPES)}
VALUES |= {ticks * 3 // 2: (name, 1, False) for ticks, (name, _, _) in list(VALUES.items())
           if ticks % 2 == 0}
TRIPLETS = {ticks * 2 // 3: (name, 0, True) for ticks, (name, dots, _) in VALUES.items()
            if dots == 0 and ticks * 2 % 3 == 0}
SIGNS_THAT_XML_HAS = re.compile("[^\t\n\r\u0020-\ud7ff\ue000-\ufffd\U00010000-\U0010ffff]")
LONGEST = 20_000  # bars


@dataclasses.dataclass
class Piece:
    """A section of a bar: a rest, or a part of a note."""

    ticks: int
    note: Optional[Note] = None
    begins: bool = True
    ends: bool = True

def write_musicxml(song: Song, meter: Tuple[int, int]) -> bytes:
    line = song.lines[0]
    notes = with_extenders(one_by_one(line.notes, song))
    lose_lanes(song)
    bar = meter[0] * 4 * TICKS // meter[1]
    root = Element("score-partwise", version="4.0")
    SubElement(SubElement(root, "work"), "work-title").text = legal(song.name)
    SubElement(SubElement(SubElement(root, "identification"), "encoding"), "software").text = "krt_plx"
    entry = SubElement(SubElement(root, "part-list"), "score-part", id="P1")
    SubElement(entry, "part-name").text = legal(line.name) or "Voice"
    instrument = SubElement(entry, "score-instrument", id="P1-I1")
    SubElement(instrument, "instrument-name").text = "Voice"
    part = SubElement(root, "part", id="P1")
    end = max([song.end, *(note.end for note in notes)])
    if end > LONGEST * bar:
        raise SongError(f"more than {LONGEST} bars are not written")
    write_bars(part, pieces_of(notes, bar, end), song, meter, bar)
    ElementTree.indent(root)
    text = ElementTree.tostring(root, encoding="unicode")
    return f'<?xml version="1.0" encoding="UTF-8"?>\n{DOCTYPE}\n{text}\n'.encode("utf-8")


def legal(text: str) -> str:
    return SIGNS_THAT_XML_HAS.sub("\ufffd", text)


def one_by_one(notes: List[Note], song: Song) -> List[Note]:
    """A voice of a score sings one note at a time."""
    found: List[Note] = []
    for note in sorted(notes, key=lambda note: (note.pos, -note.number)):
        if found and found[-1].pos == note.pos:
            song.lose("notes below the highest of a chord are left out")
            continue
        if found and found[-1].end > note.pos:
            song.lose("notes that overlap the next one end where it begins")
            found[-1] = dataclasses.replace(found[-1], duration=note.pos - found[-1].pos)
        found.append(note)
    return found


def lose_lanes(song: Song) -> None:
    for kind, lane in song.lines[0].lanes.items():
        if kind != ControllerType.DYNAMICS:
            song.lose(f"events of the {kind.name.lower()}, which MusicXML does not have", len(lane))


def pieces_of(notes: List[Note], bar: int, end: int) -> List[List[Piece]]:
    """The pieces in each bar, with rests."""
    bars: List[List[Piece]] = [[] for _ in range(max(1, -(-end // bar)))]
    at = 0
    for note in notes:
        spread(bars, bar, at, note.pos, None)
        spread(bars, bar, note.pos, note.end, note)
        at = note.end
    spread(bars, bar, at, len(bars) * bar, None)
    return bars


def spread(bars: List[List[Piece]], bar: int, begin: int, end: int, note: Optional[Note]) -> None:
    at = begin
    while at < end:
        stop = min(end, (at // bar + 1) * bar)
        bars[at // bar].append(Piece(stop - at, note, at == begin, stop == end))
        at = stop


def write_bars(part: Element, bars: List[List[Piece]], song: Song, meter: Tuple[int, int], bar: int) -> None:
    """The last bar is only as long as the song: rests to fill it would be silence that the clip
    does not have."""
    loudness = song.lines[0].lanes.get(ControllerType.DYNAMICS, [])
    end = max([song.end, *(note.end for note in song.lines[0].notes)])
    song.lose("events of the dynamics after the end", sum(at >= end for at, _ in loudness))
    for number, pieces in enumerate(bars, 1):
        measure = SubElement(part, "measure", number=str(number))
        begin = (number - 1) * bar
        if number == 1:
            write_attributes(measure, song, meter)
            write_tempo(measure, song)
        marks = [(at - begin, value) for at, value in loudness if begin <= at < begin + bar]
        if number == len(bars):
            pieces = shortened(pieces, max(1, song.end - begin))
        write_measure(measure, pieces, marks, song)


def shortened(pieces: List[Piece], length: int) -> List[Piece]:
    found, at = [], 0
    for piece in pieces:
        if piece.note is None:
            piece = dataclasses.replace(piece, ticks=min(piece.ticks, length - at))
        if piece.ticks > 0:
            found.append(piece)
        at += piece.ticks
    return found


def write_attributes(measure: Element, song: Song, meter: Tuple[int, int]) -> None:
    attributes = SubElement(measure, "attributes")
    SubElement(attributes, "divisions").text = str(TICKS)
    for _, fifths, is_minor in song.keys[:1]:
        key = SubElement(attributes, "key")
        SubElement(key, "fifths").text = str(fifths)
        SubElement(key, "mode").text = "minor" if is_minor else "major"
    time = SubElement(attributes, "time")
    SubElement(time, "beats").text, SubElement(time, "beat-type").text = map(str, meter)
    clef = SubElement(attributes, "clef")
    SubElement(clef, "sign").text, SubElement(clef, "line").text = "G", "2"


def write_tempo(measure: Element, song: Song) -> None:
    for _, tempo in song.tempos[:1]:
        direction = SubElement(measure, "direction", placement="above")
        metronome = SubElement(SubElement(direction, "direction-type"), "metronome")
        SubElement(metronome, "beat-unit").text = "quarter"
        SubElement(metronome, "per-minute").text = f"{tempo:g}"
        SubElement(direction, "sound", tempo=f"{tempo:.2f}")


def write_measure(measure: Element, pieces: List[Piece], marks: List[Tuple[int, int]],
                  song: Song) -> None:
    """Loudness is written next to a note, with an offset to its time."""
    at = 0
    for piece in pieces:
        while marks and marks[0][0] < at + piece.ticks:
            write_loudness(measure, marks.pop(0), at)
        for place, (ticks, value) in enumerate(values := list(values_of(piece.ticks))):
            first, last = place == 0, place == len(values) - 1
            write_value(measure, piece, ticks, value, (first, last), song)
        at += piece.ticks


def write_loudness(measure: Element, mark: Tuple[int, int], at: int) -> None:
    direction = SubElement(measure, "direction")
    SubElement(SubElement(direction, "direction-type"), "words")
    if mark[0] != at:
        SubElement(direction, "offset", sound="yes").text = str(mark[0] - at)
    SubElement(direction, "sound", dynamics=f"{mark[1] / PERCENT:.2f}")


def values_of(ticks: int) -> "Iterator[Tuple[int, Optional[Tuple[str, int, bool]]]]":
    """The note values that add up to a length; a remainder that no value fits gets no sign."""
    if ticks in TRIPLETS:
        yield ticks, TRIPLETS[ticks]
        return
    for value in sorted(VALUES, reverse=True):
        while value <= ticks:
            yield value, VALUES[value]
            ticks -= value
    if ticks:
        yield ticks, None


def write_value(measure: Element, piece: Piece, ticks: int, value: Optional[Tuple[str, int, bool]],
                place: Tuple[bool, bool], song: Song) -> None:
    element = SubElement(measure, "note")
    note = piece.note
    stops = note is not None and not (piece.begins and place[0])
    starts = note is not None and not (piece.ends and place[1])
    if note is None:
        SubElement(element, "rest")
    else:
        element.set("dynamics", f"{note.velocity / PERCENT:.2f}")
        write_pitch(element, note.number, song)
    SubElement(element, "duration").text = str(ticks)
    for kind, is_so in (("stop", stops), ("start", starts)):
        if is_so:
            SubElement(element, "tie", type=kind)
    SubElement(element, "voice").text = "1"
    write_type(element, value)
    write_ties(element, stops, starts)
    if note is not None and not stops:
        write_lyric(element, note)


def write_pitch(element: Element, number: int, song: Song) -> None:
    flats = bool(song.keys) and song.keys[0][1] < 0
    step, alter = (FLAT if flats else SHARP)[number % 12]
    pitch = SubElement(element, "pitch")
    SubElement(pitch, "step").text = step
    if alter:
        SubElement(pitch, "alter").text = str(alter)
    SubElement(pitch, "octave").text = str(number // 12 - 1)


def write_type(element: Element, value: Optional[Tuple[str, int, bool]]) -> None:
    if value is None:
        return
    name, dots, is_triplet = value
    SubElement(element, "type").text = name
    for _ in range(dots):
        SubElement(element, "dot")
    if is_triplet:
        change = SubElement(element, "time-modification")
        SubElement(change, "actual-notes").text, SubElement(change, "normal-notes").text = "3", "2"


def write_ties(element: Element, stops: bool, starts: bool) -> None:
    if stops or starts:
        notations = SubElement(element, "notations")
        for kind, is_so in (("stop", stops), ("start", starts)):
            if is_so:
                SubElement(notations, "tied", type=kind)


def write_lyric(element: Element, note: Note) -> None:
    """A note that continues a syllable has no lyric: the extender line of that syllable shows it."""
    lyric = note.lyric(1)
    if lyric is None:
        return
    entry = SubElement(element, "lyric", number="1")
    SubElement(entry, "syllabic").text = "single"
    SubElement(entry, "text").text = legal(lyric.text)
    if lyric.extended:
        SubElement(entry, "extend")


def with_extenders(notes: List[Note]) -> List[Note]:
    """Marks the syllables that continue, and removes the sign for it from the notes on which they
    do."""
    found: List[Note] = []
    sung: Optional[Lyric] = None
    for note in notes:
        lyric = note.lyric(1)
        if lyric is not None and lyric.text == EXTENDED and sung is not None:
            sung.extended = True
            found.append(dataclasses.replace(note, lyrics={}))
            continue
        sung = dataclasses.replace(lyric) if lyric else None
        found.append(dataclasses.replace(note, lyrics={1: sung} if sung else {}))
    return found
