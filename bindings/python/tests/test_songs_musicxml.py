"""Reads MusicXML that is written by hand."""

import io
import zipfile

import pytest

import korvel_plx as plx
from korvel_plx.songs import SongError
from korvel_plx.songs.clips import Options, plan_of
from korvel_plx.songs.musicxml import read_musicxml
from writing import ATTRIBUTES, FORWARD, REPEAT, barline, ending, note, rest, score, sung


def planned(data, **options):
    return plan_of(read_musicxml(data), Options(**options), "file")


def rows(made):
    return [(note.pos, note.duration, note.number, word) for note, word in zip(made.notes, made.lyrics)]


def words(made):
    return " ".join(made.lyrics)


def bar(word, *extra):
    return note("C", duration=4, inside=sung(word)) + "".join(extra)


def test_notes_rests_syllables_key_and_tempo():
    made = planned(score([ATTRIBUTES + '<direction><sound tempo="72.5"/></direction>'
                          + note("C", inside=sung("Glo", syllabic="begin"))
                          + note("F#", 5, 2, sung("ria", syllabic="end")) + rest(),
                          note("Bb", 3, 4, sung("De"))]))
    assert rows(made) == [(0, 480, 60, "Glo"), (480, 960, 78, "ria"), (1920, 1920, 58, "De")]
    assert (made.tempo, made.key, made.duration) == (7250, 7, 3840)
    assert not made.song.losses


def test_metronome_marks_without_sound():
    mark = ("<direction><direction-type><metronome><beat-unit>quarter</beat-unit><beat-unit-dot/>"
            "<per-minute>60</per-minute></metronome></direction-type></direction>")
    assert planned(score([ATTRIBUTES + mark + bar("a")])).tempo == 9000


def test_ties_make_one_note_even_over_bars():
    start, stop, both = '<tie type="start"/>', '<tie type="stop"/>', '<tie type="stop"/><tie type="start"/>'
    made = planned(score([ATTRIBUTES + note("C", duration=4, inside=start + sung("long")),
                          note("C", duration=4, inside=both), note("C", inside=stop) + rest(3)]))
    assert rows(made) == [(0, 4320, 60, "long")]


def test_a_tie_to_another_pitch_is_none():
    made = planned(score([ATTRIBUTES + note("C", duration=2, inside='<tie type="start"/>')
                          + note("D", duration=2, inside='<tie type="stop"/>')]))
    assert [row[:3] for row in rows(made)] == [(0, 960, 60), (960, 960, 62)]


def test_tuplets_do_not_drift():
    seventh = ATTRIBUTES.replace("<divisions>1<", "<divisions>7<")
    made = planned(score([seventh + "".join(note("C", duration=1) for _ in range(14))]))
    assert [row[0] for row in rows(made)] == [int(at * 480 / 7 + 0.5) for at in range(14)]
    assert made.notes[-1].end == 960
    assert any("rounded" in what for what in made.song.losses)


def test_bars_of_rounded_tuplets_are_as_long_as_their_meter():
    """Some programs write a triplet as three times 160.33, which is more than a quarter."""
    fine = ATTRIBUTES.replace("<divisions>1<", "<divisions>479<")
    triplet = "".join(note("C", duration=160) for _ in range(3))
    made = planned(score([fine + triplet * 4, bar("a").replace("<duration>4<", "<duration>1916<")]))
    assert made.notes[-1].pos == 1920
    assert planned(score([fine + triplet, bar("a")])).notes[-1].pos == 481


def test_of_a_chord_the_top_is_sung_and_grace_notes_are_not():
    grace = "<note><grace/><pitch><step>B</step><octave>4</octave></pitch><voice>1</voice></note>"
    chord = note("C", duration=4, inside=sung("all")) + note("G", duration=4, before="<chord/>")
    made = planned(score([ATTRIBUTES + grace + chord]))
    assert rows(made) == [(0, 1920, 67, "all")]
    assert made.song.losses["grace notes"] == 1
    assert made.song.losses["notes below the highest of a chord are left out"] == 1


def test_verses_and_extender_lines():
    first = note("C", inside=sung("one") + sung("eins", 2))
    long = note("D", inside=sung("lo", 1, "<extend/>") + sung("lang", 2))
    data = score([ATTRIBUTES + first + long + note("E") + note("F", inside=sung("end") + sung("Schluss", 2))])
    assert words(planned(data)) == "one lo - end"
    assert words(planned(data, verse=2)) == "eins lang - Schluss"
    assert planned(data).line.verses == [1, 2]


