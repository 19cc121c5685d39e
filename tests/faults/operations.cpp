#include "operations.h"

#include <initializer_list>
#include <type_traits>

#include <gtest/gtest.h>

#include "support/exported.h"
#include "support/properties.h"

namespace faults {

namespace {

// Too long to be kept without an allocation.
const support::Text longText = support::text("a text that is longer than any small buffer: 歌");
const support::Text otherText = support::text("another text that is longer than any small buffer");
const support::Text voiceBank = support::text("ABCDEFGHIJKLMNOP");

// --- Properties ---------------------------------------------------------------------------------------

// A value that a property takes and that it does not have yet. A position or a duration is short: it
// must lie in the note.
template <class Handle, class Value>
Value otherValue(const support::Property<Handle, Value>& property)
{
    if constexpr (std::is_same_v<Value, support::TextPointer>) {
        const bool isVoice = property.texts == support::Texts::voiceBank ||
                             property.texts == support::Texts::voiceBankOrEmpty;
        return (isVoice ? voiceBank : longText).c_str();
    } else if constexpr (std::is_same_v<Value, bool>) {
        return true;
    } else if constexpr (std::is_same_v<Value, std::int32_t>) {
        return 100;
    } else if constexpr (std::is_same_v<Value, float>) {
        return property.maximum / 4;
    } else {
        return property.maximum - 1;
    }
}

// Sets the properties of an object, or of another object in it; `find` gives its handle.
template <class Handle, class Find>
void addSetters(Operations& operations, Find find, std::string_view within)
{
    support::forEachProperty<Handle>([&](const auto& property) {
        if (property.within == within) {
            operations.push_back(
                {support::nameOfFunction(property.set), [find, property](Desk& desk) {
                     return lib(property.set, find(desk), otherValue(property));
                 }});
        }
    });
}

template <class Handle, class Find>
Operations settersOf(Find find, std::initializer_list<std::string_view> places)
{
    Operations operations;
    for (const std::string_view within : places) {
        addSetters<Handle>(operations, find, within);
    }
    return operations;
}

KRT_PLX_ClipBase* clipOf(Desk& desk)
{
    return desk.clip;
}

KRT_PLX_PartBase* partOf(Desk& desk)
{
    return desk.part;
}

Operations joined(std::initializer_list<Operations> lists)
{
    Operations all;
    for (const Operations& operations : lists) {
        all.insert(all.end(), operations.begin(), operations.end());
    }
    return all;
}

// --- Other operations ---------------------------------------------------------------------------------

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

Operations effectsOfMidiPart()
{
    return {
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
    };
}

// Notes; the last one goes past the others.
Operations noteOperations()
{
    const Operations inserted = {
        {"MutableMidiPart_insertNote", [](Desk& desk) { return insertNoteAt(desk, 960); }},
        {"MutableMidiPart_insertNote", [](Desk& desk) { return insertNoteAt(desk, 0); }},
        {"MutableMidiPart_insertNote", [](Desk& desk) { return insertNoteAt(desk, 480); }},
        {"MutableNote_move",
         [](Desk& desk) { return lib(KRT_PLX_MutableNote_move, desk.note, std::int32_t{1440}); }},
    };
    const auto note = [](Desk& desk) { return desk.note; };
    return joined({inserted, settersOf<KRT_PLX_NoteBase>(note, {"", "exp", "aiExp"})});
}

Operations dvqmAndSkillOperations()
{
    const auto dvqm = [](Desk& desk) { return desk.dvqm; };
    const auto skill = [](Desk& desk) { return KRT_PLX_MutableNote_singingSkill(desk.note); };
    const Operations taken = {{"MutableNote_dvqm", takeDvqm<false>},
                              {"MutableNote_dvqm", takeDvqm<true>}};
    const Operations named = {{"MutableDvqm_addLevelName", [](Desk& desk) {
                                   return lib(KRT_PLX_MutableDvqm_addLevelName, desk.dvqm,
                                              longText.c_str());
                               }}};
    return joined({taken, named, settersOf<KRT_PLX_DvqmBase>(dvqm, {""}),
                   settersOf<KRT_PLX_SingingSkillBase>(skill, {"", "weight"})});
}

Operations vibratoOperations()
{
    const Operations taken = {{"MutableNote_vibrato", [](Desk& desk) {
                                   desk.vibrato = lib(KRT_PLX_MutableNote_vibrato, desk.note);
                                   return desk.vibrato != nullptr;
                               }}};
    const Operations points = {{"MutableVibrato_insertParameter", insertPoint<0>},
                               {"MutableVibrato_insertParameter", insertPoint<1>}};
    const auto vibrato = [](Desk& desk) { return desk.vibrato; };
    const auto point = [](Desk& desk) { return desk.point; };
    return joined({taken, settersOf<KRT_PLX_VibratoBase>(vibrato, {""}), points,
                   settersOf<KRT_PLX_VibratoParameterBase>(point, {""})});
}

Operations laneOperations()
{
    const Operations inserted = {
        {"MutableMidiPart_addMidiController",
         [](Desk& desk) {
             desk.lane =
                 lib(KRT_PLX_MutableMidiPart_addMidiController, desk.part, std::uint32_t{0});
             return desk.lane != nullptr;
         }},
        {"MutableMidiController_insertEvent", [](Desk& desk) { return insertEventAt(desk, 0); }},
        {"MutableMidiController_insertEvent", [](Desk& desk) { return insertEventAt(desk, 5); }},
    };
    const auto event = [](Desk& desk) { return desk.event; };
    return joined({inserted, settersOf<KRT_PLX_MidiEventBase>(event, {""})});
}

// The voice of one kind of part, then what both kinds have.
Operations withMidiContent(const Operations& voice)
{
    return joined({voice, settersOf<KRT_PLX_PartBase>(partOf, {""}), effectsOfMidiPart(),
                   noteOperations(), dvqmAndSkillOperations(), vibratoOperations(),
                   laneOperations()});
}

} // namespace

const Operations& clipOperations()
{
    static const Operations created = {{"Manager_createMutableClip", [](Desk& desk) {
                                            desk.clip = lib(KRT_PLX_Manager_createMutableClip,
                                                            desk.manager);
                                            return desk.clip != nullptr;
                                        }}};
    static const Operations tags = {
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
    static const Operations operations =
        joined({created, settersOf<KRT_PLX_ClipBase>(clipOf, {"", "part"}), tags});
    return operations;
}

const Operations& midiOperations()
{
    static const Operations created = {
        {"MutableClip_createMidiPart", createPart<KRT_PLX_MutableClip_createMidiPart>}};
    static const Operations operations =
        withMidiContent(joined({created, settersOf<KRT_PLX_PartBase>(partOf, {"voice"})}));
    return operations;
}

const Operations& aiOperations()
{
    static const Operations created = {
        {"MutableClip_createMidiAiPart", createPart<KRT_PLX_MutableClip_createMidiAiPart>},
        {"MutableMidiPart_addAiLangID", [](Desk& desk) {
             return lib(KRT_PLX_MutableMidiPart_addAiLangID, desk.part, std::uint32_t{2});
         }}};
    static const Operations operations =
        withMidiContent(joined({created, settersOf<KRT_PLX_PartBase>(partOf, {"aiVoice"})}));
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

std::uint32_t keyOfBuiltClips()
{
    return otherValue(support::propertyOf(KRT_PLX_ClipBase_partKey));
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
