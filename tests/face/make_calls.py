"""Makes the calls of the face for each property of the list in tests/support/properties.cpp.

usage: make_calls.py PROPERTIES OUTPUT

The C functions of a row are called by the member functions of the same names of the classes of the same names. A
class that lacks one of them does not compile.
"""

import pathlib
import re
import sys

ROW = re.compile(r'\bat\(\s*"\w*",\s*"\w+",\s*(KRT_PLX_(\w+?)_(\w+)),\s*KRT_PLX_(\w+?)_(\w+)\b')

HEAD = """// Made from the list of properties.
#pragma once

#include <korvel/plx.hpp>

// Calls visit(getter, face's getter, face's setter) for each of them.
template <class Visit>
void forEachFaceCall(Visit visit)
{
"""

CALL = """    visit(
        %s, [](auto* handle) { return korvel::plx::%s(handle).%s(); },
        [](auto* handle, const auto& value) {
            return korvel::plx::%s(handle).%s(value);
        });
"""


def main():
    source = pathlib.Path(sys.argv[1]).read_text()
    rows = ROW.findall(source)
    if not rows or len(rows) != len(re.findall(r'\bat\(\s*"', source)):
        sys.exit(f"{sys.argv[1]}: not every row names a getter and a setter as expected")
    pathlib.Path(sys.argv[2]).write_text(HEAD + "".join(CALL % row for row in rows) + "}\n")


main()
