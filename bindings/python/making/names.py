"""How the interface's names are written in Python."""

import os
import re

PREFIX = "KRT_PLX_"
TYPES = {"bool": "bool", "float": "float", "int32": "int", "uint32": "int", "uint64": "int",
         "void": "None", "text": "Optional[str]", "texts": "Optional[Sequence[Optional[str]]]"}


def bare(name):
    return name.removeprefix(PREFIX)


def snake(name):
    """langID becomes lang_id, singerIDs singer_ids."""
    name = name.replace("IDs", "Ids").replace("ID", "Id")
    return re.sub(r"(?<=[a-z0-9])(?=[A-Z])", "_", name).lower()


def small(name):
    return name[:1].lower() + name[1:]


def common_prefix(names):
    """Up to the last underscore that all have in common."""
    return os.path.commonprefix(names).rpartition("_")[0] + "_"


def plural(name):
    return name if name.endswith("s") else name + "s"


def docstring(text, indent):
    """A text as a docstring; the comments of the headers are Markdown and are used unchanged."""
    text = text.replace("\\", "\\\\").replace('"""', "'''").strip()
    lines = text.splitlines() or [""]
    if len(lines) == 1 and not text.endswith('"'):
        return f'{indent}"""{text}"""'
    body = "\n".join(f"{indent}{line}".rstrip() for line in lines[1:])
    first = f'{indent}"""{lines[0]}'
    return (f"{first}\n{body}\n" if body else f"{first}\n") + f'{indent}"""'
