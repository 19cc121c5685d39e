"""Makes the functions that pass their calls on: functions.c, from the interface as data.

    make_functions.py <krt_plx.api.json> <functions.c>

While nothing is loaded, a function returns what it returns for a null handle. The headers say what that
is, and the interface has it from them.
"""

import json
import pathlib
import sys

HEAD = """\
/* Made from krt_plx.api.json at build time. */
#include "table.h"
"""

FUNCTION = """
{declaration}
{{
    return KRT_PLX_loadedTable.{name} != NULL
        ? KRT_PLX_loadedTable.{name}({arguments}) : {otherwise};
}}
"""

PROCEDURE = """
{declaration}
{{
    if (KRT_PLX_loadedTable.{name} != NULL) {{
        KRT_PLX_loadedTable.{name}({arguments});
    }}
}}
"""

# A host for Windows is compiled with declarations that say that the functions are imported, and calls
# each by the pointer that an import library would have.
IMPORTS = """
#if defined(_WIN64)
#    define POINTER_TO(name) __imp_##name
#elif defined(_WIN32)
/* For 32-bit programs, each name of C gets an underscore: the one between "__imp_" and the name, and
   another one in front of all. */
#    define POINTER_TO(name) _imp__##name
#endif

#if defined(_WIN32)
{pointers}
#endif
"""

POINTER = "void (*const POINTER_TO({name}))(void) = (void (*)(void)){name};"


def literal(result):
    """What the function returns while nothing is loaded, in C."""
    kind, value = result["kind"], result["rejected"]
    if kind in ("handle", "text"):
        assert value is None, value
        return "NULL"
    if kind == "bool":
        return str(value).lower()
    suffix = {"int32": "", "uint32": "u", "uint64": "u", "float": "f"}[kind]
    return f"{value}{suffix}"


def definition(function):
    result = function["result"]
    parts = {
        "name": function["name"],
        "declaration": function["c"],
        "arguments": ", ".join(parameter["name"] for parameter in function["parameters"]),
    }
    if result["kind"] == "void":
        return PROCEDURE.format(**parts)
    return FUNCTION.format(**parts, otherwise=literal(result))


def main():
    interface, file = map(pathlib.Path, sys.argv[1:])
    functions = json.loads(interface.read_text(encoding="utf-8"))["functions"]
    definitions = "".join(map(definition, functions))
    pointers = "\n".join(POINTER.format(name=function["name"]) for function in functions)
    file.write_text(HEAD + definitions + IMPORTS.format(pointers=pointers), encoding="utf-8")


if __name__ == "__main__":
    main()
