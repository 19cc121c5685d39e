// Which values a document may have for each property of the list, and what happens with all others. A
// failure names the property and the value.
#include <map>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "support/clip_model.h"
#include "support/properties.h"
#include "support/reading.h"

namespace {

using support::array;
using support::asValue;
using support::forEachProperty;
using support::jsonString;
using support::largest;
using support::nameOf;
using support::Object;
using support::Property;
using support::PropertyValue;
using support::smallest;
using support::TextPointer;
using support::Values;

// --- Values as documents write them -----------------------------------------------------------------

struct Written {
    std::optional<std::string> json;
    PropertyValue value; // that the property then has
    bool isTaken;
};
using AllWritten = std::vector<Written>;

// Of another kind, or missing.
void addOthers(AllWritten& all, const std::vector<std::string>& others)
{
    all.push_back({std::nullopt, {}, false});
    for (const std::string& other : others) {
        all.push_back({other, {}, false});
    }
}

template <class Handle, class Value>
AllWritten written(const Property<Handle, Value>& property, Handle* handle)
{
    const std::int64_t low = property.leastOf(handle);
    const std::int64_t high = property.mostOf(handle);
    AllWritten all;
    for (const std::int64_t value :
         {low - 1, low, low + 1, high - 1, high, high + 1, high + 256, std::int64_t{-128},
          std::int64_t{-1}, std::int64_t{0}, std::int64_t{smallest}, std::int64_t{smallest} + 1,
          std::int64_t{largest} - 1, std::int64_t{largest}}) {
        if (value >= smallest && value <= largest) { // what has more bits is no integer
            const auto given = static_cast<Value>(value);
            all.push_back({std::to_string(value), given, low <= value && value <= high});
        }
    }
    addOthers(all, support::notIntegers());
    return all;
}

template <class Handle>
AllWritten written(const Property<Handle, float>& property, Handle* handle)
{
    static const std::pair<const char*, float> values[] = {
        {"0.0", 0},          {"1.0", 1},
        {"2.0", 2},          {"0.25", 0.25F},
        {"0.1", 0.1F},       {"1e-1", 0.1F},
        {"1E0", 1},          {"0e0", 0},
        {"5e-1", 0.5F},      {"25.0e-2", 0.25F},
        {"-0.0", 0},         {"0.99999994", 0.99999994F},
        {"1.5", 1.5F},       {"1.9999999", 1.9999999F},
        {"2.01", 2.01F},     {"1.0000002", 1.0000002F},
        {"20.0", 20},        {"2.0000003", 2.0000003F},
        {"100.0", 100},      {"1e2", 100},
        {"3.4e38", 3.4e38F}, {"-0.0000001", -0.0000001F},
        {"-1e-30", -1e-30F}, {"-0.25", -0.25F},
        {"-1.0", -1},        {"-3.4e38", -3.4e38F}};
    AllWritten all;
    for (const auto& [json, value] : values) {
        all.push_back({json, value, property.accepts(handle, value)});
    }
    addOthers(all, support::notFloats());
    return all;
}

template <class Handle>
AllWritten written(const Property<Handle, bool>&, Handle*)
{
    AllWritten all = {{"true", true, true}, {"false", false, true}};
    addOthers(all, support::notBooleans());
    return all;
}

// The units that a voice bank's ID has are counted in UTF-16, whatever the document looks like.
template <class Handle>
AllWritten written(const Property<Handle, TextPointer>& property, Handle* handle)
{
    const std::string clefs = "𝄞𝄞𝄞𝄞𝄞𝄞𝄞𝄞";
    AllWritten all;
    for (const std::string& value :
         {std::string(), std::string(" "), std::string("0"), std::string("null"),
          std::string("柔らかい"), std::string("𝄞"), std::string(15, 'x'), std::string(16, 'x'),
          std::string(16, ' '), std::string(17, 'x'), std::string(32, 'x'), clefs, clefs + clefs,
          std::string(15, 'x') + "𝄞", std::string("さくらさくらさくらさくらさくらさ")}) {
        const bool isTaken = property.accepts(handle, support::text(value).c_str()) &&
                             (property.texts != support::Texts::name || !value.empty());
        all.push_back({jsonString(value), value, isTaken});
    }
    all.push_back({R"("\u0041\u0041\u0041\u0041")", "AAAA",
                   property.accepts(handle, support::text("AAAA").c_str())});
    addOthers(all, support::notStrings());
    return all;
}

// --- Objects with everything in them ----------------------------------------------------------------

// A good value that is not the initial one, different for each property of an object.
template <class Handle, class Value>
std::pair<std::string, PropertyValue> goodValue(const Property<Handle, Value>& property,
                                                std::size_t index)
{
    if constexpr (std::is_same_v<Value, TextPointer>) {
        const std::string text = "ABCDEFGHIJKLMNO" + std::string(1, static_cast<char>('P' + index));
        return {jsonString(text), text};
    } else if constexpr (std::is_same_v<Value, bool>) {
        return {property.initial ? "false" : "true", !property.initial};
    } else if constexpr (std::is_same_v<Value, float>) {
        const float value = static_cast<float>(index + 1) / 64; // that six digits write
        return {std::to_string(value), value};
    } else {
        const auto base = std::is_same_v<Value, std::int32_t> ? Value{100} : property.minimum;
        const Value value = base + 1 + static_cast<Value>(index);
        return {std::to_string(value), value};
    }
}

enum class Order { given, reversed };

Object ordered(const Object& object, Order order)
{
    return order == Order::reversed ? object.reversed() : object;
}

// An object in a document, and the objects within it.
struct Tree {
    Object members;
    std::map<std::string, Object> within;

