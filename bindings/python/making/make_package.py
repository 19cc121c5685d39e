"""Writes the parts of the package that are made from the interface.

make_package.py INTERFACE_FILE FOLDER
"""

import json
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parent))
from classes import Additions, objects  # noqa: E402
from plain import constants, functions, table  # noqa: E402


def make(interface_file, folder):
    interface = json.loads(pathlib.Path(interface_file).read_text(encoding="utf-8"))
    parts = {"_table.py": table(interface), "constants.py": constants(interface),
             "functions.py": functions(interface), "objects.py": objects(interface, Additions())}
    for name, lines in parts.items():
        (pathlib.Path(folder) / name).write_text("\n".join(lines) + "\n", encoding="utf-8")
    return sorted(parts)


if __name__ == "__main__":
    make(*sys.argv[1:])
