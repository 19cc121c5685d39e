"""Properties accept their ranges and refuse everything else; a refused value changes nothing."""

import ctypes
import math
import mmap
import struct

import pytest
from hypothesis import given, settings
from hypothesis import strategies as st

import korvel_plx as plx
from conftest import EFFORT
from korvel_plx import _text
from korvel_plx._table import FUNCTIONS
from living import Living
from test_round_trip import manager

LIMITS = {"int32": (-(2**31), 2**31 - 1), "uint32": (0, 2**32 - 1)}


def rounded(number):
    return struct.unpack("f", struct.pack("f", number))[0]


def setters(interface):
    """Each property that can be set, with its class, its name and what it accepts."""
    for entry in interface["functions"]:
        name = entry["name"].removeprefix("KRT_PLX_")
        kind = getattr(plx, entry["class"] or "", None)
        values = [p for p in entry["parameters"] if p["role"] == "value"]
        if kind and len(values) == 1 and entry["class"].startswith("Mutable"):
            for key, member in vars(kind).items():
                if isinstance(member, property) and member.fset:
                    if name in member.fset.__code__.co_consts:
                        yield entry["class"], key, values[0]




def inside(kind, accepts):
    if "values" in accepts:
        return st.sampled_from(accepts["values"])
    low, high = accepts["minimum"], accepts["maximum"]
    if kind == "float":
        return st.floats(low, high, width=32)
    also = st.sampled_from(accepts["also"]) if "also" in accepts else st.nothing()
    return st.integers(low, high) | also


def is_inside(kind, accepts, number):
    if "values" in accepts:
        return number in accepts["values"]
    if kind == "float" and math.isnan(number):
        return accepts.get("nan", False)
    low, high = accepts["minimum"], accepts["maximum"]
    return (low is None or low <= number) and (high is None or number <= high) or (
        number in accepts.get("also", []))


def equal(found, number):
    return found == number or (math.isnan(found) and math.isnan(number))


@settings(max_examples=5 * EFFORT)
@given(data=st.data())
def test_numbers(data, interface):
    """For each property: a number in its range and one of any size."""
    with manager() as library:
        living = Living(library)
        tried = 0
        for name, key, parameter in setters(interface):
            kind, accepts = parameter["kind"], parameter.get("accepts")
            if kind not in ("int32", "uint32", "float") or "bound" in accepts:
                continue
            one = living.objects[name]
            numbers = [data.draw(inside(kind, accepts))] if accepts["minimum"] is not None else []
            if kind == "float":
                numbers.append(data.draw(st.floats(width=32)))
            else:
                low, high = LIMITS[kind]
                numbers += [data.draw(st.integers(low, high)), low, high]
                numbers += [accepts["minimum"] - 1] if accepts["minimum"] > low else []
                numbers += [accepts["maximum"] + 1] if accepts["maximum"] < high else []
            for number in numbers:
                check(one, key, kind, accepts, number)
                tried += 1
        assert tried > 80


def check(one, key, kind, accepts, number):
    before = getattr(one, key)
    if is_inside(kind, accepts, number):
        setattr(one, key, number)
        assert equal(getattr(one, key), number), (one, key, number)
    else:
        with pytest.raises(ValueError):
            setattr(one, key, number)
        assert equal(getattr(one, key), before)


@given(text=st.text(st.characters(blacklist_characters="\0"), max_size=40))
def test_texts_come_back_as_they_were(text):
    with manager() as library:
        living = Living(library)
        note, part, clip = (living.objects[name] for name in ("MutableNote", "MutableMidiPart",
                                                              "MutableClip"))
        for one, key, may_be_empty in ((note, "lyric", False), (note, "phoneme", False),
                                       (part, "style_name", True), (clip, "vendor_name", True),
                                       (note.attack, "comp_id", True)):
            if text or may_be_empty:
                setattr(one, key, text)
                assert getattr(one, key) == text
            else:
                with pytest.raises(ValueError):
                    setattr(one, key, text)


@pytest.mark.parametrize("length", [1, 2047, 2048, 2049, 5000, 100_000])
def test_long_texts(living, length):
    """Longer than a page, the amount that is read at once."""
    note = living.objects["MutableNote"]
    for text in ("a" * length, "\u0100" * length, "\U0001f3b5" * length):
        note.lyric = text
        assert note.lyric == text


def test_a_text_at_the_end_of_what_may_be_read():
    """There may be no page after it."""
    page = mmap.PAGESIZE
    memory = mmap.mmap(-1, 2 * page)
    begin = ctypes.addressof(ctypes.c_char.from_buffer(memory))
    for text in ("", "a", "la" * 100):
        units = text.encode("utf-16-le") + b"\0\0"
        memory[page - len(units):page] = units
        assert ctypes.CDLL(None).mprotect(ctypes.c_void_p(begin + page), page, 0) == 0
        assert _text.decode(begin + page - len(units)) == text


def test_lone_surrogates_are_stored_and_not_saved(living):
    note = living.objects["MutableNote"]
    note.lyric = "\ud800"
    assert note.lyric == "\ud800"
    with pytest.raises(plx.PlxError, match="FILE_NOT_WRITTEN"):
        living.clip.save("broken")


def test_voice_banks_have_sixteen_units(living):
    part = living.objects["MutableMidiPart"]
    for text in ("x" * 15, "x" * 17, "\U0001f3b5" * 9, ""):
        with pytest.raises(ValueError):
            part.voice_bank_id = text
    part.voice_bank_id = "\U0001f3b5" * 8
    part.ai_voice_bank_id = ""
    assert part.voice_bank_id == "\U0001f3b5" * 8


def test_a_refusal_says_what_is_accepted(living):
    with pytest.raises(ValueError, match=r"value 101 \(0 to 100\)"):
        living.objects["MutableNote"].accent = 101


def test_sequences(living):
    notes = living.clip.notes
    living.clip.midi_part.insert_note(960, 480, "le", "l e", 1)
    assert [note.lyric for note in notes] == ["la", "le"]
    assert notes[-1] is notes[1] and notes[0:2] == list(notes) and len(notes) == 2
    with pytest.raises(IndexError):
        notes[2]
    assert living.clip.filter.genres == ["Folk"] and "Folk" in living.clip.filter.genres
    assert living.clip.midi_part.ai_lang_ids == [1]


def test_tags(living):
    tags = living.clip.filter
    tags.add_vendor("")
    assert tags.vendors == [""]
    with pytest.raises(ValueError):
        tags.remove_genre("Rock")
    with pytest.raises(ValueError):
        tags.add_language(-1)


def test_a_user_clip_is_changed_in_part(living):
    clip = living.user_clip
    clip.change(name="Other", part_tempo=9000)
    assert (clip.name, clip.part_tempo, clip.filter.genres) == ("Other", 9000, ["Folk"])


def test_every_property_has_a_docstring(interface):
    for name in plx.objects.__all__:
        for key, member in vars(getattr(plx, name)).items():
            if isinstance(member, property):
                assert member.fget.__doc__, (name, key)
    assert len(FUNCTIONS) == len(interface["functions"])
