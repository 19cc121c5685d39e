// What the library refuses is told. The table that the kit takes is one in which a function fails, as it
// does when memory runs out.
#include "kit_fixture.h"

namespace {

using kit::linked;
using support::text;
using testing::Contains;

// A function of this type that does nothing.
template <class Function>
struct Refusal;
template <class Result, class... Arguments>
struct Refusal<Result (*)(Arguments...) noexcept> {
    static Result refuse(Arguments...) noexcept { return Result(); }
};

struct Case {
    void (*breakTable)(KRT_PLX_Api&);
    const char* line;
};

// Replaces one function of a table: breaks<&KRT_PLX_Api::KRT_PLX_MutableNote_setNumber>.
template <auto member>
void breaks(KRT_PLX_Api& api)
{
    api.*member = Refusal<std::remove_reference_t<decltype(api.*member)>>::refuse;
}

#define BREAKS(name) breaks<&KRT_PLX_Api::KRT_PLX_##name>

const Case cases[] = {
    {BREAKS(MutableClip_createMidiPart), "part: not taken"},
    {BREAKS(MutableClip_setVendorName), "clip: vendor: not taken"},
    {BREAKS(MutableClip_setPartKey), "clip: key: not taken"},
    {BREAKS(MutableClip_setPartTempo), "clip: tempo: not taken"},
    {BREAKS(MutableFilter_addGenre), "tags: genres: not taken"},
    {BREAKS(MutableFilter_addSingerGroup), "tags: singerGroups: not taken"},
    {BREAKS(MutableFilter_addSingerID), "tags: singerIDs: not taken"},
    {BREAKS(MutableFilter_addType), "tags: types: not taken"},
    {BREAKS(MutableFilter_addVendor), "tags: vendors: not taken"},
    {BREAKS(MutableFilter_addLanguage), "tags: languages: not taken"},
    {BREAKS(MutableMidiPart_setDuration), "part: duration: not taken"},
    {BREAKS(MutableMidiPart_setVoiceBankID), "part: voice.compID: not taken"},
    {BREAKS(MutableMidiPart_setAiVoiceBankID), "part: aiVoice.compID: not taken"},
    {BREAKS(MutableMidiPart_setStyleName), "part: styleName: not taken"},
    {BREAKS(MutableMidiPart_setStylePresetID), "part: stylePresetID: not taken"},
    {BREAKS(MutableMidiPart_setLangID), "part: voice.langID: not taken"},
    {BREAKS(MutableMidiPart_addAiLangID), "part: aiVoice.langIDs: not taken"},
    {BREAKS(MutableMidiPart_insertNote), "note 1 at 0: not taken"},
    {BREAKS(MutableNote_setNumber), "note 1 at 0: number: not taken"},
    {BREAKS(MutableNote_setVelocity), "note 1 at 0: velocity: not taken"},
    {BREAKS(MutableNote_setAccent), "note 1 at 0: accent: not taken"},
    {BREAKS(MutableNote_setBendDepth), "note 1 at 0: bendDepth: not taken"},
    {BREAKS(MutableNote_setBendLength), "note 1 at 0: bendLength: not taken"},
    {BREAKS(MutableNote_setDecay), "note 1 at 0: decay: not taken"},
    {BREAKS(MutableNote_setOpening), "note 1 at 0: opening: not taken"},
    {BREAKS(MutableNote_setProtected), "note 1 at 0: isProtected: not taken"},
    {BREAKS(MutableNote_setFallPort), "note 1 at 0: fallPort: not taken"},
    {BREAKS(MutableNote_setRisePort), "note 1 at 0: risePort: not taken"},
    {BREAKS(MutableNote_setPitchFine), "note 1 at 0: pitchFine: not taken"},
    {BREAKS(MutableNote_setFormantEnd), "note 1 at 0: formantEnd: not taken"},
    {BREAKS(MutableDvqm_setCompID), "attack of note 1 at 0: compID: not taken"},
    {BREAKS(MutableDvqm_setCompID), "release of note 1 at 0: compID: not taken"},
    {BREAKS(MutableDvqm_addLevelName), "attack of note 1 at 0: levelNames: not taken"},
    {BREAKS(MutableDvqm_protect), "attack of note 1 at 0: isProtected: not taken"},
    {BREAKS(MutableDvqm_setSpeed), "release of note 1 at 0: speed: not taken"},
    {BREAKS(MutableDvqm_setTopFactor), "attack of note 1 at 0: topFactor: not taken"},
    {BREAKS(MutableSingingSkill_setDuration), "singing skill of note 1 at 0: duration: not taken"},
    {BREAKS(MutableSingingSkill_setPreWeight),
     "singing skill of note 1 at 0: weight.pre: not taken"},
    {BREAKS(MutableSingingSkill_setPostWeight),
     "singing skill of note 1 at 0: weight.post: not taken"},
    {BREAKS(MutableVibrato_setType), "vibrato of note 1 at 0: type: not taken"},
    {BREAKS(MutableVibrato_setDuration), "vibrato of note 1 at 0: duration: not taken"},
    {BREAKS(MutableVibrato_insertParameter), "vibrato of note 1 at 5: depths: not taken"},
    {BREAKS(MutableVibrato_insertParameter), "vibrato of note 1 at 6: rates: not taken"},
    {BREAKS(MutableMidiPart_addMidiController), "controller growl at 0: not taken"},
    {BREAKS(MutableMidiController_insertEvent), "controller growl at 7: events: not taken"},
    {BREAKS(MutableMidiPart_insertMidiEffect), "MIDI effect 1: not taken"},
    {BREAKS(MutableMidiPart_insertAudioEffect), "audio effect 1: not taken"},
    {BREAKS(MutableEffect_addParameter), "audio effect 1: parameters: not taken"},
    {BREAKS(MutableEffectParameter_setValueInt32), "MIDI effect 1: parameters: not taken"},
    {BREAKS(MutableEffectParameter_setValueFloat), "MIDI effect 1: parameters: not taken"},
    {BREAKS(MutableEffectParameter_setValueString), "audio effect 1: parameters: not taken"},
};

class KitRefusal : public SaveTest {
protected:
    KitRefusal() { kit::fillWithEverything(clip); }

