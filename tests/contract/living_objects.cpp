#include "contract/living_objects.h"

#include <algorithm>

namespace contract {
namespace {

using support::text;

constexpr std::string_view tags = R"(, "vendor": "Studio",
    "filter": {"singerGroups": ["Trio"], "languages": [1], "singerIDs": ["Singer"],
               "types": ["Verse"], "genres": ["Folk"]})";

constexpr std::string_view noteWithEverything = R"(
    {"lyric": "la", "phoneme": "l a", "langID": 1, "isProtected": true,
     "pos": 480, "duration": 480, "number": 64, "velocity": 100,
     "aiExp": {"pitchFine": 0.25, "pitchDriftStart": 0.25, "pitchDriftEnd": 0.25,
               "pitchScalingCenter": 0.25, "pitchScalingOrigin": 0.25,
               "pitchTransitionStart": 0.25, "pitchTransitionEnd": 0.25,
               "amplitudeWhole": 0.25, "amplitudeStart": 0.25, "amplitudeEnd": 0.25,
               "formantWhole": 0.25, "formantStart": 0.25, "formantEnd": 0.25},
     "singingSkill": {"duration": 240, "weight": {"pre": 10, "post": 20}},
     "vibrato": {"type": 1, "duration": 240, "depths": [{"pos": 120, "value": 64}]}},
    {"lyric": "lu", "phoneme": "l u", "pos": 960, "duration": 480, "number": 65, "velocity": 100,
     "dvqm": {"attack": {"compID": "component", "levelNames": ["level"], "speed": 40,
                         "topFactor": 1.5}}})";

constexpr std::string_view effect =
    R"([{"id": "effect", "parameters": [{"name": "Bypass", "value": 1}]}])";

std::string partMembers()
{
    std::string members = R"(, "styleName": "Soft", "stylePresetID": "Preset", "notes": [)";
    members += noteWithEverything;
    members += R"(], "controllers": [{"name": "dynamics", "events": [{"pos": 240, "value": 80}]}])";
    members += R"(, "audioEffects": )" + std::string(effect);
    members += R"(, "midiEffects": )" + std::string(effect);
    return members;
}

std::string midiProperties()
{
    return R"({"id": "midi", "name": "Midi", "part": {"type": "midiAi", "key": 5, "tempo": 12000})" +
           std::string(tags) + "}";
}

void setFloats(KRT_PLX_NoteBase* note)
{
    for (const auto set :
         {KRT_PLX_MutableNote_setAmplitudeEnd, KRT_PLX_MutableNote_setAmplitudeStart,
          KRT_PLX_MutableNote_setAmplitudeWhole, KRT_PLX_MutableNote_setFormantEnd,
          KRT_PLX_MutableNote_setFormantStart, KRT_PLX_MutableNote_setFormantWhole,
          KRT_PLX_MutableNote_setPitchDriftEnd, KRT_PLX_MutableNote_setPitchDriftStart,
          KRT_PLX_MutableNote_setPitchFine, KRT_PLX_MutableNote_setPitchScalingCenter,
          KRT_PLX_MutableNote_setPitchScalingOrigin, KRT_PLX_MutableNote_setPitchTransitionEnd,
          KRT_PLX_MutableNote_setPitchTransitionStart}) {
        set(note, 0.25F);
    }
}

void fillFilter(KRT_PLX_Filter* filter)
{
    KRT_PLX_MutableFilter_addGenre(filter, text("Folk").c_str());
    KRT_PLX_MutableFilter_addLanguage(filter, 1);
    KRT_PLX_MutableFilter_addSingerGroup(filter, text("Trio").c_str());
    KRT_PLX_MutableFilter_addSingerID(filter, text("Singer").c_str());
    KRT_PLX_MutableFilter_addType(filter, text("Verse").c_str());
    KRT_PLX_MutableFilter_addVendor(filter, text("Studio").c_str());
}

} // namespace

bool LivingObject::is(std::string_view className) const
{
    return std::find(classes.begin(), classes.end(), className) != classes.end();
}

LivingObjects::LivingObjects()
{
    addCatalogue();
    addMutableClip();
}

void LivingObjects::add(LivingObject object)
{
    elements_.emplace(object.family, object.handle);
    objects_.push_back(std::move(object));
}

