"""Damaged files: an error that says what is wrong, and never more time or memory than a file is worth."""

import io
import random
import resource
import time
import zipfile

import pytest

from conftest import EFFORT
from korvel_plx.songs import SongError
from korvel_plx.songs.clips import Options, plan_of
from korvel_plx.songs.midi import read_midi
from korvel_plx.songs.musicxml import read_musicxml
from test_songs_musicxml import PLAYED, archive
from writing import ATTRIBUTES, control, lyric, meta, midi, note, off, on, rest, score, sung, tempo, track

MUTATIONS = 40 * EFFORT
SECONDS = 5
MEGABYTES = 512


def song_midi():
    events = [(0, meta(3, b"Song")), (0, tempo(100)), (0, meta(0x58, b"\x04\x02\x18\x08")),
              (0, meta(0x59, b"\0\0")), (0, b"\xf0\x05\x41\x10\x42\x12\xf7")]
    for number in range(60, 72):
        events += [(0, lyric(b"la")), (0, control(11, number)), (0, on(number)), (240, off(number))]
    return midi(track(*events[:5]), track(*events))


def song_xml():
    measures = [inside for measures, _ in PLAYED.values() for inside in measures]
    extra = (ATTRIBUTES + note("F#", inside=sung("a") + sung("b", 2)) + note("G", before="<chord/>")
             + rest() + "<backup><duration>1</duration></backup><forward><duration>1</duration></forward>")
    return score([extra, *measures], [ATTRIBUTES + rest(4)] * 5)


def with_other_numbers(data, dice):
    """What stays well-formed, and means something else."""
    changed = bytearray(data)
    digits = [at for at, sign in enumerate(data) if 0x30 <= sign <= 0x39]
    for at in dice.sample(digits, dice.choice([1, 2, 5, 40])):
        changed[at] = dice.choice(b"0123456789-")
    return bytes(changed)


def mutated(data, dice):
    """Bytes changed, lost, doubled, moved; the end cut."""
    if data.startswith(b"<") and dice.random() < 0.5:
        return with_other_numbers(data, dice)
    changed = bytearray(data)
    for _ in range(dice.choice([1, 1, 2, 5, 30])):
        at, length = dice.randrange(len(changed) or 1), dice.randint(1, 40)
        kind = dice.randrange(6)
        if kind == 0:
            changed[at:at + 1] = bytes([dice.randrange(256)])
        elif kind == 1:
            changed[at:at + 1] = bytes([dice.choice([0, 1, 0x7F, 0x80, 0xFF, 0x3C, 0x3E, 0x22, 0x26])])
        elif kind == 2:
            del changed[at:at + length]
        elif kind == 3:
            changed[at:at] = changed[at:at + length] * dice.choice([1, 1, 100])
        elif kind == 4:
            changed[at:at] = bytes(dice.randrange(256) for _ in range(length))
        else:
            del changed[dice.randrange(len(changed) or 1):]
    return bytes(changed)


@pytest.fixture
def little_memory():
    """What is asked for beyond is a MemoryError, which fails the test."""
    before = resource.getrlimit(resource.RLIMIT_AS)
    used = int(open("/proc/self/statm", encoding="ascii").read().split()[0]) * resource.getpagesize()
    resource.setrlimit(resource.RLIMIT_AS, (used + MEGABYTES * 2**20, before[1]))
    yield
    resource.setrlimit(resource.RLIMIT_AS, before)


def read(reader, data):
    """Whether the file was taken; anything but a song or a SongError is a failure."""
    begin = time.process_time()
    try:
        made = plan_of(reader(data), Options(), "x")
        assert made.notes
        return True
    except SongError as problem:
        assert str(problem)
        return False
    finally:
        assert time.process_time() - begin < SECONDS


@pytest.mark.parametrize("reader, data", [(read_midi, song_midi()), (read_musicxml, song_xml()),
                                          (read_musicxml, archive(song_xml()))],
                         ids=["midi", "musicxml", "mxl"])
def test_mutations(reader, data, little_memory):
    assert read(reader, data)
    taken = sum(read(reader, mutated(data, random.Random(seed))) for seed in range(MUTATIONS))
    assert taken < MUTATIONS and (taken > 0 or not data.startswith((b"MThd", b"<")))


@pytest.mark.parametrize("reader, data", [(read_midi, song_midi()), (read_musicxml, song_xml())],
                         ids=["midi", "musicxml"])
def test_cut_files(reader, data, little_memory):
    for at in range(0, len(data), max(1, len(data) // (20 * EFFORT))):
        read(reader, data[:at])


def bomb(size, depth):
    """An archive whose document is far larger than it, in another one."""
    target = io.BytesIO()
    with zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED) as file:
        with file.open("song.xml", "w", force_zip64=True) as member:
            for _ in range(size):
                member.write(b" " * 2**20)
    return archive(target.getvalue()) if depth else target.getvalue()


LARGE = {
    "a million tracks": (read_midi, lambda: b"MThd" + bytes.fromhex("00000006000100000060")[:6] + b"\xff\xff\0\x60"
                         + track() * 1_000_000),
    "tracks without end": (read_midi, lambda: midi(*[track()] * 1024)),
    "four megabytes of notes": (read_midi, lambda: midi(track(*[(0, on(60)), (1, off(60))] * 40_000))),
    "notes that are never switched off": (read_midi, lambda: midi(track(*[(0, on(60))] * 50_000))),
    "a message of megabytes": (read_midi, lambda: midi(track((0, meta(1, b"x" * 4_000_000))))),
    "a system message of megabytes": (read_midi, lambda: midi(track((0, b"\xf0\xff\xff\x7f" + b"x" * 2_097_151)))),
    "a zip bomb": (read_musicxml, lambda: bomb(200, 0)),
    "a zip bomb in an archive": (read_musicxml, lambda: bomb(200, 1)),
    "a million parts": (read_musicxml, lambda: b"<score-partwise>" + b"<part><measure/></part>" * 1_000_000),
    "many parts and many measures": (read_musicxml, lambda: score(*[[""]] * 5000, [""] * 50_000)),
    "an attribute of megabytes": (read_musicxml, lambda: b'<a b="' + b"x" * 20_000_000 + b'"/>'),
    "a text of megabytes": (read_musicxml, lambda: score([ATTRIBUTES + note("C", inside=sung("x" * 5_000_000))])),
    "entities": (read_musicxml, lambda: score([""], head="<!DOCTYPE x [" + "".join(
        f'<!ENTITY e{at} "{f"&e{at - 1};" * 10}">' for at in range(1, 30)) + "]>")),
}


@pytest.mark.parametrize("name", LARGE)
def test_large_files(name, little_memory):
    reader, make = LARGE[name]
    read(reader, make())
