// The marks on a note: a triangle for an attack or a release, a diamond for a singing skill.
#pragma once

#include "roll/svg.h"
#include "snapshot.h"

namespace plxclip::roll {

bool hasAttack(const Note& note);
bool hasRelease(const Note& note);
bool hasSkill(const Note& note);
bool hasVibrato(const Note& note);

// Each with its left upper corner.
void drawAttack(Svg& svg, Place at);
void drawSkill(Svg& svg, Place at);
void drawRelease(Svg& svg, Place at);

} // namespace plxclip::roll
