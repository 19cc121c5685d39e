#include "operations.h"

#include <gtest/gtest.h>

namespace faults {

namespace {

// Too long to be kept without an allocation.
const support::Text longText = support::text("a text that is longer than any small buffer: 歌");
const support::Text otherText = support::text("another text that is longer than any small buffer");
const support::Text voiceBank = support::text("ABCDEFGHIJKLMNOP");

// Functions of the same form, whatever they are called.
template <bool (*Add)(KRT_PLX_Filter*, const KRT_PLX_Char*) noexcept>
bool addTag(Desk& desk)
{
    return lib(Add, desk.filter, longText.c_str());
}

template <bool (*Add)(KRT_PLX_Filter*, const KRT_PLX_Char*) noexcept>
bool addOtherTag(Desk& desk)
{
    return lib(Add, desk.filter, otherText.c_str());
}

template <bool (*Remove)(KRT_PLX_Filter*, const KRT_PLX_Char*) noexcept>
bool removeTag(Desk& desk)
{
    return lib(Remove, desk.filter, longText.c_str());
}

template <bool (*Set)(KRT_PLX_NoteBase*, std::uint32_t) noexcept>
bool setNumber(Desk& desk)
{
    return lib(Set, desk.note, std::uint32_t{90});
}

template <bool (*Set)(KRT_PLX_NoteBase*, float) noexcept>
bool setFloat(Desk& desk)
{
    return lib(Set, desk.note, 0.25F);
}

template <bool (*Set)(KRT_PLX_NoteBase*, bool) noexcept>
bool setFlag(Desk& desk)
{
    return lib(Set, desk.note, true);
}

template <bool (*Set)(KRT_PLX_NoteBase*, const KRT_PLX_Char*) noexcept>
bool setNoteText(Desk& desk)
{
    return lib(Set, desk.note, longText.c_str());
}

template <bool (*Set)(KRT_PLX_PartBase*, const KRT_PLX_Char*) noexcept>
bool setPartText(Desk& desk)
{
    return lib(Set, desk.part, longText.c_str());
}

template <bool (*Set)(KRT_PLX_PartBase*, const KRT_PLX_Char*) noexcept>
bool setVoice(Desk& desk)
{
    return lib(Set, desk.part, voiceBank.c_str());
}

template <KRT_PLX_PartBase* (*Create)(KRT_PLX_ClipBase*) noexcept>
bool createPart(Desk& desk)
{
    KRT_PLX_PartBase* const part = lib(Create, desk.clip);
    desk.part = part == nullptr ? desk.part : part;
    return part != nullptr;
}

template <KRT_PLX_EffectBase* (*Insert)(KRT_PLX_PartBase*, std::uint64_t,
                                        const KRT_PLX_Char*) noexcept>
bool insertEffect(Desk& desk)
{
    desk.effect = lib(Insert, desk.part, std::uint64_t{0}, longText.c_str());
    return desk.effect != nullptr;
}

template <KRT_PLX_EffectBase* (*Insert)(KRT_PLX_PartBase*, std::uint64_t,
                                        const KRT_PLX_Char*) noexcept>
bool insertOtherEffect(Desk& desk)
{
    return lib(Insert, desk.part, std::uint64_t{1}, otherText.c_str()) != nullptr;
}

bool addParameter(Desk& desk)
{
    desk.parameter = lib(KRT_PLX_MutableEffect_addParameter, desk.effect, longText.c_str());
    return desk.parameter != nullptr;
}

bool addOtherParameter(Desk& desk)
{
    return lib(KRT_PLX_MutableEffect_addParameter, desk.effect, otherText.c_str()) != nullptr;
}

bool insertNoteAt(Desk& desk, std::int32_t pos)
{
    desk.note = lib(KRT_PLX_MutableMidiPart_insertNote, desk.part, pos, std::int32_t{480},
                    otherText.c_str(), otherText.c_str(), std::uint32_t{1});
    return desk.note != nullptr;
}

template <std::uint32_t Kind>
bool insertPoint(Desk& desk)
{
    desk.point = lib(KRT_PLX_MutableVibrato_insertParameter, desk.vibrato, Kind, std::int32_t{10},
                     std::uint32_t{20});
    return desk.point != nullptr;
}

bool insertEventAt(Desk& desk, std::int32_t pos)
{
    desk.event = lib(KRT_PLX_MutableMidiController_insertEvent, desk.lane, pos, std::int32_t{64});
    return desk.event != nullptr;
}

template <bool IsAttack>
bool takeDvqm(Desk& desk)
{
    desk.dvqm = lib(KRT_PLX_MutableNote_dvqm, desk.note, IsAttack);
    return desk.dvqm != nullptr;
}

const Operation setParameterText = {"MutableEffectParameter_setValueString", [](Desk& desk) {
                                        return lib(KRT_PLX_MutableEffectParameter_setValueString,
                                                   desk.parameter, longText.c_str());
                                    }};
const Operation setParameterFloat = {"MutableEffectParameter_setValueFloat", [](Desk& desk) {
                                         return lib(KRT_PLX_MutableEffectParameter_setValueFloat,
                                                    desk.parameter, 0.5F);
                                     }};
const Operation setParameterInt = {"MutableEffectParameter_setValueInt32", [](Desk& desk) {
                                       return lib(KRT_PLX_MutableEffectParameter_setValueInt32,
                                                  desk.parameter, std::int32_t{7});
                                   }};
const Operation removeParameter = {
    "MutableEffectParameter_remove",
    [](Desk& desk) { return lib(KRT_PLX_MutableEffectParameter_remove, desk.parameter); }};
const Operation moveEffect = {
    "MutableEffect_move",
    [](Desk& desk) { return lib(KRT_PLX_MutableEffect_move, desk.effect, std::uint64_t{1}); }};

// The voice of one kind of part, then what both kinds have.
Operations withMidiContent(Operations operations)
{
    const Operations content = {
        {"MutableMidiPart_setDuration",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableMidiPart_setDuration, desk.part, std::int32_t{1920});
         }},
        {"MutableMidiPart_setStyleName", setPartText<KRT_PLX_MutableMidiPart_setStyleName>},
        {"MutableMidiPart_setStylePresetID", setPartText<KRT_PLX_MutableMidiPart_setStylePresetID>},
        {"MutableMidiPart_insertAudioEffect",
         insertEffect<KRT_PLX_MutableMidiPart_insertAudioEffect>},
        {"MutableEffect_addParameter", addParameter},
        setParameterText,
        {"MutableMidiPart_insertMidiEffect",
         insertEffect<KRT_PLX_MutableMidiPart_insertMidiEffect>},
        {"MutableMidiPart_insertMidiEffect",
         insertOtherEffect<KRT_PLX_MutableMidiPart_insertMidiEffect>},
        moveEffect,
        {"MutableEffect_addParameter", addParameter},
        {"MutableEffect_addParameter", addOtherParameter},
        setParameterFloat,
        setParameterInt,
        {"MutableMidiPart_insertNote", [](Desk& desk) { return insertNoteAt(desk, 960); }},
        {"MutableMidiPart_insertNote", [](Desk& desk) { return insertNoteAt(desk, 0); }},
        {"MutableMidiPart_insertNote", [](Desk& desk) { return insertNoteAt(desk, 480); }},
        {"MutableNote_setLyric", setNoteText<KRT_PLX_MutableNote_setLyric>},
        {"MutableNote_setPhoneme", setNoteText<KRT_PLX_MutableNote_setPhoneme>},
        {"MutableNote_move",
         [](Desk& desk) { return lib(KRT_PLX_MutableNote_move, desk.note, std::int32_t{1440}); }},
        {"MutableNote_setDuration",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableNote_setDuration, desk.note, std::int32_t{400});
         }},
        {"MutableNote_setNumber", setNumber<KRT_PLX_MutableNote_setNumber>},
        {"MutableNote_setVelocity", setNumber<KRT_PLX_MutableNote_setVelocity>},
        {"MutableNote_setLangID", setNumber<KRT_PLX_MutableNote_setLangID>},
        {"MutableNote_setAccent", setNumber<KRT_PLX_MutableNote_setAccent>},
        {"MutableNote_setBendDepth", setNumber<KRT_PLX_MutableNote_setBendDepth>},
        {"MutableNote_setBendLength", setNumber<KRT_PLX_MutableNote_setBendLength>},
        {"MutableNote_setDecay", setNumber<KRT_PLX_MutableNote_setDecay>},
        {"MutableNote_setOpening", setNumber<KRT_PLX_MutableNote_setOpening>},
        {"MutableNote_setFallPort", setFlag<KRT_PLX_MutableNote_setFallPort>},
        {"MutableNote_setRisePort", setFlag<KRT_PLX_MutableNote_setRisePort>},
        {"MutableNote_setProtected", setFlag<KRT_PLX_MutableNote_setProtected>},
        {"MutableNote_setAmplitudeEnd", setFloat<KRT_PLX_MutableNote_setAmplitudeEnd>},
        {"MutableNote_setAmplitudeStart", setFloat<KRT_PLX_MutableNote_setAmplitudeStart>},
        {"MutableNote_setAmplitudeWhole", setFloat<KRT_PLX_MutableNote_setAmplitudeWhole>},
        {"MutableNote_setFormantEnd", setFloat<KRT_PLX_MutableNote_setFormantEnd>},
        {"MutableNote_setFormantStart", setFloat<KRT_PLX_MutableNote_setFormantStart>},
        {"MutableNote_setFormantWhole", setFloat<KRT_PLX_MutableNote_setFormantWhole>},
        {"MutableNote_setPitchDriftEnd", setFloat<KRT_PLX_MutableNote_setPitchDriftEnd>},
        {"MutableNote_setPitchDriftStart", setFloat<KRT_PLX_MutableNote_setPitchDriftStart>},
        {"MutableNote_setPitchFine", setFloat<KRT_PLX_MutableNote_setPitchFine>},
        {"MutableNote_setPitchScalingCenter", setFloat<KRT_PLX_MutableNote_setPitchScalingCenter>},
        {"MutableNote_setPitchScalingOrigin", setFloat<KRT_PLX_MutableNote_setPitchScalingOrigin>},
        {"MutableNote_setPitchTransitionEnd", setFloat<KRT_PLX_MutableNote_setPitchTransitionEnd>},
        {"MutableNote_setPitchTransitionStart",
         setFloat<KRT_PLX_MutableNote_setPitchTransitionStart>},
        {"MutableNote_dvqm", takeDvqm<false>},
        {"MutableNote_dvqm", takeDvqm<true>},
        {"MutableDvqm_setCompID",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableDvqm_setCompID, desk.dvqm, longText.c_str());
         }},
        {"MutableDvqm_addLevelName",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableDvqm_addLevelName, desk.dvqm, longText.c_str());
         }},
        {"MutableDvqm_setSpeed",
         [](Desk& desk) { return lib(KRT_PLX_MutableDvqm_setSpeed, desk.dvqm, std::uint32_t{9}); }},
        {"MutableDvqm_setTopFactor",
         [](Desk& desk) { return lib(KRT_PLX_MutableDvqm_setTopFactor, desk.dvqm, 0.75F); }},
        {"MutableDvqm_protect",
         [](Desk& desk) { return lib(KRT_PLX_MutableDvqm_protect, desk.dvqm, true); }},
        {"MutableSingingSkill_setDuration",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableSingingSkill_setDuration,
                        KRT_PLX_MutableNote_singingSkill(desk.note), std::int32_t{100});
         }},
        {"MutableSingingSkill_setPreWeight",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableSingingSkill_setPreWeight,
                        KRT_PLX_MutableNote_singingSkill(desk.note), std::uint32_t{3});
         }},
        {"MutableSingingSkill_setPostWeight",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableSingingSkill_setPostWeight,
                        KRT_PLX_MutableNote_singingSkill(desk.note), std::uint32_t{4});
         }},
        {"MutableNote_vibrato",
         [](Desk& desk) {
             desk.vibrato = lib(KRT_PLX_MutableNote_vibrato, desk.note);
             return desk.vibrato != nullptr;
         }},
        {"MutableVibrato_setType",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableVibrato_setType, desk.vibrato, std::uint32_t{2});
         }},
        {"MutableVibrato_setDuration",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableVibrato_setDuration, desk.vibrato, std::int32_t{200});
         }},
        {"MutableVibrato_insertParameter", insertPoint<0>},
        {"MutableVibrato_insertParameter", insertPoint<1>},
        {"MutableVibratoParameter_move",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableVibratoParameter_move, desk.point, std::int32_t{30});
         }},
        {"MutableVibratoParameter_setValue",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableVibratoParameter_setValue, desk.point, std::uint32_t{40});
         }},
        {"MutableMidiPart_addMidiController",
         [](Desk& desk) {
             desk.lane =
                 lib(KRT_PLX_MutableMidiPart_addMidiController, desk.part, std::uint32_t{0});
             return desk.lane != nullptr;
         }},
        {"MutableMidiController_insertEvent", [](Desk& desk) { return insertEventAt(desk, 0); }},
        {"MutableMidiController_insertEvent", [](Desk& desk) { return insertEventAt(desk, 5); }},
        {"MutableMidiEvent_move",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableMidiEvent_move, desk.event, std::int32_t{20});
         }},
        {"MutableMidiEvent_setValue",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableMidiEvent_setValue, desk.event, std::int32_t{1});
         }},
    };
    operations.insert(operations.end(), content.begin(), content.end());
    return operations;
}

} // namespace

