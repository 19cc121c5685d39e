"""Phonemes for syllables: from a table, from espeak-ng, or none."""

from __future__ import annotations

import pathlib
import re
import shutil
import subprocess
from typing import Callable, Dict, List

from .model import EXTENDED, Song, SongError

# IPA as espeak-ng writes it, as X-SAMPA. Longer ones first.
X_SAMPA = {
    "t͡ʃ": "tS", "d͡ʒ": "dZ", "tʃ": "tS", "dʒ": "dZ", "ɪ̯": "I", "ʊ̯": "U", "ɐ̯": "6",
    "ɑ": "A", "ɐ": "6", "ɒ": "Q", "æ": "{", "ɓ": "b_<", "ʙ": "B\\", "β": "B", "ɔ": "O", "ɕ": "s\\",
    "ç": "C", "ɗ": "d_<", "ɖ": "d`", "ð": "D", "ə": "@", "ɚ": "@`", "ɘ": "@\\", "ɵ": "8", "ɛ": "E",
    "ɜ": "3", "ɝ": "3`", "ɞ": "3\\", "ɟ": "J\\", "ɡ": "g", "ɢ": "G\\", "ɣ": "G", "ɤ": "7",
    "ħ": "X\\", "ɦ": "h\\", "ɥ": "H", "ɪ": "I", "ɨ": "1", "ʝ": "j\\", "ɭ": "l`", "ɬ": "K", "ɫ": "5",
    "ɮ": "K\\", "ʎ": "L", "ɱ": "F", "ɯ": "M", "ɰ": "M\\", "ŋ": "N", "ɳ": "n`", "ɲ": "J", "ɴ": "N\\",
    "ø": "2", "œ": "9", "ɶ": "&", "ɸ": "p\\", "ɹ": "r\\", "ɺ": "l\\", "ɾ": "4", "ɻ": "r\\`",
    "ʀ": "R\\", "ʁ": "R", "ɽ": "r`", "ʂ": "s`", "ʃ": "S", "ʈ": "t`", "θ": "T", "ʉ": "}", "ʊ": "U",
    "ʋ": "v\\", "ʌ": "V", "χ": "X", "ʏ": "Y", "ʐ": "z`", "ʑ": "z\\", "ʒ": "Z", "ʔ": "?", "ʍ": "W",
    "ᵻ": "I", "ᵊ": "@", "ɩ": "I", "ʲ": "'", "̃": "~", "̩": "=", "ː": ":",
}
PATTERN = re.compile("|".join(re.escape(sign) for sign in sorted(X_SAMPA, key=len, reverse=True)))

Phonemes = Callable[[List[str]], Dict[str, str]]


def x_sampa(ipa: str) -> str:
    """Separated by blanks, as voices need them; signs without X-SAMPA are left out."""
    found: List[str] = []
    for sign in re.findall(PATTERN.pattern + "|.", ipa, re.DOTALL):
        if sign in X_SAMPA and X_SAMPA[sign] in (":", "~", "=", "'") and found:
            found[-1] += X_SAMPA[sign]
        elif sign in X_SAMPA:
            found.append(X_SAMPA[sign])
        elif sign.isascii() and sign.isalpha():
            found.append(sign)
    return " ".join(found)


def source_of(choice: str) -> "tuple[str, Phonemes]":
    """The source for an option: `none`, `table:FILE` or `espeak:LANGUAGE`; with a description for
    the result."""
    kind, _, what = choice.partition(":")
    if kind == "none":
        return "none: the lyric stands in, as no note can be without", lambda syllables: {}
    if kind == "table" and what:
        table = table_of(pathlib.Path(what))
        return f"from the table {what}", lambda syllables: from_table(table, syllables)
    if kind == "espeak" and what:
        if not shutil.which("espeak-ng"):
            raise SongError("espeak-ng is not installed")
        return f"by espeak-ng, in {what}", lambda syllables: by_espeak(what, syllables)
    raise SongError(f"phonemes come from none, table:FILE or espeak:LANGUAGE, not {choice!r}")


def table_of(file: pathlib.Path) -> Dict[str, str]:
    """A line for each syllable: the syllable, a tab or blanks, and its phonemes. # begins a
    comment."""
    try:
        lines = file.read_text(encoding="utf-8").splitlines()
    except (OSError, UnicodeDecodeError) as problem:
        raise SongError(f"the table {file} cannot be read: {problem}") from problem
    rows = [line.split(None, 1) for line in lines if line.strip() and not line.startswith("#")]
    short = [number for number, row in enumerate(rows, 1) if len(row) < 2]
    if short:
        raise SongError(f"the table {file} has an entry without phonemes, the {short[0]}th")
    return {syllable.casefold(): phonemes.strip() for syllable, phonemes in rows}


def bare(syllable: str) -> str:
    return "".join(sign for sign in syllable if sign.isalnum() or sign in "'’").casefold()


def from_table(table: Dict[str, str], syllables: List[str]) -> Dict[str, str]:
    found = {syllable: table.get(syllable.casefold()) or table.get(bare(syllable))
             for syllable in syllables}
    return {syllable: phonemes for syllable, phonemes in found.items() if phonemes}


def by_espeak(language: str, syllables: List[str]) -> Dict[str, str]:
    """All syllables in one run, one in each line."""
    asked = [syllable for syllable in syllables if bare(syllable)]
    done = subprocess.run(["espeak-ng", "-q", "--ipa", "-v", language], input="\n\n".join(
        bare(syllable) for syllable in asked) + "\n", text=True, encoding="utf-8", capture_output=True,
        check=False, timeout=120)
    if done.returncode != 0 or done.stderr.strip():
        raise SongError(f"espeak-ng: {done.stderr.strip() or done.returncode}")
    lines = [re.sub(r"\([a-z-]+\)", "", line).strip() for line in done.stdout.splitlines() if line.strip()]
    if len(lines) != len(asked):
        raise SongError(f"espeak-ng gave {len(lines)} lines for {len(asked)} syllables")
    return {syllable: x_sampa(line) for syllable, line in zip(asked, lines) if x_sampa(line)}


def phonemes_of(syllables: List[str], source: Phonemes, song: Song, is_none: bool) -> List[str]:
    """The phonemes of each note. A note that continues a syllable gets the same sign as its lyric."""
    known = source(list(dict.fromkeys(syllables)))
    missing = [syllable for syllable in syllables if syllable not in known and syllable != EXTENDED]
    if missing and not is_none:
        song.lose("syllables without phonemes: the lyric stands in", len(missing))
    return [known.get(syllable, syllable) for syllable in syllables]
