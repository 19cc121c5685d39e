"""That a Wine which cannot run anything is not taken for a program that failed.

check_wine.py RUN_UNDER_WINE
"""

import pathlib
import subprocess
import sys
import tempfile


def main():
    with tempfile.TemporaryDirectory() as folder:
        prefix = pathlib.Path(folder, "wine")
        prefix.mkdir()
        (prefix / "ready").touch()
        # Made for other programs than ours.
        (prefix / "system.reg").write_text("WINE REGISTRY Version 2\n\n#arch=win32\n", encoding="ascii")
        command = [sys.argv[1], prefix]
        result = subprocess.run([*command, "nothing.exe"], capture_output=True, text=True, check=False)
        subprocess.run([*command, "--stop"], check=False)
    if result.returncode != 126 or "run-under-wine: " not in result.stderr:
        sys.exit(f"ended with {result.returncode} and said: {result.stderr or 'nothing'}")


main()