const Operations& clipOperations()
{
    static const Operations operations = {
        {"Manager_createMutableClip",
         [](Desk& desk) {
             desk.clip = lib(KRT_PLX_Manager_createMutableClip, desk.manager);
             return desk.clip != nullptr;
         }},
        {"MutableClip_setVendorName",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableClip_setVendorName, desk.clip, longText.c_str());
         }},
        {"MutableClip_setPartKey",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableClip_setPartKey, desk.clip, std::uint32_t{3});
         }},
        {"MutableClip_setPartTempo",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableClip_setPartTempo, desk.clip, std::uint32_t{12000});
         }},
        {"MutableClip_filter",
         [](Desk& desk) {
             desk.filter = lib(KRT_PLX_MutableClip_filter, desk.clip);
             return desk.filter != nullptr;
         }},
        {"MutableFilter_addGenre", addTag<KRT_PLX_MutableFilter_addGenre>},
        {"MutableFilter_addGenre", addOtherTag<KRT_PLX_MutableFilter_addGenre>},
        {"MutableFilter_addSingerGroup", addTag<KRT_PLX_MutableFilter_addSingerGroup>},
        {"MutableFilter_addSingerGroup", addOtherTag<KRT_PLX_MutableFilter_addSingerGroup>},
        {"MutableFilter_addSingerID", addTag<KRT_PLX_MutableFilter_addSingerID>},
        {"MutableFilter_addSingerID", addOtherTag<KRT_PLX_MutableFilter_addSingerID>},
        {"MutableFilter_addType", addTag<KRT_PLX_MutableFilter_addType>},
        {"MutableFilter_addType", addOtherTag<KRT_PLX_MutableFilter_addType>},
        {"MutableFilter_addVendor", addTag<KRT_PLX_MutableFilter_addVendor>},
        {"MutableFilter_addVendor", addOtherTag<KRT_PLX_MutableFilter_addVendor>},
        {"MutableFilter_addLanguage",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableFilter_addLanguage, desk.filter, std::int32_t{5});
         }},
    };
    return operations;
}

