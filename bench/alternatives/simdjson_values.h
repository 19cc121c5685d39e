// Reading values of simdjson's into plain ones: what is missing or of another type changes nothing.
#pragma once

#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <simdjson.h>

namespace bench::with_simdjson {

using Value = simdjson::simdjson_result<simdjson::dom::element>;

template <class T>
void read(const Value& value, T& target)
{
    using Stored =
        std::conditional_t<std::is_same_v<T, bool>, bool,
                           std::conditional_t<std::is_integral_v<T>, std::int64_t,
                                              std::conditional_t<std::is_floating_point_v<T>,
                                                                 double, std::string_view>>>;
    Stored stored{};
    if (value.get(stored) == simdjson::SUCCESS) {
        target = T(stored);
    }
}

template <class Visit>
void forEach(const Value& value, Visit visit)
{
    simdjson::dom::array array;
    if (value.get(array) == simdjson::SUCCESS) {
        for (const simdjson::dom::element element : array) {
            visit(Value(simdjson::dom::element(element)));
        }
    }
}

template <class T>
void readAll(const Value& value, std::vector<T>& target)
{
    forEach(value, [&](const Value& element) { read(element, target.emplace_back()); });
}

} // namespace bench::with_simdjson
