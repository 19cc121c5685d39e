"""The command `plxsong`: exit status 0 done, 1 not done, 2 a wrong command line."""

from __future__ import annotations

import argparse
import json
import pathlib
import sys
from typing import Any, Dict, List, Optional, Tuple

from ..errors import PlxError
from .clips import (
    MIDI_FILES,
    XML_FILES,
    Folder,
    Options,
    Plan,
    fill,
    find_clip,
    losses_text,
    plan,
    read_song,
    song_of,
)
from .midi_out import write_midi
from .model import SongError
from .musicxml_out import write_musicxml
from .play import play

ERRORS = (SongError, PlxError, OSError, ValueError)


def parser() -> argparse.ArgumentParser:
    made = argparse.ArgumentParser(prog="plxsong", description="Songs to clips, and clips to songs.",
                                   epilog="Exit status: 0 done, 1 not done, 2 the command line is wrong.")
    commands = made.add_subparsers(dest="command", required=True, metavar="COMMAND")
    add_import(commands.add_parser("import", help="make user clips of MIDI files and MusicXML"))
    parts = commands.add_parser("parts", help="list what a file has to be imported")
    parts.add_argument("file", type=pathlib.Path, metavar="FILE")
    parts.add_argument("--json", action="store_true", help="print JSON")
    add_export(commands.add_parser("export", help="write a clip as a MIDI file or as MusicXML"))
    heard = commands.add_parser("play", help="write a clip as a plain tone")
    add_clip(heard)
    heard.add_argument("--wav", required=True, metavar="FILE", help="the wave file to write")
    return made


def add_clip(made: argparse.ArgumentParser) -> None:
    made.add_argument("dir", type=pathlib.Path, metavar="DIR", help="the folder of the clips")
    made.add_argument("clip", metavar="CLIP", help="the clip's ID, or its name")
    made.add_argument("--json", action="store_true", help="print JSON")


def add_import(made: argparse.ArgumentParser) -> None:
    made.add_argument("files", nargs="+", type=pathlib.Path, metavar="FILE",
                      help="a MIDI file, MusicXML, or a folder of them")
    made.add_argument("target", type=pathlib.Path, metavar="TARGET", help="the folder for the clips")
    made.add_argument("--part", help="part or track, by number, ID or name")
    made.add_argument("--voice", help="voice of a part, or channel of a track")
    made.add_argument("--verse", type=number_from(1, 9999), default=1, help="the verse to begin with")
    made.add_argument("--bars", type=bars, metavar="FIRST-LAST", help="these bars, as they are played")
    made.add_argument("--voice-bank", type=voice_bank, default=Options.voice_bank, metavar="ID",
                      help="16 signs")
    made.add_argument("--language", type=number_from(0, 127), default=0, help="0 to 127")
    made.add_argument("--kind", choices=("midi", "midiAi"), default="midi")
    made.add_argument("--name", help="the clip's name")
    made.add_argument("--vendor", default="")
    made.add_argument("--type", action="append", default=[], dest="types", help="a search tag")
    made.add_argument("--genre", action="append", default=[], dest="genres", help="a search tag")
    made.add_argument("--phonemes", default="none", metavar="SOURCE",
                      help="none, table:FILE or espeak:LANGUAGE")
    made.add_argument("--dry-run", action="store_true", help="write nothing")
    made.add_argument("--json", action="store_true", help="print JSON")


def add_export(made: argparse.ArgumentParser) -> None:
    add_clip(made)
    made.add_argument("file", type=pathlib.Path, metavar="FILE", help="ends in .mid, .musicxml or .xml")
    made.add_argument("--meter", type=meter, default=(4, 4), help="of the bars, 4/4 if not given")


def number_from(low: int, high: int) -> Any:
    def number(text: str) -> int:
        if not text.isascii() or not text.isdigit() or not low <= int(text) <= high:
            raise argparse.ArgumentTypeError(f"{text!r} is not {low} to {high}")
        return int(text)
    return number


def bars(text: str) -> Tuple[int, int]:
    first, _, last = text.partition("-")
    numbers = number_from(1, 99_999)(first), number_from(1, 99_999)(last or first)
    if numbers[0] > numbers[1]:
        raise argparse.ArgumentTypeError(f"{text!r} ends before it begins")
    return numbers


def meter(text: str) -> Tuple[int, int]:
    count, _, unit = text.partition("/")
    numbers = number_from(1, 64)(count), number_from(1, 64)(unit)
    if numbers[1] not in (1, 2, 4, 8, 16, 32, 64):
        raise argparse.ArgumentTypeError(f"{text!r} has no such unit")
    return numbers


def voice_bank(text: str) -> str:
    if len(text.encode("utf-16-le")) != 32:
        raise argparse.ArgumentTypeError(f"{text!r} has not 16 signs")
    return text


def files_of(places: List[pathlib.Path]) -> List[pathlib.Path]:
    """The named files, and the files in the named folders."""
    found: List[pathlib.Path] = []
    for place in places:
        found += sorted(file for file in place.iterdir()
                        if file.suffix.lower() in MIDI_FILES + XML_FILES) if place.is_dir() else [place]
    return found


def import_files(arguments: argparse.Namespace) -> int:
    options = Options(arguments.part, arguments.voice, arguments.verse, arguments.bars,
                      arguments.voice_bank, arguments.language, arguments.kind, arguments.name,
                      arguments.vendor, tuple(arguments.types), tuple(arguments.genres), arguments.phonemes)
    files = files_of(arguments.files)
    if not files:
        raise SongError("no files to import")
    results: List[Dict[str, Any]] = []
    if arguments.dry_run:
        results = [attempt(file, options, None, place, arguments, len(files))
                   for place, file in enumerate(files, 1)]
    else:
        with Folder(arguments.target) as manager:
            results = [attempt(file, options, manager, place, arguments, len(files))
                       for place, file in enumerate(files, 1)]
    failed = sum("error" in result for result in results)
    if arguments.json:
        print(json.dumps(results, ensure_ascii=False, indent=1))
    elif len(files) > 1:
        print(f"{len(files) - failed} imported, {failed} not")
    return 1 if failed else 0


