#pragma once

#include "data/folder.h"
#include "model/catalogue.h"

namespace bench {

// Writes everything that the works read, unless a former run has left it complete.
void generate(const DataFolder& data);

// A clip of the user's.
Clip makeUserClip(std::size_t index);

// Writes it as the library saves clips, in a folder named by its ID.
void writeUserClip(const DataFolder& data, const Clip& clip);

} // namespace bench
