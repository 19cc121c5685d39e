"""Calling the library: converts arguments and results, and marks what the call destroys as dead."""

from __future__ import annotations

import contextlib
import ctypes
import math
import operator
from typing import Any, ContextManager, Dict, List, Optional

from . import _library, _text
from ._handles import MANAGERS, Handle, adopt
from ._table import FUNCTIONS

_LIMITS = {"int32": (-(2**31), 2**31 - 1), "uint32": (0, 2**32 - 1), "uint64": (0, 2**64 - 1)}
_LARGEST_FLOAT = float.fromhex("0x1.fffffep+127")
# The initial value of an out-parameter, to see whether the library has written it.
_UNTOUCHED = {"uint32": 0xFFFFFFFF, "uint64": 2**64 - 1}


def call(name: str, *arguments: Any) -> Any:
    """Calls a function by its name without KRT_PLX_. Pointers for counts and codes are not passed:
    their values are returned. Sizes of arrays are not passed either."""
    entry = FUNCTIONS[name]
    owner = _self_of(entry, name, arguments)
    with _list_of_managers(entry, owner), _manager_of(owner):
        if _asks_for_a_dead_element(entry, arguments):
            return False
        return _locked_call(name, entry, owner, arguments)


def _locked_call(name: str, entry: Dict[str, Any], owner: Optional[Handle], arguments: Any) -> Any:
    function = _library.load()[name]
    out: List[Any] = []
    passed = _convert_all(name, entry, arguments, out)
    ending = _ended_by(entry, owner, arguments)
    _mark(ending, False)
    result = function(*passed)
    # Python may be interrupted here. Then the objects stay dead, and can be fetched again.
    if _has_ended_nothing(entry, result):
        _mark(ending, True)
    return _result(entry["result"], result, owner, out)


def _self_of(entry: Dict[str, Any], name: str, arguments: Any) -> Optional[Handle]:
    parameters = [p for p in entry["parameters"] if p["role"] not in ("result", "size")]
    if len(arguments) != len(parameters):
        raise TypeError(f"{name} takes {len(parameters)} arguments, not {len(arguments)}")
    if not parameters or parameters[0]["role"] != "self":
        return None
    first = arguments[0]
    _check_family(name, parameters[0], first)
    return first if isinstance(first, Handle) else None


def _list_of_managers(entry: Dict[str, Any], owner: Optional[Handle]) -> ContextManager[Any]:
    """Only one thread at a time creates or destroys managers."""
    if owner is None or (owner._owner is None and entry["destroys"]):
        return MANAGERS.lock
    return contextlib.nullcontext()


def _manager_of(owner: Optional[Handle]) -> ContextManager[Any]:
    """Only one thread at a time calls functions of a manager."""
    if owner is None:
        return contextlib.nullcontext()
    return owner._world.lock


def _asks_for_a_dead_element(entry: Dict[str, Any], arguments: Any) -> bool:
    """A new object may have the address of a dead one, so that the library would find it."""
    if not entry["operation"].lower().startswith("has"):
        return False
    return any(isinstance(argument, Handle) and not argument._lives()
               for argument, parameter in zip(arguments, entry["parameters"])
               if parameter["role"] == "element")


def _check_family(name: str, parameter: Dict[str, Any], argument: Any) -> None:
    family = parameter["family"]
    if argument is not None and not (isinstance(argument, Handle) and argument.FAMILY == family):
        raise TypeError(f"{name}: {parameter['name']} is a {family}, not {argument!r:.60}")


def _convert_all(name: str, entry: Dict[str, Any], arguments: Any, out: List[Any]) -> List[Any]:
    passed: List[Any] = []
    left = iter(arguments)
    array: Any = None
    for parameter in entry["parameters"]:
        if parameter["role"] == "result":
            out.append((parameter["kind"], _new_out(parameter["kind"])))
            passed.append(ctypes.byref(out[-1][1]))
        elif parameter["role"] == "size":
            passed.append(len(array or ()))
        else:
            array = next(left)
            passed.append(_convert(name, parameter, array))
    return passed


def _new_out(kind: str) -> Any:
    return {"uint32": ctypes.c_uint32, "uint64": ctypes.c_uint64}[kind](_UNTOUCHED[kind])


