"""What each call ends, and that nothing else dies."""

import gc
import tempfile
import threading
import time

import pytest
from hypothesis import strategies as st
from hypothesis.stateful import RuleBasedStateMachine, initialize, rule

import korvel_plx as plx
from korvel_plx import _library
from conftest import IDS, LIBRARY
from living import fill_part


def dead(*objects):
    return [not one.is_alive for one in objects] == [True] * len(objects)


def test_reading_all_ends_all_clips_and_what_they_own(living):
    before = dict(living.objects)
    living.library.read_all_clip_files()
    for name, one in before.items():
        assert one.is_alive == (name.startswith("Mutable") or name == "Manager"), name
    assert living.library.system_clips[0].is_alive


def test_reading_the_user_clips_ends_user_clips_alone(living):
    system, user, editable = living.objects["Clip"], living.user_clip, living.clip
    note = user.notes[0]
    living.library.read_user_clip_files()
    assert dead(user, note) and system.is_alive and editable.is_alive


def test_removing_a_clip(living):
    clip, note = living.user_clip, living.user_clip.notes[0]
    clip.remove()
    assert dead(clip, note)
    with pytest.raises(plx.DeadObjectError):
        clip.name


def test_reading_a_part_anew_ends_the_old_one(living):
    clip = living.user_clip
    part, note, filter_ = clip.midi_part, clip.notes[0], clip.filter
    clip.read_part()
    assert dead(part, note) and clip.is_alive and filter_.is_alive and clip.midi_part.is_alive


def test_a_part_that_cannot_be_read_leaves_the_old_one(living):
    clip = living.user_clip
    part, note = clip.midi_part, clip.notes[0]
    clip.file.unlink()
    with pytest.raises(plx.PlxError):
        clip.read_part()
    assert part.is_alive and note.lyric == "la"


def test_a_clip_has_one_editor(living):
    clip = living.user_clip
    first = clip.create_property_editor()
    second = clip.create_property_editor()
    assert dead(first) and second.is_alive
    clip.destroy_property_editor(first)
    assert dead(second)
    clip.destroy_property_editor(None)


@pytest.mark.parametrize("kind", ["midi", "midi_ai", "audio"])
def test_a_new_part_ends_the_old_one(living, kind):
    part, note = living.clip.midi_part, living.clip.notes[0]
    made = getattr(living.clip, f"create_{kind}_part")()
    assert dead(part, note) and made.is_alive and living.clip.part is made


@pytest.mark.parametrize("name", ["MutableNote", "MutableMidiController", "MutableMidiEvent",
                                  "MutableVibratoParameter", "MutableMidiEffect",
                                  "MutableAudioEffect", "MutableEffectParameter"])
def test_remove_ends_the_object_and_what_it_owns(living, name):
    one = living.objects[name]
    owned = list(one._children)
    parent = one.parent
    one.remove()
    assert dead(one, *owned) and parent.is_alive


def test_an_event_ends_the_one_that_it_is_moved_onto(living):
    lane = living.clip.midi_part.midi_controllers[0]
    first, second = lane.events
    second.pos = 0
    assert dead(first) and second.value == 100 and len(lane.events) == 1


def test_a_point_ends_the_one_of_its_curve_that_it_is_moved_onto(living):
    vibrato = living.clip.notes[0].vibrato
    first, second = vibrato.depths
    rate = vibrato.rates[0]
    second.move(0)
    assert dead(first) and rate.is_alive and second.is_alive


def test_a_move_that_is_refused_ends_nothing(living):
    vibrato = living.clip.notes[0].vibrato
    first, second = vibrato.depths
    vibrato.duration = 60
    first.pos = 30
    vibrato.duration = 10
    with pytest.raises(ValueError):
        second.move(30)
    assert first.is_alive and second.is_alive


def test_an_object_is_one_python_object(living):
    clip = living.user_clip
    assert clip.notes[0] is clip.notes[0]
    assert clip.notes[0].parent is clip.part and clip.part.parent is clip
    assert clip.parent is living.library
    assert clip.notes[0].vibrato.depths[0].parent.parent.parent.parent.parent is living.library


def test_dropped_objects_are_forgotten_and_found_again(living):
    world = living.clip._world
    notes = [living.clip.midi_part.insert_note(at, 1, "a", "a", 0) for at in range(100)]
    assert len(world.known) > 100
    del notes
    gc.collect()
    assert len(world.known) < 60
    assert len(living.clip.notes) == 101


