// A clip as plain values, taken from an editable clip or from one that was saved and read, so that
// the two can be compared.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include <korvel/plx.h>

#include "support/properties.h"
#include "support/text.h"

namespace support {

// What was read of a property: texts as UTF-8.
using PropertyValue = std::variant<std::uint32_t, std::int32_t, float, bool, std::string>;

inline PropertyValue asValue(TextPointer text)
{
    return text == nullptr ? std::string() : utf8(text);
}
template <class Value>
PropertyValue asValue(Value value)
{
    return value;
}

// Each property of an object, in the order of the list. In the beginning they are what an object has of
// which nothing was written.
template <class Handle>
class Values {
public:
    Values();
    explicit Values(Handle* handle);

    // values[KRT_PLX_NoteBase_duration]
    template <class Value>
    Value& operator[](Value (*get)(Handle*) noexcept)
    {
        return std::get<Value>(all_.at(indexOf(get)));
    }
    template <class Value>
    const Value& operator[](Value (*get)(Handle*) noexcept) const
    {
        return std::get<Value>(all_.at(indexOf(get)));
    }
    std::string& operator[](TextPointer (*get)(Handle*) noexcept)
    {
        return std::get<std::string>(all_.at(indexOf(get)));
    }
    const std::string& operator[](TextPointer (*get)(Handle*) noexcept) const
    {
        return std::get<std::string>(all_.at(indexOf(get)));
    }

    [[nodiscard]] const PropertyValue& at(std::size_t index) const { return all_[index]; }
    PropertyValue& at(std::size_t index) { return all_[index]; }

    // What stands in one of the objects within it is as in the beginning again.
    void forget(std::string_view within);

private:
    template <class Value>
    static std::size_t indexOf(Value (*get)(Handle*) noexcept);

    std::vector<PropertyValue> all_;
};

struct PointModel {
    std::int32_t pos;
    std::uint32_t value;
};

struct VibratoModel {
    Values<KRT_PLX_VibratoBase> values;
    std::vector<PointModel> depths;
    std::vector<PointModel> rates;
};

struct DvqmModel {
    Values<KRT_PLX_DvqmBase> values;
    std::vector<std::string> levelNames;
};

struct NoteModel {
    Values<KRT_PLX_NoteBase> values;
    DvqmModel attack;
    DvqmModel release;
    Values<KRT_PLX_SingingSkillBase> singingSkill;
    VibratoModel vibrato;
};

struct EventModel {
    std::int32_t pos;
    std::int32_t value;
};

struct LaneModel {
    std::uint32_t type;
    std::vector<EventModel> events;
};

struct ParameterModel {
    std::string name;
    std::uint32_t type;
    Values<KRT_PLX_EffectParameterBase> values;
};

struct EffectModel {
    std::string id;
    std::uint32_t type;
    std::vector<ParameterModel> parameters;
};

struct PartModel {
    std::uint32_t type = KRT_PLX_PART_NONE;
    std::string wavFilePath;
    std::int32_t begin = 0;
    std::int32_t end = 0;
    Values<KRT_PLX_PartBase> values; // of a MIDI part
    std::vector<std::uint32_t> aiLangIDs;
    std::vector<EffectModel> audioEffects;
    std::vector<EffectModel> midiEffects;
    std::vector<NoteModel> notes;
    std::vector<LaneModel> lanes;
};

struct ClipModel {
    Values<KRT_PLX_ClipBase> values;
    std::array<std::vector<std::string>, tagLists.size()> tags;
    std::vector<std::int32_t> languages;
    PartModel part;

    [[nodiscard]] std::vector<std::string>& vendors() { return tags.back(); }
};

ClipModel modelOfEditable(KRT_PLX_ClipBase* clip);

// Of a system or user clip whose part was read.
ClipModel modelOfRead(KRT_PLX_ClipBase* clip);

// Every value of the model, a line each. Models are equal when their descriptions are: floats are
// told apart by their bits, texts by their units.
std::string describe(const ClipModel& clip);

// The same of one value: "50", "0.5 (3f000000)", "2:la".
std::string describe(const PropertyValue& value);

template <class Handle>
template <class Value>
std::size_t Values<Handle>::indexOf(Value (*get)(Handle*) noexcept)
{
    std::size_t index = 0;
    while (index < properties<Handle>().size()) {
        const auto* const property =
            std::get_if<Property<Handle, Value>>(&properties<Handle>()[index]);
        if (property != nullptr && property->get == get) {
            break;
        }
        ++index;
    }
    return index;
}

} // namespace support
