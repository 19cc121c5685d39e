"""Clips and wave files that are made for the tests of the gallery."""

import array
import json
import math
import random
import struct

WORDS = "amber birch cloud delta ember frost grove haven indigo juniper kettle lumen meadow north".split()
GENRES = ("Folk", "Pop", "Choir", "Opera", "和風")
TYPES = ("Melody", "Verse", "Chorus", "Loop")
VENDORS = ("Alder", "Briar", "Cedar")


def write_clip(folder, properties, part):
    folder.mkdir(parents=True)
    (folder / "property.json").write_text(json.dumps(properties), encoding="utf-8")
    (folder / "clip.kxclip").write_text(json.dumps(part), encoding="utf-8")


def properties(number, part, **values):
    about = {"type": part, "key": 0, "tempo": values.pop("tempo", 0)}
    return {"id": f"made-{number}", "name": f"Made {number}", "part": about} | values


def note(pos, duration, number, **values):
    return {"pos": pos, "duration": duration, "lyric": "la", "phoneme": "l a", "langID": 1,
            "number": number, "velocity": 100} | values


def midi(notes, lanes=(), duration=None, **values):
    return {"midi": {
        "duration": duration or max(each["pos"] + each["duration"] for each in notes),
        "voice": {"compID": "voralin-alto-001", "langID": 1},
        "notes": notes,
        "controllers": [{"name": name, "events": [{"pos": pos, "value": value} for pos, value in events]}
                        for name, events in lanes],
    } | values}


def melody(dice, length):
    number, pos, notes = dice.randint(55, 70), 0, []
    for _ in range(length):
        duration = dice.choice((240, 480, 480, 960))
        number = min(84, max(48, number + dice.randint(-4, 4)))
        notes.append(note(pos, duration, number, lyric=dice.choice(("la", "do", "さ", "oh")),
                          velocity=dice.randint(40, 127)))
        pos += duration
    return notes


def write_random_clips(folder, count, wave_each=25):
    """The same clips each time; one of some has a wave file."""
    dice = random.Random(15)
    for number in range(count):
        tags = {"genres": [dice.choice(GENRES)], "types": dice.sample(TYPES, 2), "languages": [dice.randint(0, 5)]}
        name = f"{dice.choice(WORDS)} {dice.choice(WORDS)} {number}"
        is_wave = number % wave_each == wave_each - 1
        part = {"type": "audio"} if is_wave else \
            {"type": "midi", "key": dice.randint(0, 30), "tempo": dice.randint(60, 180) * 100}
        about = {"id": f"random-{number}", "name": name, "vendor": dice.choice(VENDORS), "filter": tags, "part": part}
        dynamics = ("dynamics", [(bar * 1920, dice.randint(30, 127)) for bar in range(8)])
        here = folder / f"{number // 100:02}" / f"{number}"
        write_clip(here, about, {"audio": {"wavFileName": "take.wav"}} if is_wave
                   else midi(melody(dice, 40), [dynamics]))
        if is_wave:
            (here / "audio").mkdir()
            write_wave(here / "audio" / "take.wav", sine(dice.randint(200, 800), 0.5, 8000), 8000)


def sine(frequency, seconds, rate):
    return [math.sin(2 * math.pi * frequency * i / rate) for i in range(int(seconds * rate))]


def encoded(samples, bits, is_float):
    if is_float:
        return array.array("f" if bits == 32 else "d", samples).tobytes()
    most = 2 ** (bits - 1) - 1
    whole = (round(sample * most) for sample in samples)
    return b"".join(each.to_bytes(bits // 8, "little", signed=True) for each in whole)


def write_wave(path, samples, rate, bits=16, channels=1, is_float=False, is_extensible=False, size=None,
               kind=None):
    """Samples of -1 to 1, those of the channels in turn. `size` is what the header says."""
    data = encoded(samples, bits, is_float)
    kind = kind if kind is not None else 3 if is_float else 1
    frame = channels * bits // 8
    about = struct.pack("<HHIIHH", 0xFFFE if is_extensible else kind, channels, rate, rate * frame, frame, bits)
    if is_extensible:
        about += struct.pack("<HHIH", 22, bits, 0, kind) + bytes(14)
    chunks = b"fmt " + struct.pack("<I", len(about)) + about + b"odd " + struct.pack("<I", 3) + b"abc\0"
    chunks += b"data" + struct.pack("<I", len(data) if size is None else size) + data
    path.write_bytes(b"RIFF" + struct.pack("<I", 4 + len(chunks)) + b"WAVE" + chunks)