def test_a_manager_with_the_same_id_is_the_same(library, tmp_path):
    assert plx.Manager(library.app_id, "nowhere", tmp_path / "other") is library


def test_the_context_ends_the_manager(tmp_path):
    with plx.Manager(next(IDS), LIBRARY / "system", tmp_path) as manager:
        clip = manager.clips[0]
    assert dead(manager, clip) and "dead" in repr(manager) and "dead" in repr(clip)


def test_a_manager_that_cannot_be_made_names_the_code(tmp_path):
    with pytest.raises(plx.PlxError, match="DIRECTORY_MISSING") as caught:
        plx.Manager(next(IDS), tmp_path / "missing", tmp_path)
    assert caught.value.code == plx.Result.DIRECTORY_MISSING


def test_threads_take_turns(library):
    """A manager takes one call at a time; the package sees to it."""
    failures = []

    def work():
        try:
            clip = library.create_mutable_clip()
            fill_part(clip.create_midi_part())
            for number in range(100):
                clip.midi_part.insert_note(number, 1, "a", "a", 0).remove()
            clip.save("threads")
            clip.destroy()
        except Exception as problem:  # pylint: disable=broad-except
            failures.append(problem)

    threads = [threading.Thread(target=work) for _ in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert failures == [] and len(library.user_clips) == 4


def test_no_two_calls_of_a_manager_overlap(living, monkeypatch):
    note = living.clip.notes[0]
    running, most = [], []
    function = _library.load()["NoteBase_pos"]

    def watched(address):
        running.append(address)
        most.append(len(running))
        time.sleep(0.002)
        running.pop()
        return function(address)

    monkeypatch.setitem(_library.load(), "NoteBase_pos", watched)
    threads = [threading.Thread(target=lambda: [note.pos for _ in range(5)]) for _ in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert len(most) == 20 and set(most) == {1}


class Lanes(RuleBasedStateMachine):
    """A lane and a plain dictionary go through the same: what dies is what the dictionary loses."""

    positions = st.integers(-3, 6)
    values = st.integers(0, 127)

    @initialize()
    def begin(self):
        self.folder = tempfile.TemporaryDirectory()
        self.manager = plx.Manager(next(IDS), LIBRARY / "system", self.folder.name, read=False)
        self.part = self.manager.create_mutable_clip().create_midi_part()
        self.lane = self.part.add_midi_controller(plx.ControllerType.DYNAMICS)
        self.model = {}
        self.kept = {}

    def check(self):
        assert [(event.pos, event.value) for event in self.lane.events] == sorted(self.model.items())
        for event, place in list(self.kept.items()):
            assert event.is_alive == (place is not None)
            if place is not None:
                assert event.pos == place and event in self.lane.events

    @rule(pos=positions, value=values, keep=st.booleans())
    def insert(self, pos, value, keep):
        event = self.lane.insert_event(pos, value)
        self.model[pos] = value
        if keep:
            self.kept[event] = pos
        self.check()

    @rule(pick=st.integers(0, 99), pos=positions)
    def move(self, pick, pos):
        if not self.model:
            return
        event = self.lane.events[pick % len(self.model)]
        old = event.pos
        value = self.model.pop(old)
        if pos != old:
            self.kept = {key: None if place == pos else place for key, place in self.kept.items()}
        event.pos = pos
        self.model[pos] = value
        self.kept = {key: pos if key is event else place for key, place in self.kept.items()}
        self.check()

    @rule(pick=st.integers(0, 99))
    def remove(self, pick):
        if not self.model:
            return
        event = self.lane.events[pick % len(self.model)]
        del self.model[event.pos]
        event.remove()
        self.kept = {key: None if key is event else place for key, place in self.kept.items()}
        self.check()

    @rule(pick=st.integers(0, 99))
    def forget(self, pick):
        if self.kept:
            del self.kept[list(self.kept)[pick % len(self.kept)]]
            gc.collect(0)

    @rule()
    def begin_anew(self):
        """The lane's address may be given to the next one."""
        self.lane.remove()
        assert not any(event.is_alive for event in self.kept)
        self.kept = dict.fromkeys(self.kept)
        self.lane = self.part.add_midi_controller(plx.ControllerType.DYNAMICS)
        self.model = {}
        self.check()

    def teardown(self):
        if hasattr(self, "manager"):
            self.manager.destroy()
            assert not any(event.is_alive for event in self.kept)
            self.folder.cleanup()


TestLanes = Lanes.TestCase
