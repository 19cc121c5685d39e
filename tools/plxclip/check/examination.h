// The documents of a clip, key by key.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "check/contents.h"
#include "check/examiner.h"

namespace plxclip::check {

// What a document gives to the catalogue.
struct Identity {
    std::string id;
    const Node* place = nullptr; // of the ID
    std::size_t tags = 0;
};

// The property document: none when the document is refused.
std::optional<Identity> examineProperties(Examiner& examiner, const Node& root);

// The ID, the name and the tags of a data document that stands alone.
std::optional<Identity> examineIdentity(Examiner& examiner, const Node& root);

// The part of a data document: none when it cannot be read.
std::optional<Contents> examinePart(Examiner& examiner, const Node& root,
                                    const std::filesystem::path& folder);

// --- What examinePart() is made of ----------------------------------------------------------------

enum class EffectList { audio, midi };

void examineEffects(Examiner& examiner, const Node& array, EffectList list, Contents& contents);
void examineNotes(Examiner& examiner, const Node& array, Contents& contents);
void examineControllers(Examiner& examiner, const Node& array, Contents& contents);

// Where points may stand, what they may be, and what they are called.
struct PointRule {
    std::array<Key, 2> keys;
    Loss loss;
};

// The points that are taken: the good ones, the first at each position.
struct Points {
    std::size_t count = 0;
    std::uint64_t sum = 0; // of all their numbers, in millionths; it may wrap
};

Points examinePoints(Examiner& examiner, const Node& array, const PointRule& rule);

// Whether an element is an object; reported when it is not.
bool isObject(Examiner& examiner, const Node& element, const Loss& loss);

} // namespace plxclip::check