def test_voices_and_backup():
    lower = note("E", 3, 4, sung("low")).replace("<voice>1<", "<voice>2<")
    data = score([ATTRIBUTES + bar("high") + "<backup><duration>4</duration></backup>" + lower])
    assert rows(planned(data)) == [(0, 1920, 60, "high")]
    assert rows(planned(data, voice="2")) == [(0, 1920, 52, "low")]


def test_transposing_instruments_sound_as_they_sound():
    clarinet = ATTRIBUTES + "<attributes><transpose><diatonic>-1</diatonic><chromatic>-2</chromatic>" \
                            "<octave-change>-1</octave-change></transpose></attributes>"
    assert rows(planned(score([clarinet + bar("a")])))[0][2] == 46


def test_dynamics_become_the_lane():
    mark = "<direction><direction-type><dynamics><{}/></dynamics></direction-type></direction>"
    data = score([ATTRIBUTES + mark.format("p") + note("C", duration=2) + mark.format("f")
                  + note("D", duration=2)])
    assert planned(data).lanes == {plx.ControllerType.DYNAMICS: [(0, 49), (960, 96)]}


def test_the_first_part_with_lyrics_is_taken():
    data = score([ATTRIBUTES + note("C", duration=4)], [ATTRIBUTES + bar("sung")])
    assert words(planned(data)) == "sung" and planned(data, part="P1").lyrics == ["la"]
    assert planned(data, part="Part 2").lyrics == ["sung"]


def jump(words, sound):
    return (f"<direction><direction-type><words>{words}</words></direction-type><sound {sound}/></direction>")


SEGNO = '<direction><direction-type><segno/></direction-type><sound segno="s"/></direction>'
CODA = '<direction><direction-type><coda/></direction-type><sound coda="c"/></direction>'
DA_CAPO = jump("D.C. al Fine", 'dacapo="yes"')
PLAYED = {
    "a repeat": ([bar("a", barline(REPEAT)), bar("b")], "a a b"),
    "a repeat with a begin": ([bar("a"), FORWARD + bar("b"), bar("c", barline(REPEAT)), bar("d")],
                              "a b c b c d"),
    "three times": ([bar("a", barline('<repeat direction="backward" times="3"/>')), bar("b")], "a a a b"),
    "two endings": ([bar("a"),
                     barline(ending(1), "left") + bar("b", barline(ending(1, "stop") + REPEAT)),
                     barline(ending(2), "left") + bar("c", barline(ending(2, "discontinue"))), bar("d")],
                    "a b a c d"),
    "endings of several turns": ([bar("a"), barline(ending("1, 2"), "left") + bar(
        "b", barline(ending("1, 2", "stop") + '<repeat direction="backward" times="3"/>')),
        barline(ending(3), "left") + bar("c", barline(ending(3, "stop"))), bar("d")], "a b a b a c d"),
    "an ending of two bars": ([bar("a"), barline(ending(1), "left") + bar("b"),
                               bar("c", barline(ending(1, "stop") + REPEAT)),
                               barline(ending(2), "left") + bar("d", barline(ending(2, "stop"))), bar("e")],
                              "a b c a d e"),
    "two repeats": ([bar("a", barline(REPEAT)), FORWARD + bar("b", barline(REPEAT)), bar("c")],
                    "a a b b c"),
    "da capo al fine": ([bar("a", jump("Fine", 'fine="yes"')), bar("b", DA_CAPO)], "a b a"),
    "dal segno al coda": ([bar("a"), SEGNO + bar("b", jump("To Coda", 'tocoda="c"')),
                           bar("c", jump("D.S. al Coda", 'dalsegno="s"')), CODA + bar("d")], "a b c b d"),
    "a repeat is played once after a jump": ([bar("a", barline(REPEAT)), bar("b", jump("D.C.", 'dacapo="yes"'))],
                                             "a a b a b"),
    "the last ending after a jump": ([bar("a"), barline(ending(1), "left") + bar(
        "b", barline(ending(1, "stop") + REPEAT)), barline(ending(2), "left") + bar(
            "c", barline(ending(2, "stop")), jump("D.C.", 'dacapo="yes"'))], "a b a c a c"),
}


