"""The exceptions of this package."""

from __future__ import annotations

from typing import Optional

from .constants import Result


class PlxError(Exception):
    """The library could not do what was asked. `code` is its result code, if it returned one."""

    def __init__(self, what: str, code: Optional[int] = None) -> None:
        self.code = None if code is None else Result(code)
        super().__init__(what if self.code is None else f"{what}: {self.code.name} ({self.code.value})")


class DeadObjectError(PlxError):
    """An object was used after the call that destroyed it."""


class LibraryNotFoundError(PlxError):
    """The krt_plx library was not found, or is not of this version."""
