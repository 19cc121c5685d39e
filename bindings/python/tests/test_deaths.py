"""What each call destroys, and that it destroys nothing else."""

import copy
import gc
import pickle
import subprocess
import sys
import tempfile
import textwrap
import threading
import time

import pytest
from hypothesis import strategies as st
from hypothesis.stateful import RuleBasedStateMachine, initialize, rule

import korvel_plx as plx
from korvel_plx import _library
from korvel_plx._table import FUNCTIONS
from conftest import IDS, LIBRARY
from living import Living, fill_part


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
    """A manager handles one call at a time; the package ensures that."""
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


ENDING = {
    "Clip_readPart": lambda living: living.user_clip.read_part(),
    "UserClip_remove": lambda living: living.user_clip.remove(),
    "UserClip_createPropertyEditor": lambda living: living.user_clip.create_property_editor(),
    "UserClip_destroyPropertyEditor": lambda living: living.user_clip.destroy_property_editor(None),
    "MutableClip_createAudioPart": lambda living: living.clip.create_audio_part(),
    "MutableClip_createMidiPart": lambda living: living.clip.create_midi_part(),
    "MutableClip_createMidiAiPart": lambda living: living.clip.create_midi_ai_part(),
    "MutableClip_destroy": lambda living: living.clip.destroy(),
    "MutableMidiController_remove": lambda living: living.objects["MutableMidiController"].remove(),
    "MutableMidiEvent_move": lambda living: living.objects["MutableMidiEvent"].move(0),
    "MutableMidiEvent_remove": lambda living: living.objects["MutableMidiEvent"].remove(),
    "MutableEffect_remove": lambda living: living.objects["MutableMidiEffect"].remove(),
    "MutableEffectParameter_remove": lambda living: living.objects["MutableEffectParameter"].remove(),
    "MutableVibratoParameter_remove": lambda living: living.objects["MutableVibratoParameter"].remove(),
    "MutableVibratoParameter_move": lambda living: living.clip.notes[0].vibrato.depths[1].move(0),
    "Manager_readAllClipFiles": lambda living: living.library.read_all_clip_files(),
    "Manager_readUserClipFiles": lambda living: living.library.read_user_clip_files(),
    "Manager_destroy": lambda living: living.library.destroy(),
    "MutableNote_remove": lambda living: living.objects["MutableNote"].remove(),
}


def test_these_are_all_functions_that_end_something():
    assert set(ENDING) == {name for name, entry in FUNCTIONS.items() if entry["destroys"]}


def all_of(living):
    """Every object, including the siblings of those that are moved."""
    return living.objects | {"first event": living.clip.midi_part.midi_controllers[0].events[0]}


def ended(living, name):
    objects = all_of(living)
    ENDING[name](living)
    return {key for key, one in objects.items() if not one.is_alive}


@pytest.fixture
def two_livings(tmp_path):
    with plx.Manager(next(IDS), LIBRARY / "system", tmp_path / "one") as one:
        with plx.Manager(next(IDS), LIBRARY / "system", tmp_path / "two") as two:
            yield Living(one), Living(two)


@pytest.mark.parametrize("name", ENDING)
def test_what_a_call_ends_is_dead_even_if_a_signal_comes_right_after_it(name, two_livings, monkeypatch):
    """Ctrl-C during a call raises an exception when the call returns, before its result is checked."""
    usual, disturbed = two_livings
    function = _library.load()[name]

    def interrupted(*arguments):
        function(*arguments)
        raise KeyboardInterrupt

    expected = ended(usual, name)
    objects = all_of(disturbed)
    monkeypatch.setitem(_library.load(), name, interrupted)
    with pytest.raises(KeyboardInterrupt):
        ENDING[name](disturbed)
    assert expected and {key for key, one in objects.items() if not one.is_alive} == expected
    monkeypatch.undo()
    assert not disturbed.library.is_alive or len(disturbed.library.clips) >= 29


