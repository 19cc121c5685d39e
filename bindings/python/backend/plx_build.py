"""Builds the package: the hooks that pip calls, and a command for CMake.

    plx_build.py FOLDER [INTERFACE_FILE]     writes the whole package into FOLDER/korvel_plx

The interface, krt_plx.api.json, is the one that is named, or stands beside pyproject.toml (in a source
distribution), or is made from the headers of the tree by clang, or was made there by a build.
"""

import base64
import hashlib
import json
import os
import pathlib
import runpy
import shutil
import subprocess
import sys
import tarfile
import tempfile
import zipfile

HERE = pathlib.Path(__file__).resolve().parent.parent
TREE = HERE.parent.parent
PACKAGE = "korvel_plx"
INTERFACE = "krt_plx.api.json"
SOURCES = [PACKAGE, "making", "backend", "tests", "pyproject.toml", "README.md"]
COMMANDS = "[console_scripts]\nplxsong = korvel_plx.songs.__main__:main\n"
EPOCH = (1980, 1, 1, 0, 0, 0)


def interface_of(folder):
    """The interface file: from the source distribution, or else made from the headers."""
    if (HERE / INTERFACE).is_file():
        return HERE / INTERFACE
    clang = shutil.which(os.environ.get("CLANG", "clang"))
    maker = TREE / "bindings/interface/make_api.py"
    if clang and maker.is_file():
        made = pathlib.Path(folder) / INTERFACE
        subprocess.run([sys.executable, "-B", maker, clang, TREE / "include", made], check=True)
        return made
    built = sorted(TREE.glob(f"build/*/generated/interface/{INTERFACE}"),
                   key=lambda file: file.stat().st_mtime)
    if built:
        return built[-1]
    raise SystemExit(f"{INTERFACE} is missing: install clang, or build the library first")


def make(folder, interface):
    """Writes the package into a folder, and returns its version."""
    target = pathlib.Path(folder) / PACKAGE
    shutil.copytree(HERE / PACKAGE, target, dirs_exist_ok=True,
                    ignore=shutil.ignore_patterns("__pycache__"))
    runpy.run_path(str(HERE / "making/make_package.py"))["make"](interface, target)
    return json.loads(pathlib.Path(interface).read_text(encoding="utf-8"))["version"]["text"]


def metadata(version):
    readme = (HERE / "README.md").read_text(encoding="utf-8")
    return (f"Metadata-Version: 2.1\nName: {PACKAGE}\nVersion: {version}\n"
            "Summary: Clips for singing-voice editors: the krt_plx library in Python\n"
            "Requires-Python: >=3.11\nProvides-Extra: midi\nRequires-Dist: mido; extra == 'midi'\n"
            f"Description-Content-Type: text/markdown\n\n{readme}")


def entry(path, data):
    digest = base64.urlsafe_b64encode(hashlib.sha256(data).digest()).rstrip(b"=").decode("ascii")
    return f"{path},sha256={digest},{len(data)}\n"


def add(archive, name, data):
    """Makes the wheel the same from the same files, at any time."""
    info = zipfile.ZipInfo(name, EPOCH)
    info.compress_type = zipfile.ZIP_DEFLATED
    info.external_attr = 0o644 << 16
    archive.writestr(info, data)


def build_wheel(wheel_directory, config_settings=None, metadata_directory=None):
    with tempfile.TemporaryDirectory() as folder:
        version = make(folder, interface_of(folder))
        info = f"{PACKAGE}-{version}.dist-info"
        files = {str(file.relative_to(folder)): file.read_bytes()
                 for file in sorted(pathlib.Path(folder, PACKAGE).rglob("*")) if file.is_file()}
    files[f"{info}/METADATA"] = metadata(version).encode("utf-8")
    files[f"{info}/WHEEL"] = (b"Wheel-Version: 1.0\nGenerator: plx_build\nRoot-Is-Purelib: true\n"
                              b"Tag: py3-none-any\n")
    files[f"{info}/entry_points.txt"] = COMMANDS.encode("utf-8")
    record = "".join(entry(*item) for item in files.items()) + f"{info}/RECORD,,\n"
    files[f"{info}/RECORD"] = record.encode("utf-8")
    name = f"{PACKAGE}-{version}-py3-none-any.whl"
    with zipfile.ZipFile(pathlib.Path(wheel_directory) / name, "w") as archive:
        for path, data in files.items():
            add(archive, path, data)
    return name


def build_sdist(sdist_directory, config_settings=None):
    """Everything that the package is made from, with the interface, so that it can be built without
    the headers."""
    with tempfile.TemporaryDirectory() as folder:
        interface = interface_of(folder)
        version = json.loads(interface.read_text(encoding="utf-8"))["version"]["text"]
        top = f"{PACKAGE}-{version}"
        information = pathlib.Path(folder) / "PKG-INFO"
        information.write_text(metadata(version), encoding="utf-8")
        with tarfile.open(pathlib.Path(sdist_directory) / f"{top}.tar.gz", "w:gz") as archive:
            for name in SOURCES:
                archive.add(HERE / name, f"{top}/{name}", filter=without_caches)
            archive.add(interface, f"{top}/{INTERFACE}")
            archive.add(information, f"{top}/PKG-INFO")
    return f"{top}.tar.gz"


def without_caches(member):
    return None if "__pycache__" in member.name else member


def get_requires_for_build_wheel(config_settings=None):
    return []


def get_requires_for_build_sdist(config_settings=None):
    return []


def main():
    folder, *interface = sys.argv[1:]
    shutil.rmtree(pathlib.Path(folder) / PACKAGE, ignore_errors=True)
    make(folder, interface[0] if interface else interface_of(folder))


if __name__ == "__main__":
    main()
