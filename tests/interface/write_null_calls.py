"""Writes a program that calls every function of the interface as krt_plx.api.json describes it.

write_null_calls.py INTERFACE_FILE PROGRAM

Each function is called with a null handle through a pointer of the described type: the compiler
compares the types with the headers, the program the results with the described ones.
"""

import json
import pathlib
import struct
import sys

BEGIN = """/* Made from krt_plx.api.json at build time. */
#include <korvel/plx.h>

#include <stdio.h>
#include <string.h>

static int failures = 0;
static int calls = 0;
static uint64_t count = 0;
static uint32_t code = 0;

static void expect(const char* name, uint64_t found, uint64_t expected)
{
    ++calls;
    if (found != expected || count != 77 || code != 77) {
        printf("%s: %#llx, not %#llx\\n", name, (unsigned long long)found,
               (unsigned long long)expected);
        ++failures;
    }
}

static uint64_t bits(float value)
{
    uint32_t result = 0;
    memcpy(&result, &value, sizeof result);
    return result;
}

int main(void)
{
    count = 77;
    code = 77;
"""
END = """    printf("%d functions, %d failures\\n", calls, failures);
    return failures == 0 && calls == {expected} ? 0 : 1;
}}
"""
ARGUMENTS = {"handle": "NULL", "text": "NULL", "texts": "NULL", "bool": "false", "float": "0.0F"}


def argument(parameter, may_write):
    if parameter["direction"] == "out":
        if may_write:
            return "NULL"
        return "&count" if parameter["kind"] == "uint64" else "&code"
    return ARGUMENTS.get(parameter["kind"], "0")


def expected_bits(result):
    rejected = result["rejected"]
    if result["kind"] == "float":
        return struct.unpack("<I", struct.pack("<f", rejected))[0]
    width = 64 if result["kind"] == "uint64" else 32
    return (rejected or 0) & (2**width - 1)


def found_bits(kind, call):
    if kind == "float":
        return f"bits({call})"
    if kind in ("handle", "text"):
        return f"(uint64_t)(uintptr_t){call}"
    return f"(uint64_t)(uint32_t){call}" if kind in ("int32", "uint32") else f"(uint64_t){call}"


def lines(entry):
    """Creating is the one function that has its code written without a handle."""
    parameters, result = entry["parameters"], entry["result"]
    types = ", ".join(parameter["c"] for parameter in parameters)
    arguments = ", ".join(argument(parameter, entry["class"] is None) for parameter in parameters)
    yield "    {"
    yield f"        {result['c']} (*function)({types}) = &{entry['name']};"
    if result["kind"] == "void":
        yield f"        function({arguments});"
        yield f"        expect(\"{entry['name']}\", 0, 0);"
    else:
        found = found_bits(result["kind"], f"function({arguments})")
        yield f"        expect(\"{entry['name']}\", {found}, {expected_bits(result)}U);"
    yield "    }"


def main():
    source, program = map(pathlib.Path, sys.argv[1:])
    functions = json.loads(source.read_text(encoding="utf-8"))["functions"]
    body = "".join(f"{line}\n" for entry in functions for line in lines(entry))
    program.write_text(BEGIN + body + END.format(expected=len(functions)), encoding="utf-8")


main()
