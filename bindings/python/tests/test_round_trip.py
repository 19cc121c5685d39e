"""Random clips are built, saved and read, and must be equal as far as a clip stores what it is
given."""

import contextlib
import random
import tempfile

import pytest

import korvel_plx as plx
from conftest import EFFORT, IDS, LIBRARY
from living import VOICE

CLIPS = 10 * EFFORT
FLOATS = ("pitch_fine", "pitch_drift_start", "pitch_drift_end", "pitch_scaling_center",
          "pitch_scaling_origin", "pitch_transition_start", "pitch_transition_end",
          "amplitude_whole", "amplitude_start", "amplitude_end", "formant_whole", "formant_start",
          "formant_end")
NUMBERS = {"number": 127, "velocity": 127, "accent": 100, "bend_depth": 100, "bend_length": 100,
           "decay": 100, "opening": 127}
TEXTS = ["a", "la", "さ", "Ж", "𝄞", "x" * 300, 'quo"te\\', "\n\t", " "]


@contextlib.contextmanager
def manager():
    with tempfile.TemporaryDirectory() as folder:
        with plx.Manager(next(IDS), LIBRARY / "system", folder) as library:
            yield library


def build(clip, dice):
    """Fills a clip at random; AI parts and other parts contain values that the other kind does not
    keep."""
    is_ai = dice.random() < 0.5
    part = clip.create_midi_ai_part() if is_ai else clip.create_midi_part()
    clip.vendor_name = dice.choice(["", *TEXTS])
    clip.part_key = dice.randint(0, 30)
    clip.part_tempo = dice.choice([0, 2000, 30000, dice.randint(2000, 30000)])
    for add in (clip.filter.add_genre, clip.filter.add_type, clip.filter.add_singer_group,
                clip.filter.add_singer_id):
        for text in dice.sample(TEXTS, dice.randint(0, 3)):
            add(text)
    for number in range(dice.randint(0, 3)):
        clip.filter.add_language(number)
    if is_ai:
        part.ai_voice_bank_id = VOICE
        for _ in range(dice.randint(1, 3)):
            part.add_ai_lang_id(dice.randint(0, 127))
    else:
        part.voice_bank_id, part.lang_id = VOICE, dice.randint(0, 127)
    part.duration = dice.randint(1, 2**31 - 1)
    part.style_name, part.style_preset_id = dice.choice(TEXTS), dice.choice(["", *TEXTS])
    for place in range(dice.randint(0, 12)):
        build_note(part.insert_note(place * 480 + dice.randint(0, 479), dice.randint(1, 960),
                                    dice.choice(TEXTS), dice.choice(TEXTS), dice.randint(0, 127)),
                   dice, is_ai)
    for kind in dice.sample(range(12), dice.randint(0, 4)):
        lane = part.add_midi_controller(kind)
        for _ in range(dice.randint(1, 8)):
            lane.insert_event(dice.randint(-2**31, 2**31 - 1),
                              dice.randint(lane.min_event_value, lane.max_event_value))
    build_effects(part, dice)


def build_note(note, dice, is_ai):
    for key, high in NUMBERS.items():
        setattr(note, key, dice.randint(0, high))
    note.is_protected, note.fall_port, note.rise_port = (dice.random() < 0.5 for _ in range(3))
    if is_ai:
        for key in FLOATS:
            setattr(note, key, dice.choice([0.0, 1.0, dice.random()]))
    if is_ai or dice.random() < 0.5:
        note.singing_skill.duration = dice.randint(0, note.duration)
        note.singing_skill.pre_weight = dice.randint(0, 127)
        note.singing_skill.post_weight = dice.randint(0, 127)
    else:
        for dvqm in (note.attack, note.release):
            dvqm.comp_id, dvqm.speed = dice.choice(TEXTS), dice.randint(0, 100)
            dvqm.top_factor, dvqm.is_protected = dice.uniform(0, 2), dice.random() < 0.5
            for _ in range(dice.randint(1, 4)):
                dvqm.add_level_name(dice.choice(TEXTS))
    note.vibrato.type = dice.randint(0, 16)
    note.vibrato.duration = dice.randint(0, note.duration)
    for insert in (note.vibrato.insert_depth, note.vibrato.insert_rate):
        for _ in range(dice.randint(0, 5)):
            insert(dice.randint(0, note.vibrato.duration), dice.randint(0, 127))


def build_effects(part, dice):
    for name in dice.sample(TEXTS, dice.randint(0, 3)):
        effect = part.insert_midi_effect(dice.randint(0, 3), name)
        for key in dice.sample(TEXTS, dice.randint(0, 3)):
            effect.add_parameter(key).value = dice.choice([7, -(2**31), 0.25, "text"])
    for name in dice.sample(TEXTS, dice.randint(0, 3)):
        effect = part.insert_audio_effect(dice.randint(0, 3), name)
        for key in dice.sample(TEXTS, dice.randint(0, 3)):
            effect.add_parameter(key).value = dice.choice([0.25, 1e-30, "text"])
        effect.add_parameter("Bypass").value = dice.randint(0, 1)


def described(one):
    """Everything that an object and its children return, except for the differences between the two
    kinds."""
    if isinstance(one, (plx.PlxSequence, list)):
        return [described(inner) for inner in one]
    if not isinstance(one, plx.objects.Handle):
        return one
    skipped = {"parent", "is_mutable", "is_alive", "id" if isinstance(one, plx.ClipBase) else "",
               "name" if isinstance(one, plx.ClipBase) else "", "path", "file", "vendors", "part",
               "audio_part"}
    if isinstance(one, plx.ClipBase):
        skipped |= {"type", "notes"}
    keys = [key for key in dir(type(one)) if isinstance(getattr(type(one), key), property)]
    return {key: described(getattr(one, key)) for key in keys
            if key not in skipped and not key.startswith("_")}


@pytest.mark.parametrize("seed", range(CLIPS))
def test_built_saved_read_equal(seed):
    with manager() as library:
        clip = library.create_mutable_clip()
        build(clip, random.Random(seed))
        saved = clip.save("Random", formatted=seed % 2 == 0)
        library.read_user_clip_files()
        assert not saved.is_alive
        read = library.user_clips[0]
        read.read_part()
        assert described(read) == described(clip)
        assert len(described(read)["midi_part"]) > 10
