"""From Standard MIDI Files and MusicXML to clips, from clips to both, and to a plain tone.

The command is `plxsong`, or `python3 -m korvel_plx.songs`.
"""

from .model import Lane, Line, Lyric, Note, Song, SongError

__all__ = ["Lane", "Line", "Lyric", "Note", "Song", "SongError"]
