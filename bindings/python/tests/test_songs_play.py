"""Checks frequency and loudness of what `plxsong play` writes."""

import array
import math
import wave

import pytest

import korvel_plx as plx
from korvel_plx.songs import SongError
from korvel_plx.songs.play import play

CONTROLLERS = plx.ControllerType
SEMITONE = 2 ** (1 / 12)


class Heard:
    """A wave file between two places, in seconds."""

    def __init__(self, file):
        with wave.open(str(file)) as wav:
            assert (wav.getnchannels(), wav.getsampwidth()) == (1, 2)
            self.rate = wav.getframerate()
            self.samples = array.array("h", wav.readframes(wav.getnframes()))
        self.seconds = len(self.samples) / self.rate

    def between(self, begin, end):
        return self.samples[int(begin * self.rate):int(end * self.rate)]

    def loudness(self, begin, end):
        piece = self.between(begin, end)
        return math.sqrt(sum(value * value for value in piece) / len(piece))

    def rises(self, begin, end):
        """The places where the wave rises through zero, once in each cycle of the tone."""
        piece = self.between(begin, end)
        return [place + low / (low - high) for place, (low, high) in enumerate(zip(piece, piece[1:]))
                if low < 0 <= high]

    def frequency(self, begin, end):
        rises = self.rises(begin, end)
        return (len(rises) - 1) * self.rate / (rises[-1] - rises[0])

    def frequencies(self, begin, end):
        """The frequency of each cycle."""
        rises = self.rises(begin, end)
        return [self.rate / (after - before) for before, after in zip(rises, rises[1:])]


def heard_of(library, folder, number=69, velocity=127, lanes=(), prepare=None):
    """Plays a note of a second after half a second of silence: 60 quarters a minute."""
    with library.create_mutable_clip() as clip:
        clip.part_tempo = 6000
        part = clip.create_midi_part()
        part.duration = 960
        note = part.insert_note(240, 480, "la", "l a", 1)
        note.number, note.velocity = number, velocity
        for kind, events in lanes:
            lane = part.add_midi_controller(kind)
            for pos, value in events:
                lane.insert_event(pos, value)
        if prepare:
            prepare(note)
        play(clip, str(folder / "tone.wav"))
    return Heard(folder / "tone.wav")


@pytest.mark.parametrize("number, frequency", [(69, 440.0), (60, 261.63), (81, 880.0)])
def test_a_note_is_heard_where_it_stands_and_as_high_as_it_is(library, tmp_path, number, frequency):
    heard = heard_of(library, tmp_path, number)
    assert heard.seconds == pytest.approx(2, abs=0.001)
    assert heard.loudness(0, 0.499) == 0 and heard.loudness(1.501, 2) == 0
    assert heard.frequency(0.52, 1.48) == pytest.approx(frequency, rel=0.001)


@pytest.mark.parametrize("lanes, semitones", [
    ([(CONTROLLERS.PITCH_BEND, [(480, 8191)])], 2),
    ([(CONTROLLERS.PITCH_BEND, [(480, -4096)])], -1),
    ([(CONTROLLERS.PITCH_BEND, [(480, -4096)]), (CONTROLLERS.PITCH_BEND_SENS, [(0, 12)])], -6),
    ([(CONTROLLERS.PITCH_BEND, [(480, 4096)]), (CONTROLLERS.PITCH_BEND_SENS, [(0, 0)])], 0),
])
def test_pitch_bend_and_its_range_are_heard(library, tmp_path, lanes, semitones):
    heard = heard_of(library, tmp_path, lanes=lanes)
    assert heard.frequency(0.52, 0.98) == pytest.approx(440, rel=0.001)
    assert heard.frequency(1.02, 1.48) == pytest.approx(440 * SEMITONE**semitones, rel=0.001)


def vibrato(depth, rate):
    def prepare(note):
        note.vibrato.duration = 240
        note.vibrato.insert_depth(0, depth)
        note.vibrato.insert_rate(0, rate)
    return prepare


def swings(frequencies):
    """How often the frequency rises through its middle."""
    return sum(low < 440 <= high for low, high in zip(frequencies, frequencies[1:]))


@pytest.mark.parametrize("depth, rate, semitones, number", [
    (127, 127, 1.0, 6), (64, 127, 0.5, 6), (127, 64, 1.0, 3), (0, 127, 0.0, 0)])
def test_vibrato_is_heard_at_the_end_of_the_note(library, tmp_path, depth, rate, semitones, number):
    """Twelve swings a second at most, each up and down by a semitone at most; half a second of them."""
    heard = heard_of(library, tmp_path, prepare=vibrato(depth, rate))
    for frequency in heard.frequencies(0.52, 0.98):
        assert frequency == pytest.approx(440, rel=0.002)
    found = heard.frequencies(1.0, 1.49)
    assert max(found) == pytest.approx(440 * SEMITONE**semitones, rel=0.006)
    assert min(found) == pytest.approx(440 / SEMITONE**semitones, rel=0.006)
    assert abs(swings(found) - number) <= 1 if number else max(found) - min(found) < 1


@pytest.mark.parametrize("loud, soft", [(127, 32), (100, 50), (64, 0)])
def test_dynamics_are_heard(library, tmp_path, loud, soft):
    heard = heard_of(library, tmp_path, lanes=[(CONTROLLERS.DYNAMICS, [(0, loud), (480, soft)])])
    first, second = heard.loudness(0.55, 0.95), heard.loudness(1.05, 1.45)
    assert first > 500 and second == pytest.approx(first * soft / loud, rel=0.02, abs=1)


def test_velocity_is_heard(library, tmp_path):
    found = [heard_of(library, tmp_path, velocity=velocity).loudness(0.55, 1.45) for velocity in (1, 64, 127)]
    assert found[0] * 1.5 < found[1] and found[1] * 1.2 < found[2]


def test_notes_together_are_heard_together_and_never_beyond_what_a_sample_holds(library, tmp_path):
    with library.create_mutable_clip() as clip:
        part = clip.create_midi_part()
        part.duration = 480
        for _ in range(20):
            note = part.insert_note(0, 480, "la", "l a", 1)
            note.number, note.velocity = 69, 127
        play(clip, str(tmp_path / "tone.wav"))
    heard = Heard(tmp_path / "tone.wav")
    assert max(heard.samples) == 32767 and min(heard.samples) == -32768
    assert heard.frequency(0.02, 0.48) == pytest.approx(440, rel=0.001)


def test_a_lane_is_read_once_however_many_notes_there_are(library, tmp_path, monkeypatch):
    from korvel_plx import _library
    asked, function = [], _library.load()["MidiEventBase_value"]
    monkeypatch.setitem(_library.load(), "MidiEventBase_value", lambda one: asked.append(one) or function(one))
    heard_of(library, tmp_path, lanes=[(CONTROLLERS.DYNAMICS, [(at, at) for at in range(100)])],
             prepare=lambda note: [note.parent.insert_note(at, 1, "a", "a", 1) for at in range(50)])
    assert len(asked) == 100


def test_what_is_too_long_is_not_played(library, tmp_path):
    with library.create_mutable_clip() as clip:
        clip.create_midi_part().insert_note(480 * 100_000, 480, "la", "l a", 1)
        with pytest.raises(SongError, match="50000 seconds are more than the 600"):
            play(clip, str(tmp_path / "tone.wav"))
    assert not (tmp_path / "tone.wav").exists()
