"""Calls every function with arguments that it does not accept. None of these calls may reach an
object: at the end the fixture `untouched` compares what all objects return."""

import inspect
import pathlib
import struct

import pytest

import korvel_plx as plx
from korvel_plx import functions
from korvel_plx._calls import call as raw
from korvel_plx._table import BASES, FUNCTIONS

CLASSES = {name for name, entry in FUNCTIONS.items() if entry["class"]}
GOOD = {"bool": True, "float": 0.5, "int32": 0, "uint32": 0, "uint64": 0, "text": "x", "texts": None}
TOO_LARGE = {"int32": 2**31, "uint32": 2**32, "uint64": 2**64, "float": 1e39}


def taken(name):
    return [p for p in FUNCTIONS[name]["parameters"] if p["role"] not in ("result", "size")]


def arguments(name, living, first=None):
    """Valid arguments for the function, except for its handle."""
    elements = {one.FAMILY: one for one in living.objects.values()}
    return [first if p["role"] == "self" else elements[p["family"]] if p["kind"] == "handle"
            else GOOD[p["kind"]] for p in taken(name)]


def call(name, *passed):
    return getattr(functions, name)(*passed)


def default(name):
    """The result for a handle that is not accepted, in Python's form."""
    entry = FUNCTIONS[name]
    value = entry["result"]["rejected"]
    out = [p for p in entry["parameters"] if p["role"] == "result"]
    if not out:
        return value
    return None if entry["result"]["kind"] == "bool" else (value, None)


@pytest.mark.parametrize("name", sorted(CLASSES))
def test_none_gives_the_default(name, untouched):
    assert call(name, *arguments(name, untouched)) == default(name)


@pytest.mark.parametrize("name", sorted(CLASSES))
def test_objects_of_other_families_are_type_errors(name, untouched):
    family = taken(name)[0]["family"]
    others = [one for one in untouched.objects.values() if one.FAMILY != family]
    assert len({one.FAMILY for one in others}) == 13
    for other in [*others, 7, "x", b"x", object()]:
        with pytest.raises(TypeError):
            call(name, *arguments(name, untouched, other))


def test_objects_of_other_classes_of_the_family_give_the_default(untouched):
    refusals = 0
    for name in sorted(CLASSES):
        entry = FUNCTIONS[name]
        for one in untouched.objects.values():
            if one.FAMILY == taken(name)[0]["family"] and not untouched.is_a(one, entry["class"]):
                assert call(name, *arguments(name, untouched, one)) == default(name), (name, one)
                refusals += 1
    assert refusals > 250


def test_objects_of_a_class_are_taken_by_the_functions_of_its_bases(untouched):
    """The library accepts what the interface says about bases."""
    answers = 0
    for name in sorted(CLASSES):
        entry = FUNCTIONS[name]
        # No truth value is impossible, a clip has one of two parts, a part the languages of one of two
        # kinds, 0.5 is also what a new note says, and a note with a Dvqm is read without its skill.
        if len(taken(name)) > 1 or entry["result"]["kind"] in ("bool", "void", "float"):
            continue
        if name.endswith(("audioPart", "midiPart", "aiLangIDSize", "SkillBase_duration")) or "read" in name or "create" in name:
            continue
        for one in untouched.objects.values():
            if untouched.is_a(one, entry["class"]):
                assert call(name, one) != default(name), (name, one)
                answers += 1
    assert answers > 150
    assert set(BASES) == {entry["class"] for entry in FUNCTIONS.values() if entry["class"]}


@pytest.mark.parametrize("name", sorted(name for name in FUNCTIONS if len(taken(name)) > 0))
def test_values_of_other_types_are_errors(name, untouched):
    good = arguments(name, untouched)
    for place, parameter in enumerate(taken(name)):
        if parameter["role"] == "self" or parameter["kind"] == "texts":
            continue
        for wrong in (object(), [1], 1.5 if parameter["kind"] != "float" else "0.5"):
            with pytest.raises(TypeError):
                call(name, *good[:place], wrong, *good[place + 1:])
        if parameter["kind"] in TOO_LARGE:
            with pytest.raises(ValueError):
                call(name, *good[:place], TOO_LARGE[parameter["kind"]], *good[place + 1:])
        if parameter["kind"] == "text":
            with pytest.raises(ValueError):
                call(name, *good[:place], "cut\0off", *good[place + 1:])


def members(one):
    """The public properties and methods of an object, those of its bases included."""
    for key in dir(type(one)):
        if not key.startswith("_"):
            yield key, inspect.getattr_static(type(one), key)


def required(method):
    parameters = list(inspect.signature(method).parameters.values())[1:]
    return sum(parameter.default is parameter.empty for parameter in parameters)


def of_another_family(living, one):
    """An object that no method accepts."""
    return living.objects["Filter" if one.FAMILY != "Filter" else "Manager"]


