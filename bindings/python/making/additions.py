"""Hand-written members of the classes. This file is never imported: the generator copies its
members into the generated class of the same name."""

# Imports of the generated classes.
import os
import pathlib
from typing import Any, Iterable, List, Optional, Sequence, Union, cast

from . import constants
from ._calls import call
from ._handles import Handle, register
from ._outcomes import accept, do, made, none_if, read, saved
from ._sequences import PlxSequence
from .errors import PlxError

PathText = Union[str, "os.PathLike[str]"]


class Manager:
    SHOWN = ("app_id",)

    def __new__(cls, app_id: str, system_dir: PathText, user_dir: PathText,
                extra_system_dirs: Iterable[PathText] = (),
                extra_user_dirs: Iterable[PathText] = (), read: bool = True) -> "Manager":
        """Creates the manager of an application ID and reads its clips, or returns the existing
        one. As a context manager it destroys itself at the end."""
        manager, code = call("CreateManager", app_id, os.fspath(system_dir), os.fspath(user_dir),
                             [os.fspath(folder) for folder in extra_system_dirs],
                             [os.fspath(folder) for folder in extra_user_dirs])
        if manager is None:
            raise PlxError("the manager cannot be created", code)
        if code is not None and read:
            cls._read_or_destroy(manager)
        return cast(Manager, manager)

    @staticmethod
    def _read_or_destroy(manager: "Manager") -> None:
        try:
            manager.read_all_clip_files()
        except PlxError:
            manager.destroy()
            raise

    def __enter__(self) -> "Manager":
        return self

    def __exit__(self, *_: Any) -> None:
        if self.is_alive:
            self.destroy()

    @property
    def clips(self) -> "List[Clip]":
        """The system clips and then the user clips, as they are listed now."""
        return [*self.system_clips, *self.user_clips]

    def clip(self, id: str) -> "Clip":
        """The clip of an ID, a system clip before a user clip; KeyError when there is none."""
        for clip in self.clips:
            if clip.id == id:
                return clip
        raise KeyError(id)


class Clip:
    SHOWN = ("name", "id")

    @property
    def file(self) -> pathlib.Path:
        """The clip file, as the system writes paths."""
        return pathlib.Path(self.path.replace("\\", os.sep))

    @property
    def part(self) -> "Union[MidiPart, AudioPart]":
        """The part, which is read at the first time; PlxError when it cannot be read."""
        if self.midi_part is None and self.audio_part is None:
            self.read_part()
        return cast("Union[MidiPart, AudioPart]", self.midi_part or self.audio_part)

    @property
    def notes(self) -> "Sequence[Note]":
        """The notes of the part, which is read at the first time; an audio part has none."""
        part = self.part
        return part.notes if isinstance(part, MidiPart) else []


class UserClip:
    def change(self, name: Optional[str] = None, types: Optional[Iterable[str]] = None,
               genres: Optional[Iterable[str]] = None, part_key: Optional[int] = None,
               part_tempo: Optional[int] = None) -> None:
        """Changes the given properties of the clip on disk, and keeps the others."""
        editor = self.create_property_editor()
        try:
            editor.set_clip_name(self.name if name is None else name)
            for text in dict.fromkeys(self.filter.types if types is None else types):
                editor.add_filter_type(text)
            for text in dict.fromkeys(self.filter.genres if genres is None else genres):
                editor.add_filter_genre(text)
            editor.set_part_key(self.part_key if part_key is None else part_key)
            editor.set_part_tempo(self.part_tempo if part_tempo is None else part_tempo)
            editor.save()
        finally:
            self.destroy_property_editor(editor)


class MutableClip:
    SHOWN = ("part_type", "part_key", "part_tempo")

    def __enter__(self) -> "MutableClip":
        return self

    def __exit__(self, *_: Any) -> None:
        if self.is_alive:
            self.destroy()

    @property
    def part(self) -> "Union[MutableMidiPart, MutableAudioPart, None]":
        """The part, or None when the clip has none yet."""
        return self.midi_part or self.audio_part

    @property
    def notes(self) -> "Sequence[MutableNote]":
        """The notes of the part; a clip without MIDI part has none."""
        return self.midi_part.notes if self.midi_part else []


class Filter:
    SHOWN = ("types", "genres", "languages", "singer_groups", "singer_ids", "vendors")


class PartBase:
    SHOWN = ("type",)


class MidiPart:
    @property
    def midi_controllers(self) -> "List[MidiController]":
        """The controller lanes that there are, by type."""
        lanes = (self.midi_controller(kind) for kind in range(constants.ControllerType.NONE))
        return [lane for lane in lanes if lane is not None]