const Operations& midiOperations()
{
    static const Operations operations = withMidiContent({
        {"MutableClip_createMidiPart", createPart<KRT_PLX_MutableClip_createMidiPart>},
        {"MutableMidiPart_setVoiceBankID", setVoice<KRT_PLX_MutableMidiPart_setVoiceBankID>},
        {"MutableMidiPart_setLangID",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableMidiPart_setLangID, desk.part, std::uint32_t{1});
         }},
    });
    return operations;
}

const Operations& aiOperations()
{
    static const Operations operations = withMidiContent({
        {"MutableClip_createMidiAiPart", createPart<KRT_PLX_MutableClip_createMidiAiPart>},
        {"MutableMidiPart_setAiVoiceBankID", setVoice<KRT_PLX_MutableMidiPart_setAiVoiceBankID>},
        {"MutableMidiPart_addAiLangID",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableMidiPart_addAiLangID, desk.part, std::uint32_t{2});
         }},
    });
    return operations;
}

const Operations& audioOperations()
{
    static const Operations operations = {
        {"MutableClip_createAudioPart", createPart<KRT_PLX_MutableClip_createAudioPart>},
        {"MutableAudioPart_setWavFilePath",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableAudioPart_setWavFilePath, desk.part, desk.wave.c_str());
         }},
        {"MutableAudioPart_setRegion",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableAudioPart_setRegion, desk.part, std::int32_t{1},
                        std::int32_t{2});
         }},
        {"MutableAudioPart_insertAudioEffect",
         insertEffect<KRT_PLX_MutableAudioPart_insertAudioEffect>},
        {"MutableAudioPart_insertAudioEffect",
         insertOtherEffect<KRT_PLX_MutableAudioPart_insertAudioEffect>},
        {"MutableEffect_addParameter", addParameter},
        setParameterText,
        moveEffect,
    };
    return operations;
}

