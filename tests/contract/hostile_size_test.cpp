// Very large documents, in the orders that are worst for a reader: each is read by the rules, and ten
// times as much takes about ten times as long.

#include <cstdint>
#include <string>
#include <vector>

#include "hostile_shapes.h"
#include "support/cpu_time.h"
#include "support/effort.h"
#include "support/properties.h"

namespace {

using hostile::arrayOf;
using hostile::name;
using hostile::Shape;
using support::count;
using support::expectNearLinear;
using support::jsonString;
using support::Object;
using support::utf8;

std::vector<Shape> allShapes()
{
    std::vector<Shape> shapes;
    for (const auto& some : {hostile::noteShapes(), hostile::expressionShapes(),
                             hostile::effectShapes(), hostile::laneShapes()}) {
        shapes.insert(shapes.end(), some.begin(), some.end());
    }
    return shapes;
}

class HostileSizeTest : public ReaderTest, public testing::WithParamInterface<Shape> {
protected:
    // Reads the part at that size, checks it, and tells what reading it cost.
    double secondsToRead(std::size_t size)
    {
        KRT_PLX_ClipBase* clip = clipOfPart();
        writeClipFile(GetParam().document(size));
        bool read = false;
        const double seconds = support::cpuSeconds([&] { read = KRT_PLX_Clip_readPart(clip); });
        EXPECT_TRUE(read);
        if (read) {
            GetParam().check(KRT_PLX_Clip_midiPart(clip), size);
        }
        return seconds;
    }
};

INSTANTIATE_TEST_SUITE_P(Shapes, HostileSizeTest, testing::ValuesIn(allShapes()),
                         [](const auto& shape) { return shape.param.name; });

TEST_P(HostileSizeTest, IsReadByTheRulesAndInNearLinearTime)
{
    const double tenth = secondsToRead(GetParam().size / 10);
    ASSERT_FALSE(HasFailure());
    if (!support::isSanitized()) { // what counts is the time that the shipped library takes
        expectNearLinear(tenth, secondsToRead(GetParam().size));
    }
}

// --- Catalogue properties ---

class HostilePropertiesTest : public ReaderTest {
protected:
    // The clip, and what reading the catalogue cost.
    double secondsToRead(const Object& document)
    {
        support::addClip(clipFolder(), document.text(), "no document");
        std::uint32_t code = 1;
        const double seconds = support::cpuSeconds([&] { code = read(); });
        EXPECT_EQ(code, KRT_PLX_RESULT_OK);
        EXPECT_NE(systemClip(0), nullptr);
        return seconds;
    }

    KRT_PLX_Filter* filter() { return KRT_PLX_Clip_filter(systemClip(0)); }
};

class HostileTagsTest : public HostilePropertiesTest,
                        public testing::WithParamInterface<support::TagList> {
protected:
    static constexpr std::size_t most = 50000;

    double secondsToReadTags(std::size_t size, std::size_t distinct)
    {
        const std::string tags = arrayOf(
            size, [=](std::size_t i) { return jsonString(name((size - 1 - i) % distinct)); });
        return secondsToRead(
            support::propertyObject().with("filter", Object{{GetParam().key, tags}}));
    }
};

INSTANTIATE_TEST_SUITE_P(Lists, HostileTagsTest, testing::ValuesIn(support::tagListsWithKeys),
                         [](const auto& list) { return std::string(list.param.key); });

TEST_P(HostileTagsTest, AreKeptInTheOrderOfTheFileInNearLinearTime)
{
    const double tenth = secondsToReadTags(most / 10, most / 10);
    expectNearLinear(tenth, secondsToReadTags(most, most));
    ASSERT_EQ(count(GetParam().count, filter()), most);
    for (std::size_t i = 0; i < most; ++i) {
        ASSERT_EQ(utf8(GetParam().at(filter(), i)), name(most - 1 - i));
    }
}

TEST_P(HostileTagsTest, AreKeptOnceEach)
{
    secondsToReadTags(most, 3);
    EXPECT_EQ(count(GetParam().count, filter()), 3u);
    secondsToReadTags(most, most / 2);
    EXPECT_EQ(count(GetParam().count, filter()), most / 2);
}

TEST_F(HostilePropertiesTest, KeepManyLanguagesInNearLinearTime)
{
    // Multiples of one number: in some hash tables they would all collide.
    const auto document = [](std::size_t size) {
        const std::string list =
            arrayOf(size, [](std::size_t i) { return std::to_string(i * 20000); });
        return support::propertyObject().with("filter", Object{{"languages", list}});
    };
    const double tenth = secondsToRead(document(10000));
    expectNearLinear(tenth, secondsToRead(document(100000)));
    ASSERT_EQ(count(KRT_PLX_Filter_numLanguages, filter()), 100000u);
    for (std::int32_t i = 0; i < 100000; ++i) {
        ASSERT_EQ(KRT_PLX_Filter_language(filter(), static_cast<std::uint64_t>(i)), i * 20000);
    }
}

TEST_F(HostilePropertiesTest, MayHaveManyUnknownKeys)
{
    Object document = support::propertyObject();
    std::string unknown;
    for (std::size_t i = 0; i < 50000; ++i) {
        unknown += jsonString(name(i)) + ": {\"id\": [" + std::to_string(i) + "]}, ";
    }
    for (const std::string& text : {"{" + unknown + document.text().substr(1),
                                    "{" + unknown + document.reversed().text().substr(1)}) {
        KRT_PLX_ClipBase* clip = readProperties(text);
        ASSERT_NE(clip, nullptr);
        EXPECT_EQ(utf8(KRT_PLX_Clip_id(clip)), "ID");
    }
}

TEST_F(HostilePropertiesTest, MayBeVeryLong)
{
    std::string kana;
    for (std::size_t i = 0; i < 500000; ++i) {
        kana += "桜";
    }
    const std::string id(1000000, 'x');
    const Object document = support::propertyObject()
                                .with("id", jsonString(id))
                                .with("name", jsonString(kana))
                                .with("vendor", jsonString(id + kana))
                                .with(std::string(1000000, 'k'), "1");
    KRT_PLX_ClipBase* clip = readProperties(document);
    ASSERT_NE(clip, nullptr);
    EXPECT_TRUE(utf8(KRT_PLX_Clip_id(clip)) == id);
    EXPECT_TRUE(utf8(KRT_PLX_Clip_name(clip)) == kana);
    EXPECT_TRUE(utf8(KRT_PLX_ClipBase_vendorName(clip)) == id + kana);
}

} // namespace
