"""Finds and loads the library, and sets the types of its functions."""

from __future__ import annotations

import ctypes
import os
import pathlib
import sys
from typing import Any, Callable, Dict, Iterator, Optional

from ._table import FUNCTIONS, VERSION
from .errors import LibraryNotFoundError

_C_TYPES: Dict[str, Any] = {
    "handle": ctypes.c_void_p,
    "text": ctypes.c_void_p,
    "texts": ctypes.c_void_p,
    "bool": ctypes.c_bool,
    "float": ctypes.c_float,
    "int32": ctypes.c_int32,
    "uint32": ctypes.c_uint32,
    "uint64": ctypes.c_uint64,
    "void": None,
}
_loaded: Optional[Dict[str, Callable[..., Any]]] = None
_path = ""


def compatible_version() -> str:
    """The part of the version that must be equal: with the minor version, while the major version
    is 0."""
    major, minor, _ = VERSION.split(".")
    return major if major != "0" else f"{major}.{minor}"


def file_names() -> "list[str]":
    if sys.platform == "win32":
        return ["krt_plx.dll"]
    return [f"libkrt_plx.so.{compatible_version()}", "libkrt_plx.so"]


def folders() -> "Iterator[pathlib.Path]":
    """The folder beside the package, and the library folders of the installed tree or environment
    that contains it."""
    package = pathlib.Path(__file__).resolve().parent
    yield package
    for root in [*package.parents, pathlib.Path(sys.prefix)]:
        if (root / "lib").is_dir():
            yield from (root / "lib", root / "bin")


def candidates() -> "Iterator[str]":
    """What is tried, in this order; the system searches for a name without a folder."""
    said = os.environ.get("KRT_PLX_LIBRARY")
    if said:
        place = pathlib.Path(said)
        yield from (str(place / name) for name in file_names()) if place.is_dir() else iter([said])
        return
    for folder in folders():
        for name in file_names():
            if (folder / name).is_file():
                yield str(folder / name)
    yield from file_names()


def load() -> "Dict[str, Callable[..., Any]]":
    """The functions of the library, by their names without KRT_PLX_."""
    global _loaded, _path
    if _loaded is None:
        problems = []
        for candidate in candidates():
            try:
                library = ctypes.CDLL(candidate)
                _loaded, _path = prototypes(library), candidate
                break
            except (OSError, AttributeError) as problem:
                problems.append(f"{candidate}: {problem}")
        else:
            raise LibraryNotFoundError("krt_plx cannot be loaded; " + "; ".join(problems))
    return _loaded


def library_path() -> str:
    """The file that is loaded, as it was found."""
    load()
    return _path


def prototypes(library: ctypes.CDLL) -> "Dict[str, Callable[..., Any]]":
    found = {}
    for name, entry in FUNCTIONS.items():
        function = getattr(library, f"KRT_PLX_{name}")
        function.argtypes = [c_type(parameter) for parameter in entry["parameters"]]
        function.restype = _C_TYPES[entry["result"]["kind"]]
        found[name] = function
    return found


def c_type(parameter: "Dict[str, Any]") -> Any:
    plain = _C_TYPES[parameter["kind"]]
    return ctypes.POINTER(plain) if parameter["role"] == "result" else plain
