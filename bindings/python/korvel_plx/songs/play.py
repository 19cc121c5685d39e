"""A clip as a plain tone: to hear whether a melody is right."""

from __future__ import annotations

import array
import math
import sys
import wave
from typing import Any, Dict, List, Tuple

from ..constants import ControllerType, VibratoPointKind
from .model import TICKS, Lane, SongError

RATE = 16_000
LONGEST = 600  # seconds
FADE = RATE // 200
VOLUME = 12_000
CONCERT_PITCH, CONCERT_NUMBER = 440.0, 69
BEND_RANGE = 2  # semitones, when the clip does not say
STEP = 32  # samples for which pitch and loudness stay the same
# The values of a vibrato have no unit: here full depth is a semitone, full rate twelve cycles a
# second.
DEEPEST, FASTEST, USUAL_DEPTH, USUAL_RATE = 1.0, 12.0, 40, 60
PLAIN_TEMPO = 12_000


class Curve:
    """A lane or a curve of points, as steps."""

    def __init__(self, points: List[Tuple[int, int]], before: int) -> None:
        self.points, self.value, self.next = sorted(points), before, 0

    def at(self, tick: float) -> int:
        """Must be called in the order of time."""
        while self.next < len(self.points) and self.points[self.next][0] <= tick:
            self.value = self.points[self.next][1]
            self.next += 1
        return self.value


def play(clip: Any, file: str) -> float:
    """Writes a wave file of 16 bits; returns its length in seconds."""
    part = clip.midi_part
    if part is None:
        raise SongError("an audio clip has no notes to play")
    ticks_a_second = (clip.part_tempo or PLAIN_TEMPO) / 6000 * TICKS
    notes = [note for note in part.notes if note.pos >= 0]
    end = max([part.duration if part.duration / ticks_a_second <= LONGEST else 0,
               *(note.pos + note.duration for note in notes)])
    seconds = end / ticks_a_second
    if seconds > LONGEST:
        raise SongError(f"{seconds:.0f} seconds are more than the {LONGEST} that are played")
    samples = array.array("h", bytes(2 * int(seconds * RATE + 1)))
    lanes: Dict[ControllerType, Lane] = {lane.type: [(event.pos, event.value) for event in lane.events]
                                         for lane in part.midi_controllers}
    for note in notes:
        Tone(lanes, note, ticks_a_second).into(samples)
    write(samples, file)
    return len(samples) / RATE


class Tone:
    """One note: a sine with two harmonics, which fades in and out."""

    def __init__(self, lanes: Dict[ControllerType, Lane], note: Any, ticks_a_second: float) -> None:
        self.note, self.scale = note, ticks_a_second
        self.pos, self.duration, self.number = note.pos, note.duration, note.number
        self.bend = Curve(lanes.get(ControllerType.PITCH_BEND, []), 0)
        self.range = Curve(lanes.get(ControllerType.PITCH_BEND_SENS, []), BEND_RANGE)
        self.dynamics = Curve(lanes.get(ControllerType.DYNAMICS, []), 100)
        self.depths = self.curve(VibratoPointKind.DEPTH, USUAL_DEPTH)
        self.rates = self.curve(VibratoPointKind.RATE, USUAL_RATE)
        self.vibrato_begin = self.pos + self.duration - note.vibrato.duration
        self.swing = self.phase = 0.0

    def curve(self, kind: VibratoPointKind, usual: int) -> Curve:
        points = self.note.vibrato.depths if kind == VibratoPointKind.DEPTH else self.note.vibrato.rates
        return Curve([(point.pos, point.value) for point in points], usual)

    def pitch(self, tick: float) -> float:
        """In semitones; the vibrato is at the end of the note."""
        bent: float = self.number + self.bend.at(tick) / 8192 * self.range.at(tick)
        if tick < self.vibrato_begin:
            return bent
        place = tick - self.vibrato_begin
        self.swing += self.rates.at(place) / 127 * FASTEST * STEP / RATE
        return bent + math.sin(2 * math.pi * self.swing) * self.depths.at(place) / 127 * DEEPEST

    def into(self, samples: "array.array[int]") -> None:
        first = int(self.pos / self.scale * RATE)
        count = min(int(self.duration / self.scale * RATE), len(samples) - first)
        fade = max(1, min(FADE, count // 2))
        loud = 0.3 + 0.7 * self.note.velocity / 127
        for begin in range(0, count, STEP):
            tick = (first + begin) / RATE * self.scale
            turn = 2 * math.pi * CONCERT_PITCH * 2 ** ((self.pitch(tick) - CONCERT_NUMBER) / 12) / RATE
            height = VOLUME * loud * self.dynamics.at(tick) / 127
            for place in range(begin, min(begin + STEP, count)):
                self.phase += turn
                edge = min(1.0, place / fade, (count - 1 - place) / fade)
                value = math.sin(self.phase) + 0.3 * math.sin(2 * self.phase) + 0.1 * math.sin(3 * self.phase)
                whole = samples[first + place] + int(height * edge * value)
                samples[first + place] = max(-32768, min(32767, whole))


def write(samples: "array.array[int]", file: str) -> None:
    if sys.byteorder == "big":
        samples.byteswap()
    with wave.open(file, "wb") as target:
        target.setnchannels(1)
        target.setsampwidth(2)
        target.setframerate(RATE)
        target.writeframes(samples.tobytes())
