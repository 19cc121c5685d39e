#include "hostile_shapes.h"

namespace hostile {

using support::dataObject;
using support::midiPartObject;
using support::noteObject;

std::string arrayOf(std::size_t size, const std::function<std::string(std::size_t)>& element)
{
    std::string result = "[";
    for (std::size_t i = 0; i < size; ++i) {
        result += i > 0 ? "," : "";
        result += element(i);
    }
    return result + "]";
}

std::string name(std::size_t number)
{
    std::string digits = std::to_string(number);
    return "n" + std::string(9 - digits.size(), '0') + digits;
}

std::string part(std::string_view key, const std::string& value)
{
    return dataObject("midi", midiPartObject().with(key, value));
}

std::string noteWith(std::string_view key, const std::string& value)
{
    return part("notes",
                "[" + noteObject().with("duration", "1000000").with(key, value).text() + "]");
}

std::string point(std::size_t pos, std::size_t value)
{
    return "{\"pos\":" + std::to_string(pos) + ",\"value\":" + std::to_string(value) + "}";
}

} // namespace hostile
