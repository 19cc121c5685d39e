"""Reads MIDI files that are written byte by byte."""

import pytest

import korvel_plx as plx
from korvel_plx.songs import SongError
from korvel_plx.songs.clips import Options, plan_of
from korvel_plx.songs.midi import read_midi
from writing import control, lyric, meta, midi, off, on, tempo, text, track


def planned(data, **options):
    return plan_of(read_midi(data), Options(**options), "file")


def rows(made):
    return [(note.pos, note.duration, note.number, note.velocity, word)
            for note, word in zip(made.notes, made.lyrics)]


def test_format_0_with_lyrics_tempo_key_and_name():
    made = planned(midi(track(
        (0, meta(3, "Lied".encode())), (0, tempo(90)), (0, meta(0x59, b"\xfe\x00")),
        (0, lyric("Süß".encode())), (0, on(60)), (480, off(60)),
        (0, lyric(b"er ")), (0, on(62, 70)), (240, off(62))), kind=0))
    assert rows(made) == [(0, 480, 60, 90, "Süß"), (480, 240, 62, 70, "er")]
    assert (made.tempo, made.key, made.name, made.duration) == (9000, 6, "Lied", 720)
    assert made.song.encoding == "utf-8" and not made.song.losses


def test_running_status_and_switching_off_by_velocity_0():
    made = planned(midi(track((0, on(60)), (480, bytes([60, 0])), (0, bytes([64, 80])),
                              (480, bytes([64, 0])))))
    assert rows(made) == [(0, 480, 60, 90, "la"), (480, 480, 64, 80, "la")]
    assert list(made.song.losses) == ['there are no lyrics: each note is given "la"']


def test_of_two_notes_of_a_pitch_the_first_is_switched_off_first():
    song = read_midi(midi(track((0, on(60)), (480, on(60, 50)), (240, off(60)), (480, off(60)))))
    assert [(note.pos, note.end, note.velocity) for note in song.lines[0].notes] == [(0, 720, 90), (480, 1200, 50)]


@pytest.mark.parametrize("unit, at, duration, is_exact", [(96, 0, 480, True), (480, 0, 96, True),
                                                          (960, 0, 48, True), (1000, 0, 46, False),
                                                          (990, 0, 47, False), (991, 0, 46, False)])
def test_times_are_in_480_to_the_quarter(unit, at, duration, is_exact):
    made = planned(midi(track((0, on(60)), (96, off(60))), unit=unit))
    assert rows(made)[0][:2] == (at, duration)
    assert bool(made.song.losses) is not is_exact or made.lyrics == ["la"]
    assert any("rounded" in what for what in made.song.losses) is not is_exact


def test_tempo_changes_leave_the_ticks_and_are_told():
    made = planned(midi(track((0, tempo(100)), (480, tempo(50)), (480, tempo(75))),
                        track((480, on(60)), (960, off(60)))))
    assert rows(made)[0][:2] == (480, 960) and made.tempo == 10000
    assert made.song.losses["tempo changes: a clip has one tempo, and positions stay in ticks"] == 2


def test_lyrics_of_a_track_of_their_own_go_to_the_notes_that_they_meet():
    melody = track((0, meta(3, b"Voice")), (480, on(60)), (480, off(60)), (0, on(62)), (480, off(62)))
    chords = track((0, meta(3, b"Piano")), *[(0, on(number, channel=1)) for number in (48, 52)],
                   (480, off(48, 1)), (0, off(52, 1)))
    words = track((480, lyric(b"one")), (480, lyric(b"two")))
    made = planned(midi(chords, melody, words))
    assert rows(made) == [(480, 480, 60, 90, "one"), (960, 480, 62, 90, "two")]
    assert made.line.name == "Voice" and len(made.song.lines) == 2


def test_karaoke_texts():
    words = track((0, text(b"@KMIDI KARAOKE FILE")), (0, text(b"@TTitle")), (0, text(b"\\Row")),
                  (480, text(b" row")), (480, text(b"/boat")))
    melody = track(*[event for number in (60, 62, 64) for event in ((0, on(number)), (480, off(number)))])
    assert planned(midi(words, melody)).lyrics == ["Row", "row", "boat"]


@pytest.mark.parametrize("word, encoding", [("さくら", "utf-8"), ("さくら", "cp932"), ("Ääß", "cp1252"),
                                            ("la", "utf-8")])
def test_encodings_are_guessed_and_told(word, encoding):
    made = planned(midi(track((0, lyric(word.encode(encoding))), (0, on(60)), (480, off(60)))))
    assert (made.lyrics, made.song.encoding) == ([word], encoding)