def _convert(name: str, parameter: Dict[str, Any], argument: Any) -> Any:
    kind = parameter["kind"]
    if kind == "handle":
        return _convert_handle(name, parameter, argument)
    if kind == "text":
        return _convert_text(name, parameter, argument)
    if kind == "texts":
        return _convert_texts(name, parameter, argument)
    if kind == "bool":
        if not isinstance(argument, bool):
            raise TypeError(f"{name}: {parameter['name']} is True or False, not {argument!r:.60}")
        return argument
    return _convert_float(name, parameter, argument) if kind == "float" else (
        _convert_integer(name, parameter, argument))


def _convert_handle(name: str, parameter: Dict[str, Any], argument: Any) -> Optional[int]:
    _check_family(name, parameter, argument)
    if argument is None:
        return None
    if parameter["ignored"] and not argument._lives():
        return None
    address: int = argument._require_life()
    return address


def _convert_text(name: str, parameter: Dict[str, Any], argument: Any) -> Optional[bytes]:
    if argument is None:
        return None
    if not isinstance(argument, str):
        raise TypeError(f"{name}: {parameter['name']} is a text, not {argument!r:.60}")
    return _text.encode(argument)


def _convert_texts(name: str, parameter: Dict[str, Any], argument: Any) -> Any:
    if argument is None:
        return None
    texts = [_convert_text(name, parameter, text) for text in argument]
    array = (ctypes.c_char_p * len(texts))(*texts)
    return ctypes.cast(array, ctypes.c_void_p) if texts else None


def _convert_float(name: str, parameter: Dict[str, Any], argument: Any) -> float:
    if isinstance(argument, (str, bytes)):
        raise TypeError(f"{name}: {parameter['name']} is a number, not {argument!r:.60}")
    number = float(argument)
    if math.isfinite(number) and abs(number) > _LARGEST_FLOAT:
        raise ValueError(f"{name}: {number} does not fit in 32 bits")
    return number


def _convert_integer(name: str, parameter: Dict[str, Any], argument: Any) -> int:
    number = operator.index(argument)
    low, high = _LIMITS[parameter["kind"]]
    if not low <= number <= high:
        raise ValueError(f"{name}: {parameter['name']} is {low} to {high}, not {number}")
    return number


def _ended_by(entry: Dict[str, Any], owner: Optional[Handle], arguments: Any) -> List[Handle]:
    """What a call destroys unless it fails. Only objects that Python knows must be marked."""
    found: List[Handle] = []
    if owner is None:
        return found
    for death in entry["destroys"]:
        if death["what"] == "self":
            found.append(owner)
        elif death["what"] == "children":
            found += [child for child in list(owner._children)
                      if child._slot == death["slot"] and child._lives()]
        else:
            found += _siblings_at(owner, arguments)
    return found


def _siblings_at(owner: Handle, arguments: Any) -> List[Handle]:
    """The objects at the position to which another is about to be moved."""
    family, position = owner.FAMILY, operator.index(arguments[1])
    siblings = [other for other in list(owner._owner._children) if other is not owner
                and other.FAMILY == family and other._lives()] if owner._owner else []
    return [other for other in siblings if call(f"{family}_pos", other) == position
            and call(f"{family}_type", other) == call(f"{family}_type", owner)]


def _mark(objects: List[Handle], alive: bool) -> None:
    for one in objects:
        one._alive = alive


def _has_ended_nothing(entry: Dict[str, Any], result: Any) -> bool:
    """True for a false or null result; a code does not say so."""
    return entry["result"]["kind"] in ("bool", "handle") and not result


def _result(entry: Dict[str, Any], result: Any, owner: Optional[Handle], out: List[Any]) -> Any:
    kind = entry["kind"]
    if kind == "text":
        result = _text.decode(result)
    elif kind == "handle":
        result = adopt(result, entry["class"], entry["family"], entry["slot"],
                       _owner_of(entry["owner"], owner))
    if not out:
        return result
    (out_kind, value), = out
    written = value.value if value.value != _UNTOUCHED[out_kind] or result is True else None
    return written if kind == "bool" else (result, written)


def _owner_of(which: str, owner: Optional[Handle]) -> Optional[Handle]:
    if which == "library" or owner is None:
        return None
    if which == "manager":
        return list(owner._owners())[-1]
    if which == "owner of self":
        return None if owner._owner is None or owner._owner._owner is None else owner._owner
    return owner
