#include "format/effect_builder.h"

#include <algorithm>
#include <array>

namespace Korvel::CANTORIS::PLX::format {

namespace {

using keys::place;

// The number of units with which all names begin.
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

// A name, in a list of names with a common beginning. The next eight units, the first that may
// differ, are stored here, so that they are compared without reading the names themselves.
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

// Values beyond the range of a float are clamped: upwards to the largest float, but downwards to
// the smallest positive one. That is how existing clips were always read.
float clamped(double value)
{
    if (value > largestFloat) {
        return static_cast<float>(largestFloat);
    }
    return value < -largestFloat ? KRT_PLX_VALUE_UNSET_FLOAT : static_cast<float>(value);
}

// Stores the value, which is an integer, a real or a text.
void putValue(const Value& value, bool keepsIntegers, EffectParameterImpl& parameter, Taker& taker)
{
    if (value.kind == Value::Kind::text) {
        parameter.assignString(taker.convert(*value.asUtf8()));
    } else if (value.kind == Value::Kind::real) {
        parameter.assignFloat(clamped(value.number.real));
    } else if (keepsIntegers) {
        parameter.assignInt32(value.number.integer);
    } else {
        parameter.assignFloat(static_cast<float>(value.number.integer));
    }
}

} // namespace

template <class Of, class EffectImpl>
bool EffectBuilder<Of, EffectImpl>::endParameter()
{
    using Parameter = keys::Parameter<Of::id>;
    const Members members = trail_.top().members();
    auto parameter = std::make_unique<EffectParameterImpl>(*effect_, StringView());
    if (!taker_.take<Parameter>(members, *parameter)) {
        return false;
    }
    const bool keepsIntegers = Of::id == keys::Id::midiEffect ||
                               members[place<Parameter>("name")]->asWholeUtf8() == keys::bypass;
    const Value& value = *members[place<Parameter>("value")];
    if (value.kind == Value::Kind::real && !value.asFloat()) {
        trail_.lost(LossReason::clamped, members, keys::rows<Parameter>[place<Parameter>("value")],
                    &value);
    }
    putValue(value, keepsIntegers, *parameter, taker_);
    effect_->parameters().append(std::move(parameter));
    return true;
}

template <class Of, class EffectImpl>
bool EffectBuilder<Of, EffectImpl>::end(EffectList<EffectImpl>& effects)
{
    const Members members = trail_.top().members();
    if (!taker_.take<Of>(members, *effect_)) {
        return false;
    }
    if (effects.withId(effect_->idText()) != nullptr) {
        trail_.lost(LossReason::duplicate, members, keys::rows<Of>[place<Of>("id")],
                    members[place<Of>("id")]);
        return false;
    }
    sortByName(effect_->parameters());
    effects.append(std::move(effect_));
    return true;
}

template class EffectBuilder<keys::AudioEffectTable, AudioEffectImpl>;
template class EffectBuilder<keys::MidiEffectTable, MidiEffectImpl>;

} // namespace Korvel::CANTORIS::PLX::format
