"""Reads XML and compressed MusicXML from untrusted sources: no entities, nothing fetched, and
limits of size, depth and number of elements."""

from __future__ import annotations

import io
import zipfile
import zlib
from typing import Any, Dict, List
from xml.etree.ElementTree import Element, TreeBuilder
from xml.parsers import expat

from .model import SongError

LARGEST_TEXT = 32 * 2**20
LARGEST_FILE = 16 * 2**20
MOST_ELEMENTS = 500_000
DEEPEST = 64
LARGEST_TAG = PIECE = 256 * 1024
MOST_MEMBERS = 1000
DAMAGES = (zipfile.BadZipFile, zlib.error, EOFError, OSError, NotImplementedError, RuntimeError,
           ValueError, KeyError, IndexError)
CONTAINER = "META-INF/container.xml"


class Reader:
    """One document."""

    def __init__(self) -> None:
        self.builder = TreeBuilder()
        self.depth = self.count = 0
        self.parser = expat.ParserCreate()
        self.parser.buffer_text = True
        self.parser.StartElementHandler = self.start
        self.parser.EndElementHandler = self.end
        self.parser.CharacterDataHandler = self.builder.data
        self.parser.EntityDeclHandler = self.entity
        self.parser.ExternalEntityRefHandler = self.entity

    def place(self) -> str:
        return f"line {self.parser.CurrentLineNumber}, column {self.parser.CurrentColumnNumber + 1}"

    def start(self, name: str, attributes: Dict[str, str]) -> None:
        self.depth += 1
        self.count += 1
        if self.depth > DEEPEST or self.count > MOST_ELEMENTS:
            what = "deeper" if self.depth > DEEPEST else "more elements"
            raise SongError(f"{self.place()}: {what} than a song needs")
        self.builder.start(name, attributes)

    def end(self, name: str) -> None:
        self.depth -= 1
        self.builder.end(name)

    def entity(self, *_: Any) -> int:
        raise SongError(f"{self.place()}: the document declares entities, which are not read")

    def read(self, text: bytes) -> Element:
        try:
            for begin in range(0, len(text), PIECE):
                self.parser.Parse(text[begin:begin + PIECE], False)
                if begin - self.parser.CurrentByteIndex > LARGEST_TAG:
                    raise SongError(f"{self.place()}: a tag of more than {LARGEST_TAG} bytes")
            self.parser.Parse(b"", True)
        except expat.ExpatError as problem:
            message = expat.ErrorString(problem.code)
            raise SongError(f"line {problem.lineno}, column {problem.offset + 1}: {message}") from problem
        except (ValueError, LookupError) as problem:  # an unknown encoding
            raise SongError(f"{self.place()}: {problem}") from problem
        return self.builder.close()


def parse(text: bytes) -> Element:
    if len(text) > LARGEST_TEXT:
        raise SongError(f"the document is larger than {LARGEST_TEXT} bytes")
    return Reader().read(text)


def document_of(data: bytes) -> bytes:
    """The document in a file, which may be compressed."""
    if len(data) > LARGEST_FILE:
        raise SongError(f"the file is larger than {LARGEST_FILE} bytes")
    if not data.startswith(b"PK"):
        return data
    try:
        with zipfile.ZipFile(io.BytesIO(data)) as archive:
            return member(archive, root_file(archive))
    except DAMAGES as problem:
        raise SongError(f"the archive is damaged: {problem}") from problem


def root_file(archive: zipfile.ZipFile) -> str:
    """The document that the container names, or its only one."""
    names = archive.namelist()
    if len(names) > MOST_MEMBERS:
        raise SongError(f"the archive has {len(names)} files")
    if CONTAINER in names:
        for element in parse(member(archive, CONTAINER)).iter():
            if element.tag.rpartition("}")[2] == "rootfile" and element.get("full-path"):
                return str(element.get("full-path"))
    found: List[str] = [name for name in names if name.endswith((".xml", ".musicxml"))
                        and not name.startswith("META-INF/")]
    if not found:
        raise SongError("the archive holds no MusicXML")
    return found[0]


def member(archive: zipfile.ZipFile, name: str) -> bytes:
    """The sizes in the archive are not trusted: no more than the largest allowed document is
    unpacked."""
    if name not in archive.namelist():
        raise SongError(f"the archive has no {name!r}, which it names")
    try:
        with archive.open(name) as file:
            content = file.read(LARGEST_TEXT + 1)
    except DAMAGES as problem:
        raise SongError(f"{name!r} in the archive, at byte {archive.getinfo(name).header_offset}, is damaged: "
                        f"{problem}") from problem
    if len(content) > LARGEST_TEXT:
        raise SongError(f"{name!r} in the archive is larger than {LARGEST_TEXT} bytes")
    return content
