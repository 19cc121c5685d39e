"""Damaged files must give an error that says what is wrong, and never take too much time or memory."""

import io
import random
import re
import resource
import struct
import time
import zipfile

import pytest

from conftest import EFFORT
from korvel_plx.songs import SongError
from korvel_plx.songs.clips import Options, plan_of
from korvel_plx.songs.midi import read_midi
from korvel_plx.songs.musicxml import read_musicxml
from test_songs_musicxml import PLAYED, archive
from writing import ATTRIBUTES, barline, control, lyric, meta, midi, note, off, on, rest, score, sung, tempo, track

MUTATIONS = 40 * EFFORT
PART = 8 if EFFORT == 1 else 1  # of the largest files
SECONDS = 5
MEGABYTES = 512
# The place: a byte, a track, a line and column, a part and measure; or the file as a whole.
PLACES = re.compile(r"at byte \d|before byte \d|the header says|line \d+, column \d|part [^,]*, measure .*: .|"
                    r"the archive|no notes|reaches beyond tick|the score has no measures|the document is a|"
                    r"more than \d+ notes|the file is larger|is timewise")


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
    """Changes numbers: the file stays well-formed, but means something else."""
    changed = bytearray(data)
    digits = [at for at, sign in enumerate(data) if 0x30 <= sign <= 0x39]
    for at in dice.sample(digits, dice.choice([1, 2, 5, 40])):
        changed[at] = dice.choice(b"0123456789-")
    return bytes(changed)


def mutated(data, dice):
    """Changes, removes, doubles and moves bytes; cuts off the end."""
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
    """Allocating more is a MemoryError, which fails the test."""
    before = resource.getrlimit(resource.RLIMIT_AS)
    used = int(open("/proc/self/statm", encoding="ascii").read().split()[0]) * resource.getpagesize()
    resource.setrlimit(resource.RLIMIT_AS, (used + MEGABYTES * 2**20, before[1]))
    yield
    resource.setrlimit(resource.RLIMIT_AS, before)


def read(reader, data):
    """Whether the file was accepted; anything but a song or a SongError is a failure."""
    begin = time.process_time()
    try:
        made = plan_of(reader(data), Options(), "x")
        assert made.notes
        return True
    except SongError as problem:
        assert PLACES.search(str(problem)), problem
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
    """An archive with a document that is far larger than the archive."""
    target = io.BytesIO()
    with zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED) as file:
        with file.open("song.xml", "w", force_zip64=True) as member:
            for _ in range(size):
                member.write(b" " * 2**20)
    return archive(target.getvalue()) if depth else target.getvalue()


def track_of(content):
    return b"MTrk" + struct.pack(">I", len(content) + 4) + content + b"\0\xff\x2f\0"


def notes_of(count):
    """With a running status: three bytes for each event."""
    return midi(track_of(b"\0\x90\x3c\x40" + b"\1\x3c\0\1\x3c\x40" * count))


def stacked_notes(count):
    return midi(track_of(b"\0\x90\x3c\x40" + b"\0\x3c\x40" * count + b"\1\x3c\0" * count))


def sung_tracks(count, notes):
    return midi(*[track_of(b"\x01\x90\x3c\x40\0\xff\x05\x01a\x01\x80\x3c\0" * notes)] * count)


