#include "contract/export_table.h"

namespace contract {

std::vector<Export> expressionExports()
{
    return {
        exported("DvqmBase_compID", &KRT_PLX_DvqmBase_compID, null),
        exported("DvqmBase_isAttack", &KRT_PLX_DvqmBase_isAttack, no),
        exported("DvqmBase_isMutable", &KRT_PLX_DvqmBase_isMutable, no),
        exported("DvqmBase_isProtected", &KRT_PLX_DvqmBase_isProtected, no),
        exported("DvqmBase_levelName", &KRT_PLX_DvqmBase_levelName, null),
        exported("DvqmBase_numLevelNames", &KRT_PLX_DvqmBase_numLevelNames, no),
        exported("DvqmBase_speed", &KRT_PLX_DvqmBase_speed, 0),
        exported("DvqmBase_topFactor", &KRT_PLX_DvqmBase_topFactor, 0),
        exported("Dvqm_parent", &KRT_PLX_Dvqm_parent, null),
        exported("MutableDvqm_parent", &KRT_PLX_MutableDvqm_parent, null),
        exported("MutableDvqm_addLevelName", &KRT_PLX_MutableDvqm_addLevelName, no),
        exported("MutableDvqm_protect", &KRT_PLX_MutableDvqm_protect, no),
        exported("MutableDvqm_setCompID", &KRT_PLX_MutableDvqm_setCompID, no),
        exported("MutableDvqm_setSpeed", &KRT_PLX_MutableDvqm_setSpeed, no),
        exported("MutableDvqm_setTopFactor", &KRT_PLX_MutableDvqm_setTopFactor, no),
        exported("SingingSkillBase_duration", &KRT_PLX_SingingSkillBase_duration, 0),
        exported("SingingSkillBase_isMutable", &KRT_PLX_SingingSkillBase_isMutable, no),
        exported("SingingSkillBase_postWeight", &KRT_PLX_SingingSkillBase_postWeight, 0),
        exported("SingingSkillBase_preWeight", &KRT_PLX_SingingSkillBase_preWeight, 0),
        exported("SingingSkill_parent", &KRT_PLX_SingingSkill_parent, null),
        exported("MutableSingingSkill_parent", &KRT_PLX_MutableSingingSkill_parent, null),
        exported("MutableSingingSkill_setDuration", &KRT_PLX_MutableSingingSkill_setDuration, no),
        exported("MutableSingingSkill_setPostWeight", &KRT_PLX_MutableSingingSkill_setPostWeight,
                 no),
        exported("MutableSingingSkill_setPreWeight", &KRT_PLX_MutableSingingSkill_setPreWeight, no),
        exported("VibratoBase_duration", &KRT_PLX_VibratoBase_duration, smallestBits),
        exported("VibratoBase_isMutable", &KRT_PLX_VibratoBase_isMutable, no),
        exported("VibratoBase_numParameters", &KRT_PLX_VibratoBase_numParameters, no),
        exported("VibratoBase_type", &KRT_PLX_VibratoBase_type, 17),
        exported("Vibrato_parent", &KRT_PLX_Vibrato_parent, null),
        exported("Vibrato_parameter", &KRT_PLX_Vibrato_parameter, null),
        exported("Vibrato_hasParameter", &KRT_PLX_Vibrato_hasParameter, no),
        exported("MutableVibrato_parent", &KRT_PLX_MutableVibrato_parent, null),
        exported("MutableVibrato_parameter", &KRT_PLX_MutableVibrato_parameter, null),
        exported("MutableVibrato_hasParameter", &KRT_PLX_MutableVibrato_hasParameter, no),
        exported("MutableVibrato_insertParameter", &KRT_PLX_MutableVibrato_insertParameter, null),
        exported("MutableVibrato_setDuration", &KRT_PLX_MutableVibrato_setDuration, no),
        exported("MutableVibrato_setType", &KRT_PLX_MutableVibrato_setType, no),
        exported("VibratoParameterBase_isMutable", &KRT_PLX_VibratoParameterBase_isMutable, no),
        exported("VibratoParameterBase_pos", &KRT_PLX_VibratoParameterBase_pos, smallestBits),
        exported("VibratoParameterBase_type", &KRT_PLX_VibratoParameterBase_type, 2),
        exported("VibratoParameterBase_value", &KRT_PLX_VibratoParameterBase_value, smallestBits),
        exported("VibratoParameter_parent", &KRT_PLX_VibratoParameter_parent, null),
        exported("MutableVibratoParameter_parent", &KRT_PLX_MutableVibratoParameter_parent, null),
        exported("MutableVibratoParameter_move", &KRT_PLX_MutableVibratoParameter_move, no),
        exported("MutableVibratoParameter_remove", &KRT_PLX_MutableVibratoParameter_remove, no),
        exported("MutableVibratoParameter_setValue", &KRT_PLX_MutableVibratoParameter_setValue, no),
    };
}

} // namespace contract
