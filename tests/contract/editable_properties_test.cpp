// Which values the setters accept and which they refuse, for each property of the list. A failure names
// the property and the value.
#include <cmath>
#include <limits>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "support/clip_model.h"
#include "support/editing.h"
#include "support/properties.h"

namespace {

using support::asValue;
using support::describe;
using support::forEachProperty;
using support::largest;
using support::nameOf;
using support::Property;
using support::smallest;
using support::Text;
using support::TextPointer;

// --- Values on both sides of the bounds -------------------------------------------------------------

// A text, which a test must keep while it is passed on, or null.
using HeldText = std::optional<Text>;

template <class Value>
Value passed(Value value)
{
    return value;
}

TextPointer passed(const HeldText& text)
{
    return text ? text->c_str() : nullptr;
}

template <class Handle>
std::vector<std::uint32_t> someValues(const Property<Handle, std::uint32_t>& property, Handle*)
{
    std::vector<std::uint32_t> values = {0,   1,   127,        128,        254,
                                         255, 256, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
    for (std::int64_t value = std::int64_t{property.minimum} - 1; value <= property.maximum + 1;
         ++value) {
        values.push_back(static_cast<std::uint32_t>(value));
    }
    return values;
}

template <class Handle>
std::vector<std::int32_t> someValues(const Property<Handle, std::int32_t>& property, Handle* handle)
{
    std::vector<std::int32_t> values = {smallest, -1, 0, 1, largest};
    for (const std::int64_t bound : {property.leastOf(handle), property.mostOf(handle)}) {
        for (const std::int64_t value : {bound - 1, bound, bound + 1}) {
            if (value >= smallest && value <= largest) {
                values.push_back(static_cast<std::int32_t>(value));
            }
        }
    }
    return values;
}

template <class Handle>
std::vector<float> someValues(const Property<Handle, float>& property, Handle*)
{
    using Limits = std::numeric_limits<float>;
    const float low = property.minimum;
    const float high = property.maximum;
    return {low,
            high,
            std::nextafter(low, -Limits::infinity()),
            std::nextafter(high, Limits::infinity()),
            std::nextafter(low, high),
            std::nextafter(high, low),
            (low + high) / 4,
            high + 0.01F,
            low - 0.001F,
            -0.0F,
            -1,
            2,
            Limits::denorm_min(),
            -Limits::denorm_min(),
            Limits::infinity(),
            -Limits::infinity(),
            Limits::quiet_NaN()};
}

template <class Handle>
std::vector<bool> someValues(const Property<Handle, bool>&, Handle*)
{
    return {true, false, true};
}

// A voice bank's ID counts units: eight of these notes have sixteen.
template <class Handle>
std::vector<HeldText> someValues(const Property<Handle, TextPointer>&, Handle*)
{
    std::vector<HeldText> values = {std::nullopt};
    for (const std::size_t length : {0, 1, 8, 15, 16, 17, 32, 300, 5000}) {
        values.emplace_back(Text(length, KRT_PLX_Char{'x'}));
    }
    for (const std::string_view text :
         {" ", "さ", "やさしい 🎤", "🎵🎵🎵🎵🎵🎵🎵", "🎵🎵🎵🎵🎵🎵🎵🎵", "🎵🎵🎵🎵🎵🎵🎵🎵🎵"}) {
        values.emplace_back(support::text(text));
    }
    return values;
}

// A value that is always accepted, and that differs from every other value of a test.
template <class Handle, class Value>
Value goodValue(const Property<Handle, Value>& property, Handle* handle, Value)
{
    return static_cast<Value>(0.375 * property.leastOf(handle) + 0.625 * property.mostOf(handle));
}

template <class Handle>
bool goodValue(const Property<Handle, bool>&, Handle*, bool other)
{
    return !other;
}

template <class Handle>
HeldText goodValue(const Property<Handle, TextPointer>&, Handle*, const HeldText&)
{
    return support::text("a good voicebank");
}

template <class Handle, class Value>
void expectTakesItsRange(const Property<Handle, Value>& property, Handle* handle)
{
    for (const auto& value : someValues(property, handle)) {
        const auto good = goodValue(property, handle, value);
        property.set(handle, passed(good));
        ASSERT_EQ(describe(asValue(property.get(handle))), describe(asValue(passed(good))))
            << nameOf(property);
        const bool isTaken = property.accepts(handle, passed(value));
        const Value given = passed(value);
        EXPECT_EQ(property.set(handle, given), isTaken && property.succeeds(given))
            << nameOf(property) << " = " << describe(asValue(given));
        EXPECT_EQ(describe(asValue(property.get(handle))),
                  describe(asValue(isTaken ? given : passed(good))))
            << nameOf(property) << " = " << describe(asValue(given));
    }
}

// --- The objects ------------------------------------------------------------------------------------

// A clip that has one of each object. The two kinds of part, of Dvqm and of vibrato points alternate.
class EditableProperties : public HostTest, public testing::WithParamInterface<bool> {
protected:
    EditableProperties()
    {
        KRT_PLX_MutableVibrato_setDuration(vibrato, 480);
        point = KRT_PLX_MutableVibrato_insertParameter(vibrato, GetParam() ? 1 : 0, 10, 20);
        event = KRT_PLX_MutableMidiController_insertEvent(lane, 0, 1);
    }

    template <class Visit>
    void forEachObject(Visit visit)
    {
        visit(clip);
        visit(part);
        visit(note);
        visit(dvqm);
        visit(KRT_PLX_MutableNote_singingSkill(note));
        visit(vibrato);
        visit(point);
        visit(event);
    }

    // Calls visit(property, handle).
    template <class Visit>
    void forEachPropertyOfAll(Visit visit)
    {
        forEachObject([&]<class Handle>(Handle* handle) {
            forEachProperty<Handle>([&](const auto& property) { visit(property, handle); });
        });
    }

    KRT_PLX_ClipBase* const clip = createMutableClip();
    KRT_PLX_PartBase* const part = GetParam() ? KRT_PLX_MutableClip_createMidiAiPart(clip)
                                              : KRT_PLX_MutableClip_createMidiPart(clip);
    KRT_PLX_NoteBase* const note = support::insertNote(part, 0);
    KRT_PLX_DvqmBase* const dvqm = KRT_PLX_MutableNote_dvqm(note, GetParam());
    KRT_PLX_VibratoBase* const vibrato = KRT_PLX_MutableNote_vibrato(note);
    KRT_PLX_MidiControllerBase* const lane =
        KRT_PLX_MutableMidiPart_addMidiController(part, KRT_PLX_CONTROLLER_PITCH_BEND);
    KRT_PLX_VibratoParameterBase* point = nullptr;
    KRT_PLX_MidiEventBase* event = nullptr;
};

INSTANTIATE_TEST_SUITE_P(Kinds, EditableProperties, testing::Bool(),
                         [](const auto& isAi) { return isAi.param ? "midiAi" : "midi"; });

// A note's language is given when it is made.
TEST_P(EditableProperties, HaveTheirInitialValues)
{
    KRT_PLX_MutableVibrato_setDuration(vibrato, 0);
    forEachPropertyOfAll(
        []<class Handle, class Value>(const Property<Handle, Value>& property, Handle* handle) {
            const std::string name = nameOf(property);
            if (property.need == support::Need::argument || name == "note.langID") {
                return;
            }
            if constexpr (std::is_same_v<Value, TextPointer>) {
                EXPECT_EQ(describe(asValue(property.get(handle))), "0:") << name;
            } else {
                EXPECT_EQ(property.get(handle), property.initial) << name;
            }
        });
}

TEST_P(EditableProperties, TakeTheValuesOfTheirRangeAndKeepWhatTheyHaveWhenAskedForAnother)
{
    forEachPropertyOfAll([](const auto& property, auto* handle) {
        const auto before = property.get(handle);
        expectTakesItsRange(property, handle);
        if constexpr (!std::is_same_v<decltype(before), const TextPointer>) {
            property.set(handle, before); // other ranges depend on it
        }
    });
}

// The lines of the one text that are not in the other.
std::size_t differences(const std::string& first, const std::string& second)
{
    std::istringstream one(first);
    std::istringstream other(second);
    std::size_t count = 0;
    for (std::string a, b; std::getline(one, a) && std::getline(other, b);) {
        count += a == b ? 0 : 1;
    }
    return count;
}

TEST_P(EditableProperties, AreSetAlone)
{
    forEachPropertyOfAll(
        [this]<class Handle, class Value>(const Property<Handle, Value>& property, Handle* handle) {
            const std::string before = describe(support::modelOfEditable(clip));
            if constexpr (std::is_same_v<Value, TextPointer>) {
                property.set(handle, support::text("a good voicebank").c_str());
            } else {
                property.set(handle, goodValue(property, handle, property.get(handle)));
            }
            EXPECT_EQ(differences(before, describe(support::modelOfEditable(clip))), 1u)
                << nameOf(property);
        });
}

// --- Texts ------------------------------------------------------------------------------------------

template <class Handle>
void expectTakesItself(const Property<Handle, TextPointer>& property, Handle* handle)
{
    for (const std::size_t length : {16, 300}) {
        const Text value(length, KRT_PLX_Char{'x'});
        if (property.set(handle, value.c_str())) {
            EXPECT_TRUE(property.set(handle, property.get(handle))) << nameOf(property);
            EXPECT_EQ(property.get(handle), value) << nameOf(property);
            const bool takesItsEnd = property.accepts(handle, value.c_str() + 2);
            EXPECT_EQ(property.set(handle, property.get(handle) + 2), takesItsEnd)
                << nameOf(property);
            EXPECT_EQ(property.get(handle), takesItsEnd ? value.substr(2) : value)
                << nameOf(property);
        }
    }
}

TEST_P(EditableProperties, TakeTheirOwnTexts)
{
    forEachPropertyOfAll(
        []<class Handle, class Value>(const Property<Handle, Value>& property, Handle* handle) {
            if constexpr (std::is_same_v<Value, TextPointer>) {
                const TextPointer first = property.get(handle);
                EXPECT_EQ(property.set(handle, first), property.accepts(handle, first))
                    << nameOf(property);
                expectTakesItself(property, handle);
            }
        });
}

TEST_P(EditableProperties, KeepCopiesOfTexts)
{
    forEachPropertyOfAll(
        []<class Handle, class Value>(const Property<Handle, Value>& property, Handle* handle) {
            if constexpr (std::is_same_v<Value, TextPointer>) {
                Text value(16, KRT_PLX_Char{'x'});
                property.set(handle, value.c_str());
                value[0] = KRT_PLX_Char{'y'};
                EXPECT_EQ(property.get(handle), Text(16, KRT_PLX_Char{'x'})) << nameOf(property);
            }
        });
}

} // namespace
