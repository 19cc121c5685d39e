#include "snapshot.h"

#include <array>

namespace plxclip {

std::string_view nameOf(PartType type)
{
    static constexpr std::array<std::string_view, 4> names = {"audio", "midiAi", "midi", "none"};
    return names[static_cast<std::size_t>(type)];
}

std::string_view laneName(std::uint32_t type)
{
    static constexpr std::array<std::string_view, 12> names = {
        "dynamics",  "portamento", "pitchBendSens", "pitchBend", "breathiness", "brightness",
        "clearness", "voiceBlend", "growl",         "exciter",   "air",         "character"};
    return type < names.size() ? names[type] : "unknown";
}

bool hasAttack(const Note& note)
{
    return !note.attack.component.empty();
}

bool hasRelease(const Note& note)
{
    return !note.release.component.empty();
}

bool hasSkill(const Note& note)
{
    return note.skill.duration > 0;
}

bool hasVibrato(const Note& note)
{
    return note.vibrato.duration > 0;
}

} // namespace plxclip
