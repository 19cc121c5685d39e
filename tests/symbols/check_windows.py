"""Checks of the binaries for Windows.

check_windows.py exports LIBRARY NAMES     exactly these functions, with these very names
check_windows.py imports BINARY PAGE COMPILER
    from exactly these libraries, and only what Windows has had since the version that the page names
check_windows.py manifest PROGRAM          paths may be long
"""

import os
import pathlib
import re
import subprocess
import sys

from binary import compare, fail, names_in

sys.path.append(str(pathlib.Path(__file__).parent.parent / "support"))
from windows_binary import WindowsBinary  # noqa: E402

# What each binary is linked to at run time. All but our own library are parts of Windows.
OF_SYSTEM = {"kernel32.dll", "msvcrt.dll", "ntdll.dll", "rpcrt4.dll"}
LIBRARIES = {"krt_plx.dll": OF_SYSTEM,
             "plxclip.exe": OF_SYSTEM | {"shell32.dll", "krt_plx.dll"}}
# The compiler's headers say since when Windows has a function, but not for that of the C language:
# msvcrt.dll is older than all versions here.
WITHOUT_VERSION = {"krt_plx.dll", "msvcrt.dll"}
HEADERS = ("windows.h", "winternl.h", "rpc.h", "shellapi.h")
VERSIONS = {(5, 1): 0x0501, (6, 0): 0x0600, (6, 1): 0x0601, (6, 2): 0x0602, (6, 3): 0x0603, (10, 0): 0x0A00}
LONG_PATHS = '<longPathAware xmlns="http://schemas.microsoft.com/SMI/2016/WindowsSettings">true</longPathAware>'


def missing_in(version, functions, compiler):
    """The functions that the headers do not declare for programs that are to run on that version."""
    text = "".join(f"#include <{header}>\n" for header in HEADERS)
    text += f"const void* const functions[] = {{{', '.join(sorted(functions))}}};\n"
    result = subprocess.run([compiler, "-fsyntax-only", "-w", "-x", "c", f"-D_WIN32_WINNT={VERSIONS[version]}", "-"],
                            input=text, capture_output=True, text=True, check=False,
                            env=dict(os.environ, LC_ALL="C"))
    missing = set(re.findall(r"'(\w+)' undeclared", result.stderr))
    if (result.returncode != 0) != bool(missing):
        fail("the headers could not be read", result.stderr)
    return missing


def oldest_version(functions, compiler):
    """The first version of Windows that has all the functions."""
    for version in VERSIONS:
        missing = missing_in(version, functions, compiler)
        if not missing:
            return version
        print(f"not in Windows {version[0]}.{version[1]}: {' '.join(sorted(missing))}")
    fail("no Windows has all of them")


def promised_version(page):
    """The oldest Windows that the page for hosts names, as (major, minor)."""
    text = " ".join(page.read_text(encoding="utf-8").split())
    found = re.findall(r"Windows \w+ \(version (\d+)\.(\d+)\)", text)
    if len(set(found)) != 1:
        fail(f"{page} names the versions {found}, and should name one")
    return tuple(map(int, found[0]))


def check_exports(library, names_file):
    compare("exported symbols", names_in(names_file), library.exports())


def check_imports(binary, name, page, compiler):
    found = binary.imports()
    compare("imported libraries", LIBRARIES[name], list({library for library, _ in found}))
    functions = {function for library, function in found if library not in WITHOUT_VERSION}
    oldest = oldest_version(functions, compiler)
    if oldest != promised_version(page):
        fail(f"{oldest} has all {len(functions)} functions, but {page} says {promised_version(page)}")
    print(f"imported functions of the system: {len(functions)}, all in Windows {oldest[0]}.{oldest[1]}")


def check_manifest(program):
    manifests = program.manifests()
    if len(manifests) != 1 or LONG_PATHS not in manifests[0]:
        fail(f"{len(manifests)} manifests, without long paths:", *manifests)


def main():
    check, path, *arguments = sys.argv[1:]
    path = pathlib.Path(path)
    binary = WindowsBinary(path)
    if check == "imports":
        page, compiler = arguments
        check_imports(binary, path.name, pathlib.Path(page), compiler)
    else:
        {"exports": check_exports, "manifest": check_manifest}[check](binary, *arguments)


main()