    [[nodiscard]] Object object(Order order = Order::given) const
    {
        Object whole = members;
        for (const auto& [key, inner] : within) {
            whole = whole.with(key, ordered(inner, order));
        }
        return ordered(whole, order);
    }

    [[nodiscard]] Tree with(const std::string& place, std::string_view key,
                            const std::optional<std::string>& value) const
    {
        Tree changed = *this;
        Object& object = place.empty() ? changed.members : changed.within[place];
        object = object.with(key, value);
        return changed;
    }
};

// --- Reading them -----------------------------------------------------------------------------------

// The two kinds of part, of Dvqm and of vibrato points alternate.
class DocumentProperties : public ReaderTest, public testing::WithParamInterface<bool> {
protected:
    const bool isAi = GetParam();

    // Whether a document with the object that is tested has that property.
    [[nodiscard]] bool isWritten(std::string_view within) const
    {
        return within != (isAi ? "voice" : "aiVoice");
    }

    // What an object must have beside the properties.
    [[nodiscard]] Tree rest(const KRT_PLX_ClipBase*) const
    {
        return Tree{support::propertyObject(), {}}.with("part", "type",
                                                        jsonString(isAi ? "midiAi" : "midi"));
    }
    [[nodiscard]] static Tree rest(const KRT_PLX_DvqmBase*)
    {
        return {{{"levelNames", R"(["soft", "hard"])"}}, {}};
    }
    [[nodiscard]] static Tree rest(const void*) { return {}; }

