// What loses nothing in a part, and may be a mistake all the same.
#pragma once

#include <cstddef>
#include <vector>

#include "check/finding.h"
#include "check/hearing.h"
#include "model/part.h"

namespace plxclip::check {

struct Note {
    Finding finding; // without its position
    std::size_t place;
};

// `taken` are the notes that the reader has told of, others among them.
std::vector<Note> noteworthyOf(own::PartBase& part, const std::vector<format::Taken>& taken);

} // namespace plxclip::check
