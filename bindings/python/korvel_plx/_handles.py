"""Handles that know when they have died.

The library does not recognise a dead handle. So this package keeps count: each object knows its
owner and its children, and whatever a call ends, by the table of the interface, is marked. A marked
object raises an exception before the library sees it.
"""

from __future__ import annotations

import threading
import weakref
from typing import Any, ClassVar, Dict, Iterator, Optional, Tuple

from .errors import DeadObjectError


class World:
    """A manager and all that hangs from it: one call at a time, and one Python object for each object
    of the library."""

    def __init__(self) -> None:
        self.lock = threading.RLock()
        self.known: "weakref.WeakValueDictionary[Tuple[str, int], Handle]" = (
            weakref.WeakValueDictionary())


# The managers of the process are a world of their own; each is the root of another.
MANAGERS = World()


class Handle:
    """An object of the library. It is made by the library's functions, never by hand."""

    FAMILY: ClassVar[str] = ""
    SHOWN: ClassVar[Tuple[str, ...]] = ()

    _address: int
    _slot: str
    _owner: "Optional[Handle]"
    _world: World
    _alive: bool
    _children: "weakref.WeakSet[Handle]"

    def __init__(self, *_: Any, **__: Any) -> None:
        if not hasattr(self, "_address"):
            raise TypeError(f"{type(self).__name__} objects come from the library")

    @property
    def is_alive(self) -> bool:
        """Whether the object is there still; any other use of a dead one raises DeadObjectError."""
        return self._alive

    def _owners(self) -> "Iterator[Handle]":
        owner = self._owner
        while owner is not None:
            yield owner
            owner = owner._owner

    def _require_life(self) -> int:
        if not self._alive:
            raise DeadObjectError(f"this {type(self).__name__} is dead: a call has ended it")
        return self._address

    def _die(self) -> None:
        """Marks the object and all that it owns."""
        self._alive = False
        self._world_of_self().known.pop((self.FAMILY, self._address), None)
        for child in list(self._children):
            child._die()

    def _world_of_self(self) -> World:
        return MANAGERS if self._owner is None else self._world

    def __repr__(self) -> str:
        name = type(self).__name__
        if not self._alive:
            return f"<{name}, dead>"
        shown = "".join(f" {key}={getattr(self, key)!r}" for key in self.SHOWN)
        return f"<{name}{shown}>"


_CLASSES: Dict[str, type] = {}


def register(classes: Dict[str, type]) -> None:
    """Tells the Python class of each class of the interface."""
    _CLASSES.update(classes)


def adopt(address: Optional[int], name: Optional[str], family: str, slot: Optional[str],
          owner: Optional[Handle]) -> Optional[Handle]:
    """The Python object of an object of the library: the one that there is, or a new one."""
    if not address:
        return None
    world = MANAGERS if owner is None else owner._world
    known = world.known.get((family, address))
    if known is not None:
        return known
    if name is None or slot is None:
        raise DeadObjectError(f"an unknown {family}")
    return _make(address, _CLASSES[name], family, slot, owner, world)


def _make(address: int, kind: type, family: str, slot: str, owner: Optional[Handle],
          world: World) -> Handle:
    made: Handle = object.__new__(kind)
    made._address = address
    made._slot = slot
    made._owner = owner
    made._world = World() if owner is None else world
    made._alive = True
    made._children = weakref.WeakSet()
    world.known[(family, address)] = made
    if owner is not None:
        owner._children.add(made)
    return made
