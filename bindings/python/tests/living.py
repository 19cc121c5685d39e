"""A living object of every class, read-only and editable."""

import korvel_plx as plx

VOICE = "0123456789abcdef"


def fill_part(part):
    """Adds something of everything that a MIDI part can have."""
    part.voice_bank_id = part.ai_voice_bank_id = VOICE
    part.lang_id = 1
    part.add_ai_lang_id(1)
    part.duration = 1920
    note = part.insert_note(0, 480, "la", "l a", 1)
    note.velocity = 100
    note.attack.comp_id = note.release.comp_id = "breath"
    note.attack.add_level_name("soft")
    note.release.add_level_name("hard")
    note.singing_skill.duration = 120
    note.vibrato.duration = 240
    note.vibrato.insert_depth(0, 64)
    note.vibrato.insert_depth(120, 32)
    note.vibrato.insert_rate(0, 64)
    lane = part.add_midi_controller(plx.ControllerType.PITCH_BEND)
    lane.insert_event(0, -100)
    lane.insert_event(480, 100)
    part.insert_midi_effect(0, "midi.effect").add_parameter("Depth").value = 3
    part.insert_audio_effect(0, "audio.effect").add_parameter("Mix").value = 0.5


class Living:
    def __init__(self, library):
        self.library = library
        song = library.clip("brindoll.hearth.greensleeves")
        song.read_part()
        self.objects = {"Manager": library, "Clip": song}
        self.clip = library.create_mutable_clip()
        fill_part(self.clip.create_midi_part())
        self.clip.filter.add_genre("Folk")
        self.user_clip = self.clip.save("Living")
        self.user_clip.read_part()
        self.audio = library.create_mutable_clip()
        self.audio.create_audio_part().insert_audio_effect(0, "reverb")
        self.read_audio = next(clip for clip in library.clips
                               if clip.part_type == plx.PartType.AUDIO and loads(clip))
        self.add_all()

    def add_all(self):
        self.add(self.user_clip, self.clip, self.user_clip.filter, self.clip.filter,
                 self.audio.audio_part, self.read_audio.audio_part,
                 self.user_clip.create_property_editor())
        for part in (self.user_clip.midi_part, self.clip.midi_part):
            note = part.notes[0]
            lane = part.midi_controllers[0]
            self.add(part, note, note.attack, note.singing_skill, note.vibrato,
                     note.vibrato.depths[0], lane, lane.events[1])
            for effect in (part.midi_effects[0], part.audio_effects[0]):
                self.add(effect, effect.parameters[0])

    def add(self, *objects):
        for one in objects:
            self.objects[type(one).__name__] = one

    def is_a(self, one, name):
        return any(kind.__name__ == name for kind in type(one).__mro__)

    def snapshot(self):
        """What all living objects return, as text."""
        return "\n".join(f"{name}: {self.values(one)}" for name, one in self.objects.items())

    @staticmethod
    def values(one):
        kinds = (bool, int, float, str, type(None), plx.PlxSequence)
        names = [name for name in dir(type(one)) if isinstance(getattr(type(one), name), property)]
        return {name: repr(getattr(one, name)) for name in names
                if isinstance(getattr(one, name), kinds)}


def loads(clip):
    try:
        clip.read_part()
        return True
    except plx.PlxError:
        return False