def attempt(file: pathlib.Path, options: Options, manager: Any, place: int,
            arguments: argparse.Namespace, count: int) -> Dict[str, Any]:
    """Handles one file; whatever is wrong with it does not stop the others."""
    try:
        made = plan(file, options)
        clip_id = save(manager, made, options) if manager else None
        result = told(file, made, clip_id)
    except ERRORS as problem:
        result = {"file": str(file), "error": str(problem)}
    except Exception as problem:  # pylint: disable=broad-except # unexpected errors must not stop the others either
        result = {"file": str(file), "error": f"cannot be imported: {type(problem).__name__} {problem}".rstrip()}
    if not arguments.json or count > 1:
        show(result, place, count, arguments.json)
    return result


def save(manager: Any, made: Plan, options: Options) -> str:
    with manager.create_mutable_clip() as draft:
        fill(draft, made, options)
        return str(draft.save(made.name).id)


def told(file: pathlib.Path, made: Plan, clip_id: Optional[str]) -> Dict[str, Any]:
    others = [f"{line.part}/{line.voice}" for line in made.song.lines if line is not made.line]
    return {"file": str(file), "clip": clip_id, "name": made.name, "part": made.line.part,
            "voice": made.line.voice, "others": others, "notes": len(made.notes),
            "verses": made.line.verses, "tempo": made.tempo, "key": made.key,
            "duration": made.duration, "encoding": made.song.encoding,
            "phonemes": made.phonemes_from, "lost": dict(made.song.losses)}


def show(result: Dict[str, Any], place: int, count: int, quiet: bool) -> None:
    """Prints for people; with JSON to standard error, as progress."""
    begin = f"[{place}/{count}] " if count > 1 else ""
    stream = sys.stderr if quiet or "error" in result else sys.stdout
    if "error" in result:
        print(f"{begin}{result['file']}: {result['error']}", file=stream)
        return
    print(f"{begin}{result['file']}: {result['name']!r}, {result['notes']} notes of part "
          f"{result['part']}/{result['voice']}", file=stream)
    if count == 1:
        lines = [f"clip      {result['clip'] or 'not written'}", f"tempo     {result['tempo'] / 100:g}",
                 f"key       {result['key']}", f"texts     {result['encoding']}",
                 f"phonemes  {result['phonemes']}",
                 *([f"also has  {', '.join(result['others'])}"] if result["others"] else [])]
        print("\n".join(lines), file=stream)
    for what, number in result["lost"].items():
        print(f"lost      {what}{f': {number}' if number > 1 else ''}", file=stream)


def list_parts(arguments: argparse.Namespace) -> int:
    try:
        song = read_song(arguments.file)
    except SongError as problem:
        raise SongError(f"{arguments.file}: {problem}") from problem
    rows: List[Dict[str, Any]] = [{"part": line.part, "voice": line.voice, "name": line.name, "notes": len(line.notes),
             "verses": line.verses} for line in song.lines]
    if arguments.json:
        print(json.dumps({"name": song.name, "bars": len(song.bar_starts()) - 1, "parts": rows},
                         ensure_ascii=False, indent=1))
        return 0
    print(f"{song.name or arguments.file.stem}: {len(song.bar_starts()) - 1} bars")
    for row in rows:
        verses = ", ".join(str(verse) for verse in row["verses"]) or "none"
        print(f"{row['part']}/{row['voice']}  {row['notes']} notes, verses {verses}  {row['name']}")
    return 0


def export(arguments: argparse.Namespace) -> int:
    suffix = arguments.file.suffix.lower()
    if suffix not in (*MIDI_FILES[:2], ".musicxml", ".xml"):
        raise SongError(f"{arguments.file}: the name ends in none of .mid, .midi, .musicxml, .xml")
    with Folder(arguments.dir, must_exist=True) as manager:
        song = song_of(find_clip(manager, arguments.clip))
    data = (write_midi if suffix in MIDI_FILES else write_musicxml)(song, arguments.meter)
    arguments.file.write_bytes(data)
    if arguments.json:
        print(json.dumps({"file": str(arguments.file), "name": song.name, "notes": len(song.lines[0].notes),
                          "lost": dict(song.losses)}, ensure_ascii=False, indent=1))
    else:
        print(f"{arguments.file}: {song.name!r}, {len(song.lines[0].notes)} notes")
        for line in losses_text(song.losses):
            print(f"lost      {line}")
    return 0


def play_clip(arguments: argparse.Namespace) -> int:
    with Folder(arguments.dir, must_exist=True) as manager:
        clip = find_clip(manager, arguments.clip)
        clip.read_part()
        seconds = play(clip, arguments.wav)
    if arguments.json:
        print(json.dumps({"file": arguments.wav, "seconds": round(seconds, 3)}))
    else:
        print(f"{arguments.wav}: {seconds:.1f} seconds")
    return 0


COMMANDS = {"import": import_files, "parts": list_parts, "export": export, "play": play_clip}


def main(words: Optional[List[str]] = None) -> int:
    arguments = parser().parse_args(words)
    try:
        return COMMANDS[arguments.command](arguments)
    except ERRORS as problem:
        print(f"plxsong: {problem}", file=sys.stderr)
        return 1


if __name__ == "__main__":
    sys.exit(main())