def test_what_is_interrupted_before_it_is_done_can_be_asked_for_again(living, monkeypatch):
    def interrupted(*_):
        raise KeyboardInterrupt

    clip, part, note = living.clip, living.clip.midi_part, living.clip.notes[0]
    monkeypatch.setitem(_library.load(), "MutableClip_createMidiPart", interrupted)
    with pytest.raises(KeyboardInterrupt):
        clip.create_midi_part()
    assert dead(part, note) and clip.notes[0].lyric == "la"
    clip.midi_part.notes[0].remove()
    assert dead(part, note) and len(clip.notes) == 0


def test_objects_have_no_copies(living):
    """A copy would not be marked when the object dies."""
    note = living.clip.notes[0]
    for copied in (copy.copy, copy.deepcopy, pickle.dumps, lambda one: copy.deepcopy([one])):
        with pytest.raises(TypeError, match="a MutableNote cannot be copied"):
            copied(note)


def test_objects_that_were_never_given_out_are_dead():
    for name in plx.objects.__all__:
        made = object.__new__(getattr(plx, name))
        assert dead(made) and repr(made) == f"<{name}, dead>"
        with pytest.raises(TypeError if name == "Manager" else (TypeError, plx.DeadObjectError)):
            getattr(plx, name)()


def test_what_a_finalizer_brings_back_is_dead(living):
    """The collector drops it before the finalizer runs, so it would not be marked when it dies."""
    kept = []

    class Keeper:
        def __init__(self, note):
            self.note, self.itself = note, self

        def __del__(self):
            kept.append(self.note)

    part = living.clip.midi_part
    Keeper(part.insert_note(960, 1, "lo", "l o", 1))
    gc.collect()
    assert dead(kept[0]) and part.notes[1].lyric == "lo" and kept[0] is not part.notes[1]
    part.notes[1].remove()
    with pytest.raises(plx.DeadObjectError):
        kept[0].lyric


def test_iterators_outlive_what_they_go_through(living):
    part = living.clip.midi_part
    for place in range(5):
        part.insert_note(place, 1, "a", "a", 1)
    notes = iter(part.notes)
    assert next(notes) is part.notes[0]
    for note in list(part.notes):
        note.remove()
    assert list(notes) == []
    notes = iter(part.notes)
    living.clip.create_midi_part()
    with pytest.raises(plx.DeadObjectError):
        next(notes)


def test_no_thread_comes_between_the_count_and_the_element(library):
    """A sequence never returns an element that no longer exists."""
    part = library.create_mutable_clip().create_midi_part()
    is_done = threading.Event()

    def work():
        for _ in range(60):
            for note in [part.insert_note(place, 1, "a", "a", 1) for place in range(10)]:
                note.remove()
        is_done.set()

    thread = threading.Thread(target=work)
    before = sys.getswitchinterval()
    sys.setswitchinterval(1e-6)
    thread.start()
    found = []
    while not is_done.is_set():
        found += [*part.notes, *part.notes[:]]
        try:
            found.append(part.notes[-1])
        except IndexError:
            pass
    sys.setswitchinterval(before)
    thread.join()
    assert None not in found


def test_a_process_ends_well_with_open_managers_and_threads_at_work(tmp_path):
    """Also with objects that are used by the last code that runs."""
    script = f"""
        import atexit, threading, time
        import korvel_plx as plx

        def read(folder):
            with plx.Manager(folder, {str(LIBRARY / "system")!r}, folder) as library:
                while True:
                    library.read_all_clip_files()
                    [note.lyric for note in library.clip("brindoll.hearth.greensleeves").notes]

        last = plx.Manager("last", {str(LIBRARY / "system")!r}, {str(tmp_path / "last")!r})
        atexit.register(lambda: print(len(last.clips)))
        for number in range(2):
            threading.Thread(target=read, args=(f"{tmp_path}/{{number}}",), daemon=True).start()
        time.sleep(0.2)
        print("at the end")
    """
    done = subprocess.run([sys.executable, "-c", textwrap.dedent(script)], capture_output=True, text=True,
                          check=False, timeout=100)
    assert (done.returncode, done.stdout, done.stderr) == (0, "at the end\n29\n", "")


class Lanes(RuleBasedStateMachine):
    """Makes the same changes to a lane and to a dictionary: what the dictionary loses must be dead."""

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
        """The next lane may get the address of this one."""
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
