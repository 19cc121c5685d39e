"""Reads Standard MIDI Files of formats 0 and 1. mido reads the messages of a track; the structure
of the file is checked first, so that a damaged file is refused with the place of its damage."""

from __future__ import annotations

import collections
import importlib
import io
import struct
from typing import Any, Deque, Dict, Iterator, List, Optional, Set, Tuple

from ..constants import ControllerType
from .model import LAST_TICK, TICKS, Lane, Line, Lyric, Note, Song, SongError, scaled

LARGEST_FILE = 2**20
MOST_TRACKS = 256
ENCODINGS = ("utf-8", "cp932", "cp1252", "latin-1")
# The controllers of MIDI for each lane; the first one in a track counts.
CONTROLLERS = {11: ControllerType.DYNAMICS, 7: ControllerType.DYNAMICS, 5: ControllerType.PORTAMENTO,
               2: ControllerType.BREATHINESS, 74: ControllerType.BRIGHTNESS}
DAMAGES = {EOFError: "it ends within a message", IndexError: "a message is too short"}
DATA_ENTRY, PARAMETER_LOW, PARAMETER_HIGH = 6, 100, 101
MAJOR = {"Cb": -7, "Gb": -6, "Db": -5, "Ab": -4, "Eb": -3, "Bb": -2, "F": -1, "C": 0, "G": 1, "D": 2,
         "A": 3, "E": 4, "B": 5, "F#": 6, "C#": 7}
MINOR = {"Abm": -7, "Ebm": -6, "Bbm": -5, "Fm": -4, "Cm": -3, "Gm": -2, "Dm": -1, "Am": 0, "Em": 1,
         "Bm": 2, "F#m": 3, "C#m": 4, "G#m": 5, "D#m": 6, "A#m": 7}


def mido() -> Any:
    """Imported by name: it has no types, and the error that mypy reports for that depends on mypy's
    version."""
    try:
        return importlib.import_module("mido")
    except ImportError as problem:
        raise SongError("MIDI files take the module mido (Debian: python3-mido)") from problem


def read_midi(data: bytes) -> Song:
    """The song in a file's content."""
    if len(data) > LARGEST_FILE:
        raise SongError(f"the file is larger than {LARGEST_FILE} bytes")
    kind, unit, chunks = chunks_of(data)
    song = Song("midi")
    unit = quarter(unit, song)
    if kind == 2:
        raise SongError("the file is of format 2, a collection of patterns; formats 0 and 1 are read")
    tracks = [Track(number, place, content, unit, song)
              for number, (place, content) in enumerate(chunks, 1)]
    gather(song, tracks)
    return song


def chunks_of(data: bytes) -> Tuple[int, int, List[Tuple[int, bytes]]]:
    """Format, time division, and the tracks, each with its place in the file."""
    begin = 20 if data[:4] == b"RIFF" and data[8:12] == b"RMID" else 0
    if data[begin:begin + 4] != b"MThd":
        raise SongError(f"no MIDI file: there is no MThd at byte {begin}")
    if len(data) < begin + 14:
        raise SongError(f"the header is cut at byte {len(data)}")
    length, kind, count, unit = struct.unpack(">IHHh", data[begin + 4:begin + 14])
    if length < 6 or kind > 2 or unit == 0:
        raise SongError(f"the header at byte {begin + 4} is damaged: length {length}, format {kind}, unit {unit}")
    if count > MOST_TRACKS:
        raise SongError(f"the header says {count} tracks; more than {MOST_TRACKS} are not read")
    return kind, unit, list(tracks_of(data, begin + 8 + length, count))


def tracks_of(data: bytes, at: int, count: int) -> Iterator[Tuple[int, bytes]]:
    found = 0
    while found < count:
        name, length = data[at:at + 4], data[at + 4:at + 8]
        if len(length) < 4:
            raise SongError(f"the file ends at byte {len(data)}, before track {found + 1} of {count}")
        size = struct.unpack(">I", length)[0]
        if at + 8 + size > len(data):
            raise SongError(f"track {found + 1}, at byte {at}, is cut: {size} bytes said, "
                            f"{len(data) - at - 8} there")
        if name == b"MTrk":
            found += 1
            yield at, data[at + 8:at + 8 + size]
        at += 8 + size


