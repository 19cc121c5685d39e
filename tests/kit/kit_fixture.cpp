#include "kit_fixture.h"

namespace kit {

using support::text;

namespace {

const support::Text x = text("A text that is longer than any small buffer");

void fillNote(KRT_PLX_NoteBase* note)
{
    support::forEachProperty<KRT_PLX_NoteBase, std::uint32_t>(
        [=](const auto& property) { property.set(note, 1); });
    support::forEachProperty<KRT_PLX_NoteBase, bool>(
        [=](const auto& property) { property.set(note, true); });
    for (const bool isAttack : {true, false}) {
        KRT_PLX_DvqmBase* const dvqm = KRT_PLX_MutableNote_dvqm(note, isAttack);
        KRT_PLX_MutableDvqm_setCompID(dvqm, x.c_str());
        KRT_PLX_MutableDvqm_addLevelName(dvqm, x.c_str());
        KRT_PLX_MutableDvqm_protect(dvqm, true);
    }
    KRT_PLX_VibratoBase* const vibrato = KRT_PLX_MutableNote_vibrato(note);
    KRT_PLX_MutableVibrato_setDuration(vibrato, 9);
    KRT_PLX_MutableVibrato_insertParameter(vibrato, KRT_PLX_VIBRATO_DEPTH, 5, 1);
    KRT_PLX_MutableVibrato_insertParameter(vibrato, KRT_PLX_VIBRATO_RATE, 6, 1);
}

} // namespace

void fillWithEverything(KRT_PLX_ClipBase* clip)
{
    for (const support::TagList& list : support::tagLists) {
        list.add(KRT_PLX_MutableClip_filter(clip), x.c_str());
    }
    KRT_PLX_MutableFilter_addLanguage(KRT_PLX_MutableClip_filter(clip), 1);
    KRT_PLX_PartBase* const part = support::createMidiPart(clip);
    KRT_PLX_MutableMidiPart_setDuration(part, 9);
    KRT_PLX_MutableMidiPart_setAiVoiceBankID(part, text(std::string(support::voiceBankID)).c_str());
    KRT_PLX_MutableMidiPart_addAiLangID(part, 1);
    KRT_PLX_MutableMidiPart_setStyleName(part, x.c_str());
    KRT_PLX_MutableMidiPart_setStylePresetID(part, x.c_str());
    fillNote(support::insertNote(part, 0));
    KRT_PLX_MutableMidiController_insertEvent(
        KRT_PLX_MutableMidiPart_addMidiController(part, KRT_PLX_CONTROLLER_GROWL), 7, 1);
    for (KRT_PLX_EffectBase* const effect :
         {KRT_PLX_MutableMidiPart_insertMidiEffect(part, 0, x.c_str()),
          KRT_PLX_MutableMidiPart_insertAudioEffect(part, 0, x.c_str())}) {
        KRT_PLX_MutableEffectParameter_setValueInt32(support::addParameter(effect, "a"), 1);
        KRT_PLX_MutableEffectParameter_setValueFloat(support::addParameter(effect, "b"), 1);
        KRT_PLX_MutableEffectParameter_setValueString(support::addParameter(effect, "c"),
                                                      x.c_str());
    }
}

void Notices::keep(void* context, const KRT_PLX_KitNotice* notice)
{
    static_cast<Notices*>(context)->all_.push_back(*notice);
}

std::vector<std::string> Notices::lines() const
{
    std::vector<std::string> result;
    for (const KRT_PLX_KitNotice& notice : all_) {
        std::string line(KRT_PLX_Kit_describe(&notice, nullptr, 0), ' ');
        KRT_PLX_Kit_describe(&notice, line.data(), line.size());
        line.pop_back();
        result.push_back(line);
    }
    return result;
}

} // namespace kit
