// Random edits of a filter's six lists, beside plain lists that are edited by the same rules.
#include <algorithm>
#include <string>
#include <vector>

#include "sequence.h"
#include "support/editing.h"
#include "support/effort.h"
#include "support/properties.h"
#include "support/random.h"

using sequence::steps;
using support::Random;
using support::tagLists;
using support::text;
using support::utf8;

namespace {

constexpr std::size_t vendors = tagLists.size() - 1;

class FilterSequence : public HostTest, public testing::WithParamInterface<std::uint32_t> {
protected:
    template <class List, class Element>
    static bool contains(const List& list, const Element& element)
    {
        return std::ranges::find(list, element) != list.end();
    }

    // Short, long and empty ones.
    std::string someTag()
    {
        static const std::string letters = "abc";
        const char letter = random.oneOf(letters);
        const std::string tag(random.below(4), letter);
        return random.oneIn(8) ? tag + std::string(40, 'x') : tag;
    }

    // By a copy of the text or, at times, by the pointer from the list.
    bool callWithTag(bool (*function)(KRT_PLX_Filter*, const KRT_PLX_Char*), std::size_t list,
                     const std::string& tag)
    {
        const auto place = std::ranges::find(model[list], tag);
        if (place == model[list].end() || random.oneIn(2)) {
            return function(filter, text(tag).c_str());
        }
        const auto index = static_cast<std::uint64_t>(place - model[list].begin());
        return function(filter, tagLists[list].at(filter, index));
    }

    void add(std::size_t list, const std::string& tag)
    {
        const bool accepted = list == vendors || !tag.empty();
        ASSERT_EQ(callWithTag(tagLists[list].add, list, tag), accepted);
        if (accepted && !contains(model[list], tag)) {
            model[list].push_back(tag);
        }
    }

    void remove(std::size_t list, const std::string& tag)
    {
        ASSERT_EQ(callWithTag(tagLists[list].remove, list, tag), contains(model[list], tag));
        std::erase(model[list], tag);
    }

    void addLanguage(std::int32_t number)
    {
        ASSERT_EQ(KRT_PLX_MutableFilter_addLanguage(filter, number), number >= 0);
        if (number >= 0 && !contains(languages, number)) {
            languages.push_back(number);
        }
    }

    void removeLanguage(std::int32_t number)
    {
        ASSERT_EQ(KRT_PLX_MutableFilter_removeLanguage(filter, number),
                  contains(languages, number));
        std::erase(languages, number);
    }

    void step()
    {
        const std::size_t list = random.below(std::size(tagLists) + 1);
        const bool adds = random.below(5) < 3;
        if (list < std::size(tagLists)) {
            adds ? add(list, someTag()) : remove(list, someTag());
        } else {
            const std::int32_t number = random.between(-2, 12);
            adds ? addLanguage(number) : removeLanguage(number);
        }
    }

    void compare()
    {
        for (std::size_t list = 0; list < std::size(tagLists); ++list) {
            std::vector<std::string> actual;
            const std::uint64_t size = support::countOf(tagLists[list].count, filter);
            for (std::uint64_t index = 0; index < size; ++index) {
                actual.push_back(utf8(tagLists[list].at(filter, index)));
            }
            ASSERT_EQ(actual, model[list]);
        }
        ASSERT_EQ(support::countOf(KRT_PLX_Filter_numLanguages, filter), languages.size());
        for (std::size_t index = 0; index < languages.size(); ++index) {
            ASSERT_EQ(KRT_PLX_Filter_language(filter, index), languages[index]);
        }
    }

    Random random{GetParam()};
    std::vector<std::string> model[std::size(tagLists)];
    std::vector<std::int32_t> languages;
    KRT_PLX_Filter* const filter = KRT_PLX_MutableClip_filter(createMutableClip());
};

INSTANTIATE_TEST_SUITE_P(Seeds, FilterSequence, testing::Range(1u, 1 + support::seeds(6)));

TEST_P(FilterSequence, IsThatOfPlainLists)
{
    for (int number = 0; number < steps; ++number) {
        SCOPED_TRACE(number);
        step();
        compare();
        if (HasFatalFailure()) {
            return;
        }
    }
}

} // namespace
