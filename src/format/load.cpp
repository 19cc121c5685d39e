#include "format/load.h"

#include "format/document.h"
#include "format/filter_reader.h"
#include "format/part_reader.h"
#include "format/values.h"

namespace Korvel::CANTORIS::PLX::format {

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
    const auto type = asUtf8(members[keys::type]);
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
    return properties.partType != part_type::none;
}

// Null when the file cannot be read and when it holds no document.
const Value* parseFile(const String& path, std::string& bytes, Document& document,
                       fs::Kind kind = fs::Kind::unknown)
{
    return fs::readFile(path, bytes, kind) ? document.parse(bytes) : nullptr;
}

} // namespace

Loader::Loader() : document_(std::make_unique<Document>()) {}
Loader::~Loader() = default;

bool Loader::loadProperties(const String& path, ClipProperties& properties, fs::Kind kind)
{
    const Value* const root = parseFile(path, bytes_, *document_, kind);
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

bool Loader::loadClip(const String& path, ClipBase* clip, LoadedClip& loaded)
{
    const Value* const root = parseFile(path, bytes_, *document_);
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
    loaded.part = readPart(members, fs::parentPath(path), clip);
    return loaded.part != nullptr;
}

std::unique_ptr<PartBase> Loader::loadPart(const String& path, ClipBase* clip)
{
    const Value* const root = parseFile(path, bytes_, *document_);
    if (root == nullptr) {
        return nullptr;
    }
    return readPart(DataMembers(*root, schema::data::keys), fs::parentPath(path), clip);
}

} // namespace Korvel::CANTORIS::PLX::format