def quarter(unit: int, song: Song) -> int:
    """Units to the quarter note. A file with times in seconds is read at 120 beats a minute."""
    if unit > 0:
        return unit
    frames, parts = -(unit >> 8), unit & 0xFF
    if frames == 0 or parts == 0:
        raise SongError(f"the time division at byte 12 is damaged: {unit}")
    song.lose("the file counts in seconds: its beats are those of 120 a minute")
    return max(1, frames * parts // 2)


class Track:
    """The content of one track, by kind."""

    def __init__(self, number: int, place: int, content: bytes, unit: int, song: Song) -> None:
        self.number, self.place, self.unit, self.song = number, place, unit, song
        self.name = b""
        self.lyrics: List[Tuple[int, bytes]] = []
        self.texts: List[Tuple[int, bytes]] = []
        self.notes: Dict[int, List[Note]] = {}
        self.controls: Dict[int, Dict[int, Lane]] = {}
        self.bends: Dict[int, Lane] = {}
        self.ranges: Dict[int, Lane] = {}
        self.end = 0
        self.open: Dict[Tuple[int, int], Deque[Tuple[int, int]]] = collections.defaultdict(collections.deque)
        self.chosen: Dict[int, Tuple[int, int]] = {}
        self.rounded = 0
        self.read(content)

    def messages(self, content: bytes) -> List[Any]:
        """mido only reads whole files, so the track is wrapped in a file of its own."""
        header = struct.pack(">4sIHHH4sI", b"MThd", 6, 0, 1, TICKS, b"MTrk", len(content))
        reader, file = mido().MidiFile, io.BytesIO(header + content)
        try:
            tracks = reader(file=file, charset="latin-1", clip=True).tracks
        except Exception as problem:  # mido raises unrelated exceptions for damaged tracks
            damaged = self.place + 8 + file.tell() - len(header)
            raise SongError(f"track {self.number}, at byte {self.place}, is damaged before byte {damaged}: "
                            f"{DAMAGES.get(type(problem)) or problem}") from problem
        return list(tracks[0]) if tracks else []

    def read(self, content: bytes) -> None:
        at = 0
        for message in self.messages(content):
            at += message.time
            if scaled(at, self.unit) > LAST_TICK:
                raise SongError(f"track {self.number}, at byte {self.place}, reaches beyond tick {LAST_TICK}")
            self.take(message, self.tick(at))
        self.end = self.tick(at)
        left = sum(map(len, self.open.values()))
        for (channel, number), begun in self.open.items():
            for pos, velocity in begun:
                self.add_note(channel, number, pos, self.end, velocity)
        self.song.lose("notes that are never switched off end with their track", left)
        self.song.lose("times that do not fall on a tick of 480 to the quarter are rounded", self.rounded)

    def tick(self, at: int) -> int:
        self.rounded += at * TICKS % self.unit != 0
        return scaled(at, self.unit)

    def take(self, message: Any, at: int) -> None:
        taker = getattr(self, f"take_{message.type}", None)
        if taker:
            taker(message, at)

    def take_note_on(self, message: Any, at: int) -> None:
        if message.velocity == 0:
            self.take_note_off(message, at)
        else:
            self.open[message.channel, message.note].append((at, message.velocity))

    def take_note_off(self, message: Any, at: int) -> None:
        begun = self.open.get((message.channel, message.note))
        if begun:
            pos, velocity = begun.popleft()
            self.add_note(message.channel, message.note, pos, at, velocity)

    def add_note(self, channel: int, number: int, pos: int, end: int, velocity: int) -> None:
        if end == pos:
            self.song.lose("notes without length are left out")
            return
        self.notes.setdefault(channel, []).append(Note(pos, end - pos, number, velocity))

    def take_control_change(self, message: Any, at: int) -> None:
        channel, control, value = message.channel, message.control, message.value
        if control in (PARAMETER_LOW, PARAMETER_HIGH):
            low, high = self.chosen.get(channel, (127, 127))
            self.chosen[channel] = (value, high) if control == PARAMETER_LOW else (low, value)
        elif control == DATA_ENTRY and self.chosen.get(channel) == (0, 0):
            self.ranges.setdefault(channel, []).append((at, min(value, 24)))
        elif control in CONTROLLERS:
            self.controls.setdefault(channel, {}).setdefault(control, []).append((at, value))

    def take_pitchwheel(self, message: Any, at: int) -> None:
        self.bends.setdefault(message.channel, []).append((at, message.pitch))

    def take_lyrics(self, message: Any, at: int) -> None:
        self.lyrics.append((at, message.text.encode("latin-1")))

    def take_text(self, message: Any, at: int) -> None:
        self.texts.append((at, message.text.encode("latin-1")))

    def take_track_name(self, message: Any, _: int) -> None:
        self.name = self.name or message.name.encode("latin-1")

    def take_set_tempo(self, message: Any, at: int) -> None:
        self.song.tempos.append((at, 60_000_000 / max(1, message.tempo)))

    def take_time_signature(self, message: Any, at: int) -> None:
        self.song.meters.append((at, message.numerator, message.denominator))

    def take_key_signature(self, message: Any, at: int) -> None:
        is_minor = message.key in MINOR
        self.song.keys.append((at, (MINOR if is_minor else MAJOR)[message.key], is_minor))

    def lanes(self, channel: int) -> Dict[ControllerType, Lane]:
        found: Dict[ControllerType, Lane] = {}
        controls = self.controls.get(channel, {})
        for control, kind in CONTROLLERS.items():
            if control in controls:
                if kind in found:
                    self.song.lose(f"events of controller {control}, beside another for the {kind.name.lower()}",
                                   len(controls[control]))
                found.setdefault(kind, controls[control])
        if channel in self.bends:
            found[ControllerType.PITCH_BEND] = self.bends[channel]
        if channel in self.ranges:
            found[ControllerType.PITCH_BEND_SENS] = self.ranges[channel]
        return found


def gather(song: Song, tracks: List[Track]) -> None:
    """The lines of the tracks, and the syllables with the line to which they belong."""
    song.tempos.sort()
    song.keys.sort()
    song.meters.sort()
    song.encoding = guess_encoding(tracks)
    song.end = max((track.end for track in tracks), default=0)
    song.name = decoded(next((track.name for track in tracks if track.name), b""), song.encoding)
    for track in tracks:
        for channel in sorted(track.notes):
            name = decoded(track.name, song.encoding)
            song.lines.append(Line(str(track.number), name, str(channel + 1),
                                   sorted(track.notes[channel], key=lambda note: note.pos),
                                   track.lanes(channel)))
    places = [(line, {note.pos for note in line.notes}) for line in song.lines]
    for track in tracks:
        give_lyrics(song, track, syllables_of(track, song), places)


def guess_encoding(tracks: List[Track]) -> str:
    """The first encoding in which all texts of the file can be read."""
    texts = b"\n".join(text for track in tracks
                       for _, text in [*track.lyrics, *track.texts, (0, track.name)])
    return next(name for name in ENCODINGS if can_be(texts, name))


def can_be(text: bytes, encoding: str) -> bool:
    """Nearly all bytes can be read as Japanese; a text without kana is not Japanese."""
    try:
        found = text.decode(encoding)
    except UnicodeDecodeError:
        return False
    return encoding != "cp932" or any("\u3040" <= sign <= "\u30ff" for sign in found)


def decoded(text: bytes, encoding: str) -> str:
    return "".join(sign for sign in text.decode(encoding) if sign.isprintable() or sign in "\r\n").strip("\r\n")


def syllables_of(track: Track, song: Song) -> List[Tuple[int, str]]:
    """The lyric events or, if there are none, the texts of a karaoke file."""
    is_karaoke = any(text.startswith(b"@") for _, text in track.texts)
    if track.lyrics:
        found = [(at, decoded(text, song.encoding)) for at, text in track.lyrics]
    elif is_karaoke or len(track.texts) > 8:
        found = [(at, decoded(text, song.encoding).lstrip("/\\")) for at, text in track.texts
                 if not text.startswith((b"@", b"%"))]
    else:
        return []
    return [(at, clean(text)) for at, text in found if clean(text)]


def clean(text: str) -> str:
    """Removes blanks and line ends around it, and the hyphen before the next syllable."""
    text = text.strip()
    return text.rstrip("-").rstrip() if len(text) > 1 else text


def give_lyrics(song: Song, track: Track, found: List[Tuple[int, str]],
                places: List[Tuple[Line, Set[int]]]) -> None:
    """Assigns the syllables to the line with notes at most of their positions; of several such
    lines, to that of their own track."""
    if not found:
        return
    wanted = {at for at, _ in found}
    line, begins = max(places, key=lambda one: (len(one[1] & wanted), one[0].part == str(track.number)),
                       default=(Line("", "", ""), set()))
    if not begins & wanted:
        song.lose("syllables that stand at no note", len(found))
        return
    notes = {note.pos: note for note in sorted(line.notes, key=lambda note: note.number)}
    left = 0
    for at, text in found:
        note: Optional[Note] = notes.get(at)
        if note is None or 1 in note.lyrics:
            left += 1
        else:
            note.lyrics[1] = Lyric(text)
    song.lose("syllables that stand at no note, or where another one is", left)