def many_meters():
    return midi(track_of(b"\x10\xff\x58\x04\x01\x02\x18\x08" * (50_000 // PART) + b"\0\x90\x3c\x40\x81\0\x3c\0"))


def changing_divisions():
    changes = (f"<attributes><divisions>{10**11 + 2 * at + 1}</divisions></attributes>"
               "<forward><duration>1</duration></forward>" for at in range(20_000))
    return score([ATTRIBUTES + "".join(changes) + SHORT])


def repeated(inside, times=100):
    return score([ATTRIBUTES + inside + barline(f'<repeat direction="backward" times="{times}"/>')])


SHORT = "<note><pitch><step>C</step></pitch><duration>1</duration></note>"
LYRICS = "".join(f'<lyric number="{at}"><text>a</text></lyric>' for at in range(1, 9000))
ENDING = barline('<ending number="1" type="start"/><ending number="1" type="stop"/>')
CAPO = SHORT + '<sound dacapo="yes"/>'
# The messages for them, or nothing where they are accepted.
LARGE = {
    "a million tracks": (read_midi, lambda: b"MThd" + struct.pack(">IHHH", 6, 1, 65535, 96) + track() * 65_535,
                         "the header says 65535 tracks; more than 256"),
    "as many tracks as are read": (read_midi, lambda: midi(*[track()] * 256), "no notes"),
    "as many notes as are read": (read_midi, lambda: notes_of(2**20 // 6 // PART - 9), ""),
    "more bytes than are read": (read_midi, lambda: notes_of(2**20 // 6 + 9), "the file is larger than 1048576 bytes"),
    "notes that begin together and end one by one": (read_midi, lambda: stacked_notes(2**20 // 6 // PART - 9), ""),
    "notes that are never switched off": (read_midi, lambda: midi(track(*[(0, on(60))] * 50_000, (480, off(61)))), ""),
    "syllables in many tracks": (read_midi, lambda: sung_tracks(250, 300 // PART), ""),
    "meters in all places": (read_midi, many_meters, ""),
    "a message of a megabyte": (read_midi, lambda: midi(track((0, meta(1, b"x" * 1_040_000)))),
                                "track 1, at byte 14, is damaged before byte 28: Message length 1040000"),
    "a system message that never ends": (read_midi, lambda: midi(track((0, b"\xf0\xff\xff\x7f" + b"x" * 9_000))),
                                         "is damaged before byte 27: Message length 2097151"),
    "a zip bomb": (read_musicxml, lambda: bomb(40, 0), "'song.xml' in the archive is larger"),
    "a zip bomb in an archive": (read_musicxml, lambda: bomb(40, 1), "line 1, column 3: not well-formed"),
    "parts without end": (read_musicxml, lambda: b"<score-partwise>" + b"<part><measure/></part>" * 260_000,
                        "column [0-9]+: more elements than a song needs"),
    "many parts and many measures": (read_musicxml, lambda: score(*[[""]] * 5000, [""] * (50_000 // PART)), "no notes"),
    "an attribute of megabytes": (read_musicxml, lambda: b'<a b="' + b"x" * 5_000_000 + b'"/>',
                                  "line 1, column 1: a tag of more than"),
    "attributes without end": (read_musicxml, lambda: b"<a " + b" ".join(b'b%x=""' % at for at in range(200_000)) + b"/>",
                             "line 1, column 1: a tag of more than"),
    "a text of megabytes": (read_musicxml, lambda: score([ATTRIBUTES + note("C", inside=sung("x" * 5_000_000))]), ""),
    "a number of many digits": (read_musicxml, lambda: score([ATTRIBUTES + note("C", duration="1e99999999")]),
                                "part P1, measure 1: duration"),
    "divisions that have nothing in common": (read_musicxml, changing_divisions,
                                              "measure 1: its divisions change too often"),
    "many notes, often repeated": (read_musicxml, lambda: repeated("<attributes><divisions>99</divisions></attributes>"
                                                                   + SHORT * 6_000), "more than 500000 notes"),
    "many tempos, often repeated": (read_musicxml, lambda: repeated(SHORT + '<sound tempo="99"/>' * 6_000),
                                    "more than 500000 notes"),
    "many lyrics, often repeated": (read_musicxml, lambda: repeated(note("C", inside=LYRICS)), "more than 500000 notes"),
    "many endings behind a jump": (read_musicxml, lambda: score([ATTRIBUTES + SHORT] + [ENDING] * (20_000 // PART) + [CAPO]), ""),
    "many ways to a coda that is not there": (read_musicxml, lambda: score(
        [ATTRIBUTES + SHORT] + ['<sound tocoda="x"/>'] * (20_000 // PART) + [CAPO]), ""),
    "a tempo of many digits": (read_musicxml, lambda: score([ATTRIBUTES + "<direction><direction-type><metronome>"
        "<beat-unit>quarter</beat-unit><per-minute>" + "9" * 400 + "</per-minute></metronome></direction-type></direction>"
        + SHORT]), ""),
    "entities": (read_musicxml, lambda: score([""], head="<!DOCTYPE x [" + "".join(
        f'<!ENTITY e{at} "{f"&e{at - 1};" * 10}">' for at in range(1, 30)) + "]>"),
        "line 1, column [0-9]+: the document declares entities"),
}


@pytest.mark.parametrize("name", LARGE)
def test_large_files(name, little_memory):
    """Everything that is counted has a limit, and so have time and memory."""
    reader, make, said = LARGE[name]
    data = make()
    begin = time.process_time()
    try:
        made = plan_of(reader(data), Options(), "x")
        assert made.notes and made.song.bar_starts() and not said
    except SongError as problem:
        assert said and re.search(said, str(problem)), problem
    assert time.process_time() - begin < SECONDS
