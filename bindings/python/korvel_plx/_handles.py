"""Handles that know when their object was destroyed.

The library does not recognise a dead handle. So this package keeps track: each object knows its
owner and its children, and objects that a call may destroy, by the table of the interface, are
marked before the call. If the call has destroyed nothing, the mark is removed. So a destroyed
object is never used, not even when a signal interrupts Python right after the call. An object with
a dead owner is dead too.
"""

from __future__ import annotations

import threading
import weakref
from typing import Any, ClassVar, Dict, Iterator, NoReturn, Optional, Tuple

from .errors import DeadObjectError


class World:
    """A manager and everything that it owns: one call at a time, and one Python object for each
    object of the library."""

    def __init__(self) -> None:
        self.lock = threading.RLock()
        self.known: "weakref.WeakValueDictionary[Tuple[str, int], Handle]" = (
            weakref.WeakValueDictionary())


# The list of managers is a world of its own; each manager is the root of another.
MANAGERS = World()


class Handle:
    """An object of the library. Only the library's functions make it."""

    FAMILY: ClassVar[str] = ""
    SHOWN: ClassVar[Tuple[str, ...]] = ()

    _address: int
    _slot: str
    _owner: "Optional[Handle]" = None
    _world: World = MANAGERS
    _alive: bool = False
    _children: "weakref.WeakSet[Handle]"

    def __init__(self, *_: Any, **__: Any) -> None:
        if not hasattr(self, "_address"):
            raise TypeError(f"{type(self).__name__} objects come from the library")

    def __reduce_ex__(self, _: Any) -> NoReturn:
        """Called for copies and by pickle. Forbidden, because a copy would not be marked when the
        object dies."""
        raise TypeError(f"a {type(self).__name__} cannot be copied: it stands for an object of the library")

    @property
    def is_alive(self) -> bool:
        """Whether the object still exists; any other use of a dead one raises DeadObjectError."""
        with self._world.lock:
            return self._lives()

    def _lives(self) -> bool:
        """An object that a finalizer has kept is no longer known here, so it would not be marked
        when it dies. It counts as dead."""
        world = MANAGERS if self._owner is None else self._world
        return (self._alive and world.known.get((self.FAMILY, self._address)) is self
                and all(owner._alive for owner in self._owners()))

    def _owners(self) -> "Iterator[Handle]":
        owner = self._owner
        while owner is not None:
            yield owner
            owner = owner._owner

    def _require_life(self) -> int:
        if not self._lives():
            raise DeadObjectError(f"this {type(self).__name__} is dead: a call has ended it")
        return self._address

    def __repr__(self) -> str:
        name = type(self).__name__
        if not self.is_alive:
            return f"<{name}, dead>"
        shown = "".join(f" {key}={getattr(self, key)!r}" for key in self.SHOWN)
        return f"<{name}{shown}>"


_CLASSES: Dict[str, type] = {}


def register(classes: Dict[str, type]) -> None:
    """Sets the Python class for each class of the interface."""
    _CLASSES.update(classes)


def adopt(address: Optional[int], name: Optional[str], family: str, slot: Optional[str],
          owner: Optional[Handle]) -> Optional[Handle]:
    """The Python object for an object of the library: the existing one, or a new one."""
    if not address:
        return None
    world = MANAGERS if owner is None else owner._world
    known = world.known.get((family, address))
    if known is not None and known._lives():
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
    # In this order, because an object that is known is always marked, even if this is interrupted
    # in between.
    if owner is not None:
        owner._children.add(made)
    world.known[(family, address)] = made
    return made
