// Parts that are too large in one respect, and what has to come of them.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "support/reading.h"

namespace hostile {

struct Shape {
    std::string name;
    std::size_t size; // the greatest that is tried
    std::string (*document)(std::size_t size);
    void (*check)(KRT_PLX_PartBase* part, std::size_t size);
};

std::vector<Shape> noteShapes();
std::vector<Shape> expressionShapes();
std::vector<Shape> effectShapes();
std::vector<Shape> laneShapes();

// The values that a function gives for 0 up to the size, as one array.
std::string arrayOf(std::size_t size, const std::function<std::string(std::size_t)>& element);

// All of one width, so that they sort as their numbers do.
std::string name(std::size_t number);

// A data document with a part that has this member.
std::string part(std::string_view key, const std::string& value);

// The same with a long note that has this member.
std::string noteWith(std::string_view key, const std::string& value);

// An event, or a point of a curve.
std::string point(std::size_t pos, std::size_t value);

} // namespace hostile
