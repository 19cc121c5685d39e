"""Texts of the library: 16-bit units, ended by a zero."""

from __future__ import annotations

import ctypes
import sys
from typing import Optional

_ENCODING = "utf-16-le" if sys.byteorder == "little" else "utf-16-be"
_PAGE = 4096


def encode(text: str) -> bytes:
    """Lone surrogates are allowed: the library stores them, but refuses to save them."""
    if "\0" in text:
        raise ValueError("a text with a NUL would be cut there")
    return text.encode(_ENCODING, "surrogatepass") + b"\0\0"


def decode(address: Optional[int]) -> Optional[str]:
    """A copy of a text that belongs to the library."""
    if not address:
        return None
    found = bytearray()
    while True:
        # Reads only up to the end of a page before it looks for the end of the text: the next page
        # may not exist.
        piece = ctypes.string_at(address, _PAGE - address % _PAGE)
        end = _end_of(piece)
        if end is not None:
            found += piece[:end]
            return found.decode(_ENCODING, "surrogatepass")
        found += piece
        address += len(piece)


def _end_of(piece: bytes) -> Optional[int]:
    place = piece.find(b"\0\0")
    while place >= 0 and place % 2:
        place = piece.find(b"\0\0", place + 1)
    return place if place >= 0 else None


def units(text: str) -> int:
    """The number of 16-bit units of a text."""
    return len(text.encode(_ENCODING, "surrogatepass")) // 2
