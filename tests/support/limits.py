"""How large a document may be, as the public headers have it."""

import re


def limits_of(sources):
    """{"PROPERTY": bytes, "DATA": bytes}"""
    header = (sources / "include/korvel/plx/common.h").read_text(encoding="utf-8")
    return {name: int(size) for name, size in
            re.findall(r"^#define KRT_PLX_(\w+)_DOCUMENT_LIMIT (\d+)$", header, re.MULTILINE)}


def in_words(size):
    unit, name = (1 << 30, "GiB") if size % (1 << 30) == 0 else (1 << 20, "MiB")
    assert size % unit == 0
    return f"{size // unit} {name}"
