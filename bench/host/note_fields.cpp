#include "host/note_fields.h"

#include <algorithm>
#include <cstring>

#include "host/catalogue.h"
#include "model/keys.h"
#include "support/properties.h"

namespace bench {

namespace {

// The setter is that of the list of properties.
template <class Value>
NoteField<Value> field(Value NoteValues::*member, Value (*get)(KRT_PLX_NoteBase*) noexcept)
{
    return {member, get, support::propertyOf(get).set};
}

std::array<AiValue, aiValueCount> listedAiValues()
{
    std::array<AiValue, aiValueCount> values{};
    std::size_t place = 0;
    support::forEachProperty<KRT_PLX_NoteBase, float>([&](const auto& property) {
        values.at(place++) = {property.get, property.set};
    });
    return values;
}

template <class Handle, class Value>
void requireInitial(const Value& value, Value (*get)(Handle*) noexcept)
{
    require(value == support::propertyOf(get).initial, "the model begins with another value");
}

template <class Fields>
void requireInitials(const Fields& fields)
{
    for (const auto& each : fields) {
        const NoteValues values;
        support::forEachProperty<KRT_PLX_NoteBase>([&](const auto& property) {
            if constexpr (requires { property.get == each.get; }) {
                require(property.get != each.get || values.*each.member == property.initial,
                        "the model of a note begins with another value");
            }
        });
    }
}

} // namespace

const std::array<NoteField<std::uint32_t>, 7> noteNumbers{
    {field(&NoteValues::number, KRT_PLX_NoteBase_number),
     field(&NoteValues::velocity, KRT_PLX_NoteBase_velocity),
     field(&NoteValues::accent, KRT_PLX_NoteBase_accent),
     field(&NoteValues::bendDepth, KRT_PLX_NoteBase_bendDepth),
     field(&NoteValues::bendLength, KRT_PLX_NoteBase_bendLength),
     field(&NoteValues::decay, KRT_PLX_NoteBase_decay),
     field(&NoteValues::opening, KRT_PLX_NoteBase_opening)}};

const std::array<NoteField<bool>, 3> noteSwitches{
    {field(&NoteValues::isProtected, KRT_PLX_NoteBase_isProtected),
     field(&NoteValues::fallPort, KRT_PLX_NoteBase_fallPort),
     field(&NoteValues::risePort, KRT_PLX_NoteBase_risePort)}};

const std::array<AiValue, aiValueCount> aiValues = listedAiValues();

void requireListedFacts()
{
    requireInitials(noteNumbers);
    requireInitials(noteSwitches);
    requireInitial(SingingSkill().preWeight, KRT_PLX_SingingSkillBase_preWeight);
    requireInitial(SingingSkill().postWeight, KRT_PLX_SingingSkillBase_postWeight);
    requireInitial(Dvqm().speed, KRT_PLX_DvqmBase_speed);
    requireInitial(Dvqm().topFactor, KRT_PLX_DvqmBase_topFactor);
    std::size_t place = 0;
    support::forEachProperty<KRT_PLX_NoteBase, float>([&](const auto& property) {
        require(std::strcmp(keys::aiValues.at(place++), property.key) == 0,
                "an AI value has another name");
    });
    const auto hasName = [](const support::Controller& each, const char* name) {
        return std::strcmp(each.name, name) == 0;
    };
    require(std::ranges::equal(support::controllers, keys::controllers, hasName),
            "a controller has another name");
}

} // namespace bench
