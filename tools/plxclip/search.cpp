#include "search.h"

#include <algorithm>
#include <map>
#include <set>

#include "plain.h"

namespace plxclip {

namespace {

template <typename Value>
bool has(const std::vector<Value>& values, const std::optional<Value>& wanted)
{
    return !wanted || std::find(values.begin(), values.end(), *wanted) != values.end();
}

template <typename Value>
bool is(const Value& value, const std::optional<Value>& wanted)
{
    return !wanted || value == *wanted;
}

bool isText(const std::string& text, const std::optional<std::string>& wanted)
{
    return !wanted || isWantedText(text, *wanted);
}

bool hasText(const std::vector<std::string>& texts, const std::optional<std::string>& wanted)
{
    return !wanted || std::ranges::any_of(texts, [&wanted](const std::string& text) {
        return isWantedText(text, *wanted);
    });
}

// A clip without any tags has no vendor tag either, but still a vendor.
bool hasVendor(const Properties& clip, const std::optional<std::string>& wanted)
{
    return isText(clip.vendor, wanted) || hasText(clip.tags.vendors, wanted);
}

bool hasTempo(const Properties& clip, const Search& search)
{
    return !search.tempo ||
           (clip.tempo >= search.tempo->first && clip.tempo <= search.tempo->second);
}

using Less = bool (*)(const Properties&, const Properties&);

Less lessBy(Order order)
{
    switch (order) {
    case Order::name:
        return [](const Properties& a, const Properties& b) { return a.name < b.name; };
    case Order::vendor:
        return [](const Properties& a, const Properties& b) { return a.vendor < b.vendor; };
    case Order::part:
        return [](const Properties& a, const Properties& b) {
            return nameOf(a.partType) < nameOf(b.partType);
        };
    case Order::key:
        return [](const Properties& a, const Properties& b) { return a.key < b.key; };
    case Order::tempo:
        return [](const Properties& a, const Properties& b) { return a.tempo < b.tempo; };
    case Order::id:
        return [](const Properties& a, const Properties& b) { return a.id < b.id; };
    case Order::found:
        break;
    }
    return [](const Properties&, const Properties&) { return false; };
}

std::set<std::string> asSet(const std::vector<std::string>& texts)
{
    return {texts.begin(), texts.end()};
}

std::set<std::string> languagesOf(const Properties& clip)
{
    std::set<std::string> texts;
    for (const std::int32_t language : clip.tags.languages) {
        texts.insert(std::to_string(language));
    }
    return texts;
}

std::set<std::string> tagsOf(const Properties& clip, Tag tag)
{
    switch (tag) {
    case Tag::type:
        return asSet(clip.tags.types);
    case Tag::genre:
        return asSet(clip.tags.genres);
    case Tag::language:
        return languagesOf(clip);
    case Tag::vendor:
        return {clip.vendor};
    case Tag::singerGroup:
        return asSet(clip.tags.singerGroups);
    case Tag::part:
        return {std::string(nameOf(clip.partType))};
    case Tag::key:
        break;
    }
    return {std::to_string(clip.key)};
}

} // namespace

bool matches(const Properties& clip, const Search& search)
{
    return is(clip.partType, search.part) && hasText(clip.tags.types, search.type) &&
           hasText(clip.tags.genres, search.genre) && has(clip.tags.languages, search.language) &&
           hasVendor(clip, search.vendor) && hasText(clip.tags.singerGroups, search.singerGroup) &&
           is(clip.key, search.key) && hasTempo(clip, search) && isText(clip.name, search.name);
}

void sortClips(std::vector<Properties>& clips, Order order, bool reversed)
{
    const Less less = lessBy(order);
    std::stable_sort(clips.begin(), clips.end(), [=](const Properties& a, const Properties& b) {
        return reversed ? less(b, a) : less(a, b);
    });
    if (reversed && order == Order::found) {
        std::reverse(clips.begin(), clips.end());
    }
}

std::vector<TagCount> countTags(const std::vector<Properties>& clips, Tag tag)
{
    std::map<std::string, std::size_t> found;
    for (const Properties& clip : clips) {
        for (const std::string& text : tagsOf(clip, tag)) {
            ++found[text];
        }
    }
    std::vector<TagCount> counts;
    for (const auto& [text, number] : found) {
        counts.push_back({text, number});
    }
    std::stable_sort(counts.begin(), counts.end(),
                     [](const TagCount& a, const TagCount& b) { return a.clips > b.clips; });
    return counts;
}

} // namespace plxclip
