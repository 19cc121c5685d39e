"""Checks that the virtual operations of every interface are declared in their order.

check_slots.py PROJECT

The caller of a virtual operation uses its index in the table of the object, which only the order of
the declarations decides. If two operations change places, the library is compiled again and behaves
as before, so no test of its behaviour would notice. Only the casts of an interface, which follow
its operations, may be in any order.

The check also tests itself, on copies in which two neighbours are swapped, or an operation is
missing or added.
"""

import pathlib
import re
import sys

FOLDERS = ("src/model", "src/clip", "src/manager")

# The tilde is the destructor, which is the last operation of a root.
SLOTS = {name: slots.split() for name, slots in {
    "Manager": """destroy appID systemClipDirPath readAllClipFiles readUserClipFiles numSystemClips
        systemClip hasSystemClip userClipDirPath numUserClips userClip hasUserClip createMutableClip
        hasMutableClip ~""",
    "ClipBase": "parent vendorName partType partKey partTempo ~",
    "Clip": """id name type path filter readPart audioPart hasAudioPart midiPart hasMidiPart""",
    "SystemClip": "",
    "UserClip": "remove createPropertyEditor destroyPropertyEditor",
    "PropertyEditor": """setClipName addFilterType addFilterGenre setPartKey setPartTempo save ~""",
    "Filter": """numSingerGroups singerGroup numVendors vendor numLanguages language numSingerIDs
        singerID numTypes type numGenres genre ~""",
    "MutableFilter": """addSingerGroup removeSingerGroup addVendor removeVendor addLanguage
        removeLanguage addSingerID removeSingerID addType removeType addGenre removeGenre ~""",
    "MutableClip": """destroy setVendorName setPartKey setPartTempo filter createAudioPart audioPart
        hasAudioPart createMidiAiPart createMidiPart midiPart hasMidiPart save""",
    "PartBase": "type setType isMutable ~",
    "MidiPartBase": """duration styleName stylePresetID voiceBankID aiVoiceBankID langID
        aiLangIDSize aiLangIDByIndex numAudioEffects numMidiEffects numNotes""",
    "MidiPart": """parent audioEffect hasAudioEffect midiEffect hasMidiEffect note hasNote
        midiController hasMidiController""",
    "MutableMidiPart": """parent setDuration setStyleName setStylePresetID setVoiceBankID setLangID
        setAiVoiceBankID addAiLangID audioEffect hasAudioEffect insertAudioEffect midiEffect
        hasMidiEffect insertMidiEffect note hasNote insertNote midiController hasMidiController
        addMidiController""",
    "AudioPartBase": "wavFilePath begin end numAudioEffects",
    "AudioPart": "parent audioEffect hasAudioEffect",
    "MutableAudioPart": """parent setWavFilePath setRegion audioEffect hasAudioEffect
        insertAudioEffect""",
    "NoteBase": """isMutable lyric phoneme langID isProtected pos duration number velocity accent
        bendDepth bendLength decay fallPort risePort opening pitchFine pitchDriftStart pitchDriftEnd
        pitchScalingCenter pitchScalingOrigin pitchTransitionStart pitchTransitionEnd amplitudeWhole
        amplitudeStart amplitudeEnd formantWhole formantStart formantEnd ~""",
    "Note": "parent vibrato dvqm singingSkill",
    "MutableNote": """parent remove setLyric setPhoneme setLangID setProtected move setDuration
        setNumber setVelocity setAccent setBendDepth setBendLength setDecay setOpening setFallPort
        setRisePort setPitchFine setPitchDriftStart setPitchDriftEnd setPitchScalingCenter
        setPitchScalingOrigin setPitchTransitionStart setPitchTransitionEnd setAmplitudeWhole
        setAmplitudeStart setAmplitudeEnd setFormantWhole setFormantStart setFormantEnd vibrato dvqm
        singingSkill""",
    "DvqmBase": "isAttack isMutable compID numLevelNames levelName isProtected speed topFactor ~",
    "Dvqm": "parent",
    "MutableDvqm": "parent setCompID addLevelName protect setSpeed setTopFactor",
    "SingingSkillBase": "duration isMutable preWeight postWeight ~",
    "SingingSkill": "parent",
    "MutableSingingSkill": "parent setDuration setPreWeight setPostWeight",
    "VibratoBase": "type duration numParameters isMutable ~",
    "Vibrato": "parent parameter hasParameter",
    "MutableVibrato": "parent setType setDuration parameter hasParameter insertParameter",
    "VibratoParameterBase": "type pos value isMutable ~",
    "VibratoParameter": "parent",
    "MutableVibratoParameter": "parent remove move setValue",
    "MidiControllerBase": "type minEventValue maxEventValue numEvents ~",
    "MidiController": "parent event hasEvent",
    "MutableMidiController": "parent remove event hasEvent insertEvent",
    "MidiEventBase": "type pos value minValue maxValue ~",
    "MidiEvent": "parent",
    "MutableMidiEvent": "parent remove move setValue",
    "EffectBase": "id type numParameters ~",
    "Effect": "parameter hasParameter",
    "AudioEffect": "parent",
    "MidiEffect": "parent",
    "MutableEffect": "parameter addParameter remove move hasParameter",
    "MutableAudioEffect": "parent",
    "MutableMidiEffect": "parent",
    "EffectParameterBase": "name type valueInt32 valueFloat valueString ~",
    "EffectParameter": "parent",
    "MutableEffectParameter": "parent remove setValueInt32 setValueFloat setValueString",
}.items()}

COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)
CLASS = re.compile(r"(?<!enum )\bclass (\w+)[^;{}]*\{(\};|.*?\n\};)", re.DOTALL)
OPERATION = re.compile(r"\bvirtual\s[^;{}()]*?(~|\b)(\w+)\s*\([^;{}]*(?:;|\{[^{}]*\})", re.DOTALL)
CAST = re.compile(r"as[A-Z]")


def operations(body):
    """The operations of a class, in the order of their declarations: name and declaration."""
    return [("~" if match[1] else match[2], match[0]) for match in OPERATION.finditer(body)]


def classes(project):
    """The bodies of all classes but the implementations."""
    files = [file for folder in FOLDERS for file in sorted((project / folder).glob("*.h"))
             if not file.stem.endswith("_impl")]
    return {name: body for file in files
            for name, body in CLASS.findall(COMMENT.sub("", file.read_text(encoding="utf-8")))}


def wrong(name, body):
    """Describes what is wrong with the interface, if anything."""
    expected = SLOTS[name]
    slots = [slot for slot, _ in operations(body)]
    if slots[:len(expected)] != expected:
        return f"{name} has {' '.join(slots)} instead of {' '.join(expected)}"
    others = [slot for slot in slots[len(expected):] if not CAST.match(slot)]
    return f"{name} has {' '.join(others)} behind its operations" if others else None


def disorders(body):
    """Copies of an interface in which two operations are swapped, or one is missing or added."""
    declared = [text for slot, text in operations(body) if not CAST.match(slot)]
    for text in declared:
        yield body.replace(text, "")
    for first, second in zip(declared, declared[1:]):
        yield body.replace(first, "\0").replace(second, first).replace("\0", second)
    yield body.replace("};", "virtual void another() = 0; };")


def main():
    found = classes(pathlib.Path(sys.argv[1]))
    faults = [f"{name} is declared nowhere" for name in SLOTS if name not in found]
    faults += [f"{name} is an interface without an order" for name, body in found.items()
               if operations(body) and name not in SLOTS]
    faults += filter(None, (wrong(name, found[name]) for name in SLOTS if name in found))
    if faults:
        sys.exit("\n".join(faults))

    tried = [(name, wrong(name, copy)) for name in SLOTS for copy in disorders(found[name])]
    unnoticed = {name for name, fault in tried if not fault}
    if unnoticed:
        sys.exit("a disorder was not noticed in " + ", ".join(sorted(unnoticed)))
    print(f"{sum(map(len, SLOTS.values()))} operations of {len(SLOTS)} interfaces in their order, "
          f"{len(tried)} disorders noticed")


if __name__ == "__main__":
    main()