class MutableMidiPart:
    @property
    def midi_controllers(self) -> "List[MutableMidiController]":
        """The controller lanes that there are, by type."""
        lanes = (self.midi_controller(kind) for kind in range(constants.ControllerType.NONE))
        return [lane for lane in lanes if lane is not None]


class MutableAudioPart:
    def set_wave_file(self, path: PathText) -> None:
        """Sets the wave file by a path of the system; the library needs backslashes."""
        whole = os.path.abspath(os.fspath(path))
        self.wav_file_path = whole.replace("/", "\\")


class NoteBase:
    SHOWN = ("pos", "duration", "number", "lyric")


class Note:
    @property
    def attack(self) -> "Dvqm":
        """The voice quality at the start of the note."""
        return self.dvqm(True)

    @property
    def release(self) -> "Dvqm":
        """The voice quality at the end of the note."""
        return self.dvqm(False)


class MutableNote:
    @property
    def attack(self) -> "MutableDvqm":
        """The voice quality at the start of the note."""
        return self.dvqm(True)

    @property
    def release(self) -> "MutableDvqm":
        """The voice quality at the end of the note."""
        return self.dvqm(False)


class DvqmBase:
    SHOWN = ("comp_id", "level_names")


class MutableDvqm:
    @property
    def is_protected(self) -> bool:
        """The protection mark, which the library stores and does not act upon."""
        return super().is_protected

    @is_protected.setter
    def is_protected(self, value: bool) -> None:
        call("MutableDvqm_protect", self, value)

    def protect(self, value: bool) -> bool:
        """Sets or clears the protection mark, and returns the mark."""
        return cast(bool, call("MutableDvqm_protect", self, value))


class SingingSkillBase:
    SHOWN = ("duration", "pre_weight", "post_weight")


class VibratoBase:
    SHOWN = ("type", "duration")


class Vibrato:
    def _curve(self, kind: constants.VibratoPointKind) -> "PlxSequence[VibratoParameter]":
        return PlxSequence(self, "VibratoBase_numParameters", "Vibrato_parameter",
                           "Vibrato_hasParameter", kind)

    @property
    def depths(self) -> "PlxSequence[VibratoParameter]":
        """The points of the depth curve, by position."""
        return self._curve(constants.VibratoPointKind.DEPTH)

    @property
    def rates(self) -> "PlxSequence[VibratoParameter]":
        """The points of the rate curve, by position."""
        return self._curve(constants.VibratoPointKind.RATE)


class MutableVibrato:
    def _curve(self, kind: constants.VibratoPointKind) -> "PlxSequence[MutableVibratoParameter]":
        return PlxSequence(self, "VibratoBase_numParameters", "MutableVibrato_parameter",
                           "MutableVibrato_hasParameter", kind)

    @property
    def depths(self) -> "PlxSequence[MutableVibratoParameter]":
        """The points of the depth curve, by position."""
        return self._curve(constants.VibratoPointKind.DEPTH)

    @property
    def rates(self) -> "PlxSequence[MutableVibratoParameter]":
        """The points of the rate curve, by position."""
        return self._curve(constants.VibratoPointKind.RATE)

    def insert_depth(self, pos: int, value: int) -> "MutableVibratoParameter":
        """Inserts a point into the depth curve, or changes the one at that position."""
        return self.insert_parameter(constants.VibratoPointKind.DEPTH, pos, value)

    def insert_rate(self, pos: int, value: int) -> "MutableVibratoParameter":
        """Inserts a point into the rate curve, or changes the one at that position."""
        return self.insert_parameter(constants.VibratoPointKind.RATE, pos, value)


class VibratoParameterBase:
    SHOWN = ("pos", "value")


class MidiControllerBase:
    SHOWN = ("type",)


class MidiEventBase:
    SHOWN = ("pos", "value")


class EffectBase:
    SHOWN = ("id",)


class EffectParameterBase:
    SHOWN = ("name", "value")

    @property
    def value(self) -> Union[int, float, str, None]:
        """The value, of whichever type it is; None when there is none yet."""
        if self.type == constants.ValueType.INT32:
            return self.value_int32
        if self.type == constants.ValueType.FLOAT:
            return self.value_float
        return self.value_string if self.type == constants.ValueType.STRING else None


class MutableEffectParameter:
    @property
    def value(self) -> Union[int, float, str, None]:
        """The value, of whichever type it is; None when there is none yet. What is set decides the
        type."""
        return super().value

    @value.setter
    def value(self, value: Union[int, float, str, None]) -> None:
        if isinstance(value, str):
            self.value_string = value
        elif isinstance(value, float):
            self.value_float = value
        elif isinstance(value, int) and not isinstance(value, bool):
            self.value_int32 = value
        else:
            raise TypeError(f"an effect's parameter holds an integer, a float or a text, not {value!r}")
