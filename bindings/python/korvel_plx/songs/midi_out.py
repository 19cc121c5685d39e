"""Writes Standard MIDI Files of format 1: a track for tempo and key, and one for the melody."""

from __future__ import annotations

import io
from typing import Any, List, Tuple

from ..constants import ControllerType
from .midi import MAJOR, MINOR, mido
from .model import TICKS, Line, Song, SongError

CONTROLS = {ControllerType.DYNAMICS: 11, ControllerType.PORTAMENTO: 5, ControllerType.BREATHINESS: 2,
            ControllerType.BRIGHTNESS: 74}
LONGEST_WAIT = 2**28 - 1
# The order of events at the same tick.
OFF, LYRIC, CONTROL, ON = range(4)
Events = List[Tuple[int, int, Any]]


def write_midi(song: Song, meter: Tuple[int, int]) -> bytes:
    module = mido()
    file = module.MidiFile(type=1, ticks_per_beat=TICKS, charset="utf-8")
    file.tracks.append(track(module, conductor(module, song, meter), 0))
    for line in song.lines:
        file.tracks.append(track(module, melody_events(module, line, song), song.end))
    target = io.BytesIO()
    try:
        file.save(file=target)
    except UnicodeEncodeError as problem:
        raise SongError(f"a text cannot be written: {problem.reason}") from problem
    return target.getvalue()


def track(module: Any, events: Events, end: int) -> Any:
    """Converts positions to delta times."""
    made, now = module.MidiTrack(), 0
    for at, _, message in sorted(events, key=lambda event: event[:2]):
        made.append(message.copy(time=waiting(at - now)))
        now = at
    made.append(module.MetaMessage("end_of_track", time=waiting(max(0, end - now))))
    return made


def waiting(ticks: int) -> int:
    if ticks > LONGEST_WAIT:
        raise SongError(f"MIDI cannot wait for {ticks} ticks")
    return ticks


def conductor(module: Any, song: Song, meter: Tuple[int, int]) -> Events:
    events: Events = [(0, OFF, module.MetaMessage("track_name", name=song.name)),
                      (0, OFF, module.MetaMessage("time_signature", numerator=meter[0],
                                                  denominator=meter[1]))]
    for at, tempo in song.tempos:
        events.append((at, OFF, module.MetaMessage("set_tempo", tempo=round(60_000_000 / tempo))))
    for at, fifths, is_minor in song.keys:
        names = {value: name for name, value in (MINOR if is_minor else MAJOR).items()}
        events.append((at, OFF, module.MetaMessage("key_signature", key=names[fifths])))
    return events


def melody_events(module: Any, line: Line, song: Song) -> Events:
    events: Events = []
    for note in line.notes:
        lyric = note.lyric(1)
        if lyric:
            events.append((note.pos, LYRIC, module.MetaMessage("lyrics", text=lyric.text)))
        # A velocity of 0 would end the note.
        song.lose("velocities of 0, which become 1", note.velocity == 0)
        events.append((note.pos, ON, module.Message("note_on", note=note.number,
                                                    velocity=max(1, note.velocity))))
        events.append((note.end, OFF, module.Message("note_off", note=note.number, velocity=0)))
    for kind, lane in line.lanes.items():
        for at, value in lane:
            messages = control_messages(module, kind, value)
            song.lose(f"events of the {kind.name.lower()}, for which MIDI has no controller", not messages)
            events += [(at, CONTROL, message) for message in messages]
    return events


def control_messages(module: Any, kind: ControllerType, value: int) -> List[Any]:
    if kind == ControllerType.PITCH_BEND:
        return [module.Message("pitchwheel", pitch=value)]
    if kind == ControllerType.PITCH_BEND_SENS:
        pairs = [(101, 0), (100, 0), (6, value), (38, 0)]
    elif kind in CONTROLS:
        pairs = [(CONTROLS[kind], value)]
    else:
        return []
    return [module.Message("control_change", control=control, value=what) for control, what in pairs]
