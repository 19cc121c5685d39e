"""Clips for singing-voice editors, in Python: the krt_plx library and its objects.

    import korvel_plx as plx

    with plx.Manager("my-script", "system-clips", "my-clips") as library:
        for clip in library.clips:
            print(clip.name, [note.lyric for note in clip.notes])

`objects` has the classes, `functions` the functions beneath them, `constants` the codes.
"""

from ._library import library_path
from ._sequences import PlxSequence
from ._table import VERSION as __version__
from .constants import (
    ClipKind,
    ControllerType,
    EffectKind,
    PartType,
    Result,
    ValueType,
    VibratoPointKind,
)
from .errors import DeadObjectError, LibraryNotFoundError, PlxError
from . import objects
from .objects import *

__all__ = objects.__all__ + [
    "ClipKind", "ControllerType", "DeadObjectError", "EffectKind", "LibraryNotFoundError", "PartType",
    "PlxError", "PlxSequence", "Result", "ValueType", "VibratoPointKind", "library_path",
]
