#include "reference/load.h"

#include <optional>

#include "reference/document.h"
#include "reference/filter_reader.h"
#include "reference/part_reader.h"
#include "reference/values.h"

namespace Korvel::CANTORIS::PLX::reference {

namespace {

bool readRequiredText(const Value* value, String& slot)
{
    auto text = asText(value);
    if (!text || text->empty()) {
        return false;
    }
    slot = std::move(*text);
    return true;
}

void readVendorAndFilter(const Value* vendor, const Value* filter, ClipProperties& properties)
{
    if (auto name = asText(vendor)) {
        properties.vendorName = std::move(*name);
    }
    if (asObject(filter) != nullptr) {
        readFilter(*filter, properties.vendorName, properties.filter);
    }
}

bool readPartHeader(const Value* value, ClipProperties& properties)
{
    if (asObject(value) == nullptr) {
        return false;
    }
    namespace keys = schema::part_header;
    const Members members(*value, keys::keys);
    const auto type = asWholeUtf8(members[keys::type]);
    if (!type) {
        return false;
    }
    properties.partType = part_type::fromName(*type);
    if (part_type::isMidi(properties.partType)) {
        if (const auto key = asInteger(members[keys::key])) {
            properties.assignPartKey(static_cast<std::uint32_t>(*key));
        }
        if (const auto tempo = asInteger(members[keys::tempo])) {
            properties.assignPartTempo(static_cast<std::uint32_t>(*tempo));
        }
    }
    return properties.partType != KRT_PLX_PART_NONE;
}

// False without a root, too.
bool fill(ClipProperties& properties, const Value* root)
{
    if (root == nullptr) {
        return false;
    }
    namespace keys = schema::property;
    const Members members(*root, keys::keys);
    if (!readRequiredText(members[keys::id], properties.id) ||
        !readRequiredText(members[keys::name], properties.name) ||
        !readPartHeader(members[keys::part], properties)) {
        return false;
    }
    readVendorAndFilter(members[keys::vendor], members[keys::filter], properties);
    return true;
}

} // namespace

bool readProperties(std::string& bytes, ClipProperties& properties)
{
    Document document;
    return fill(properties, document.parse(bytes));
}

bool readClip(std::string& bytes, const fs::Path& directory, ClipBase* clip, LoadedClip& loaded)
{
    Document document;
    const Value* const root = document.parse(bytes);
    if (root == nullptr) {
        return false;
    }
    namespace keys = schema::data;
    const DataMembers members(*root, keys::keys);
    if (!readRequiredText(members[keys::id], loaded.properties.id) ||
        !readRequiredText(members[keys::name], loaded.properties.name)) {
        return false;
    }
    readVendorAndFilter(members[keys::vendor], members[keys::filter], loaded.properties);
    loaded.part = readPart(members, directory, clip);
    return loaded.part != nullptr;
}

std::unique_ptr<PartBase> readPart(std::string& bytes, const fs::Path& directory, ClipBase* clip)
{
    Document document;
    const Value* const root = document.parse(bytes);
    if (root == nullptr) {
        return nullptr;
    }
    return readPart(DataMembers(*root, schema::data::keys), directory, clip);
}

} // namespace Korvel::CANTORIS::PLX::reference
