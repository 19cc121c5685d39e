#include "format/clip_writer.h"

#include <algorithm>

#include "format/part_writer.h"
#include "format/schema.h"

namespace Korvel::CANTORIS::PLX::format {

namespace {

bool hasText(const FilterTags& tags, Tag tag)
{
    const auto texts = tags.texts(tag).views();
    return std::any_of(texts.begin(), texts.end(), [](StringView text) { return !text.empty(); });
}

bool hasLanguage(const FilterTags& tags)
{
    const auto& numbers = tags.languages();
    return std::any_of(numbers.begin(), numbers.end(), [](std::int32_t n) { return n >= 0; });
}

// Vendors are no key of the document: they follow from the clip's vendor name when it is read.
bool hasWrittenTag(const FilterTags& tags)
{
    const auto& lists = schema::filter::textLists;
    return hasLanguage(tags) || std::any_of(lists.begin(), lists.end(), [&tags](const auto& list) {
               return hasText(tags, list.tag);
           });
}

void writeTexts(Output& out, const FilterTags& tags, const schema::filter::TextList& list)
{
    if (!hasText(tags, list.tag)) {
        return;
    }
    out.key(schema::filter::keys[list.key]);
    out.beginArray();
    for (const StringView text : tags.texts(list.tag).views()) {
        if (!text.empty()) {
            out.text(text);
        }
    }
    out.endArray();
}

void writeLanguages(Output& out, const FilterTags& tags)
{
    if (!hasLanguage(tags)) {
        return;
    }
    out.key(schema::filter::keys[schema::filter::languages]);
    out.beginArray();
    for (const std::int32_t number : tags.languages()) {
        if (number >= 0) {
            out.integer(number);
        }
    }
    out.endArray();
}

void writeFilter(Output& out, const FilterTags& tags)
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

void writeProperties(Output& out, const ClipBase& clip, const FilterTags& tags, StringView id,
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
