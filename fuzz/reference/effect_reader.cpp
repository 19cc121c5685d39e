#include "reference/effect_reader.h"

#include <algorithm>
#include <array>

#include "reference/values.h"

namespace Korvel::CANTORIS::PLX::reference {

namespace {

// How many units all names begin with.
std::size_t commonBeginning(const OwnedList<EffectParameterImpl>& parameters)
{
    const StringView first = parameters.empty() ? StringView() : parameters[0].nameText();
    std::size_t length = first.size();
    for (const EffectParameterImpl* const parameter : parameters) {
        const StringView name = parameter->nameText();
        length = std::min(length, name.size());
        const auto end = first.begin() + static_cast<std::ptrdiff_t>(length);
        length = static_cast<std::size_t>(std::mismatch(first.begin(), end, name.begin()).first -
                                          first.begin());
    }
    return length;
}

// A name among names that begin alike. The eight units in which they may differ first are compared
// without going to where the names lie.
class NameKey {
public:
    NameKey(const String& name, std::size_t commonLength) : name_(&name)
    {
        const StringView rest = StringView(name).substr(commonLength, leading_.size());
        std::copy(rest.begin(), rest.end(), leading_.begin());
    }

    bool operator<(const NameKey& other) const
    {
        return leading_ == other.leading_ ? *name_ < *other.name_ : leading_ < other.leading_;
    }

private:
    std::array<Char, 8> leading_{};
    const String* name_;
};

void sortByName(OwnedList<EffectParameterImpl>& parameters)
{
    parameters.stableSortBy(
        [length = commonBeginning(parameters)](const EffectParameterImpl& parameter) {
            return NameKey(parameter.nameText(), length);
        });
}

// Beyond the range of a float the value is clamped: upwards to the largest one, but downwards to the
// smallest positive one. Clips in circulation were read so, and are read so again.
float clamped(double value)
{
    if (value > largestFloat) {
        return static_cast<float>(largestFloat);
    }
    return value < -largestFloat ? KRT_PLX_VALUE_UNSET_FLOAT : static_cast<float>(value);
}

// False when the value is of no kind that a parameter can hold.
bool readValue(const Value& value, bool keepsIntegers, EffectParameterImpl& parameter)
{
    if (const auto integer = asInteger(&value)) {
        if (keepsIntegers) {
            parameter.assignInt32(*integer);
        } else {
            parameter.assignFloat(static_cast<float>(*integer));
        }
        return true;
    }
    if (value.IsDouble()) {
        parameter.assignFloat(clamped(value.GetDouble()));
        return true;
    }
    if (const auto text = asText(&value)) {
        parameter.assignString(*text);
        return true;
    }
    return false;
}

std::unique_ptr<EffectParameterImpl> readParameter(const Value& element, EffectBase& effect)
{
    if (!element.IsObject()) {
        return nullptr;
    }
    const Members members(element, schema::parameter::keys);
    const Value* const nameValue = members[schema::parameter::name];
    const auto name = asText(nameValue);
    const Value* const value = members[schema::parameter::value];
    if (!name || name->empty() || value == nullptr) {
        return nullptr;
    }
    auto parameter = std::make_unique<EffectParameterImpl>(effect, *name);
    const bool keepsIntegers =
        effect.type() == KRT_PLX_EFFECT_MIDI || asWholeUtf8(nameValue) == schema::effect::bypass;
    return readValue(*value, keepsIntegers, *parameter) ? std::move(parameter) : nullptr;
}

void readParameters(const Value* array, EffectBase& effect,
                    OwnedList<EffectParameterImpl>& parameters)
{
    if (asArray(array) == nullptr) {
        return;
    }
    for (const auto& element : array->GetArray()) {
        if (auto parameter = readParameter(element, effect)) {
            parameters.append(std::move(parameter));
        }
    }
    sortByName(parameters);
}

template <class EffectImpl>
std::unique_ptr<EffectImpl> readEffect(const Value& element, PartBase& part,
                                       const EffectList<EffectImpl>& standing)
{
    if (!element.IsObject()) {
        return nullptr;
    }
    const Members members(element, schema::effect::keys);
    const auto id = asText(members[schema::effect::id]);
    if (!id || id->empty() || standing.withId(*id) != nullptr) {
        return nullptr;
    }
    auto effect = std::make_unique<EffectImpl>(part, *id);
    readParameters(members[schema::effect::parameters], *effect, effect->parameters());
    return effect;
}

template <class EffectImpl>
void readAll(const Value* array, PartBase& part, EffectList<EffectImpl>& effects)
{
    if (asArray(array) == nullptr) {
        return;
    }
    for (const auto& element : array->GetArray()) {
        if (auto effect = readEffect(element, part, effects)) {
            effects.append(std::move(effect));
        }
    }
}

} // namespace

void readEffects(const Value* array, PartBase& part, EffectList<AudioEffectImpl>& effects)
{
    readAll(array, part, effects);
}

void readEffects(const Value* array, PartBase& part, EffectList<MidiEffectImpl>& effects)
{
    readAll(array, part, effects);
}

} // namespace Korvel::CANTORIS::PLX::reference