void LivingObjects::addCatalogue()
{
    support::addClip(scratch_.path() / "system", midiProperties(),
                     support::midiAiDocument(partMembers()));
    support::addAudioClip(scratch_.path() / "user", "audio");
    support::addClip(
        scratch_.path() / "user", support::propertyDocument("audio", "audio", tags),
        support::audioDocument("take.wav", R"(, "audioEffects": )" + std::string(effect)));
    manager_ =
        support::createManager({scratch_.path() / "system", scratch_.path() / "user", {}, {}});
    KRT_PLX_Manager_readAllClipFiles(manager_.get());
    add({"manager", Family::manager, manager_.get(), {"Manager", "HasManager"}});

    KRT_PLX_ClipBase* system = KRT_PLX_Manager_systemClip(manager_.get(), 0);
    KRT_PLX_Clip_readPart(system);
    add({"system clip", Family::clip, system, {"ClipBase", "Clip"}});
    add({"read-only filter", Family::filter, KRT_PLX_Clip_filter(system), {"Filter"}});
    addReadPart(system);

    KRT_PLX_ClipBase* user = KRT_PLX_Manager_userClip(manager_.get(), 0);
    KRT_PLX_Clip_readPart(user);
    add({"user clip", Family::clip, user, {"ClipBase", "Clip", "UserClip"}});
    add({"read-only audio part",
         Family::part,
         KRT_PLX_Clip_audioPart(user),
         {"PartBase", "AudioPartBase", "AudioPart"}});
}

void LivingObjects::addReadPart(KRT_PLX_ClipBase* clip)
{
    KRT_PLX_PartBase* part = KRT_PLX_Clip_midiPart(clip);
    add({"read-only MIDI part", Family::part, part, {"PartBase", "MidiPartBase", "MidiPart"}});
    addReadNote(KRT_PLX_MidiPart_note(part, 0));
    add({"read-only attack",
         Family::dvqm,
         KRT_PLX_Note_dvqm(KRT_PLX_MidiPart_note(part, 1), true),
         {"DvqmBase", "Dvqm"}});

    KRT_PLX_MidiControllerBase* lane = KRT_PLX_MidiPart_midiController(part, 0);
    add({"read-only lane", Family::midiController, lane, {"MidiControllerBase", "MidiController"}});
    add({"read-only event",
         Family::midiEvent,
         KRT_PLX_MidiController_event(lane, 0),
         {"MidiEventBase", "MidiEvent"}});
    addReadEffects(part);
}

void LivingObjects::addReadNote(KRT_PLX_NoteBase* note)
{
    add({"read-only note", Family::note, note, {"NoteBase", "Note"}});
    add({"read-only singing skill",
         Family::singingSkill,
         KRT_PLX_Note_singingSkill(note),
         {"SingingSkillBase", "SingingSkill"}});
    KRT_PLX_VibratoBase* vibrato = KRT_PLX_Note_vibrato(note);
    add({"read-only vibrato", Family::vibrato, vibrato, {"VibratoBase", "Vibrato"}});
    add({"read-only vibrato point",
         Family::vibratoParameter,
         KRT_PLX_Vibrato_parameter(vibrato, 0, 0),
         {"VibratoParameterBase", "VibratoParameter"}});
}

void LivingObjects::addReadEffects(KRT_PLX_PartBase* part)
{
    KRT_PLX_EffectBase* audio = KRT_PLX_MidiPart_audioEffect(part, 0);
    add({"read-only audio effect", Family::effect, audio, {"EffectBase", "Effect", "AudioEffect"}});
    add({"read-only MIDI effect",
         Family::effect,
         KRT_PLX_MidiPart_midiEffect(part, 0),
         {"EffectBase", "Effect", "MidiEffect"}});
    add({"read-only effect parameter",
         Family::effectParameter,
         KRT_PLX_Effect_parameter(audio, 0),
         {"EffectParameterBase", "EffectParameter"}});
}

