"""Lists of the library, as sequences that ask the library each time."""

from __future__ import annotations

import itertools
import operator
from typing import Any, Iterator, List, Optional, Sequence, TypeVar, Union, cast, overload

from ._calls import call
from ._handles import Handle

T = TypeVar("T")


class PlxSequence(Sequence[T]):
    """The elements of an object, by index. Changes are visible at once, because it is not a copy.
    No other thread can come between reading the count and the element."""

    def __init__(self, owner: Handle, count: str, item: str, has: Optional[str] = None,
                 *which: Any) -> None:
        self._owner = owner
        self._count = count
        self._item = item
        self._has = has
        self._which = which

    def __len__(self) -> int:
        return cast(int, call(self._count, self._owner, *self._which))

    @overload
    def __getitem__(self, index: int) -> T: ...

    @overload
    def __getitem__(self, index: slice) -> "List[T]": ...

    def __getitem__(self, index: Union[int, slice]) -> "Union[T, List[T]]":
        with self._owner._world.lock:
            if isinstance(index, slice):
                return [self._at(place) for place in range(*index.indices(len(self)))]
            place = operator.index(index)
            size = len(self)
            if not -size <= place < size:
                raise IndexError(f"{place} of {size}")
            return self._at(place % size)

    def _at(self, place: int) -> T:
        return cast(T, call(self._item, self._owner, *self._which, place))

    def __iter__(self) -> "Iterator[T]":
        for place in itertools.count():
            with self._owner._world.lock:
                if place >= len(self):
                    return
                item = self._at(place)
            yield item

    def __contains__(self, value: object) -> bool:
        if self._has is None:
            return any(value == item for item in self)
        return isinstance(value, Handle) and bool(call(self._has, self._owner, *self._which, value))

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Sequence) and not isinstance(other, str) and list(self) == list(other)

    __hash__ = None  # type: ignore[assignment]

    def __repr__(self) -> str:
        return repr(list(self))
