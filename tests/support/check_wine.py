"""What a program under Wine leaves to see when it fails in silence.

check_wine.py RUN_UNDER_WINE PREFIX
"""

import pathlib
import subprocess
import sys
import tempfile


def expect(status, sentence, result):
    if result.returncode != status or sentence not in result.stderr:
        sys.exit(f"ended with {result.returncode} and said: {result.stderr or 'nothing'}")


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False)


def check_unusable(run_under_wine):
    """A Wine that cannot run anything is not taken for a program that failed."""
    with tempfile.TemporaryDirectory() as folder:
        prefix = pathlib.Path(folder, "wine")
        prefix.mkdir()
        (prefix / "ready").touch()
        # Made for other programs than ours.
        (prefix / "system.reg").write_text("WINE REGISTRY Version 2\n\n#arch=win32\n", encoding="ascii")
        result = run(run_under_wine, prefix, "nothing.exe")
        run(run_under_wine, prefix, "--stop")
    expect(126, "run-under-wine: ", result)


def check_endings(run_under_wine, prefix):
    """The status is the program's own, and one that none of our programs has is told."""
    for status, sentence in ((0, ""), (3, ""), (53, "run-under-wine: cmd ended with 53")):
        expect(status, sentence, run(run_under_wine, prefix, "cmd", "/c", f"exit {status}"))


check_unusable(sys.argv[1])
check_endings(sys.argv[1], sys.argv[2])
