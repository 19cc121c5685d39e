// The values of the list of properties, read and set through the face. A failure names the property. The list is
// written in C++20, unlike the other tests of the face.
#include <cmath>
#include <limits>
#include <string>
#include <tuple>

#include "face/face_fixture.h"
#include "face_calls.h"
#include "support/properties.h"

namespace {

using support::nameOf;
using support::Property;
using support::TextPointer;

// What the face says. Where the list has an initial value that stands for none, the face has nothing.
template <class Value, class Said>
Value plain(const Said& said, const Value& none)
{
    if constexpr (requires { said.has_value(); }) {
        return said ? Value(*said) : none;
    } else {
        return Value(said);
    }
}

template <class Value>
Value nextBelow(Value value)
{
    using Limits = std::numeric_limits<Value>;
    if constexpr (std::is_integral_v<Value>) {
        return value == Limits::min() ? value : value - 1;
    } else {
        return std::nextafter(value, -Limits::infinity());
    }
}

template <class Value>
Value nextAbove(Value value)
{
    using Limits = std::numeric_limits<Value>;
    if constexpr (std::is_integral_v<Value>) {
        return value == Limits::max() ? value : value + 1;
    } else {
        return std::nextafter(value, Limits::infinity());
    }
}

// --- One property -------------------------------------------------------------------------------------

// Leaves the old value behind, because other ranges depend on it.
template <class Handle, class Value, class Get, class Set>
void expectIsSet(const Property<Handle, Value>& property, Handle* handle, Get get, Set set)
{
    const Value before = property.get(handle);
    const Value least = property.leastOf(handle);
    const Value most = property.mostOf(handle);
    for (const Value value : {least, most}) {
        EXPECT_TRUE(set(handle, value)) << value;
        EXPECT_EQ(property.get(handle), value);
        EXPECT_EQ(plain(get(handle), property.initial), value);
    }
    for (const Value value : {nextBelow(least), nextAbove(most)}) {
        if (!property.accepts(handle, value)) {
            EXPECT_FALSE(set(handle, value)) << value;
            EXPECT_EQ(plain(get(handle), property.initial), most) << value;
        }
    }
    property.set(handle, before);
}

template <class Handle, class Get, class Set>
void expectIsSet(const Property<Handle, bool>& property, Handle* handle, Get get, Set set)
{
    for (const bool value : {true, false}) {
        EXPECT_EQ(set(handle, value), property.succeeds(value)) << value;
        EXPECT_EQ(property.get(handle), value);
        EXPECT_EQ(get(handle), value);
    }
}

template <class Handle, class Get, class Set>
void expectIsSet(const Property<Handle, TextPointer>& property, Handle* handle, Get get, Set set)
{
    const plx::String good = plx::fromUtf8("a good voicebank");
    for (const char* const utf8 : {"x", "", "a bad voicebank"}) {
        const plx::String text = plx::fromUtf8(utf8);
        EXPECT_TRUE(set(handle, good));
        const bool isTaken = property.accepts(handle, text.c_str());
        EXPECT_EQ(set(handle, text), isTaken) << utf8;
        EXPECT_EQ(plx::String(property.get(handle)), isTaken ? text : good) << utf8;
        EXPECT_EQ(plain(get(handle), plx::StringView()), isTaken ? text : good) << utf8;
    }
}

template <class Handle, class Value, class Get>
void expectIsInitial(const Property<Handle, Value>& property, Handle* handle, Get get)
{
    if constexpr (std::is_same_v<Value, TextPointer>) {
        EXPECT_EQ(plain(get(handle), plx::StringView()), plx::StringView());
    } else {
        EXPECT_EQ(property.get(handle), property.initial);
        EXPECT_EQ(plain(get(handle), property.initial), property.initial);
    }
}

// --- All of them --------------------------------------------------------------------------------------

// Has one object of each kind. The vibrato is not that of the point, which needs some space in its own.
class FaceProperties : public FaceTest {
protected:
    FaceProperties()
    {
        const plx::MutableVibrato long_ = part.insertNote(480, 480, text, text, 0).vibrato();
        long_.setDuration(480);
        std::get<KRT_PLX_VibratoParameterBase*>(objects) =
            long_.insertParameter(plx::VibratoPointKind::rate, 0, 0).raw();
    }

    // Calls visit(property, object, face's getter, face's setter) and says which property it is.
    template <class Visit>
    std::size_t forEachProperty(Visit visit)
    {
        std::size_t count = 0;
        forEachFaceCall(
            [&]<class Handle, class Value>(Value (*getter)(Handle*) noexcept, auto get, auto set) {
                const Property<Handle, Value>& property = support::propertyOf(getter);
                SCOPED_TRACE(nameOf(property));
                visit(property, std::get<Handle*>(objects), get, set);
                ++count;
            });
        return count;
    }

    const plx::String text = plx::fromUtf8("text");
    const plx::MutableClip clip = manager.createMutableClip();
    const plx::MutableMidiPart part = clip.createMidiPart();
    const plx::MutableNote note = part.insertNote(0, 480, text, text, 0);
    std::tuple<KRT_PLX_ClipBase*, KRT_PLX_PartBase*, KRT_PLX_NoteBase*, KRT_PLX_SingingSkillBase*,
               KRT_PLX_DvqmBase*, KRT_PLX_VibratoBase*, KRT_PLX_VibratoParameterBase*,
               KRT_PLX_MidiEventBase*, KRT_PLX_EffectParameterBase*>
        objects{clip.raw(),
                part.raw(),
                note.raw(),
                note.singingSkill().raw(),
                note.attack().raw(),
                note.vibrato().raw(),
                nullptr,
                part.addMidiController(plx::ControllerType::exciter).insertEvent(0, 1).raw(),
                part.insertMidiEffect(0, text).addParameter(text).raw()};
};

TEST_F(FaceProperties, AreAllOfTheList)
{
    const std::size_t listed = std::apply(
        []<class... Handle>(Handle*...) { return (support::properties<Handle>().size() + ...); },
        objects);
    EXPECT_EQ(forEachProperty([](const auto&...) {}), listed);
}

// A note's language is given when it is made.
TEST_F(FaceProperties, HaveTheirInitialValues)
{
    forEachProperty([](const auto& property, auto* object, auto get, auto) {
        if (property.need != support::Need::argument && nameOf(property) != "note.langID") {
            expectIsInitial(property, object, get);
        }
    });
}

TEST_F(FaceProperties, TakeTheValuesOfTheirRangeAndNoOthers)
{
    forEachProperty([](const auto& property, auto* object, auto get, auto set) {
        expectIsSet(property, object, get, set);
    });
}

} // namespace