    // The object that is read; null when it is dropped.
    KRT_PLX_ClipBase* readObject(const Object& object, KRT_PLX_ClipBase*)
    {
        return readProperties(object);
    }
    KRT_PLX_PartBase* readObject(const Object& object, KRT_PLX_PartBase*)
    {
        return readPart(support::dataObject(isAi ? "midiAi" : "midi", object));
    }
    KRT_PLX_NoteBase* readObject(const Object& object, KRT_PLX_NoteBase*)
    {
        return readNote(object);
    }
    KRT_PLX_DvqmBase* readObject(const Object& object, KRT_PLX_DvqmBase*)
    {
        const Object both = {{isAi ? "attack" : "release", object}};
        KRT_PLX_NoteBase* const note = readNote(support::noteObject().with("dvqm", both));
        KRT_PLX_DvqmBase* const dvqm = KRT_PLX_Note_dvqm(note, isAi);
        return support::count(KRT_PLX_DvqmBase_numLevelNames, dvqm) == 0 ? nullptr : dvqm;
    }
    KRT_PLX_SingingSkillBase* readObject(const Object& object, KRT_PLX_SingingSkillBase*)
    {
        return KRT_PLX_Note_singingSkill(
            readNote(support::noteObject().with("singingSkill", object)));
    }
    KRT_PLX_VibratoBase* readObject(const Object& object, KRT_PLX_VibratoBase*)
    {
        return KRT_PLX_Note_vibrato(readNote(support::noteObject().with("vibrato", object)));
    }
    KRT_PLX_VibratoParameterBase* readObject(const Object& object, KRT_PLX_VibratoParameterBase*)
    {
        const Object vibrato =
            Object{{"duration", "200"}}.with(isAi ? "rates" : "depths", array({object}));
        KRT_PLX_VibratoBase* const read =
            KRT_PLX_Note_vibrato(readNote(support::noteObject().with("vibrato", vibrato)));
        return KRT_PLX_Vibrato_parameter(read, isAi ? KRT_PLX_VIBRATO_RATE : KRT_PLX_VIBRATO_DEPTH,
                                         0);
    }

    // Calls visit(null) with the type of each object. Of those that have no kinds, one is enough.
    template <class Visit>
    void forEachObject(Visit visit)
    {
        visit(static_cast<KRT_PLX_ClipBase*>(nullptr));
        visit(static_cast<KRT_PLX_PartBase*>(nullptr));
        visit(static_cast<KRT_PLX_DvqmBase*>(nullptr));
        visit(static_cast<KRT_PLX_VibratoParameterBase*>(nullptr));
        if (!isAi) {
            visit(static_cast<KRT_PLX_NoteBase*>(nullptr));
            visit(static_cast<KRT_PLX_SingingSkillBase*>(nullptr));
            visit(static_cast<KRT_PLX_VibratoBase*>(nullptr));
        }
    }

    // Calls visit(property, index) with each property that a document with its object has.
    template <class Visit>
    void forEachWritten(Visit visit)
    {
        forEachObject([&]<class Handle>(Handle*) {
            std::size_t index = 0;
            forEachProperty<Handle>([&](const auto& property) {
                if (isWritten(property.within)) {
                    visit(property, index);
                }
                ++index;
            });
        });
    }

    // With every property, and what is then read.
    template <class Handle>
    std::pair<Tree, Values<Handle>> everything()
    {
        Tree tree = rest(static_cast<Handle*>(nullptr));
        Values<Handle> values;
        std::size_t index = 0;
        forEachProperty<Handle>([&](const auto& property) {
            if (isWritten(property.within)) {
                const auto [json, value] = goodValue(property, index);
                tree = tree.with(property.within, property.key, json);
                values.at(index) = value;
            }
            ++index;
        });
        return {tree, values};
    }

    template <class Handle>
    static void expectValues(Handle* handle, const Values<Handle>& wanted, const std::string& what)
    {
        ASSERT_NE(handle, nullptr) << what;
        std::size_t index = 0;
        forEachProperty<Handle>([&](const auto& property) {
            EXPECT_EQ(asValue(property.get(handle)), wanted.at(index++))
                << nameOf(property) << " of " << what;
        });
    }