void LivingObjects::addMutableClip()
{
    KRT_PLX_ClipBase* clip = KRT_PLX_Manager_createMutableClip(manager_.get());
    KRT_PLX_MutableClip_setVendorName(clip, text("Studio").c_str());
    add({"editable clip", Family::clip, clip, {"ClipBase", "MutableClip"}});

    KRT_PLX_Filter* filter = KRT_PLX_MutableClip_filter(clip);
    fillFilter(filter);
    add({"editable filter", Family::filter, filter, {"Filter", "MutableFilter"}});
    addMutablePart(KRT_PLX_MutableClip_createMidiAiPart(clip));

    KRT_PLX_ClipBase* other = KRT_PLX_Manager_createMutableClip(manager_.get());
    KRT_PLX_PartBase* audio = KRT_PLX_MutableClip_createAudioPart(other);
    KRT_PLX_MutableAudioPart_insertAudioEffect(audio, 0, text("effect").c_str());
    add({"editable audio part",
         Family::part,
         audio,
         {"PartBase", "AudioPartBase", "MutableAudioPart"}});
}

void LivingObjects::addMutablePart(KRT_PLX_PartBase* part)
{
    KRT_PLX_MutableMidiPart_addAiLangID(part, 1);
    add({"editable MIDI part",
         Family::part,
         part,
         {"PartBase", "MidiPartBase", "MutableMidiPart"}});
    addMutableNote(KRT_PLX_MutableMidiPart_insertNote(part, 480, 480, text("la").c_str(),
                                                      text("l a").c_str(), 1));

    KRT_PLX_MidiControllerBase* lane = KRT_PLX_MutableMidiPart_addMidiController(part, 0);
    KRT_PLX_MidiEventBase* event = KRT_PLX_MutableMidiController_insertEvent(lane, 240, 80);
    add({"editable lane",
         Family::midiController,
         lane,
         {"MidiControllerBase", "MutableMidiController"}});
    add({"editable event", Family::midiEvent, event, {"MidiEventBase", "MutableMidiEvent"}});
    addMutableEffects(part);
}

void LivingObjects::addMutableNote(KRT_PLX_NoteBase* note)
{
    setFloats(note);
    add({"editable note", Family::note, note, {"NoteBase", "MutableNote"}});

    KRT_PLX_DvqmBase* attack = KRT_PLX_MutableNote_dvqm(note, true);
    KRT_PLX_MutableDvqm_addLevelName(attack, text("level").c_str());
    add({"editable attack", Family::dvqm, attack, {"DvqmBase", "MutableDvqm"}});

    KRT_PLX_SingingSkillBase* skill = KRT_PLX_MutableNote_singingSkill(note);
    KRT_PLX_MutableSingingSkill_setDuration(skill, 240);
    add({"editable singing skill",
         Family::singingSkill,
         skill,
         {"SingingSkillBase", "MutableSingingSkill"}});

    KRT_PLX_VibratoBase* vibrato = KRT_PLX_MutableNote_vibrato(note);
    KRT_PLX_MutableVibrato_setDuration(vibrato, 240);
    KRT_PLX_VibratoParameterBase* point =
        KRT_PLX_MutableVibrato_insertParameter(vibrato, 0, 120, 64);
    add({"editable vibrato", Family::vibrato, vibrato, {"VibratoBase", "MutableVibrato"}});
    add({"editable vibrato point",
         Family::vibratoParameter,
         point,
         {"VibratoParameterBase", "MutableVibratoParameter"}});
}

void LivingObjects::addMutableEffects(KRT_PLX_PartBase* part)
{
    KRT_PLX_EffectBase* audio =
        KRT_PLX_MutableMidiPart_insertAudioEffect(part, 0, text("effect").c_str());
    KRT_PLX_EffectParameterBase* parameter =
        KRT_PLX_MutableEffect_addParameter(audio, text("Bypass").c_str());
    KRT_PLX_MutableEffectParameter_setValueInt32(parameter, 1);
    add({"editable audio effect",
         Family::effect,
         audio,
         {"EffectBase", "MutableEffect", "MutableAudioEffect"}});
    add({"editable effect parameter",
         Family::effectParameter,
         parameter,
         {"EffectParameterBase", "MutableEffectParameter"}});

    KRT_PLX_EffectBase* midi =
        KRT_PLX_MutableMidiPart_insertMidiEffect(part, 0, text("effect").c_str());
    KRT_PLX_MutableEffect_addParameter(midi, text("Rate").c_str());
    add({"editable MIDI effect",
         Family::effect,
         midi,
         {"EffectBase", "MutableEffect", "MutableMidiEffect"}});
}

} // namespace contract
