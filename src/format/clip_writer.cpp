#include "format/clip_writer.h"

#include <algorithm>
#include <vector>

#include "format/part_writer.h"
#include "format/schema.h"

namespace Korvel::CANTORIS::PLX::format {

namespace {

// The texts that are written: empty ones are left out.
std::vector<StringView> writtenTexts(const Filter& tags, const schema::filter::TextList& list)
{
    std::vector<StringView> texts;
    const std::uint64_t count = (tags.*list.count)();
    for (std::uint64_t index = 0; index < count; ++index) {
        const Char* const text = (tags.*list.text)(index);
        if (!isNullOrEmpty(text)) {
            texts.emplace_back(text);
        }
    }
    return texts;
}

// The languages that are written: negative ones are left out.
std::vector<std::int32_t> writtenLanguages(const Filter& tags)
{
    std::vector<std::int32_t> numbers;
    const std::uint64_t count = tags.numLanguages();
    for (std::uint64_t index = 0; index < count; ++index) {
        const std::int32_t number = tags.language(index);
        if (number >= 0) {
            numbers.push_back(number);
        }
    }
    return numbers;
}

// Vendors are no key of the document: they follow from the clip's vendor name when it is read.
bool hasWrittenTag(const Filter& tags)
{
    const auto& lists = schema::filter::textLists;
    return !writtenLanguages(tags).empty() ||
           std::any_of(lists.begin(), lists.end(),
                       [&tags](const auto& list) { return !writtenTexts(tags, list).empty(); });
}

void writeTexts(Output& out, const Filter& tags, const schema::filter::TextList& list)
{
    const auto texts = writtenTexts(tags, list);
    if (texts.empty()) {
        return;
    }
    out.key(schema::filter::keys[list.key]);
    out.beginArray();
    for (const StringView text : texts) {
        out.text(text);
    }
    out.endArray();
}

void writeLanguages(Output& out, const Filter& tags)
{
    const auto numbers = writtenLanguages(tags);
    if (numbers.empty()) {
        return;
    }
    out.key(schema::filter::keys[schema::filter::languages]);
    out.beginArray();
    for (const std::int32_t number : numbers) {
        out.integer(number);
    }
    out.endArray();
}

void writeFilter(Output& out, const Filter& tags)
{
    namespace keys = schema::filter;
    out.beginObject();
    for (const auto& list : keys::textLists) {
        writeTexts(out, tags, list);
        if (list.key + 1 == keys::languages) {
            writeLanguages(out, tags);
        }
    }
    out.endObject();
}

void writePartHeader(Output& out, const ClipBase& clip)
{
    namespace keys = schema::part_header;
    out.beginObject();
    out.key(keys::keys[keys::type]);
    out.ascii(part_type::name(clip.partType()));
    if (part_type::isMidi(clip.partType())) {
        out.key(keys::keys[keys::key]);
        out.integer(clip.partKey());
        if (clip.partTempo() != 0) {
            out.key(keys::keys[keys::tempo]);
            out.integer(clip.partTempo());
        }
    }
    out.endObject();
}

} // namespace

void writeProperties(Output& out, const ClipBase& clip, const Filter& tags, StringView id,
                     StringView name)
{
    namespace keys = schema::property;
    out.beginObject();
    out.key(keys::keys[keys::id]);
    out.text(id);
    out.key(keys::keys[keys::name]);
    out.text(name);
    if (!isNullOrEmpty(clip.vendorName())) {
        out.key(keys::keys[keys::vendor]);
        out.text(clip.vendorName());
    }
    if (hasWrittenTag(tags)) {
        out.key(keys::keys[keys::filter]);
        writeFilter(out, tags);
    }
    out.key(keys::keys[keys::part]);
    writePartHeader(out, clip);
    out.endObject();
}

bool writeData(Output& out, PartBase& part)
{
    out.beginObject();
    out.key(part_type::name(part.type()));
    if (!writePart(out, part)) {
        return false;
    }
    out.endObject();
    return true;
}

} // namespace Korvel::CANTORIS::PLX::format