@pytest.mark.parametrize("name", PLAYED)
def test_the_order_of_playing(name):
    measures, expected = PLAYED[name]
    made = planned(score([ATTRIBUTES + measures[0], *measures[1:]]))
    assert words(made) == expected
    assert [note.pos for note in made.notes] == [1920 * at for at in range(len(expected.split()))]


def test_a_repeat_goes_on_with_the_next_verse():
    verses = sung("first") + sung("second", 2)
    made = planned(score([ATTRIBUTES + note("C", duration=4, inside=verses) + barline(REPEAT)]))
    assert words(made) == "first second"


def test_endless_jumps_end():
    loop = [bar(str(at), barline('<repeat direction="backward" times="100"/>'),
                '<sound dacapo="yes"/>') for at in range(20)]
    assert len(planned(score([ATTRIBUTES + loop[0], *loop[1:]])).notes) <= 100_000


def archive(document, name="song.xml", container=True):
    target = io.BytesIO()
    with zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED) as file:
        if container:
            file.writestr("META-INF/container.xml", "<container><rootfiles>"
                          f'<rootfile full-path="{name}"/></rootfiles></container>')
        file.writestr(name, document)
    return target.getvalue()


@pytest.mark.parametrize("container", [True, False])
def test_compressed(container):
    assert words(planned(archive(score([ATTRIBUTES + bar("a")]), container=container))) == "a"


def test_other_encodings_and_a_document_type():
    data = score([ATTRIBUTES + bar("Süß")], head='<!DOCTYPE score-partwise PUBLIC "-//R//DTD 3.1//EN" '
                 '"http://www.musicxml.org/dtds/partwise.dtd">').decode("utf-8")
    for encoding in ("UTF-8", "UTF-16", "ISO-8859-1"):
        assert words(planned(data.replace("UTF-8", encoding).encode(encoding))) == "Süß"


BOMB = ('<!DOCTYPE score-partwise [<!ENTITY a "ha"><!ENTITY b "&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;">'
        '<!ENTITY c "&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;">]>')


@pytest.mark.parametrize("data, said", [
    (b"", "line 1, column 1: no element found"),
    (b"<score-partwise>", "line 1, column 17"),
    (b"<html/>", "no MusicXML: the document is a 'html'"),
    (b"<score-timewise/>", "timewise"),
    (score(), "no measures"),
    (score([ATTRIBUTES + rest(4)]), "no notes"),
    (score([ATTRIBUTES + bar("&c;")], head=BOMB), "declares entities"),
    (score([ATTRIBUTES + bar("a")], head='<!DOCTYPE x [<!ENTITY e SYSTEM "file:///etc/passwd">]>'),
     "declares entities"),
    (b"<a>" * 100_000, "deeper than a song needs"),
    (score([ATTRIBUTES, note("H")]), "part P1, measure 2: no step 'H'"),
    (score([ATTRIBUTES + note("C", 99)]), "C99 is outside"),
    (score([ATTRIBUTES + note("C", duration="1e9999999999")]), "part P1, measure 1: duration: '1e9999999999'"),
    (score([ATTRIBUTES + '<sound tempo="1/3"/>' + bar("a")]), "tempo: '1/3' is no number"),
    (score(["<attributes><key><fifths>1.5</fifths></key></attributes>"]), "fifths: '1.5' is no whole number"),
    (score([ATTRIBUTES.replace("<beat-type>4", "<beat-type>0") + bar("a")]), "a meter of 4/0"),
    (score([ATTRIBUTES + note("C", duration="x" * 100)]), "duration: 'x{30}' is no number"),
    (score([ATTRIBUTES.replace(">1<", ">0<", 1) + bar("a")]), "divisions of 0"),
    (score([ATTRIBUTES + "<backup><duration>1</duration></backup>"]), "backup"),
    (score([ATTRIBUTES + note("C", duration=2**31)]), "outside of what a clip can hold"),
    (b"PK\3\4" + b"x" * 100, "archive is damaged"),
    (archive(b"x" * 40_000_000), "larger than"),
    (archive(b"x", "readme.txt", False), "holds no MusicXML"),
    (archive(b"x", "gone.xml").replace(b"gone.xml", b"away.xml", 1), "archive|no element|damaged"),
    (archive(b"x").replace(b"song.xml", b"sonG.xml", 1), "'song.xml' in the archive, at byte [0-9]+, is damaged"),
])
def test_what_is_wrong_is_said_with_its_place(data, said):
    with pytest.raises(SongError, match=said):
        planned(data)
