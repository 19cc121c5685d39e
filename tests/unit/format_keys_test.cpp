// Compares the table of keys with the model: what a row says about a value must be what its object
// does with it.
#include <functional>
#include <set>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "format/keys.h"

namespace {

namespace plx = Korvel::CANTORIS::PLX;
namespace keys = plx::format::keys;

struct Objects {
    plx::MidiPartImpl part{nullptr};
    plx::NoteImpl note{part};
};

// Whether the object accepts the value; a setter that cannot refuse accepts all.
template <class Put, class Target, class Value>
bool takes(const Put& put, Target& target, Value value)
{
    if constexpr (std::is_same_v<std::invoke_result_t<const Put&, Target&, Value>, bool>) {
        return std::invoke(put, target, value);
    } else {
        std::invoke(put, target, value);
        return true;
    }
}

template <class Get, class Put, class Target>
void expectRange(const keys::Entry<keys::Kind::integer, Get, Put>& entry, Target& target)
{
    SCOPED_TRACE(entry.row.key);
    const keys::Range& range = entry.row.range;
    const auto at = [](double value) { return static_cast<std::int32_t>(value); };
    if (range.initial <= range.maximum) {
        EXPECT_EQ(static_cast<double>(std::invoke(entry.get, target)), range.initial);
    }
    EXPECT_TRUE(takes(entry.put, target, at(range.minimum)));
    EXPECT_TRUE(takes(entry.put, target, at(range.maximum)));
    if (range.minimum > std::numeric_limits<std::int32_t>::min()) {
        EXPECT_FALSE(takes(entry.put, target, at(range.minimum) - 1));
    }
    if (range.maximum < std::numeric_limits<std::int32_t>::max()) {
        EXPECT_FALSE(takes(entry.put, target, at(range.maximum) + 1));
    }
    EXPECT_TRUE(takes(entry.put, target, at(range.minimum)));
}

template <class Get, class Put, class Target>
void expectRange(const keys::Entry<keys::Kind::real, Get, Put>& entry, Target& target)
{
    SCOPED_TRACE(entry.row.key);
    const keys::Range& range = entry.row.range;
    EXPECT_EQ(static_cast<double>(std::invoke(entry.get, target)), range.initial);
    EXPECT_TRUE(takes(entry.put, target, static_cast<float>(range.minimum)));
    EXPECT_TRUE(takes(entry.put, target, static_cast<float>(range.maximum)));
    EXPECT_FALSE(takes(entry.put, target, static_cast<float>(range.minimum) - 0.001F));
    EXPECT_FALSE(takes(entry.put, target, static_cast<float>(range.maximum) + 0.001F));
    EXPECT_EQ(static_cast<double>(std::invoke(entry.get, target)), range.maximum);
}

template <class Get, class Put, class Target>
void expectRange(const keys::Entry<keys::Kind::flag, Get, Put>& entry, Target& target)
{
    SCOPED_TRACE(entry.row.key);
    EXPECT_FALSE(std::invoke(entry.get, target));
    EXPECT_TRUE(takes(entry.put, target, true));
    EXPECT_TRUE(std::invoke(entry.get, target));
}

template <class Entry, class Target>
void expectRange(const Entry&, Target&)
{
}

template <class Of, class Target>
void expectRanges(Target& target)
{
    std::apply([&](const auto&... entry) { (expectRange(entry, target), ...); }, Of::entries);
}

TEST(FormatKeys, SayTheRangesAndInitialValuesOfANote)
{
    Objects objects;
    expectRanges<keys::NoteTable>(objects.note);
    expectRanges<keys::Expression>(objects.note);
    expectRanges<keys::AiExpressionTable>(objects.note);
}

// In the longest note, the objects can be as long as their fields allow.
TEST(FormatKeys, SayTheRangesAndInitialValuesOfTheObjectsInANote)
{
    Objects objects;
    ASSERT_TRUE(objects.note.assignDuration(plx::lastPosition));
    expectRanges<keys::SingingSkillTable>(*objects.note.singingSkill());
    expectRanges<keys::Weight>(*objects.note.singingSkill());
    expectRanges<keys::VibratoTable>(*objects.note.vibrato());
    expectRanges<keys::Attack>(*objects.note.dvqm(true));
    expectRanges<keys::Release>(*objects.note.dvqm(false));
}

TEST(FormatKeys, SayTheRangesAndInitialValuesOfAPart)
{
    Objects objects;
    expectRanges<keys::MidiVoicePartTable>(objects.part);
    expectRanges<keys::Voice>(objects.part);
}

void gather(const keys::Shape& shape, std::vector<const keys::Shape*>& shapes)
{
    shapes.push_back(&shape);
    for (const keys::Row& row : shape.rows) {
        if (row.inner != nullptr) {
            gather(*row.inner, shapes);
        }
    }
}

std::vector<const keys::Shape*> allShapes()
{
    std::vector<const keys::Shape*> shapes;
    gather(keys::shape<keys::PropertyDocument>, shapes);
    gather(keys::shape<keys::DataDocument>, shapes);
    return shapes;
}

TEST(FormatKeys, AreReachableFromTheTwoDocuments)
{
    std::set<keys::Id> ids;
    for (const keys::Shape* const shape : allShapes()) {
        ids.insert(shape->id);
    }
    EXPECT_EQ(ids.size(), static_cast<std::size_t>(keys::Id::depth) + 1);
}

TEST(FormatKeys, AreUniqueInAnObject)
{
    for (const keys::Shape* const shape : allShapes()) {
        std::set<std::string_view> known;
        for (const keys::Row& row : shape->rows) {
            EXPECT_TRUE(known.insert(row.key).second) << row.key;
        }
    }
}

TEST(FormatKeys, HaveObjectsBehindThemAsTheirKindSays)
{
    for (const keys::Shape* const shape : allShapes()) {
        for (const keys::Row& row : shape->rows) {
            const bool holdsObjects =
                row.kind == keys::Kind::object || row.kind == keys::Kind::objects;
            EXPECT_EQ(row.inner != nullptr, holdsObjects) << row.key;
        }
    }
}

} // namespace
