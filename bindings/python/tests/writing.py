"""Builds MIDI files from bytes and MusicXML from text."""

import struct


def varlen(number):
    found = [number & 0x7F]
    while number := number >> 7:
        found.append(number & 0x7F | 0x80)
    return bytes(reversed(found))


def track(*events):
    """Events are (waiting time, bytes)."""
    body = b"".join(varlen(time) + data for time, data in events) + b"\0\xff\x2f\0"
    return b"MTrk" + struct.pack(">I", len(body)) + body


def midi(*tracks, kind=1, unit=480):
    return b"MThd" + struct.pack(">IHHh", 6, kind, len(tracks), unit) + b"".join(tracks)


def meta(kind, data):
    return bytes([0xFF, kind]) + varlen(len(data)) + data


def text(words):
    return meta(1, words)


def lyric(words):
    return meta(5, words)


def tempo(beats):
    return meta(0x51, struct.pack(">I", round(60_000_000 / beats))[1:])


def on(number, velocity=90, channel=0):
    return bytes([0x90 | channel, number, velocity])


def off(number, channel=0):
    return bytes([0x80 | channel, number, 0])


def control(number, value, channel=0):
    return bytes([0xB0 | channel, number, value])


def note(step, octave=4, duration=1, inside="", before="", attributes=""):
    alter = ""
    if len(step) > 1:
        alter = f"<alter>{ {'#': 1, 'b': -1}[step[1]] }</alter>"
    return (f"<note{attributes}>{before}<pitch><step>{step[0]}</step>{alter}<octave>{octave}</octave></pitch>"
            f"<duration>{duration}</duration><voice>1</voice>{inside}</note>")


def sung(words, verse=1, extend="", syllabic="single"):
    return (f'<lyric number="{verse}"><syllabic>{syllabic}</syllabic><text>{words}</text>{extend}</lyric>')


def rest(duration=1):
    return f"<note><rest/><duration>{duration}</duration><voice>1</voice></note>"


ATTRIBUTES = ("<attributes><divisions>1</divisions><key><fifths>-1</fifths><mode>major</mode></key>"
              "<time><beats>4</beats><beat-type>4</beat-type></time></attributes>")


def score(*parts, head=""):
    """Each part is a list of measures, each measure the text of what is in it."""
    listed = "".join(f'<score-part id="P{at}"><part-name>Part {at}</part-name></score-part>'
                     for at in range(1, len(parts) + 1))
    body = "".join(
        f'<part id="P{at}">' + "".join(f'<measure number="{number}">{measure}</measure>'
                                      for number, measure in enumerate(measures, 1)) + "</part>"
        for at, measures in enumerate(parts, 1))
    return (f'<?xml version="1.0" encoding="UTF-8"?>{head}<score-partwise version="4.0">'
            f"<part-list>{listed}</part-list>{body}</score-partwise>").encode("utf-8")


def barline(inside, location="right"):
    return f'<barline location="{location}">{inside}</barline>'


REPEAT = '<repeat direction="backward"/>'
FORWARD = barline('<repeat direction="forward"/>', "left")


def ending(number, kind="start"):
    return f'<ending number="{number}" type="{kind}"/>'
