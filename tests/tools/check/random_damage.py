"""Clips with random damages, the same ones for the same seed."""

import copy
import json
import random
import re

from damaged import AI, AUDIO, DATA, PROPERTIES

RAW = "as it stands: "


def raw(text):
    """JSON that Python would not write."""
    return RAW + text


# Values that are wrong in one place or another, and some that are right.
VALUES = (None, True, False, 0, 1, -1, 3, 16, 17, 127, 128, 480, 481, 1920, 2147483647, 2147483648,
          -2147483648, -2147483649, 10**12, 10**25, 0.0, 0.5, 1.0, 1.5, 2.0, 2.5, -0.0, 3.5e38, -1e300, "", "x",
          "midi", "audio", "midiAi", "dynamics", "pitchBend", "reverb", "ABCDEFGHIJKLMNOP",
          "ABCDEFGHIJKLMNO𝄞", "a\0b", "\0", "Größe", [], {}, [1], [{}], ["a", "a", ""],
          10**400, -(10**19), raw("0e400"), raw("-0.000e999999999999"), raw("1e-2147483648"),
          raw("0.00000000001e-2147483639"), raw("1.8e308"), raw("1e00"), raw("-0"), "midi\0x", "audio\0",
          "dynamics\0", "take.wav\0x", "Bypass\0", {"pos": 0, "value": 1}, [{"pos": 1, "value": 2}, {"pos": 1, "value": 3}])

# About where ranges begin and end.
BOUNDS = (-8193, -8192, -65, -64, -1, 0, 1, 16, 17, 24, 25, 30, 31, 63, 64, 100, 101, 127, 128, 240,
          241, 480, 481, 1999, 2000, 8191, 8192, 30000, 30001, 2147483646, 2147483647)

FRACTIONS = (-0.01, 0.0, 0.99, 1.0, 1.01, 2.0, 2.01, 3.5e38)

KEYS = ("id", "name", "vendor", "part", "midi", "midiAi", "audio", "notes", "pos", "value", "dvqm",
        "singingSkill", "duration", "langID", "events", "rates", "other")

CODECS = ("utf-8", "utf-8", "utf-8", "utf-8-sig", "utf-16", "utf-16-le", "utf-16-be", "utf-32-le",
          "utf-32-be")


class RepeatedKey(str):
    """A key that is not equal to another one of the same text, so that an object can hold both."""

    __slots__ = ()
    __hash__ = object.__hash__

    def __eq__(self, other):
        return self is other


def containers(value):
    """All objects and arrays in a document, itself included."""
    if isinstance(value, (dict, list)):
        yield value
        for child in value.values() if isinstance(value, dict) else value:
            yield from containers(child)


def damage_tree(choice, document):
    """Changes one member or element somewhere."""
    container = choice.choice([each for each in containers(document) if each] or [document])
    if not container:
        return
    if isinstance(container, dict):
        damage_object(choice, container)
    else:
        damage_array(choice, container)


def other_value(choice, value):
    """Now and then one that is wrong in a way that is hard to see."""
    if isinstance(value, (int, float)) and choice.randrange(3):
        return choice.choice(BOUNDS if isinstance(value, int) else FRACTIONS)
    return copy.deepcopy(choice.choice(VALUES))


def damage_object(choice, container):
    key = choice.choice(list(container))
    kind = choice.randrange(6)
    if kind == 0:
        del container[key]
    elif kind == 1:
        container[choice.choice(KEYS)] = copy.deepcopy(choice.choice(VALUES))
    elif kind == 2:
        container[RepeatedKey(key)] = copy.deepcopy(choice.choice(VALUES))
    else:
        container[key] = other_value(choice, container[key])


def damage_array(choice, container):
    index = choice.randrange(len(container))
    kind = choice.randrange(4)
    if kind == 0:
        del container[index]
    elif kind == 1:
        container.insert(index, copy.deepcopy(container[index]))
    elif kind == 2:
        container.insert(index, copy.deepcopy(choice.choice(VALUES)))
    else:
        container[index] = other_value(choice, container[index])


def damage_bytes(choice, data):
    """Changes, removes or repeats a few bytes."""
    start = choice.randrange(len(data))
    end = start + choice.randrange(1, 4)
    middle = choice.choice((b"", data[start:end] * 2, bytes([choice.randrange(256)]), b",", b"}",
                            b"\\udc00", b"/**/", b"1e400", b"\0"))
    return data[:start] + middle + data[end:]


def damaged_bytes(choice, text, clip_id, most):
    document = json.loads(text)
    if "id" in document:
        document["id"] = clip_id
    for _ in range(choice.randrange(most + 1)):
        damage_tree(choice, document)
    text = json.dumps(document, indent=choice.choice((None, 1)),
                      ensure_ascii=choice.choice((True, False)))
    text = re.sub(f'"{RAW}([^"]*)"', r"\1", text)
    if choice.randrange(40) == 0:
        text += choice.choice((" ", "\0", "\0junk"))
    data = text.encode(choice.choice(CODECS))
    return damage_bytes(choice, data) if choice.randrange(12) == 0 else data


def write_random_clips(folder, count, seed):
    """One clip file in each of the folders 0 to count - 1."""
    choice = random.Random(seed)
    for number in range(count):
        clip = folder / str(number)
        (clip / "audio").mkdir(parents=True)
        if choice.randrange(2):
            (clip / "audio/take.wav").write_bytes(b"")
        # Few have an ID that another one has.
        clip_id = f"clip {number if choice.randrange(30) else number - 1}"
        base = choice.choice((DATA, DATA, DATA, DATA, DATA, AI, AUDIO))
        (clip / "clip.kxclip").write_bytes(damaged_bytes(choice, base, clip_id, 6))
        if choice.randrange(4):
            data = damaged_bytes(choice, PROPERTIES, clip_id, 2)
            (clip / "property.json").write_bytes(data)
