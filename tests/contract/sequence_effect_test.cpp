// Random edits of a part's effects and their parameters, beside plain lists that are edited by the
// same rules.
#include <algorithm>
#include <limits>
#include <string>
#include <variant>
#include <vector>

#include "sequence.h"
#include "support/editing.h"
#include "support/effort.h"
#include "support/random.h"

using sequence::steps;
using support::Random;
using support::text;
using support::utf8;

namespace {

using Effect = KRT_PLX_EffectBase;
using Parameter = KRT_PLX_EffectParameterBase;
using Value = std::variant<std::monostate, std::int32_t, float, std::string>;

// The value, with the slots that are not in use checked for their marks.
Value valueOf(Parameter* parameter)
{
    const std::int32_t number = KRT_PLX_EffectParameterBase_valueInt32(parameter);
    const float real = KRT_PLX_EffectParameterBase_valueFloat(parameter);
    const std::string characters = utf8(KRT_PLX_EffectParameterBase_valueString(parameter));
    const std::uint32_t type = KRT_PLX_EffectParameterBase_type(parameter);
    if (type != KRT_PLX_VALUE_INT32) {
        EXPECT_EQ(number, KRT_PLX_VALUE_UNSET_INT32);
    }
    if (type != KRT_PLX_VALUE_FLOAT) {
        EXPECT_EQ(real, KRT_PLX_VALUE_UNSET_FLOAT);
    }
    if (type != KRT_PLX_VALUE_STRING) {
        EXPECT_EQ(characters, "");
    }
    switch (type) {
    case KRT_PLX_VALUE_INT32:
        return number;
    case KRT_PLX_VALUE_FLOAT:
        return real;
    case KRT_PLX_VALUE_STRING:
        return characters;
    default:
        return std::monostate{};
    }
}

struct ParameterModel {
    Parameter* handle;
    std::string name;
    Value value;

    friend bool operator==(const ParameterModel&, const ParameterModel&) = default;
};

struct EffectModel {
    Effect* handle;
    std::string id;
    std::vector<ParameterModel> parameters;

    friend bool operator==(const EffectModel&, const EffectModel&) = default;
};

class EffectSequence : public MidiPartTest, public testing::WithParamInterface<std::uint32_t> {
protected:
    std::uint64_t someIndex()
    {
        return random.oneIn(10) ? std::numeric_limits<std::uint64_t>::max() : random.below(12);
    }

    // Names that are beginnings of each other, so that their order is tested.
    std::string someName()
    {
        static const std::string letters = "abAB";
        std::string name;
        const std::uint32_t length = 1 + random.below(3);
        while (name.size() < length) {
            name += random.oneOf(letters);
        }
        return name;
    }

    void insertAt(std::uint64_t index, EffectModel effect)
    {
        const std::uint64_t place = std::min<std::uint64_t>(index, model.size());
        model.insert(model.begin() + static_cast<std::ptrdiff_t>(place), std::move(effect));
    }

    void insert()
    {
        const std::string id = someName();
        const std::uint64_t index = someIndex();
        Effect* const effect =
            KRT_PLX_MutableMidiPart_insertAudioEffect(part, index, text(id).c_str());
        ASSERT_NE(effect, nullptr);
        const auto standing = std::ranges::find(model, id, &EffectModel::id);
        if (standing != model.end()) {
            ASSERT_EQ(effect, standing->handle);
            return;
        }
        dead.clear(); // a dead effect's address may have come back
        insertAt(index, {effect, id, {}});
    }

    // Out of the list, then in again.
    void move()
    {
        const auto place = model.begin() + static_cast<std::ptrdiff_t>(random.below(model.size()));
        const std::uint64_t index = someIndex();
        ASSERT_TRUE(KRT_PLX_MutableEffect_move(place->handle, index));
        const EffectModel moved = *place;
        model.erase(place);
        insertAt(index, moved);
    }

    void remove()
    {
        const auto place = model.begin() + static_cast<std::ptrdiff_t>(random.below(model.size()));
        ASSERT_TRUE(KRT_PLX_MutableEffect_remove(place->handle));
        dead.push_back(place->handle);
        model.erase(place);
    }