    template <class Handle, class Value>
    void expectTakesItsRange(const Property<Handle, Value>& property, std::size_t index);
    template <class Handle, class Value>
    void expectTakesItsKey(const Property<Handle, Value>& property, std::size_t index);
};

INSTANTIATE_TEST_SUITE_P(Kinds, DocumentProperties, testing::Bool(),
                         [](const auto& isAi) { return isAi.param ? "midiAi" : "midi"; });

TEST_P(DocumentProperties, AreReadFromTheirKeysInAnyOrder)
{
    forEachObject([this]<class Handle>(Handle* type) {
        const auto [tree, values] = everything<Handle>();
        for (const Order order : {Order::given, Order::reversed}) {
            const Object object = tree.object(order);
            expectValues(readObject(object, type), values, object.text());
        }
    });
}

// A value that is refused leaves the initial one, or takes the object with it; the others stay.
template <class Handle, class Value>
void DocumentProperties::expectTakesItsRange(const Property<Handle, Value>& property,
                                             std::size_t index)
{
    Handle* const type = nullptr;
    const auto [tree, good] = everything<Handle>();
    for (const Written& one : written(property, readObject(tree.object(), type))) {
        const Object object = tree.with(property.within, property.key, one.json).object();
        const std::string what = nameOf(property) + " = " + one.json.value_or("(absent)");
        Handle* const read = readObject(object, type);
        if (!one.isTaken && property.need != support::Need::optional) {
            EXPECT_EQ(read, nullptr) << what;
            continue;
        }
        Values<Handle> wanted = good;
        wanted.at(index) = one.isTaken ? one.value : Values<Handle>().at(index);
        if constexpr (std::is_same_v<Handle, KRT_PLX_VibratoBase>) { // what follows is not read
            EXPECT_EQ(asValue(property.get(read)), wanted.at(index)) << what;
        } else {
            expectValues(read, wanted, what);
        }
    }
}

// Keys that differ from this one in their last letter, or have one more.
std::vector<std::string> nearly(const std::string& key)
{
    std::vector<std::string> all = {key + 'x', key + '~'};
    for (const int step : {-1, 1}) {
        for (const std::size_t place : {std::size_t{0}, key.size() - 1}) {
            all.push_back(key);
            all.back()[place] = static_cast<char>(key[place] + step);
        }
    }
    return all;
}

template <class Handle, class Value>
void DocumentProperties::expectTakesItsKey(const Property<Handle, Value>& property,
                                           std::size_t index)
{
    const auto [tree, good] = everything<Handle>();
    const auto without = tree.with(property.within, property.key, std::nullopt);
    Values<Handle> wanted = good;
    wanted.at(index) = Values<Handle>().at(index);
    for (const std::string& key : nearly(std::string(property.key))) {
        const auto [json, value] = goodValue(property, index);
        const Object object = without.with(property.within, key, json).object();
        Handle* const read = readObject(object, static_cast<Handle*>(nullptr));
        if (property.need == support::Need::optional) {
            expectValues(read, wanted, object.text());
        } else {
            EXPECT_EQ(read, nullptr) << object.text();
        }
    }
}

TEST_P(DocumentProperties, AreReadFromTheWholeKeyOnly)
{
    forEachWritten(
        [this](const auto& property, std::size_t index) { expectTakesItsKey(property, index); });
}

TEST_P(DocumentProperties, AreTakenWithinTheirRangeOnly)
{
    forEachWritten(
        [this](const auto& property, std::size_t index) { expectTakesItsRange(property, index); });
}

// An inner object that is empty, of another kind, or missing.
TEST_P(DocumentProperties, HaveTheirInitialValuesWithoutTheObjectThatHoldsThem)
{
    forEachObject([this]<class Handle>(Handle* type) {
        const auto [tree, good] = everything<Handle>();
        for (const auto& [key, inner] : tree.within) {
            if (key == "voice" || key == "aiVoice" || key == "part") {
                continue; // the object is nothing without it
            }
            Values<Handle> wanted = good;
            wanted.forget(key);
            std::vector<std::string> others = support::notObjects();
            others.emplace_back("{}");
            for (const std::string& other : others) {
                const Object object = tree.object().with(key, other);
                expectValues(readObject(object, type), wanted, object.text());
            }
            expectValues(readObject(tree.object().without(key), type), wanted, "no " + key);
        }
    });
}

} // namespace
