// The marks on a note: a triangle for an attack or a release, a diamond for a singing skill.
#pragma once

#include "roll/svg.h"
#include "snapshot.h"

namespace plxclip::roll {

// Each with its left upper corner.
void drawAttack(Svg& svg, Place at);
void drawSkill(Svg& svg, Place at);
void drawRelease(Svg& svg, Place at);

} // namespace plxclip::roll