def test_every_property_refuses_values_of_other_kinds(untouched):
    refusals = read_only = 0
    for one in untouched.objects.values():
        other = of_another_family(untouched, one)
        for key, member in members(one):
            if not isinstance(member, property):
                continue
            for wrong in (object(), [1], b"x", 1j, None, other, getattr(one, key).__class__):
                with pytest.raises(TypeError if member.fset else AttributeError):
                    setattr(one, key, wrong)
                refusals += member.fset is not None
                read_only += member.fset is None
    assert refusals > 350 and read_only > 1500


def test_every_method_refuses_values_of_other_kinds(untouched):
    """Methods without parameters get an argument; all others are also called without one."""
    refusals = 0
    for one in untouched.objects.values():
        other = of_another_family(untouched, one)
        for key, member in members(one):
            # A clip is changed, and looked for, by what is written by hand; further below.
            if not inspect.isfunction(member) or key in ("change", "clip"):
                continue
            count = required(member)
            for wrong in (object(), [1], b"x", 1j, other):
                with pytest.raises(TypeError):
                    getattr(one, key)(*[wrong] * (count or 9))
                refusals += 1
            if count:
                with pytest.raises(TypeError):
                    getattr(one, key)()
    assert refusals > 400
    for wrong in (object(), b"x", 7, untouched.clip):
        with pytest.raises(KeyError):
            untouched.library.clip(wrong)


def test_changing_a_clip_by_values_of_other_kinds_changes_nothing(living):
    before = living.user_clip.name, living.user_clip.filter.genres[:], living.user_clip.part_tempo
    for wrong in ({"name": 7}, {"genres": [7]}, {"types": 7}, {"part_key": "x"}, {"part_tempo": 1.5}):
        with pytest.raises(TypeError):
            living.user_clip.change(**wrong)
    assert before == (living.user_clip.name, living.user_clip.filter.genres, living.user_clip.part_tempo)


def test_methods_of_a_class_refuse_objects_of_other_classes(untouched):
    """Even if the family is right, where the library itself would only return false."""
    refusals = 0
    for name in plx.objects.__all__:
        for key, member in vars(getattr(plx, name)).items():
            if not inspect.isfunction(member) or key.startswith(("_", "has_", "parameter", "midi_controller")):
                continue
            if key in ("destroy_property_editor", "dvqm", "change", "clip", "protect") or required(member):
                continue
            for one in untouched.objects.values():
                if not untouched.is_a(one, name):
                    with pytest.raises(TypeError):
                        member(one)
                    refusals += 1
    assert refusals > 200


def test_wrong_numbers_of_arguments_are_type_errors(untouched):
    for name in FUNCTIONS:
        with pytest.raises(TypeError):
            raw(name, *arguments(name, untouched), 1)


def test_dead_objects_are_errors_in_every_function(living):
    """The objects die with the manager, all by one call."""
    objects = dict(living.objects)
    passed = {name: arguments(name, living) for name in CLASSES}
    living.library.destroy()
    assert not any(one.is_alive for one in objects.values())
    errors = 0
    for name in sorted(CLASSES):
        for one in objects.values():
            if one.FAMILY == taken(name)[0]["family"]:
                if FUNCTIONS[name]["operation"].startswith("has"):
                    continue
                with pytest.raises(plx.DeadObjectError):
                    call(name, one, *passed[name][1:])
                errors += 1
    assert errors > 400


def test_membership_may_be_asked_of_dead_elements(living):
    note, part = living.objects["MutableNote"], living.clip.midi_part
    assert functions.MutableMidiPart_hasNote(part, note)
    note.remove()
    assert not functions.MutableMidiPart_hasNote(part, note)
    assert note not in part.notes


def test_every_function_has_types_and_a_docstring(interface):
    entries = {entry["name"].removeprefix("KRT_PLX_"): entry for entry in interface["functions"]}
    assert len(entries) > 200
    for name, entry in entries.items():
        function = getattr(functions, name)
        first = entry["comment"].splitlines()[0].replace("\\", "\\\\")
        assert first in function.__doc__.replace("\\", "\\\\")
        assert set(function.__annotations__) == {p["name"] for p in taken(name)} | {"return"}


def test_every_function_is_reached_by_the_objects():
    """Through a property, a sequence, a method, or the constructor of a manager."""
    text = (pathlib.Path(plx.__file__).parent / "objects.py").read_text(encoding="utf-8")
    missing = [name for name in FUNCTIONS if f'"{name}"' not in text]
    assert missing == ["HasManager"]  # is_alive tells it


def test_numbers_come_back_with_all_their_bits(living):
    parameter = living.objects["MutableEffectParameter"]
    for number in (-(2**31), 2**31 - 1):
        parameter.value = number
        assert parameter.value == number
    for number in (1e-45, -3.4028234663852886e38, float("inf")):
        parameter.value = number
        assert parameter.value == struct.unpack("f", struct.pack("f", number))[0]