    std::vector<std::string> linesOfCopy(const KRT_PLX_Api& api)
    {
        kit::Notices notices;
        KRT_PLX_Kit_fill(&api, createMutableClip(), clip, KRT_PLX_NO_LANGUAGE, notices.report());
        return notices.lines();
    }
};

TEST_F(KitRefusal, IsTold)
{
    EXPECT_THAT(linesOfCopy(*linked()), testing::Not(Contains(testing::HasSubstr("not taken"))));
    for (const Case& each : cases) {
        KRT_PLX_Api broken = *linked();
        each.breakTable(broken);
        EXPECT_THAT(linesOfCopy(broken),
                    Contains(each.line + std::string("; it is out of range, or memory ran out")));
    }
}

TEST_F(KitRefusal, OfANewClipGivesNone)
{
    KRT_PLX_Api broken = *linked();
    BREAKS(Manager_createMutableClip)(broken);
    EXPECT_EQ(KRT_PLX_Kit_edit(&broken, clip, KRT_PLX_NO_LANGUAGE, nullptr), nullptr);
}

TEST_F(KitRefusal, OfAValueGivesNoEditor)
{
    KRT_PLX_ClipBase* const saved = support::save(clip).clip;
    for (const auto breakTable :
         {BREAKS(PropertyEditor_setClipName), BREAKS(PropertyEditor_setPartKey),
          BREAKS(PropertyEditor_setPartTempo), BREAKS(PropertyEditor_addFilterType),
          BREAKS(PropertyEditor_addFilterGenre), BREAKS(UserClip_createPropertyEditor)}) {
        KRT_PLX_Api broken = *linked();
        breakTable(broken);
        EXPECT_EQ(KRT_PLX_Kit_editProperties(&broken, saved, KRT_PLX_KIT_KEEP_ALL), nullptr);
    }
    EXPECT_NE(KRT_PLX_Kit_editProperties(linked(), saved, KRT_PLX_KIT_KEEP_ALL), nullptr);
}

TEST_F(KitRefusal, OfTheDurationIsToldAfterACut)
{
    KRT_PLX_Api broken = *linked();
    kit::Notices notices;
    BREAKS(MutableMidiPart_setDuration)(broken);
    EXPECT_FALSE(
        KRT_PLX_Kit_cut(&broken, KRT_PLX_MutableClip_midiPart(clip), 0, 960, notices.report()));
    EXPECT_EQ(notices.lines().back(),
              "part: duration: not taken; it is out of range, or memory ran out");
}

} // namespace