    void addParameter()
    {
        EffectModel& effect = random.oneOf(model);
        const std::string name = someName();
        Parameter* const parameter =
            KRT_PLX_MutableEffect_addParameter(effect.handle, text(name).c_str());
        ASSERT_NE(parameter, nullptr);
        auto& parameters = effect.parameters;
        const auto standing = std::ranges::find(parameters, name, &ParameterModel::name);
        if (standing != parameters.end()) {
            ASSERT_EQ(parameter, standing->handle);
            return;
        }
        deadParameters.clear();
        parameters.push_back({parameter, name, std::monostate{}});
        std::ranges::stable_sort(parameters, {}, &ParameterModel::name);
    }

    void setValue(ParameterModel& parameter)
    {
        switch (random.below(3)) {
        case 0: {
            const std::int32_t number = random.between(-100, 100);
            ASSERT_TRUE(KRT_PLX_MutableEffectParameter_setValueInt32(parameter.handle, number));
            parameter.value = number;
            break;
        }
        case 1: {
            const float real = static_cast<float>(random.between(-100, 100)) / 8;
            ASSERT_TRUE(KRT_PLX_MutableEffectParameter_setValueFloat(parameter.handle, real));
            parameter.value = real;
            break;
        }
        default: {
            const std::string characters(random.below(40), 'x');
            ASSERT_TRUE(KRT_PLX_MutableEffectParameter_setValueString(parameter.handle,
                                                                      text(characters).c_str()));
            parameter.value = characters;
        }
        }
    }

    void removeParameter(EffectModel& effect)
    {
        auto& parameters = effect.parameters;
        const auto place =
            parameters.begin() + static_cast<std::ptrdiff_t>(random.below(parameters.size()));
        ASSERT_TRUE(KRT_PLX_MutableEffectParameter_remove(place->handle));
        deadParameters.push_back(place->handle);
        parameters.erase(place);
    }

    void stepOfParameters()
    {
        EffectModel& effect = random.oneOf(model);
        const std::uint32_t choice = random.below(4);
        if (effect.parameters.empty() || choice < 2) {
            addParameter();
        } else if (choice < 3) {
            setValue(random.oneOf(effect.parameters));
        } else {
            removeParameter(effect);
        }
    }

    void step()
    {
        const std::uint32_t choice = random.below(20);
        if (model.empty() || choice < 5) {
            insert();
        } else if (choice < 9) {
            move();
        } else if (choice < 11) {
            remove();
        } else {
            stepOfParameters();
        }
    }

    std::vector<ParameterModel> parametersOf(Effect* effect)
    {
        std::vector<ParameterModel> parameters;
        for (Parameter* const parameter : support::parametersOf(effect)) {
            parameters.push_back(
                {parameter, utf8(KRT_PLX_EffectParameterBase_name(parameter)), valueOf(parameter)});
            EXPECT_TRUE(KRT_PLX_MutableEffect_hasParameter(effect, parameter));
        }
        for (Parameter* const parameter : deadParameters) {
            EXPECT_FALSE(KRT_PLX_MutableEffect_hasParameter(effect, parameter));
        }
        return parameters;
    }

    void compare()
    {
        std::vector<EffectModel> actual;
        for (Effect* const effect : support::elementsOf(
                 KRT_PLX_MidiPartBase_numAudioEffects, KRT_PLX_MutableMidiPart_audioEffect, part)) {
            actual.push_back({effect, utf8(KRT_PLX_EffectBase_id(effect)), parametersOf(effect)});
            EXPECT_TRUE(KRT_PLX_MutableMidiPart_hasAudioEffect(part, effect));
        }
        ASSERT_TRUE(actual == model);
        for (Effect* const effect : dead) {
            ASSERT_FALSE(KRT_PLX_MutableMidiPart_hasAudioEffect(part, effect));
        }
    }

    Random random{GetParam()};
    std::vector<EffectModel> model;
    std::vector<Effect*> dead;
    std::vector<Parameter*> deadParameters;
};

INSTANTIATE_TEST_SUITE_P(Seeds, EffectSequence, testing::Range(1u, 1 + support::seeds(6)));

TEST_P(EffectSequence, IsThatOfPlainLists)
{
    for (int number = 0; number < steps; ++number) {
        SCOPED_TRACE(number);
        step();
        compare();
        if (HasFailure()) {
            return;
        }
    }
}

} // namespace
