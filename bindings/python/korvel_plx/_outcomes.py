"""Turns the library's results into those of the methods of objects, or into exceptions."""

from __future__ import annotations

from typing import Any, Optional

from ._calls import call
from ._table import FUNCTIONS
from .errors import PlxError


def none_if(value: Any, mark: Any) -> Any:
    return None if value == mark else value


def expect_class(name: str, owner: Any) -> None:
    """Called when a call has failed: the object may be of a class that the method does not accept."""
    needed = FUNCTIONS[name]["class"]
    if needed not in (kind.__name__ for kind in type(owner).__mro__):
        raise TypeError(f"{name} takes a {needed}, not {owner!r:.60}")


def accept(name: str, *arguments: Any) -> None:
    """For calls that refuse some values. A property that is a text is never None, although the
    library accepts a null text for an empty one."""
    if None in arguments:
        raise TypeError(f"{name}: a value is needed, not None")
    if not call(name, *arguments):
        expect_class(name, arguments[0])
        raise refusal(name, arguments)


def made(name: str, *arguments: Any) -> Any:
    """For calls that return a new object; without arguments they fail only when memory runs out."""
    result = call(name, *arguments)
    if result is None:
        expect_class(name, arguments[0])
        raise refusal(name, arguments) if len(arguments) > 1 else MemoryError(name)
    return result


def do(name: str, *arguments: Any) -> None:
    """For calls that can fail."""
    if not call(name, *arguments):
        expect_class(name, arguments[0])
        raise PlxError(f"{name} was not done")


def read(name: str, *arguments: Any) -> None:
    code = call(name, *arguments)
    if code != 0:
        expect_class(name, arguments[0])
        raise PlxError(name, code)


def saved(name: str, *arguments: Any) -> Any:
    clip, code = call(name, *arguments)
    if clip is None:
        expect_class(name, arguments[0])
        raise PlxError(name, code) if code is not None else MemoryError(name)
    return clip


def refusal(name: str, arguments: Any) -> ValueError:
    parameters = [p for p in FUNCTIONS[name]["parameters"] if p["role"] == "value"]
    values = arguments[len(arguments) - len(parameters):]
    said = "; ".join(f"{p['name']} {shown(value)} ({p['comment']})"
                     for p, value in zip(parameters, values))
    return ValueError(f"{name} refuses {said}")


def shown(value: Optional[Any]) -> str:
    text = repr(value)
    return text if len(text) < 80 else text[:77] + "..."