def test_a_syllable_goes_on_over_notes_without_one():
    made = planned(midi(track((0, on(59)), (1, off(59)), (0, lyric(b"A-")), (0, on(60)), (480, off(60)),
                              (0, on(62)), (480, off(62)), (0, lyric(b"men")), (0, on(60)), (480, off(60)))))
    assert made.lyrics == ["la", "A", "-", "men"]
    assert made.song.losses['notes before the first syllable are given "la"'] == 1


def test_chords_and_overlaps():
    made = planned(midi(track((0, on(60)), (0, on(64)), (480, off(60)), (0, on(65)), (240, off(64)),
                              (240, off(65)))))
    assert rows(made) == [(0, 480, 64, 90, "la"), (480, 480, 65, 90, "la")]
    assert made.song.losses["notes below the highest of a chord are left out"] == 1
    assert made.song.losses["notes that overlap the next one end where it begins"] == 1


def test_controllers_and_the_range_of_the_pitch_bend():
    made = planned(midi(track((0, control(101, 0)), (0, control(100, 0)), (0, control(6, 12)), (0, control(38, 99)), (9, control(6, 48)),
                              (0, control(11, 100)), (0, bytes([0xE0, 0, 0x50])), (0, on(60)),
                              (240, control(11, 50)), (0, control(2, 9)), (240, off(60)))))
    assert made.lanes == {plx.ControllerType.PITCH_BEND_SENS: [(0, 12), (9, 24)],
                          plx.ControllerType.PITCH_BEND: [(9, 2048)],
                          plx.ControllerType.DYNAMICS: [(9, 100), (249, 50)],
                          plx.ControllerType.BREATHINESS: [(249, 9)]}


def test_parts_are_chosen_by_number_name_and_voice():
    data = midi(track((0, meta(3, b"Alto")), (0, on(60)), (480, off(60))),
                track((0, meta(3, b"Bass")), (0, on(40)), (480, off(40)), (0, on(41, channel=5)),
                      (480, off(41, 5))))
    assert rows(planned(data))[0][2] == 60
    assert rows(planned(data, part="Bass"))[0][2] == 40
    assert rows(planned(data, part="2", voice="6"))[0][2] == 41
    with pytest.raises(SongError, match="part Tenor.*1/1 .Alto., 2/1 .Bass."):
        planned(data, part="Tenor")


def test_bars():
    events = [event for number in range(60, 72) for event in ((0, on(number)), (480, off(number)))]
    data = midi(track((0, meta(0x58, b"\x03\x02\x18\x08")), *events))
    made = planned(data, bars=(2, 3))
    assert [(row[0], row[2]) for row in rows(made)] == [(480 * at, 63 + at) for at in range(6)]
    assert made.duration == 2880
    with pytest.raises(SongError, match="4 bars, and bar 5"):
        planned(data, bars=(5, 6))


def test_a_file_in_seconds_is_taken_at_120():
    made = planned(midi(track((0, on(60)), (500, off(60))), unit=-(25 << 8) + 40))
    assert rows(made)[0][1] == 480


@pytest.mark.parametrize("data, said", [
    (b"", "there is no MThd at byte 0"),
    (b"MThd\0\0\0\6\0\1", "header is cut at byte 10"),
    (midi(track((0, on(60))), kind=2), "format 2"),
    (midi(track((0, on(60))), kind=9), "format 9"),
    (midi(track((0, on(60))), unit=0), "unit 0"),
    (midi(track((0, on(60)), (480, off(60))))[:-3], "track 1, at byte 14, is cut"),
    (midi(track((0, on(60)), (480, off(60))))[:14] + b"MT", "ends at byte 16, before track 1 of 1"),
    (midi(track((0, b"\xff\x51\x7f"))), "track 1, at byte 14, is damaged before byte 30: it ends within a message"),
    (midi(track((0, b"\x40\x40"))), "track 1, at byte 14, is damaged before byte 24: running status without"),
    (b"RIFF\0\0\0\0RMIDdata\0\0\0\0" + midi(track((0, b"\xf5"))), "track 1, at byte 34, is damaged before byte 44: undef"),
    (midi(track((0, meta(3, b"x")))), "no notes"),
    (midi(*[track()] * 2000), "2000 tracks"),
    (midi(track((2**28 - 1, on(60)), (2**28 - 1, off(60))), unit=1), "beyond tick"),
])
def test_what_is_wrong_is_said_with_its_place(data, said):
    with pytest.raises(SongError, match=said):
        planned(data)