const Operations& removals()
{
    static const Operations operations = {
        {"MutableFilter_removeGenre", removeTag<KRT_PLX_MutableFilter_removeGenre>},
        {"MutableFilter_removeSingerGroup", removeTag<KRT_PLX_MutableFilter_removeSingerGroup>},
        {"MutableFilter_removeSingerID", removeTag<KRT_PLX_MutableFilter_removeSingerID>},
        {"MutableFilter_removeType", removeTag<KRT_PLX_MutableFilter_removeType>},
        {"MutableFilter_removeVendor", removeTag<KRT_PLX_MutableFilter_removeVendor>},
        {"MutableFilter_removeLanguage",
         [](Desk& desk) {
             return lib(KRT_PLX_MutableFilter_removeLanguage, desk.filter, std::int32_t{5});
         }},
        removeParameter,
        {"MutableEffect_remove",
         [](Desk& desk) { return lib(KRT_PLX_MutableEffect_remove, desk.effect); }},
        {"MutableVibratoParameter_remove",
         [](Desk& desk) { return lib(KRT_PLX_MutableVibratoParameter_remove, desk.point); }},
        {"MutableMidiEvent_remove",
         [](Desk& desk) { return lib(KRT_PLX_MutableMidiEvent_remove, desk.event); }},
        {"MutableMidiController_remove",
         [](Desk& desk) { return lib(KRT_PLX_MutableMidiController_remove, desk.lane); }},
        {"MutableNote_remove",
         [](Desk& desk) { return lib(KRT_PLX_MutableNote_remove, desk.note); }},
    };
    return operations;
}

KRT_PLX_ClipBase* build(KRT_PLX_Manager* manager, const Operations& part,
                        const support::Path& waveFile)
{
    Desk desk(waveFile);
    desk.manager = manager;
    for (const Operations* operations : {&clipOperations(), &part}) {
        for (const Operation& operation : *operations) {
            EXPECT_TRUE(operation.run(desk)) << operation.name;
        }
    }
    return desk.clip;
}

} // namespace faults
